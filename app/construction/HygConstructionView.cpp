#include "construction/HygConstructionView.h"

#include "HygIconEngine.h"
#include "HygSettings.h"
#include "construction/HygAssignPanel.h"
#include "construction/HygAssignmentPanel.h"
#include "construction/HygConstructionActions.h"
#include "construction/HygConstructionPlaces.h"
#include "construction/HygConstructionStart.h"
#include "construction/HygDiscretizationDialog.h"
#include "construction/HygGridRuler.h"
#include "construction/HygHintBar.h"
#include "construction/HygLayerModel.h"
#include "construction/HygLayerPanel.h"
#include "construction/HygMaterialOffer.h"
#include "construction/HygNewLayerDialog.h"
#include "document/HygProjectHandler.h"
#include "materials/HygProjectMaterialFiles.h"
#include "materials/HygProjectMaterialsWidget.h"
#include "undo/HygModification.h"
#include "views/HygChipRow.h"
#include "views/HygMessageBar.h"

#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>

#include <KOR/Exception.h>

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QUndoStack>

namespace {

using HYGRION::Disc;
using HYGRION::Range;

constexpr const char * SWITCH_TEXTS[] = {QT_TRANSLATE_NOOP("HygConstructionView", "Materials"),
                                         QT_TRANSLATE_NOOP("HygConstructionView", "Interfaces"),
                                         QT_TRANSLATE_NOOP("HygConstructionView", "Contacts"),
                                         QT_TRANSLATE_NOOP("HygConstructionView", "Field conditions"),
                                         QT_TRANSLATE_NOOP("HygConstructionView", "Initial conditions"),
                                         QT_TRANSLATE_NOOP("HygConstructionView", "Outputs")};
constexpr const char * SWITCH_TIPS[] = {
    QT_TRANSLATE_NOOP("HygConstructionView", "Names of the materials"),
    QT_TRANSLATE_NOOP("HygConstructionView", "Interfaces: coloured lines along the surfaces that face a climate"),
    QT_TRANSLATE_NOOP("HygConstructionView", "Contact conditions: dashed lines between cells, such as foils"),
    QT_TRANSLATE_NOOP("HygConstructionView", "Field conditions: sources and sinks inside the construction"),
    QT_TRANSLATE_NOOP("HygConstructionView", "Initial conditions: the state in which cells start"),
    QT_TRANSLATE_NOOP("HygConstructionView", "Outputs: the cells whose values are written")};
constexpr const char * SWITCH_NAMES[] = {"showNames",  "showInterfaces", "showContacts",
                                         "showFields", "showInitials",   "showOutputs"};
constexpr const char * SWITCH_ICONS[] = {"show_names",  "show_interfaces", "show_contacts",
                                         "show_fields", "show_initials",   "outputs"};
constexpr const char * PANEL_TEXTS[] = {QT_TRANSLATE_NOOP("HygConstructionView", "Layers"),
                                        QT_TRANSLATE_NOOP("HygConstructionView", "Assign"),
                                        QT_TRANSLATE_NOOP("HygConstructionView", "Assignments")};
static_assert(std::size(SWITCH_TEXTS) == HygConstructionScene::NUM_OVERLAYS);

constexpr int PANEL_CHARS = 56; ///< of which the names of layers have the most
constexpr int MIN_PANEL_CHARS = 40;
constexpr int DETAIL_CELLS = 6;
constexpr double DETAIL_WIDTH = 100; // mm

} // namespace

