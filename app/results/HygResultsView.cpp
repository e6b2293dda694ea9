#include "HygResultsView.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "HygIconEngine.h"
#include "HygResultTree.h"
#include "HygThresholdField.h"
#include "HygTimeBar.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialNotice.h"
#include "simulation/HygOutputDirectory.h"

#include <SCI/Axis.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QSlider>
#include <QSpinBox>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>

#include <QtExt/Palette.h>

namespace {

using Options = HygResultChart::Options;

constexpr int FOLLOW_MS = 1000;
constexpr int CUT_STEPS = 1000;
constexpr double MM = 1000;

/// A switch of the chart, and where it counts.
struct FlagRow {
    bool Options::*member;
    const char * objectName;
    const char * label;
    const char * toolTip;
    enum use_t { COURSE, LINES, FIELD } use;
};
// clang-format off
constexpr FlagRow FLAGS[] = {
    {&Options::hasDates,      "dates",      QT_TRANSLATE_NOOP("HygResultsView", "Dates"),
     QT_TRANSLATE_NOOP("HygResultsView", "Times as days and months of a year without leap day"), FlagRow::COURSE},
    {&Options::hasDewPoint,   "dewPoint",   QT_TRANSLATE_NOOP("HygResultsView", "Dew point"),
     QT_TRANSLATE_NOOP("HygResultsView", "To temperatures the temperature at which the air in the pores would give off water; needs the relative humidity of the same places"), FlagRow::LINES},
    {&Options::hasMouldLimit, "mouldLimit", QT_TRANSLATE_NOOP("HygResultsView", "80 %"),
     QT_TRANSLATE_NOOP("HygResultsView", "Line at 80 % relative humidity, above which mould can grow on surfaces"), FlagRow::LINES},
    {&Options::isSmooth,      "smooth",     QT_TRANSLATE_NOOP("HygResultsView", "Smooth"),
     QT_TRANSLATE_NOOP("HygResultsView", "Colours between the centres of the cells are interpolated"), FlagRow::FIELD},
    {&Options::hasIsolines,   "isolines",   QT_TRANSLATE_NOOP("HygResultsView", "Isolines"),
     QT_TRANSLATE_NOOP("HygResultsView", "Lines of equal value at the ticks of the colour bar"), FlagRow::FIELD},
    {&Options::hasArrows,     "arrows",     QT_TRANSLATE_NOOP("HygResultsView", "Arrows"),
     QT_TRANSLATE_NOOP("HygResultsView", "Direction and strength of a flux that is ticked beside the field"), FlagRow::FIELD},
};
// clang-format on

} // namespace

HygResultsView::HygResultsView(HygProjectHandler * projects)
    : m_projects(*projects), m_tree(new HygResultTree(this)), m_chart(new HygResultChart(this)),
      m_timeBar(new HygTimeBar(this)), m_addFolder(new QToolButton(this)), m_addProject(new QToolButton(this)),
      m_removeFolder(new QToolButton(this)), m_measured(new QToolButton(this)), m_removeMeasured(new QAction(this)),
      m_export(new QToolButton(this)), m_layouts(new QToolButton(this)), m_mode(new QComboBox(this)),
      m_unit(new QComboBox(this)), m_place(new QSpinBox(this)), m_placeText(new QLabel(this)),
      m_normal(new QComboBox(this)), m_plane(new QSlider(Qt::Horizontal, this)), m_planeText(new QLabel(this)),
      m_cut(new QComboBox(this)), m_cutPlace(new QSlider(Qt::Horizontal, this)), m_cutText(new QLabel(this)),
      m_threshold(new HygThresholdField(this)), m_statistics(new QLabel(this)), m_problems(new QLabel(this)),
      m_layoutStory(new QLabel(this)), m_materials(new HygMaterialNotice(*projects, this)), m_timer(new QTimer(this)) {
    setObjectName(QStringLiteral("HygResultsView"));
    auto * right = new QWidget(this);
    auto * column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeOptions());
    column->addWidget(m_problems);
    column->addWidget(m_layoutStory);
    column->addWidget(m_materials);
    column->addWidget(m_chart, 1);
    column->addWidget(m_timeBar);
    column->addWidget(m_statistics);
    auto * splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(makeFiles());
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({500, 860});
    auto * layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    m_timer->setInterval(FOLLOW_MS);

    connect(m_tree, &HygResultTree::chosenChanged, this, &HygResultsView::openChosen);
    connect(m_timeBar, &HygTimeBar::indexChanged, this, &HygResultsView::showTime);
    connect(m_chart, &HygResultChart::shown, this, [this] {
        m_statistics->setText(m_chart->statistics());
        m_problems->setText(m_chart->problems());
        m_problems->setVisible(!m_chart->problems().isEmpty());
        std::set<std::string> materials;
        for (const auto & file : m_chart->files())
            if (file->geometry() != nullptr)
                for (const DATAIO::GeoFile::Material & material : file->geometry()->m_materials)
                    materials.insert(material.name);
        m_materials->setMaterials(std::move(materials));
    });
    connect(m_materials, &HygMaterialNotice::refused, m_problems, [this](const QString & message) {
        m_problems->setText(message);
        m_problems->show();
    });
    connect(m_timer, &QTimer::timeout, this, &HygResultsView::follow);
    connect(projects, &HygProjectHandler::projectFileChanged, this, &HygResultsView::openProject);
    showOptions();
    retranslate();
    openProject(projects->projectFile());
}

