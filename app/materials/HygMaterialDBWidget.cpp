#include "materials/HygMaterialDBWidget.h"

#include "HygIconEngine.h"
#include "materials/HygMaterialDBProxyModel.h"
#include "materials/HygMaterialEditor.h"
#include "materials/HygMaterialTexts.h"
#include "views/HygChipButton.h"
#include "views/HygLogModel.h"
#include "views/HygMessageBar.h"

#include <MM/Material.h>

#include <QtExt/MessageBox.h>

#include <KOR/Exception.h>

#include <QAction>
#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>

namespace {

using Model = HygMaterialDBTableModel;
using Proxy = HygMaterialDBProxyModel;

constexpr int INSPECT_MS = 60; ///< after the last move through the table
constexpr int MAX_COMPARED = 12;

struct MarkRow {
    int mark;
    const char * name;
    const char * icon;
    const char * text;
    const char * toolTip;
};
// clang-format off
constexpr MarkRow MARKS[] = {
    {Proxy::Favourites,    "showFavourites", "star",    QT_TRANSLATE_NOOP("HygMaterialDBWidget", "Favourites"),
     QT_TRANSLATE_NOOP("HygMaterialDBWidget", "Show only favourites")},
    {Proxy::UserMaterials, "showUser",       "edit",    QT_TRANSLATE_NOOP("HygMaterialDBWidget", "My materials"),
     QT_TRANSLATE_NOOP("HygMaterialDBWidget", "Show only the materials of your own directory")},
    {Proxy::Problems,      "showProblems",   "warning", QT_TRANSLATE_NOOP("HygMaterialDBWidget", "Problems (%1)"),
     QT_TRANSLATE_NOOP("HygMaterialDBWidget", "Show only files that cannot be read and files with the same ID")},
};
// clang-format on

struct WidthRow {
    int column;
    int characters;
};
constexpr WidthRow WIDTHS[] = {
    {Model::IdColumn,       6 },
    {Model::MarkColumn,     3 },
    {Model::NameColumn,     30},
    {Model::CategoryColumn, 20},
    {Model::ProducerColumn, 14},
    {Model::RhoColumn,      11},
    {Model::CeColumn,       10},
    {Model::LambdaColumn,   15},
    {Model::MewColumn,      8 },
    {Model::W80Column,      12},
    {Model::WSatColumn,     13},
    {Model::AwColumn,       14},
};

} // namespace

struct HygMaterialDBWidget::ActionRow {
    const char * name;
    const char * icon;
    const char * text;
    const char * toolTip;
    const char * shortcut;
    void (HygMaterialDBWidget::*slot)();
    bool hasText; ///< its button shows the text beside the icon
};

// clang-format off
const HygMaterialDBWidget::ActionRow HygMaterialDBWidget::ACTIONS[] = {
    {"materialNew", "add", QT_TR_NOOP("&New…"),
     QT_TR_NOOP("Make a new material in your own database"), "Ctrl+Shift+N", &HygMaterialDBWidget::createMaterial, true},
    {"materialEdit", "edit", QT_TR_NOOP("&Edit…"),
     QT_TR_NOOP("Open the material in the editor"), "F4", &HygMaterialDBWidget::editMaterial, true},
    {"materialCopy", "copy", QT_TR_NOOP("&Duplicate"),
     QT_TR_NOOP("Copy the selected materials into your own database"), "Ctrl+D", &HygMaterialDBWidget::copyMaterials, true},
    {"materialRemove", "remove", QT_TR_NOOP("De&lete"),
     QT_TR_NOOP("Move the files of the selected materials to the trash; only for materials of your own"), "Del", &HygMaterialDBWidget::removeMaterials, false},
    {"materialFavourite", "star", QT_TR_NOOP("&Favourite"),
     QT_TR_NOOP("Mark the selected materials as favourites, or take the marks away"), "Ctrl+B", &HygMaterialDBWidget::toggleFavourites, true},
    {"materialCompare", "compare", QT_TR_NOOP("&Compare"),
     QT_TR_NOOP("Keep the selected materials in the chart beside the current one, or take them out"), "Ctrl+M", &HygMaterialDBWidget::toggleComparison, true},
    {"materialEndComparison", "clear", QT_TR_NOOP("E&nd comparison"),
     QT_TR_NOOP("Show the current material alone"), "", &HygMaterialDBWidget::endComparison, false},
    {"materialRescan", "refresh", QT_TR_NOOP("&Read again"),
     QT_TR_NOOP("Look for files that have changed"), "F5", &HygMaterialDBWidget::rescan, false},
};
// clang-format on