HygConstructionView::HygConstructionView(HygProjectHandler * projects, QWidget * parent)
    : QWidget(parent), m_projects(*projects), m_files(HygProjectMaterialFiles::of(*projects)),
      m_editor(new HygConstructionEditor(*projects, this)), m_canvas(new HygConstructionCanvas(this)),
      m_offer(new HygMaterialOffer(this)), m_assignPanel(new HygAssignPanel(*m_editor, *m_canvas, *m_offer, this)),
      m_layerPanel(new HygLayerPanel(*m_editor, *m_canvas, *m_offer, this)),
      m_assignmentPanel(new HygAssignmentPanel(*m_editor, *m_canvas, this)),
      m_hintBar(new HygHintBar(*m_editor, m_canvas->scene(), this)),
      m_start(new HygConstructionStart(m_canvas->viewport())),
      m_actions(std::make_unique<HygConstructionActions>(*this)), m_tools(new QToolBar(this)),
      m_splitter(new QSplitter(this)), m_panels(new QTabWidget(this)), m_planeSlider(new QSlider(Qt::Horizontal, this)),
      m_planeLabel(new QLabel(this)), m_summary(new QLabel(this)), m_message(new HygMessageBar(this)),
      m_switches(new HygChipRow(this)) {
    setObjectName(QStringLiteral("constructionView"));
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tools);
    layout->addWidget(m_message);
    layout->addWidget(m_splitter, 1);
    m_tools->setObjectName(QStringLiteral("constructionTools"));
    m_tools->setIconSize({20, 20});
    m_actions->fillTools(*m_tools);
    setUpCanvas();
    m_panels->setObjectName(QStringLiteral("constructionPanels"));
    m_panels->setDocumentMode(true);
    m_panels->addTab(m_layerPanel, QString());
    m_panels->addTab(m_assignPanel, QString());
    m_panels->addTab(m_assignmentPanel, QString());
    m_splitter->addWidget(m_panels);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setCollapsible(0, false);
    m_splitter->setSizes({900, PANEL_CHARS * fontMetrics().averageCharWidth()});
    retranslate();

    setFocusProxy(m_canvas);
    // What was told of the last change is history with the next one.
    connect(&m_projects.undoStack(), &QUndoStack::indexChanged, m_message, &HygMessageBar::clear);
    connect(&m_projects.undoStack(), &QUndoStack::indexChanged, this, &HygConstructionView::followUndo);
    connect(m_editor, &HygConstructionEditor::cellsToMove, this, [this](const HygGridMap & map) {
        m_history.begin(m_canvas->scene().selection);
        m_history.plan(map);
    });
    connect(m_editor, &HygConstructionEditor::refused, m_message, &HygMessageBar::showMessage);
    connect(m_editor, &HygConstructionEditor::informed, m_message, &HygMessageBar::showMessage);
    connect(&m_projects, &HygProjectHandler::modified, this, &HygConstructionView::projectModified);
    connect(&m_projects, &HygProjectHandler::definitionRequested, this, &HygConstructionView::showDefinition);
    updateScene(true);
}

HygConstructionView::~HygConstructionView() = default;