HygResultsView::~HygResultsView() = default;

QWidget * HygResultsView::makeFiles() {
    auto * files = new QWidget(this);
    auto * layout = new QVBoxLayout(files);
    layout->setContentsMargins(0, 0, 0, 0);
    auto * buttons = new QHBoxLayout;
    struct ButtonRow {
        QToolButton * button;
        const char * objectName;
        const char * icon;
    };
    const ButtonRow rows[] = {
        {m_addFolder,    "addFolder",    "folder" },
        {m_addProject,   "addProject",   "project"},
        {m_removeFolder, "removeFolder", "remove" },
    };
    for (const ButtonRow & row : rows) {
        row.button->setObjectName(QLatin1String(row.objectName));
        row.button->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        row.button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        row.button->setAutoRaise(true);
        buttons->addWidget(row.button);
    }
    buttons->addStretch(1);
    layout->addWidget(m_tree, 1);
    layout->addLayout(buttons);
    connect(m_addFolder, &QToolButton::clicked, this, [this] { chooseFolder(false); });
    connect(m_addProject, &QToolButton::clicked, this, [this] { chooseFolder(true); });
    connect(m_removeFolder, &QToolButton::clicked, this,
            [this] { m_tree->removeDirectory(m_tree->currentFurtherDirectory()); });
    connect(m_tree, &QTreeWidget::currentItemChanged, this,
            [this] { m_removeFolder->setEnabled(!m_tree->currentFurtherDirectory().isEmpty()); });
    return files;
}