HygMaterialDBWidget::HygMaterialDBWidget(std::shared_ptr<HygMaterialDB> database, QWidget * parent)
    : QWidget(parent), m_database(std::move(database)), m_proxy(new Proxy(this)), m_messages(new HygMessageBar(this)),
      m_search(new QLineEdit(this)), m_category(new QComboBox(this)), m_table(new QTableView(this)),
      m_empty(new QLabel(this)), m_count(new QLabel(this)), m_progress(new QProgressBar(this)),
      m_cancel(new QToolButton(this)), m_name(new QLabel(this)), m_facts(new QLabel(this)), m_problem(new QLabel(this)),
      m_chart(new HygMaterialChart(this)), m_comments(new QLabel(this)) {
    m_proxy->setSourceModel(&m_database->model());
    for (const ActionRow & row : ACTIONS) {
        auto * action = new QAction(HygIconEngine::icon(QLatin1String(row.icon)), QString(), this);
        action->setObjectName(QLatin1String(row.name));
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, row.slot);
        addAction(action);
        m_actions[QLatin1String(row.name)] = action;
    }
    setUpTable();
    auto * list = new QWidget(this);
    auto * listLayout = new QVBoxLayout(list);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->addWidget(m_table, 1);
    listLayout->addWidget(m_empty);
    auto * splitter = new QSplitter(this);
    splitter->setObjectName(QStringLiteral("materialSplitter"));
    splitter->addWidget(list);
    splitter->addWidget(makeInspector());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({700, 460});
    splitter->setChildrenCollapsible(false);

    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->addWidget(m_messages);
    layout->addWidget(makeFilters());
    layout->addWidget(splitter, 1);
    layout->addWidget(makeTools());

    m_inspectTimer.setSingleShot(true);
    m_inspectTimer.setInterval(INSPECT_MS);
    connect(&m_inspectTimer, &QTimer::timeout, this, &HygMaterialDBWidget::showMaterials);
    connect(&m_loader, &HygMaterialLoader::loaded, this, &HygMaterialDBWidget::takeOver);
    connect(m_database.get(), &HygMaterialDB::scanChanged, this, &HygMaterialDBWidget::updateScan);
    connect(m_database.get(), &HygMaterialDB::fileChanged, this, &HygMaterialDBWidget::forget);
    connect(&m_database->model(), &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex & first, const QModelIndex & last, const QVector<int> & roles) {
                for (int row = first.row(); roles.isEmpty() && row <= last.row(); ++row) // the files, not marks
                    forget(m_database->model().entry(row).path);
                updateActions();
            });
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &HygMaterialDBWidget::updateActions);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        m_inspectTimer.start();
        updateActions();
        emit currentChanged();
    });
    retranslate();
    updateIcons();
    updateScan();
}

HygMaterialDBWidget::~HygMaterialDBWidget() {
    disconnect(m_table->selectionModel(), nullptr, this, nullptr);
    if (!m_compared.isEmpty())
        m_database->model().setCompared({});
}

QWidget * HygMaterialDBWidget::makeFilters() {
    auto * bar = new QWidget(this);
    m_search->setObjectName(QStringLiteral("materialSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(HygIconEngine::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    m_category->setObjectName(QStringLiteral("materialCategory"));
    m_category->addItem(QString(), Proxy::ALL_CATEGORIES);
    for (int category = 1; category < Proxy::ALL_CATEGORIES; ++category)
        m_category->addItem(QString(), category);
    auto * layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_search, 2);
    layout->addWidget(m_category, 1);
    for (const MarkRow & row : MARKS) {
        auto * chip = new HygChipButton(bar);
        chip->setObjectName(QLatin1String(row.name));
        connect(chip, &QAbstractButton::toggled, this, [this] {
            int marks = 0;
            for (const auto & [button, mark] : m_marks)
                marks |= button->isChecked() ? mark : 0;
            m_proxy->setMarks(marks);
            updateFilter();
        });
        layout->addWidget(chip);
        m_marks.emplace_back(chip, row.mark);
    }
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString & text) {
        m_proxy->setSearch(text);
        updateFilter();
    });
    connect(m_category, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_proxy->setCategory(m_category->currentData().toInt());
        updateFilter();
    });
    return bar;
}