void HygConstructionView::setUpCanvas() {
    auto * area = new QWidget(m_splitter);
    auto * layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto * bar = new QHBoxLayout;
    bar->setContentsMargins(8, 4, 8, 4);
    bar->setSpacing(4);
    for (std::size_t n = 0; n < m_canvas->scene().overlays.size(); ++n) {
        HygChipButton & chip = m_switches->add();
        chip.setObjectName(QLatin1String(SWITCH_NAMES[n]));
        chip.setIcon(HygIconEngine::icon(QLatin1String(SWITCH_ICONS[n])));
        chip.setChecked(m_canvas->scene().overlays[n]);
        connect(&chip, &HygChipButton::toggled, this, [this, n](bool on) {
            m_canvas->scene().overlays[n] = on;
            m_canvas->viewport()->update();
        });
    }
    bar->addWidget(m_switches, 1);
    m_planeSlider->setObjectName(QStringLiteral("planeSlider"));
    m_planeSlider->setMinimumWidth(120);
    m_planeSlider->setMaximumWidth(180);
    m_planeSlider->setTickPosition(QSlider::TicksBelow);
    m_planeLabel->setObjectName(QStringLiteral("planeLabel"));
    bar->addWidget(m_planeLabel);
    bar->addWidget(m_planeSlider);
    layout->addLayout(bar);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_hintBar);
    m_summary->setObjectName(QStringLiteral("selectionSummary"));
    m_summary->setContentsMargins(8, 3, 8, 3);
    m_summary->setWordWrap(true);
    layout->addWidget(m_summary);
    m_splitter->addWidget(area);

    // The card lies over the drawing.
    auto * over = new QVBoxLayout(m_canvas->viewport());
    over->addWidget(m_start);

    connect(m_planeSlider, &QSlider::valueChanged, this, &HygConstructionView::setPlane);
    connect(m_canvas, &HygConstructionCanvas::planeRequested, this,
            [this](int step) { m_planeSlider->setValue(m_planeSlider->value() + step); });
    connect(m_canvas, &HygConstructionCanvas::selectionChanged, this, [this] {
        updateActions();
        updateSummary();
        m_layerPanel->updateSelection();
    });
    connect(m_canvas, &HygConstructionCanvas::selectionChanged, m_assignPanel, &HygAssignPanel::updateSelection);
    connect(m_layerPanel, &HygLayerPanel::layerRequested, this, &HygConstructionView::addLayer);
    connect(m_canvas, &HygConstructionCanvas::activated, this, [this](const QPoint & position) {
        QMenu menu(this);
        menu.setObjectName(QStringLiteral("assignMenu"));
        m_assignPanel->fillMenu(menu);
        menu.exec(position);
    });
    connect(m_canvas, &HygConstructionCanvas::widthRequested, this,
            [this](Qt::Orientation orientation, int first, int last) {
                askWidth(orientation, static_cast<std::size_t>(first), static_cast<std::size_t>(last));
            });
    connect(m_canvas, &HygConstructionCanvas::dropped, this,
            [this](int type, const QString & name, const HygConstructionCanvas::Target & target) {
                m_assignPanel->assign(static_cast<HYGRION::Assignment::type_t>(type), name, target.ranges, target.side);
            });
    connect(m_canvas, &HygConstructionCanvas::fileDropped, this,
            [this](const QString & path, const HygConstructionCanvas::Target & target) {
                assignFile(path, target.ranges);
            });
    connect(m_offer, &HygMaterialOffer::assignRequested, this,
            [this](const QString & path) { assignFile(path, m_canvas->scene().selection.blocks()); });
    connect(m_canvas, &HygConstructionCanvas::menuRequested, this, [this](const QPoint & position) {
        QMenu menu(this);
        m_actions->fillMenu(menu);
        menu.exec(position);
    });
    connect(m_hintBar, &HygHintBar::hintsChanged, this, &HygConstructionView::updateMarks);
    connect(m_hintBar, &HygHintBar::showRequested, this, [this](const HygConstructionHint & hint) {
        m_canvas->select(hint.ranges);
        if (!hint.ranges.empty())
            m_canvas->ensureVisible(hint.ranges.front());
    });
    connect(m_hintBar, &HygHintBar::chooseRequested, this, [this](const HygConstructionHint & hint) {
        m_canvas->select(hint.ranges);
        m_panels->setCurrentWidget(m_assignPanel);
        m_assignPanel->setSide(hint.side);
    });
    connect(m_canvas, &HygConstructionCanvas::hintActivated, this, [this](std::size_t hint, const QPoint & position) {
        QMenu menu(this);
        menu.setObjectName(QStringLiteral("hintMenu"));
        m_hintBar->fillMenu(menu, hint);
        menu.exec(position);
    });
    connect(m_assignmentPanel, &HygAssignmentPanel::replaceRequested, this, &HygConstructionView::replaceMaterial);
    connect(&m_files, &HygProjectMaterialFiles::changed, this, &HygConstructionView::updateProblems);
    connect(m_assignmentPanel, &HygAssignmentPanel::planeRequested, m_planeSlider, &QSlider::setValue);
    connect(m_start, &HygConstructionStart::layerRequested, this, &HygConstructionView::addLayer);
    connect(m_start, &HygConstructionStart::detailRequested, this, &HygConstructionView::startDetail);
}

void HygConstructionView::retranslate() {
    m_actions->retranslate();
    for (std::size_t n = 0; n < std::size(SWITCH_TEXTS); ++n)
        m_switches->setTexts(n, tr(SWITCH_TEXTS[n]), tr(SWITCH_TIPS[n]));
    for (int n = 0; n < m_panels->count(); ++n)
        m_panels->setTabText(n, tr(PANEL_TEXTS[n]));
    m_canvas->setAccessibleName(tr("Drawing of the construction"));
    m_planeSlider->setAccessibleName(tr("Stack plane"));
    m_planeSlider->setToolTip(tr("The plane that is shown; Page Up and Page Down go to the next ones"));
    fitPanels();
    updateSummary();
}

void HygConstructionView::fitPanels() {
    m_panels->setMinimumWidth(
        std::max(m_panels->tabBar()->sizeHint().width(), MIN_PANEL_CHARS * fontMetrics().averageCharWidth()));
}