QWidget * HygResultsView::makeOptions() {
    auto * bar = new QWidget(this);
    auto * lines = new QVBoxLayout(bar);
    lines->setContentsMargins(0, 0, 0, 0);
    auto * first = new QHBoxLayout;
    auto * second = new QHBoxLayout;
    lines->addLayout(first);
    lines->addLayout(second);
    const std::pair<QWidget *, const char *> names[] = {
        {m_mode,        "chartMode"  },
        {m_unit,        "unit"       },
        {m_place,       "place"      },
        {m_placeText,   "placeText"  },
        {m_normal,      "planeAcross"},
        {m_plane,       "planeSlider"},
        {m_planeText,   "planeText"  },
        {m_cut,         "cut"        },
        {m_cutPlace,    "cutPlace"   },
        {m_cutText,     "cutText"    },
        {m_measured,    "measured"   },
        {m_export,      "export"     },
        {m_layouts,     "layouts"    },
        {m_statistics,  "statistics" },
        {m_problems,    "problems"   },
        {m_layoutStory, "layoutStory"},
    };
    for (const auto & [widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    m_mode->addItems({QString(), QString()});
    m_cut->addItems({QString(), QString(), QString()});
    m_normal->addItems({QString(), QString(), QString()});
    m_plane->setMinimumWidth(120);
    m_place->setKeyboardTracking(false);
    m_cutPlace->setRange(0, CUT_STEPS);
    m_cutPlace->setMinimumWidth(120);
    m_statistics->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_statistics->setWordWrap(true);
    m_problems->setWordWrap(true);
    m_problems->hide();
    m_layoutStory->setTextFormat(Qt::RichText);
    m_layoutStory->setTextInteractionFlags(Qt::TextBrowserInteraction);
    m_layoutStory->hide();
    connect(m_layoutStory, &QLabel::linkActivated, this, &HygResultsView::undoLayouts);
    m_placeText->setForegroundRole(QPalette::PlaceholderText);

    for (QWidget * widget : std::initializer_list<QWidget *>{m_mode, m_unit, m_threshold})
        first->addWidget(widget);
    for (const FlagRow & row : FLAGS) {
        auto * flag = new QCheckBox(this);
        flag->setObjectName(QLatin1String(row.objectName));
        m_flags.push_back(flag);
        first->addWidget(flag);
        connect(flag, &QCheckBox::toggled, this, &HygResultsView::takeOptions);
    }
    first->addStretch(1);
    for (QWidget * widget : std::initializer_list<QWidget *>{m_place, m_placeText, m_normal, m_plane, m_planeText,
                                                             m_cut, m_cutPlace, m_cutText})
        second->addWidget(widget);
    second->addStretch(1);
    const std::pair<QToolButton *, const char *> tools[] = {
        {m_measured, "open"   },
        {m_export,   "save"   },
        {m_layouts,  "results"},
    };
    for (const auto & [button, icon] : tools) {
        button->setIcon(HygIconEngine::icon(QLatin1String(icon)));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        second->addWidget(button);
    }
    for (QToolButton * button : {m_export, m_layouts}) {
        button->setMenu(new QMenu(button));
        button->setPopupMode(QToolButton::InstantPopup);
    }
    connect(m_export->menu(), &QMenu::aboutToShow, this, &HygResultsView::fillExport);
    connect(m_layouts->menu(), &QMenu::aboutToShow, this, &HygResultsView::fillLayouts);
    m_removeMeasured->setObjectName(QStringLiteral("removeMeasured"));
    m_removeMeasured->setEnabled(false);
    m_measured->addAction(m_removeMeasured);
    m_measured->setPopupMode(QToolButton::MenuButtonPopup);
    connect(m_removeMeasured, &QAction::triggered, this, &HygResultsView::removeMeasured);
    connect(m_measured, &QToolButton::clicked, this, [this] {
        loadMeasured(QFileDialog::getOpenFileName(this, tr("Measured values"), m_outputDirectory,
                                                  tr("Tables (*.csv *.txt *.tsv);;All files (*)")));
    });
    for (QComboBox * box : {m_mode, m_unit, m_normal, m_cut})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygResultsView::takeOptions);
    connect(m_place, qOverload<int>(&QSpinBox::valueChanged), this, &HygResultsView::takeOptions);
    connect(m_plane, &QSlider::valueChanged, this, &HygResultsView::takeOptions);
    connect(m_cutPlace, &QSlider::valueChanged, this, &HygResultsView::takeOptions);
    connect(m_threshold, &HygThresholdField::changed, this, &HygResultsView::takeOptions);
    return bar;
}

void HygResultsView::openProject(const QString & projectFile) {
    const QString directory = projectFile.isEmpty() ? QString() : HygOutputDirectory::ofProject(projectFile).path();
    if (directory != m_outputDirectory) {
        removeMeasured(); // it was laid over the results of the other project
        m_layoutStory->hide();
        Options options = m_chart->options(); // so are unit and threshold
        options.unit.clear();
        options.threshold.reset();
        m_chart->setOptions(options);
        m_threshold->setValue({});
    }
    m_outputDirectory = directory;
    m_tree->setProjectDirectory(m_outputDirectory);
    m_folderChanged = QFileInfo(m_outputDirectory + "/results").lastModified();
    openChosen();
}

void HygResultsView::showEmptyText() {
    m_chart->setEmptyText(m_tree->hasFiles() ? tr("Choose a result file in the list.")
                                             : tr("There are no results yet: the view Simulation calculates them."));
}

void HygResultsView::openChosen() {
    showEmptyText();
    HygResultChart::Files files;
    QStringList failures;
    for (const QString & path : m_tree->chosen()) {
        // What is open stays open, with what has been read.
        const auto open = std::find_if(m_chart->files().begin(), m_chart->files().end(),
                                       [&path](const auto & file) { return file->path() == path; });
        if (open != m_chart->files().end()) {
            files.push_back(*open);
            continue;
        }
        try {
            files.push_back(std::make_shared<HygResultFile>(path));
        } catch (const KOR::Exception & ex) {
            failures << HygCoreMessages::told(tr("%1 cannot be read.").arg(QFileInfo(path).completeBaseName()),
                                              QString::fromUtf8(ex.what()));
        }
    }
    m_chart->setFiles(std::move(files));
    fillUnits();
    m_threshold->dropNonsense();
    takeThreshold();
    updateOffers();
    const bool wasShown = m_timeBar->count() > 1;
    m_timeBar->setCount(m_chart->timeCount());
    if (!wasShown) // at first the end, at which something has happened
        m_timeBar->setIndex(m_timeBar->count() - 1);
    showTime(m_timeBar->index());
    if (!failures.isEmpty()) {
        m_problems->setText(failures.join('\n'));
        m_problems->show();
    }
}

void HygResultsView::fillUnits() {
    m_isShowing = true;
    m_unit->clear();
    if (!m_chart->files().empty()) {
        const KOR::Unit own = m_chart->files()[0]->valueUnit();
        const KOR::UnitList & list = KOR::UnitList::instance();
        for (std::size_t i = 0; i < list.size(); ++i)
            if (KOR::Unit(i).base() == own.base())
                m_unit->addItem(QString::fromStdString(KOR::Unit(i).displayName()),
                                QString::fromStdString(KOR::Unit(i).name()));
        const int chosen = m_unit->findData(m_chart->options().unit);
        m_unit->setCurrentIndex(chosen >= 0 ? chosen : m_unit->findData(QString::fromStdString(own.name())));
    }
    m_isShowing = false;
}

void HygResultsView::takeThreshold() {
    m_threshold->setUnit(m_unit->currentData().toString());
    Options options = m_chart->options();
    if (options.threshold == m_threshold->value())
        return;
    options.threshold = m_threshold->value();
    options.unit = m_unit->currentData().toString();
    m_chart->setOptions(options);
}

void HygResultsView::takeOptions() {
    if (m_isShowing)
        return;
    Options options = m_chart->options();
    options.isOverTime = m_mode->currentIndex() == 1;
    m_threshold->setUnit(m_unit->currentData().toString());
    options.unit = m_unit->currentData().toString();
    options.place = static_cast<std::size_t>(std::max(1, m_place->value()) - 1);
    options.normal = m_normal->currentIndex();
    options.plane = static_cast<std::size_t>(m_plane->value());
    options.cut = static_cast<HygResultChart::cut_t>(m_cut->currentIndex());
    options.cutPlace = static_cast<double>(m_cutPlace->value()) / CUT_STEPS;
    options.threshold = m_threshold->value();
    for (std::size_t i = 0; i < m_flags.size(); ++i)
        options.*FLAGS[i].member = m_flags[i]->isChecked();
    m_chart->setOptions(options);
    updateOffers();
}

void HygResultsView::showOptions() {
    m_isShowing = true;
    const Options & options = m_chart->options();
    m_mode->setCurrentIndex(options.isOverTime ? 1 : 0);
    m_place->setMaximum(std::max(m_place->maximum(), static_cast<int>(options.place) + 1));
    m_place->setValue(static_cast<int>(options.place) + 1);
    m_normal->setCurrentIndex(options.normal);
    m_plane->setMaximum(std::max(m_plane->maximum(), static_cast<int>(options.plane)));
    m_plane->setValue(static_cast<int>(options.plane));
    m_cut->setCurrentIndex(options.cut);
    m_cutPlace->setValue(static_cast<int>(options.cutPlace * CUT_STEPS));
    m_threshold->setValue(options.threshold);
    for (std::size_t i = 0; i < m_flags.size(); ++i)
        m_flags[i]->setChecked(options.*FLAGS[i].member);
    m_isShowing = false;
    fillUnits();
}

void HygResultsView::updateOffers() {
    const bool hasFiles = !m_chart->files().empty();
    const bool hasPlaces = hasFiles && m_chart->files()[0]->format() != HygResultFile::Format::SERIES;
    const bool isOverTime = m_chart->isOverTime();
    const bool isField = m_chart->isField();
    m_isShowing = true;
    m_mode->setVisible(hasPlaces);
    // The file with the most places tells them; of the others the legend does.
    const HygResultFile * widest = nullptr;
    for (const auto & file : m_chart->files())
        if (file->valueCount() > (widest == nullptr ? 1 : widest->valueCount()))
            widest = file.get();
    const bool isPlaceNeeded = widest != nullptr && isOverTime;
    m_place->setVisible(isPlaceNeeded);
    m_placeText->setVisible(isPlaceNeeded);
    if (widest != nullptr) {
        m_place->setRange(1, static_cast<int>(widest->valueCount()));
        m_placeText->setText(m_chart->placeText(*widest));
    }
    const bool isVolume = isField && m_chart->files()[0]->format() == HygResultFile::Format::VOLUME;
    if (isVolume) {
        const int normal = m_chart->options().normal;
        const std::vector<double> & centres = m_chart->files()[0]->geometry()->centres(normal);
        m_plane->setMaximum(static_cast<int>(centres.size()) - 1);
        m_planeText->setText(QStringLiteral("%1 = %2 mm")
                                 .arg(QChar('x' + normal))
                                 .arg(HygFormat::number(MM * centres[static_cast<std::size_t>(m_plane->value())])));
    }
    for (QWidget * widget : std::initializer_list<QWidget *>{m_normal, m_plane, m_planeText})
        widget->setVisible(isVolume);
    m_isShowing = false;
    m_cut->setVisible(isField);
    for (QWidget * widget : std::initializer_list<QWidget *>{m_cutPlace, m_cutText})
        widget->setVisible(isField && m_chart->options().cut != HygResultChart::NoCut);
    m_cutText->setText(m_chart->cutText());
    m_unit->setEnabled(hasFiles);
    m_threshold->setEnabled(hasFiles);
    m_measured->setEnabled(hasFiles && isOverTime);
    m_export->setEnabled(hasFiles);
    for (std::size_t i = 0; i < m_flags.size(); ++i)
        m_flags[i]->setVisible(
            FLAGS[i].use == FlagRow::FIELD ? isField : !isField && (FLAGS[i].use == FlagRow::LINES || isOverTime));
    for (std::size_t i = 0; i < m_flags.size(); ++i) {
        // What the files cannot have is not offered, and says why.
        const QString obstacle = !hasFiles || isField                         ? QString()
                                 : FLAGS[i].member == &Options::hasDewPoint   ? m_chart->dewPointObstacle()
                                 : FLAGS[i].member == &Options::hasMouldLimit ? m_chart->mouldLimitObstacle()
                                                                              : QString();
        m_flags[i]->setEnabled(obstacle.isEmpty());
        m_flags[i]->setToolTip(obstacle.isEmpty() ? tr(FLAGS[i].toolTip) : obstacle);
    }
    m_timeBar->setVisible(hasFiles && !isOverTime);
    m_removeFolder->setEnabled(!m_tree->currentFurtherDirectory().isEmpty());
}

void HygResultsView::showTime(std::size_t index) {
    if (m_chart->timeCount() == 0)
        return m_timeBar->setText({});
    const double seconds = m_chart->time(index);
    m_chart->setTime(seconds);
    m_timeBar->setText(HygResultChart::timeText(seconds, m_chart->files()[0]->header().startYear));
}

void HygResultsView::follow() {
    const QDateTime changed = QFileInfo(m_outputDirectory + "/results").lastModified();
    if (changed != m_folderChanged) {
        m_folderChanged = changed;
        m_tree->refresh();
        showEmptyText();
    }
    m_tree->updateCounts();
    const bool wasLast = m_timeBar->index() + 1 >= m_timeBar->count();
    if (!m_chart->refresh())
        return;
    m_timeBar->setCount(m_chart->timeCount());
    if (wasLast && !m_timeBar->isPlaying())
        m_timeBar->setIndex(m_chart->timeCount() - 1);
}

void HygResultsView::chooseFolder(bool isProject) {
    if (!isProject)
        return m_tree->addDirectory(
            QFileDialog::getExistingDirectory(this, tr("Results of a directory"), m_outputDirectory));
    const QString project = QFileDialog::getOpenFileName(this, tr("Results of a project"), m_outputDirectory,
                                                         tr("Hygrion projects (*.h6p)"));
    if (!project.isEmpty())
        m_tree->addDirectory(HygOutputDirectory::ofProject(project).path());
}

void HygResultsView::removeMeasured() {
    m_chart->setMeasured({});
    m_removeMeasured->setEnabled(false);
}

void HygResultsView::loadMeasured(const QString & path) {
    if (path.isEmpty())
        return;
    try {
        const int year = m_chart->files().empty() ? 0 : m_chart->files()[0]->header().startYear;
        m_chart->setMeasured(HygMeasuredData::read(path, year));
        m_removeMeasured->setEnabled(true);
    } catch (const KOR::Exception & ex) {
        QMessageBox::critical(
            this, tr("Measured values"),
            HygCoreMessages::told(tr("The table '%1' cannot be read:").arg(path), QString::fromUtf8(ex.what())));
    }
}

void HygResultsView::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    m_tree->refresh();
    showEmptyText();
    m_timer->start();
}