void HygMaterialDBWidget::setUpTable() {
    m_table->setObjectName(QStringLiteral("materialTable"));
    m_table->setModel(m_proxy);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setDragDropMode(QAbstractItemView::DragOnly);
    m_table->setDragEnabled(true);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(Model::NameColumn, Qt::AscendingOrder);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->installEventFilter(this);
    connect(m_table, &QTableView::customContextMenuRequested, this, [this](const QPoint & place) {
        QMenu menu(this);
        for (const ActionRow & row : ACTIONS)
            menu.addAction(m_actions[QLatin1String(row.name)]);
        menu.exec(m_table->viewport()->mapToGlobal(place));
    });
    connect(m_table, &QTableView::doubleClicked, this, [this](const QModelIndex & index) {
        if (index.isValid() && index.data(Model::ProblemRole).toString().isEmpty())
            emit activated(index.data(Model::PathRole).toString());
    });
    m_empty->setObjectName(QStringLiteral("materialEmpty"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setTextFormat(Qt::RichText);
    m_empty->setWordWrap(true);
    m_empty->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_empty->setContentsMargins(0, 10, 0, 10);
    connect(m_empty, &QLabel::linkActivated, this, [this] {
        m_search->clear();
        m_category->setCurrentIndex(0);
        for (const auto & [button, mark] : m_marks)
            button->setChecked(false);
    });
}

QWidget * HygMaterialDBWidget::makeInspector() {
    auto * inspector = new QWidget(this);
    inspector->setMinimumWidth(260);
    m_chart->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    m_name->setObjectName(QStringLiteral("materialName"));
    m_facts->setObjectName(QStringLiteral("materialFacts"));
    m_problem->setObjectName(QStringLiteral("materialProblem"));
    m_comments->setObjectName(QStringLiteral("materialComments"));
    for (QLabel * label : {m_name, m_facts, m_problem, m_comments}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_facts->setForegroundRole(QPalette::PlaceholderText);
    m_comments->setAlignment(Qt::AlignTop);
    auto * comments = new QScrollArea(inspector);
    comments->setObjectName(QStringLiteral("materialCommentsArea"));
    comments->setWidget(m_comments);
    comments->setWidgetResizable(true);
    comments->setFrameShape(QFrame::NoFrame);
    comments->viewport()->setAutoFillBackground(false);
    m_comments->setAutoFillBackground(false);
    comments->setMaximumHeight(90);
    auto * layout = new QVBoxLayout(inspector);
    layout->setContentsMargins(8, 0, 0, 0);
    layout->addWidget(m_name);
    layout->addWidget(m_facts);
    layout->addWidget(m_problem);
    layout->addWidget(m_chart, 1);
    layout->addWidget(comments);
    return inspector;
}

QWidget * HygMaterialDBWidget::makeTools() {
    auto * bar = new QWidget(this);
    auto * layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (const ActionRow & row : ACTIONS) {
        auto * button = new QToolButton(bar);
        button->setDefaultAction(m_actions[QLatin1String(row.name)]);
        button->setToolButtonStyle(row.hasText ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        layout->addWidget(button);
    }
    m_count->setObjectName(QStringLiteral("materialCount"));
    m_progress->setObjectName(QStringLiteral("materialProgress"));
    m_progress->setMaximumWidth(160);
    m_progress->setTextVisible(false);
    m_cancel->setObjectName(QStringLiteral("materialCancel"));
    m_cancel->setIcon(HygIconEngine::icon(QStringLiteral("close")));
    m_cancel->setAutoRaise(true);
    connect(m_cancel, &QToolButton::clicked, this, [this] { m_database->updater().cancel(); });
    layout->addStretch(1);
    layout->addWidget(m_progress);
    layout->addWidget(m_cancel);
    layout->addWidget(m_count);
    return bar;
}

QString HygMaterialDBWidget::currentPath() const {
    return m_table->currentIndex().data(Model::PathRole).toString();
}

void HygMaterialDBWidget::setSearch(const QString & text) {
    m_search->setText(text);
    m_isSearchGiven = true;
    dropUselessSearch();
}

void HygMaterialDBWidget::dropUselessSearch() {
    if (!m_isSearchGiven || m_database->model().rowCount() == 0)
        return;
    m_isSearchGiven = false;
    if (m_proxy->rowCount() == 0)
        m_search->clear();
}

void HygMaterialDBWidget::updateFilter() {
    updateCounts();
    if (m_proxy->rowCount() == 0)
        return;
    // What is chosen is always to be seen; else it is the first hit.
    if (m_table->selectionModel()->isRowSelected(m_table->currentIndex().row(), {}))
        m_table->scrollTo(m_table->currentIndex());
    else
        m_table->selectionModel()->setCurrentIndex(m_proxy->index(0, Model::NameColumn),
                                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void HygMaterialDBWidget::setCurrentPath(const QString & path) {
    const int row = m_database->model().rowOf(path);
    if (row < 0) {
        if (m_database->isScanning() || m_database->model().rowCount() == 0)
            selectLater(path);
        return;
    }
    const QModelIndex index = m_proxy->mapFromSource(m_database->model().index(row, Model::NameColumn));
    if (!index.isValid())
        return;
    // Whatever keys are pressed at the moment.
    m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_table->scrollTo(index);
}

void HygMaterialDBWidget::selectLater(const QString & path) {
    m_awaited = path;
}

QStringList HygMaterialDBWidget::selectedPaths() const {
    QStringList paths;
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    for (const QModelIndex & index : rows)
        if (index.data(Model::ProblemRole).toString().isEmpty())
            paths << index.data(Model::PathRole).toString();
    return paths;
}

void HygMaterialDBWidget::updateScan() {
    const HygThreadMaterialDBUpdater & updater = m_database->updater();
    const bool isScanning = m_database->isScanning();
    m_progress->setVisible(isScanning);
    m_cancel->setVisible(isScanning);
    m_progress->setMaximum(updater.total());
    m_progress->setValue(updater.done());
    updateCounts();
    updateActions();
    if (isScanning)
        return;
    const QStringList problems = m_database->problems();
    for (const QString & problem : problems)
        m_messages->showMessage(problem);
    dropUselessSearch();
    if (!m_awaited.isEmpty() && m_database->model().rowOf(m_awaited) >= 0)
        setCurrentPath(std::exchange(m_awaited, QString()));
    updateFilter();
    m_inspectTimer.start();
}

void HygMaterialDBWidget::updateCounts() {
    const int shown = m_proxy->rowCount();
    const int all = m_database->model().rowCount();
    const HygMaterialDBScanPtr scan = m_database->updater().result();
    QString text = shown == all ? tr("%1 materials").arg(all) : tr("%1 of %2 materials").arg(shown).arg(all);
    if (m_database->isScanning())
        text = tr("Reading materials: %1 of %2").arg(m_database->updater().done()).arg(m_database->updater().total());
    else if (scan && !scan->isComplete)
        text = tr("%1 – reading was cancelled").arg(text);
    m_count->setText(text);
    m_empty->setVisible(shown == 0 && all > 0);
    for (std::size_t i = 0; i < m_marks.size(); ++i) {
        HygChipButton & chip = *m_marks[i].first;
        const bool isProblems = m_marks[i].second == Proxy::Problems;
        const int problems = m_database->model().countProblems();
        chip.setText(isProblems ? tr(MARKS[i].text).arg(problems) : tr(MARKS[i].text));
        chip.setVisible(!isProblems || problems > 0 || chip.isChecked());
        chip.updateGeometry();
    }
}

void HygMaterialDBWidget::updateActions() {
    const QStringList selected = selectedPaths();
    const Model & model = m_database->model();
    bool areUsers = !m_table->selectionModel()->selectedRows().isEmpty();
    for (const QModelIndex & index : m_table->selectionModel()->selectedRows())
        areUsers = areUsers && index.data(Model::UserRole).toBool();
    const int current = model.rowOf(currentPath());
    m_actions["materialEdit"]->setEnabled(current >= 0 && model.entry(current).isReadable());
    for (const char * name : {"materialCopy", "materialFavourite", "materialCompare"})
        m_actions[QLatin1String(name)]->setEnabled(!selected.isEmpty());
    m_actions["materialRemove"]->setEnabled(areUsers);
    m_actions["materialEndComparison"]->setEnabled(!m_compared.isEmpty());
    m_actions["materialEndComparison"]->setVisible(!m_compared.isEmpty());
}

void HygMaterialDBWidget::forget(const QString & path) {
    if (m_loaded.erase(path) > 0)
        m_inspectTimer.start();
}

void HygMaterialDBWidget::showMaterials() {
    const Model & model = m_database->model();
    QStringList wanted = m_compared;
    const QString current = currentPath();
    if (!current.isEmpty() && !wanted.contains(current))
        wanted.prepend(current);
    for (auto known = m_loaded.begin(); known != m_loaded.end();)
        known = wanted.contains(known->first) ? std::next(known) : m_loaded.erase(known);

    std::vector<HygMaterialChart::Material> shown;
    bool isWaiting = false;
    for (const QString & path : wanted) {
        const int row = model.rowOf(path);
        if (row < 0 || !model.entry(row).isReadable())
            continue;
        const auto known = m_loaded.find(path);
        if (known == m_loaded.end()) {
            m_loader.load(path);
            isWaiting = true;
        } else if (known->second.material) {
            shown.push_back({known->second.material, model.name(row)});
        }
    }
    if (!isWaiting) // else what was shown stays until all are there
        m_chart->setMaterials(std::move(shown));
    updateInspector();
}

void HygMaterialDBWidget::takeOver(const QString & path, const HygMaterialLoader::Loaded & result) {
    if (path != currentPath() && !m_compared.contains(path))
        return;
    m_loaded[path] = result;
    m_inspectTimer.start(0);
}

void HygMaterialDBWidget::updateInspector() {
    const Model & model = m_database->model();
    const int row = model.rowOf(currentPath());
    if (row < 0) {
        m_name->setText(tr("No material selected"));
        for (QLabel * label : {m_facts, m_problem, m_comments})
            label->clear();
        m_problem->hide();
        return;
    }
    const HygMaterialDBEntry & entry = model.entry(row);
    m_name->setText(model.name(row));
    QStringList facts{tr("ID %1").arg(entry.id)};
    if (entry.isReadable())
        facts << HygMaterialTexts::category(entry.categories[0]);
    facts << model.producer(row)
          << (entry.origin == HygMaterialDBEntry::User ? tr("your own database") : tr("built-in database"));
    facts.removeAll(QString());
    m_facts->setText(facts.join(QStringLiteral(" · ")));

    const auto known = m_loaded.find(entry.path);
    QString problem = entry.problem;
    QString comments;
    if (problem.isEmpty() && known != m_loaded.end()) {
        problem = known->second.problem;
        if (known->second.material) {
            const MM::MaterialIdentification & identification = known->second.material->m_identification;
            comments =
                QString::fromStdString(identification.m_comments.get(HygMaterialTexts::language().toStdString()));
            if (!identification.m_dataSheetSource.empty())
                comments += (comments.isEmpty() ? QString() : QStringLiteral("\n")) +
                            tr("Source: %1").arg(QString::fromStdString(identification.m_dataSheetSource));
        }
    }
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
    m_comments->setText(comments);
}

void HygMaterialDBWidget::tell(const KOR::Exception & problem) {
    problem.report();
    m_messages->showMessage(QString::fromUtf8(problem.what()));
}

void HygMaterialDBWidget::showProblem(const QString & text) {
    m_messages->showMessage(text);
}

void HygMaterialDBWidget::createMaterial() {
    MM::Material material;
    material.m_id = m_database->freeId();
    material.m_identification.m_name.set("en", tr("New material").toStdString());
    HygMaterialEditor editor(*m_database, std::move(material), this);
    editor.exec();
    selectLater(editor.savedPath());
}

void HygMaterialDBWidget::editMaterial() {
    try {
        const QString edited = HygMaterialEditor::edit(*m_database, currentPath(), this);
        if (!edited.isEmpty())
            selectLater(edited);
    } catch (const KOR::Exception & ex) {
        tell(ex);
    }
}

void HygMaterialDBWidget::copyMaterials() {
    const QStringList selected = selectedPaths();
    try {
        for (const QString & path : selected)
            selectLater(m_database->copyToUser(path));
    } catch (const KOR::Exception & ex) {
        tell(ex);
    }
}

void HygMaterialDBWidget::removeMaterials() {
    QStringList paths;
    QStringList names;
    for (const QModelIndex & index : m_table->selectionModel()->selectedRows(Model::NameColumn)) {
        if (!index.data(Model::UserRole).toBool())
            continue;
        paths << index.data(Model::PathRole).toString();
        names << index.data().toString();
    }
    if (paths.isEmpty() ||
        QMessageBox::question(this, tr("Delete materials"),
                              tr("Move the files of these materials to the trash?\n\n%1").arg(names.join('\n'))) !=
            QMessageBox::Yes)
        return;
    for (const QString & path : qAsConst(paths))
        if (!QFile::moveToTrash(path))
            m_messages->showMessage(tr("Cannot move '%1' to the trash.").arg(QDir::toNativeSeparators(path)));
    rescan();
}

void HygMaterialDBWidget::toggleFavourites() {
    const Model & model = m_database->model();
    const QStringList selected = selectedPaths();
    const bool areAll = std::all_of(selected.begin(), selected.end(),
                                    [&](const QString & path) { return model.isFavourite(model.rowOf(path)); });
    for (const QString & path : selected)
        m_database->setFavourite(path, !areAll);
}

void HygMaterialDBWidget::toggleComparison() {
    const QStringList selected = selectedPaths();
    const bool areAll =
        std::all_of(selected.begin(), selected.end(), [&](const QString & path) { return m_compared.contains(path); });
    for (const QString & path : selected) {
        m_compared.removeAll(path);
        if (!areAll && m_compared.size() < MAX_COMPARED)
            m_compared << path;
    }
    if (!areAll && selected.size() > MAX_COMPARED)
        m_messages->showMessage(tr("At most %1 materials can be compared.").arg(MAX_COMPARED));
    m_database->model().setCompared(m_compared);
    updateActions();
    m_inspectTimer.start(0);
}

void HygMaterialDBWidget::endComparison() {
    m_compared.clear();
    m_database->model().setCompared({});
    updateActions();
    m_inspectTimer.start(0);
}

void HygMaterialDBWidget::rescan() {
    m_database->rescan();
}

void HygMaterialDBWidget::updateCategories() {
    m_category->setItemText(0, tr("All categories"));
    for (int category = 1; category < Proxy::ALL_CATEGORIES; ++category)
        m_category->setItemText(category, HygMaterialTexts::category(category));
}

void HygMaterialDBWidget::updateIcons() {
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.3);
    large.setWeight(QFont::DemiBold);
    m_name->setFont(large);
    QPalette warning = palette();
    warning.setColor(QPalette::WindowText, HygLogModel::colourOf(HygLogModel::Error));
    m_problem->setPalette(warning);
    for (std::size_t i = 0; i < m_marks.size(); ++i)
        m_marks[i].first->setIcon(HygIconEngine::icon(
            QLatin1String(MARKS[i].icon),
            m_marks[i].second == Proxy::Problems ? HygLogModel::colourOf(HygLogModel::Warning) : QColor()));
    const QFontMetrics metrics(m_table->font());
    for (const auto & [column, characters] : WIDTHS)
        m_table->setColumnWidth(column, metrics.averageCharWidth() * characters + 16);
    m_table->verticalHeader()->setDefaultSectionSize(metrics.height() + 8);
}

void HygMaterialDBWidget::retranslate() {
    m_database->setLanguage(HygMaterialTexts::language());
    updateCategories();
    for (const ActionRow & row : ACTIONS) {
        QAction & action = *m_actions[QLatin1String(row.name)];
        const QString shortcut = action.shortcut().toString(QKeySequence::NativeText);
        action.setText(tr(row.text));
        action.setToolTip(shortcut.isEmpty() ? tr(row.toolTip) : tr("%1 (%2)").arg(tr(row.toolTip), shortcut));
    }
    for (std::size_t i = 0; i < m_marks.size(); ++i)
        m_marks[i].first->setToolTip(tr(MARKS[i].toolTip));
    m_search->setPlaceholderText(tr("Search name or producer"));
    m_search->setAccessibleName(tr("Search name or producer"));
    m_search->setToolTip(tr("Every word must be found; * stands for any characters, ? for one"));
    m_category->setAccessibleName(tr("Category"));
    m_category->setToolTip(tr("Show the materials of one category"));
    m_table->setAccessibleName(tr("Materials"));
    m_progress->setAccessibleName(tr("Progress of reading"));
    m_cancel->setToolTip(tr("Stop reading"));
    m_cancel->setAccessibleName(tr("Stop reading"));
    m_empty->setText(tr("No material fits. <a href=\"all\">Show all</a>"));
    updateCounts();
    updateInspector();
}

void HygMaterialDBWidget::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateIcons();
}

void HygMaterialDBWidget::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    m_database->start();
}

bool HygMaterialDBWidget::eventFilter(QObject * watched, QEvent * event) {
    if (event->type() == QEvent::KeyPress) {
        const auto & key = static_cast<const QKeyEvent &>(*event);
        if (watched == m_table && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
            emit m_table->doubleClicked(m_table->currentIndex());
            return true;
        }
        if (watched == m_search && key.key() == Qt::Key_Escape && !m_search->text().isEmpty()) {
            m_search->clear();
            return true;
        }
        if (watched == m_search && key.key() == Qt::Key_Down) {
            m_table->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