void HygConstructionView::projectModified(int code, void *) {
    switch (code) {
    case HygModification::SolverSettingsModified:
    case HygModification::ProjectDataModified:
    case HygModification::LocationModified:
    case HygModification::ListItemAdded:
    case HygModification::ListItemModified:
    case HygModification::ListItemRemoved:
        return;
    default:
        break;
    }
    const bool isNew = code == HygModification::ProjectReplaced;
    if (code == HygModification::GridModified || code == HygModification::CellDimensionChanged ||
        code == HygModification::AssignmentsReplaced)
        m_history.begin(m_canvas->scene().selection);
    if (isVisible())
        updateScene(isNew);
    else {
        m_isOutdated = true;
        m_isNewProject = m_isNewProject || isNew;
    }
}

void HygConstructionView::updateScene(bool isNewProject) {
    m_isOutdated = false;
    m_isNewProject = false;
    HygConstructionScene & scene = m_canvas->scene();
    scene.project = m_projects.hasProject() ? &m_projects.project() : nullptr;
    const HygSettings & settings = HygSettings::instance();
    scene.isEquidistant = settings.m_constructionViewEquidistantModeEnabled;
    scene.hasGridLines = settings.m_constructionViewGridLinesVisible;
    scene.selectionColour = settings.m_colorSelectedElements;
    scene.highlightColour = settings.m_colorHighlightedElements;
    try {
        const KOR::Unit unit(std::size_t{settings.m_basicLengthUnit});
        scene.unit = unit.base() == KOR::Unit("m") ? unit : KOR::Unit("mm");
    } catch (const KOR::Exception &) {
        scene.unit = KOR::Unit("mm");
    }
    m_actions->action("equidistant").setChecked(scene.isEquidistant);
    m_actions->action("gridLines").setChecked(scene.hasGridLines);
    scene.materialProblems = m_files.problems();
    m_canvas->sceneChanged(isNewProject);
    m_layerPanel->updateLayers();
    m_assignPanel->updateDefinitions();
    m_assignmentPanel->updateAssignments();
    m_hintBar->sceneChanged(isNewProject);
    m_start->setVisible(scene.isBlank());
    const int planes = scene.project == nullptr ? 1 : static_cast<int>(scene.project->m_disc.nz());
    m_planeSlider->setRange(0, std::max(planes - 1, 0));
    m_planeSlider->setValue(static_cast<int>(scene.plane));
    m_planeSlider->setVisible(planes > 1);
    m_planeLabel->setVisible(planes > 1 || scene.isRotational());
    updateActions();
    updateSummary();
}

void HygConstructionView::followUndo() {
    const auto wanted = m_history.follow(m_projects.undoStack());
    if (!wanted)
        return;
    HygConstructionScene & scene = m_canvas->scene();
    if (m_isOutdated || scene.project == nullptr) {
        scene.selection = *wanted; // fitted when the view is shown
        return;
    }
    if (!wanted->empty())
        m_planeSlider->setValue(static_cast<int>(wanted->blocks().back().back));
    m_canvas->restore(*wanted);
    if (!wanted->empty())
        m_canvas->ensureVisible(scene.selection.bounds());
}

void HygConstructionView::updateProblems() {
    HygConstructionScene & scene = m_canvas->scene();
    std::vector<QString> problems = m_files.problems();
    if (m_isOutdated || scene.project == nullptr || problems == scene.materialProblems)
        return;
    scene.materialProblems = std::move(problems);
    ++scene.version;
    m_canvas->viewport()->update();
    m_hintBar->sceneChanged();
    m_assignPanel->updateProblems();
    for (QTableView * table : m_panels->findChildren<QTableView *>())
        table->viewport()->update();
}

void HygConstructionView::replaceMaterial(std::size_t index) {
    try {
        HygProjectMaterialsWidget::chooseOther(m_projects, index, this);
    } catch (const KOR::Exception & ex) {
        ex.report();
        m_message->showMessage(QString::fromUtf8(ex.what()));
    }
}

void HygConstructionView::updateActions() {
    const HygConstructionScene & scene = m_canvas->scene();
    m_actions->update(scene);
    const bool isStack = scene.project == nullptr || scene.isStack();
    if (m_panels->isTabVisible(0) != isStack) {
        m_panels->setTabVisible(0, isStack);
        m_panels->setCurrentIndex(isStack ? 0 : 1);
    }
}