void HygResultsView::hideEvent(QHideEvent * event) {
    m_timer->stop();
    QWidget::hideEvent(event);
}

void HygResultsView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygResultsView::retranslate() {
    struct TextRow {
        QWidget * widget;
        QString toolTip;
    };
    m_isShowing = true;
    m_addFolder->setText(tr("Directory…"));
    m_addProject->setText(tr("Project…"));
    m_removeFolder->setText(tr("Remove"));
    m_measured->setText(tr("Measured values…"));
    m_removeMeasured->setText(tr("Remove measured values"));
    m_export->setText(tr("Export"));
    m_layouts->setText(tr("Layouts"));
    m_mode->setItemText(0, tr("at a time"));
    m_mode->setItemText(1, tr("over time"));
    m_place->setPrefix(tr("Place "));
    m_cut->setItemText(HygResultChart::NoCut, tr("no cut"));
    m_cut->setItemText(HygResultChart::AlongX, tr("horizontal cut"));
    m_cut->setItemText(HygResultChart::AlongY, tr("vertical cut"));
    for (int direction = 0; direction < m_normal->count(); ++direction)
        m_normal->setItemText(direction, tr("plane across %1").arg(QChar('x' + direction)));
    showEmptyText();
    const TextRow rows[] = {
        {m_addFolder,    tr("Shows the results of any directory beside those of the project")                 },
        {m_addProject,   tr("Shows the results of another project for comparison")                            },
        {m_removeFolder, tr("Takes the selected directory out of the tree; its files stay")                   },
        {m_measured,     tr("Lays the columns of a table over the courses; the first column is the time in h")},
        {m_export,       tr("Picture, table or animation of the chart")                                       },
        {m_layouts,      tr("What charts show, kept by name with the project")                                },
        {m_mode,         tr("Whether the values at a time or the course at a place is shown")                 },
        {m_unit,         tr("Unit of the values")                                                             },
        {m_place,        tr("Number of the cell or side whose course is shown")                               },
        {m_normal,       tr("How the plane that is shown lies in the construction")                           },
        {m_plane,        tr("Which plane of the construction is shown")                                       },
        {m_cut,          tr("Values along a line through the field")                                          },
        {m_cutPlace,     tr("Where the cut lies")                                                             },
    };
    for (const TextRow & row : rows) {
        row.widget->setToolTip(row.toolTip);
        row.widget->setAccessibleName(row.toolTip);
    }
    for (std::size_t i = 0; i < m_flags.size(); ++i) {
        m_flags[i]->setText(tr(FLAGS[i].label));
    }
    QPalette colours = m_problems->palette();
    colours.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
    m_problems->setPalette(colours);
    m_isShowing = false;
    updateOffers();
}