void HygConstructionView::updateSummary() {
    const HygConstructionScene & scene = m_canvas->scene();
    if (scene.project == nullptr || scene.isBlank()) {
        m_summary->clear();
        return;
    }
    const auto size = [&scene](const Range & range) {
        return scene.lengthText(scene.x.width(range.left, range.right)) + QStringLiteral(" × ") +
               scene.lengthText(scene.y.width(range.bottom, range.top));
    };
    QString text;
    if (scene.selection.empty()) {
        const Range whole{
            0, 0, 0, static_cast<std::uint32_t>(scene.cells.nx() - 1), static_cast<std::uint32_t>(scene.cells.ny() - 1),
            0};
        text = tr("Construction: %1, %2 x %3 cells").arg(size(whole)).arg(scene.cells.nx()).arg(scene.cells.ny());
    } else {
        const Range range = scene.selection.bounds();
        text = tr("Selected: columns %1 to %2, rows %3 to %4, %5, %n cells", nullptr,
                  static_cast<int>(scene.selection.cellCount()))
                   .arg(range.left + 1)
                   .arg(range.right + 1)
                   .arg(range.bottom + 1)
                   .arg(range.top + 1)
                   .arg(size(range));
    }
    m_summary->setText(text);
    m_planeLabel->setText(scene.isRotational()
                              ? tr("Turned about the left edge")
                              : tr("Plane %1 of %2").arg(scene.plane + 1).arg(scene.project->m_disc.nz()));
}

void HygConstructionView::updateMarks() {
    HygConstructionScene & scene = m_canvas->scene();
    scene.marks.clear();
    for (std::size_t n = 0; n < m_hintBar->hints().size(); ++n) {
        const HygConstructionHint & hint = m_hintBar->hints()[n];
        if (hint.isWarning)
            for (const Range & range : hint.ranges)
                scene.marks.push_back({range, hint.side, n, m_hintBar->textOf(n)});
    }
    m_canvas->viewport()->update();
}

void HygConstructionView::showPlace(const QString & place) {
    const HygConstructionScene & scene = m_canvas->scene();
    if (scene.project == nullptr)
        return;
    if (place == QLatin1String("Assignments")) {
        for (const HygConstructionHint & hint : HygConstructionHint::find(HygConstructionHint::snapshot(scene)))
            if (hint.kind == HygConstructionHint::NoMaterial && !hint.ranges.empty()) {
                m_canvas->select(hint.ranges);
                m_canvas->ensureVisible(hint.ranges.front());
                m_panels->setCurrentWidget(m_assignPanel);
            }
        return;
    }
    if (const auto concerned = HygConstructionPlaces::assignmentsOf(*scene.project, place); !concerned.empty()) {
        m_panels->setCurrentWidget(m_assignmentPanel);
        m_assignmentPanel->choose(concerned);
    } else if (const auto definition = HygConstructionPlaces::definitionOf(*scene.project, place)) {
        showDefinition(static_cast<int>(definition->kind), QString::fromStdString(definition->name)); // nowhere yet
    }
}

void HygConstructionView::showDefinition(int kind, const QString & name) {
    const HygConstructionScene & scene = m_canvas->scene();
    HYGRION::Assignment wanted; // of the type that refers to such definitions
    for (int type = 0; type <= static_cast<int>(HYGRION::Assignment::type_t::Output); ++type)
        if (wanted.m_type = static_cast<HYGRION::Assignment::type_t>(type);
            static_cast<int>(HYGRION::referencedKind(wanted)) == kind)
            break;
    if (scene.project == nullptr || static_cast<int>(HYGRION::referencedKind(wanted)) != kind)
        return;
    std::vector<Range> cells;
    for (const HYGRION::Assignment & assignment : scene.project->m_assignments.m_list) {
        Range range;
        if (assignment.m_type != wanted.m_type || assignment.m_reference != name.toStdString() ||
            !scene.showsIn(assignment, range))
            continue;
        wanted.m_location = assignment.m_location;
        cells.push_back(range);
    }
    m_canvas->select(cells);
    if (!cells.empty())
        m_canvas->ensureVisible(cells.front());
    m_panels->setCurrentWidget(m_assignPanel);
    m_assignPanel->setSide(wanted.m_location); // none for cells
    m_assignPanel->showDefinition(wanted.m_type, name);
}

void HygConstructionView::assignFile(const QString & path, const std::vector<Range> & ranges) {
    if (m_canvas->scene().isBlank())
        m_editor->addFileAsLayer(path);
    else if (!ranges.empty())
        m_editor->assignFile(path, ranges);
}

void HygConstructionView::insertCells(unsigned int dir, bool isAfter) {
    const Range range = m_canvas->scene().selection.bounds();
    const std::size_t first = dir == Disc::X ? range.left : range.bottom;
    const std::size_t last = dir == Disc::X ? range.right : range.top;
    m_editor->insert(dir, isAfter ? last + 1 : first, last - first + 1);
}

void HygConstructionView::splitCells(unsigned int dir) {
    const Range range = m_canvas->scene().selection.bounds();
    const bool isX = dir == Disc::X;
    m_editor->split(dir, isX ? range.left : range.bottom, isX ? range.right : range.top, 2);
}

void HygConstructionView::mergeCells(unsigned int dir) {
    const Range range = m_canvas->scene().selection.bounds();
    const bool isX = dir == Disc::X;
    m_editor->merge(dir, isX ? range.left : range.bottom, isX ? range.right : range.top);
}

void HygConstructionView::deleteCells(unsigned int dir) {
    const Range range = m_canvas->scene().selection.bounds();
    const bool isX = dir == Disc::X;
    m_editor->remove(dir, isX ? range.left : range.bottom, isX ? range.right : range.top);
}

void HygConstructionView::mirrorCells(unsigned int dir) {
    const HygConstructionScene & scene = m_canvas->scene();
    Range range{
        0, 0, 0, static_cast<std::uint32_t>(scene.cells.nx() - 1), static_cast<std::uint32_t>(scene.cells.ny() - 1), 0};
    if (!scene.selection.empty())
        range = scene.selection.bounds();
    if (dir == Disc::X)
        m_editor->mirror(dir, range.left, range.right);
    else
        m_editor->mirror(dir, range.bottom, range.top);
}

void HygConstructionView::copyCells() {
    m_editor->copy(m_canvas->scene().selection.bounds());
}

void HygConstructionView::cutCells() {
    copyCells();
    clearCells();
}

void HygConstructionView::pasteCells() {
    m_editor->paste(QApplication::clipboard()->text(), m_canvas->scene().selection.bounds());
}

void HygConstructionView::clearCells() {
    m_editor->clear(m_canvas->scene().selection.blocks());
}

void HygConstructionView::askWidth(Qt::Orientation orientation, std::size_t first, std::size_t last) {
    const HygConstructionScene & scene = m_canvas->scene();
    const bool isColumn = orientation == Qt::Horizontal;
    if (scene.project == nullptr || (!isColumn && scene.isStack()))
        return;
    delete m_widthEdit;
    HygGridRuler & ruler = m_canvas->ruler(orientation);
    m_widthEdit = new QtExt::ValueEdit(m_canvas);
    m_widthEdit->setObjectName(QStringLiteral("widthEdit"));
    m_widthEdit->setAccessibleName(isColumn ? tr("Width") : tr("Height"));
    m_widthEdit->setToolTip(
        tr("Width of the selected cells together; they keep their proportions. Usually 0.1 mm to 1 m."));
    KOR::Parameter width("Width", 1, scene.unit);
    KOR::Parameter metres("Width", (isColumn ? scene.x : scene.y).width(first, last), KOR::Unit("m"));
    width.set_value(metres.get_value(scene.unit), scene.unit);
    m_widthEdit->setParameter(width);
    m_widthEdit->setMinimum(0, KOR::Unit("m"), true);
    const QRect place = ruler.place(first, last).translated(ruler.pos());
    const int wide = std::max(130, m_widthEdit->sizeHint().width());
    m_widthEdit->resize(wide, m_widthEdit->sizeHint().height());
    m_widthEdit->move(
        std::clamp(place.center().x() - wide / 2, 0, std::max(m_canvas->width() - wide, 0)),
        std::clamp(place.center().y() - m_widthEdit->height() / 2, 0, std::max(m_canvas->height() - 30, 0)));
    m_widthEdit->show();
    m_widthEdit->setFocus();
    m_widthEdit->selectAll();
    connect(m_widthEdit, &QtExt::ValueEdit::valueChanged, this, [this, isColumn, first, last] {
        const KOR::Parameter wanted = m_widthEdit->parameter();
        closeWidthEdit();
        m_editor->setThickness(isColumn ? Disc::X : Disc::Y, first, last, wanted);
    });
    // What cannot be a width stays in the field, which says why, until it is left.
    connect(m_widthEdit, &QLineEdit::editingFinished, this, [this] {
        if (m_widthEdit != nullptr && (m_widthEdit->isValid() || !m_widthEdit->hasFocus()))
            closeWidthEdit();
    });
    m_widthEdit->installEventFilter(this);
}

void HygConstructionView::addLayer() {
    HygNewLayerDialog dialog(*m_offer, m_editor->project(), m_canvas->scene().unit, this);
    const auto updatePlaces = [this, &dialog] {
        std::vector<HygNewLayerDialog::Place> places;
        const auto & layers = m_layerPanel->model().layers();
        for (int n = 0; n < static_cast<int>(layers.size()); ++n) {
            const QString name = m_layerPanel->model().index(n, HygLayerModel::MaterialColumn).data().toString();
            places.push_back(
                {n == 0 ? tr("Outside, on the left of '%1'").arg(name) : tr("On the left of '%1'").arg(name),
                 layers[static_cast<std::size_t>(n)].first});
        }
        places.push_back(
            {places.empty() ? tr("First layer") : tr("Inside, on the right"), m_canvas->scene().cells.nx()});
        dialog.setPlaces(places);
    };
    updatePlaces();
    connect(&dialog, &HygNewLayerDialog::layerWanted, this, [&](const HygConstructionEditor::NewLayer & layer) {
        m_editor->addLayer(layer);
        m_canvas->fitAll();
        updatePlaces();
    });
    dialog.exec();
    m_canvas->setFocus();
}

void HygConstructionView::discretize() {
    HygDiscretizationDialog dialog(m_canvas->scene(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QUndoStack & stack = m_projects.undoStack();
    stack.beginMacro(tr("Automatic discretization"));
    for (const unsigned int dir : HygDiscretizationDialog::DIRECTIONS)
        if (dialog.isChanged(dir))
            m_editor->discretize(dir, dialog.layers(dir));
    stack.endMacro();
}

void HygConstructionView::startDetail() {
    m_editor->startDetail(DETAIL_CELLS, KOR::Parameter("Width", DETAIL_WIDTH, KOR::Unit("mm")));
    m_canvas->select({
        {0, 0, 0, 0, 0, 0}
    });
    m_canvas->setFocus();
}

void HygConstructionView::setEquidistant(bool on) {
    HygSettings::instance().m_constructionViewEquidistantModeEnabled = on;
    m_canvas->scene().isEquidistant = on;
    m_canvas->sceneChanged();
    m_canvas->fitAll();
}

void HygConstructionView::setGridLines(bool on) {
    HygSettings::instance().m_constructionViewGridLinesVisible = on;
    m_canvas->scene().hasGridLines = on;
    m_canvas->viewport()->update();
}

void HygConstructionView::setPlane(int plane) {
    if (m_canvas->scene().plane == static_cast<std::uint32_t>(plane))
        return;
    m_canvas->scene().plane = static_cast<std::uint32_t>(plane);
    m_canvas->sceneChanged();
    m_hintBar->sceneChanged();
    updateSummary();
}

bool HygConstructionView::eventFilter(QObject * watched, QEvent * event) {
    if (watched == m_widthEdit && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        closeWidthEdit();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void HygConstructionView::closeWidthEdit() {
    if (m_widthEdit == nullptr)
        return;
    std::exchange(m_widthEdit, nullptr)->deleteLater();
    m_canvas->setFocus();
}

void HygConstructionView::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    m_offer->start();
    if (m_isOutdated)
        updateScene(m_isNewProject);
}

void HygConstructionView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_offer->retranslate();
        retranslate();
        m_hintBar->sceneChanged();
    } else if (event->type() == QEvent::FontChange) {
        fitPanels();
    }
}
