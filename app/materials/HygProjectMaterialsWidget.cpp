#include "materials/HygProjectMaterialsWidget.h"

#include "HygIconEngine.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialDBDialog.h"
#include "materials/HygMaterialEditor.h"
#include "materials/HygProjectMaterialFiles.h"
#include "materials/HygProjectMaterials.h"
#include "undo/HygModification.h"
#include "views/HygLogModel.h"

#include <KOR/Exception.h>

#include <QAction>
#include <QBoxLayout>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <QTreeWidget>

namespace {

enum column_t { NameColumn, StateColumn, UsesColumn, NUM_COLUMNS };

struct StateRow {
    const char * text;
    HygLogModel::kind_t kind;
};
// By HygProjectMaterialFiles::state_t.
constexpr StateRow STATES[] = {
    {"",                         HygLogModel::Information},
    { QT_TRANSLATE_NOOP("HygProjectMaterialsWidget",                   "good"), HygLogModel::Information},
    { QT_TRANSLATE_NOOP("HygProjectMaterialsWidget",                "changed"),     HygLogModel::Warning},
    { QT_TRANSLATE_NOOP("HygProjectMaterialsWidget",  "missing – choose…"),       HygLogModel::Error},
    { QT_TRANSLATE_NOOP("HygProjectMaterialsWidget", "unusable – choose…"),       HygLogModel::Error},
};

bool isUnusable(HygProjectMaterialFiles::state_t state) {
    return state == HygProjectMaterialFiles::Missing || state == HygProjectMaterialFiles::Broken;
}

} // namespace

struct HygProjectMaterialsWidget::ActionRow {
    const char * name;
    const char * icon;
    const char * text;
    const char * toolTip;
    void (HygProjectMaterialsWidget::*slot)();
    bool needsMaterial;
};

// clang-format off
const HygProjectMaterialsWidget::ActionRow HygProjectMaterialsWidget::ACTIONS[] = {
    {"projectMaterialAdd", "add", QT_TR_NOOP("&Add…"),
     QT_TR_NOOP("Choose a material of the database for the project"), &HygProjectMaterialsWidget::addMaterial, false},
    {"projectMaterialReplace", "replace", QT_TR_NOOP("&Replace…"),
     QT_TR_NOOP("Put another material in the place of this one; what is assigned stays assigned"), &HygProjectMaterialsWidget::replaceMaterial, true},
    {"projectMaterialEdit", "edit", QT_TR_NOOP("&Edit…"),
     QT_TR_NOOP("Open the material in the editor"), &HygProjectMaterialsWidget::editMaterial, true},
    {"projectMaterialRemove", "remove", QT_TR_NOOP("Re&move"),
     QT_TR_NOOP("Take the material and its assignments out of the project"), &HygProjectMaterialsWidget::removeMaterial, true},
    {"projectMaterialRemoveUnused", "clear", QT_TR_NOOP("Remove &unused"),
     QT_TR_NOOP("Take out the materials that are assigned nowhere"), &HygProjectMaterialsWidget::removeUnused, false},
    {"projectMaterialAccept", "refresh", QT_TR_NOOP("A&ccept change"),
     QT_TR_NOOP("The file may be as it is now; the notice goes away"), &HygProjectMaterialsWidget::acceptChange, true},
};
// clang-format on

HygProjectMaterialsWidget::HygProjectMaterialsWidget(HygProjectHandler & projects, HygMaterialDB & database,
                                                     QWidget * parent)
    : QWidget(parent), m_projects(projects), m_database(database), m_files(HygProjectMaterialFiles::of(projects)),
      m_title(new QLabel(this)), m_empty(new QLabel(this)), m_list(new QTreeWidget(this)) {
    auto * tools = new QHBoxLayout;
    tools->setSpacing(2);
    for (const ActionRow & row : ACTIONS) {
        auto * action = new QAction(HygIconEngine::icon(QLatin1String(row.icon)), QString(), this);
        action->setObjectName(QLatin1String(row.name));
        connect(action, &QAction::triggered, this, row.slot);
        m_actions[QLatin1String(row.name)] = action;
        auto * button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        tools->addWidget(button);
    }
    tools->addStretch(1);
    m_title->setObjectName(QStringLiteral("projectMaterialsTitle"));
    m_empty->setObjectName(QStringLiteral("projectMaterialsEmpty"));
    m_empty->setWordWrap(true);
    m_empty->setForegroundRole(QPalette::PlaceholderText);
    m_list->setObjectName(QStringLiteral("projectMaterials"));
    m_list->setColumnCount(NUM_COLUMNS);
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setUniformRowHeights(true);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(StateColumn, QHeaderView::Fixed);
    m_list->viewport()->installEventFilter(this);
    m_list->header()->setSectionResizeMode(UsesColumn, QHeaderView::ResizeToContents);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint & place) {
        QMenu menu(this);
        for (const ActionRow & row : ACTIONS)
            menu.addAction(m_actions[QLatin1String(row.name)]);
        menu.exec(m_list->viewport()->mapToGlobal(place));
    });
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 0, 8);
    layout->addWidget(m_title);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_empty);
    layout->addLayout(tools);

    connect(m_list, &QTreeWidget::itemClicked, this, &HygProjectMaterialsWidget::itemClicked);
    connect(m_list, &QTreeWidget::itemActivated, this, &HygProjectMaterialsWidget::itemClicked);
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this] {
        updateActions();
        if (const int index = current(); index >= 0) {
            const HYGRION::Project & project = m_projects.project();
            emit currentChanged(
                HygProjectMaterials::file(project, project.m_materials[static_cast<std::size_t>(index)]));
        }
    });
    connect(&m_files, &HygProjectMaterialFiles::changed, this, &HygProjectMaterialsWidget::update);
    connect(&m_files, &HygProjectMaterialFiles::changedOnDisk, this, [this](const QString & path) {
        emit problem(tr("The material file '%1' has changed on the disk.").arg(QDir::toNativeSeparators(path)));
    });
    connect(&m_projects, &HygProjectHandler::modified, this, [this](int code) {
        if (code <= HygModification::MaterialRemoved || code == HygModification::CellDimensionChanged ||
            code == HygModification::GridModified || code == HygModification::ProjectReplaced)
            update();
    });
    retranslate();
}

int HygProjectMaterialsWidget::current() const {
    return m_list->currentItem() == nullptr ? -1 : m_list->indexOfTopLevelItem(m_list->currentItem());
}

void HygProjectMaterialsWidget::update() {
    const HYGRION::Project & project = m_projects.project();
    const int before = current();
    const QSignalBlocker blocker(m_list);
    const int count = static_cast<int>(project.m_materials.size());
    while (m_list->topLevelItemCount() > count)
        delete m_list->takeTopLevelItem(count);
    while (m_list->topLevelItemCount() < count)
        m_list->addTopLevelItem(new QTreeWidgetItem);
    for (int i = 0; i < count; ++i) {
        const HYGRION::MaterialReference & material = project.m_materials[static_cast<std::size_t>(i)];
        const HygProjectMaterialFiles::File file = m_files.file(static_cast<std::size_t>(i));
        const StateRow & state = STATES[file.state];
        const QStringList uses = HygProjectMaterials::uses(project, material.m_name);
        QTreeWidgetItem & item = *m_list->topLevelItem(i);
        item.setText(NameColumn, QString::fromStdString(material.m_name));
        QPixmap color(14, 14);
        color.fill(QColor::fromRgba(material.m_color.argb()));
        item.setIcon(NameColumn, color);
        item.setToolTip(NameColumn, QDir::toNativeSeparators(HygProjectMaterials::file(project, material)));
        item.setText(StateColumn, *state.text == '\0' ? QString() : tr(state.text));
        item.setToolTip(StateColumn, file.problem);
        const bool isNoticed = state.kind != HygLogModel::Information;
        item.setIcon(StateColumn,
                     isNoticed ? HygIconEngine::icon(HygLogModel::iconOf(state.kind), HygLogModel::colourOf(state.kind))
                               : QIcon());
        item.setForeground(StateColumn, isNoticed ? HygLogModel::colourOf(state.kind)
                                                  : m_list->palette().color(QPalette::PlaceholderText));
        item.setText(UsesColumn, uses.isEmpty() ? tr("unused") : QString::number(uses.size()));
        item.setTextAlignment(UsesColumn, Qt::AlignRight | Qt::AlignVCenter);
        item.setToolTip(UsesColumn, uses.isEmpty() ? tr("Assigned nowhere")
                                                   : tr("Assigned by:\n%1").arg(uses.mid(0, 30).join('\n')));
    }
    if (count > 0)
        m_list->setCurrentItem(m_list->topLevelItem(std::clamp(before, 0, count - 1)));
    m_empty->setVisible(count == 0);
    fitColumns();
    updateActions();
}

void HygProjectMaterialsWidget::fitColumns() {
    constexpr double LARGEST_SHARE = 0.35; // what does not fit stands in the tool tip
    const int wanted = std::max(static_cast<const QAbstractItemView *>(m_list)->sizeHintForColumn(StateColumn),
                                m_list->header()->sectionSizeHint(StateColumn));
    m_list->header()->resizeSection(StateColumn,
                                    std::min(wanted, static_cast<int>(LARGEST_SHARE * m_list->viewport()->width())));
}

bool HygProjectMaterialsWidget::eventFilter(QObject * watched, QEvent * event) {
    if (watched == m_list->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void HygProjectMaterialsWidget::updateActions() {
    const int index = current();
    const HygProjectMaterialFiles::File file =
        index >= 0 ? m_files.file(static_cast<std::size_t>(index)) : HygProjectMaterialFiles::File();
    for (const ActionRow & row : ACTIONS)
        m_actions[QLatin1String(row.name)]->setEnabled(m_projects.hasProject() && (index >= 0 || !row.needsMaterial));
    const HYGRION::Project & project = m_projects.project();
    m_actions["projectMaterialRemoveUnused"]->setEnabled(
        std::any_of(project.m_materials.begin(), project.m_materials.end(), [&](const auto & material) {
            return project.referencesTo(HYGRION::definition_t::Material, material.m_name).empty();
        }));
    m_actions["projectMaterialEdit"]->setEnabled(index >= 0 && file.material &&
                                                 file.state != HygProjectMaterialFiles::Missing);
    m_actions["projectMaterialAccept"]->setVisible(file.state == HygProjectMaterialFiles::Changed);
}

void HygProjectMaterialsWidget::attempt(const std::function<void()> & action) {
    try {
        action();
    } catch (const KOR::Exception & ex) {
        ex.report();
        emit problem(QString::fromUtf8(ex.what()));
    }
}

void HygProjectMaterialsWidget::itemClicked(QTreeWidgetItem * item, int column) {
    const int index = m_list->indexOfTopLevelItem(item);
    if (column == StateColumn && isUnusable(m_files.file(static_cast<std::size_t>(index)).state))
        replace(index);
}

void HygProjectMaterialsWidget::chooseOther(HygProjectHandler & projects, std::size_t index, QWidget * parent) {
    const auto & materials = projects.project().m_materials;
    if (index >= materials.size())
        return;
    const QString name = QString::fromStdString(materials[index].m_name);
    const QString path = HygMaterialDBDialog::choose(tr("Replace '%1' by").arg(name), parent, name);
    if (!path.isEmpty())
        HygProjectMaterials::replace(projects, index, path);
}

void HygProjectMaterialsWidget::replace(int index) {
    attempt([&] { chooseOther(m_projects, static_cast<std::size_t>(index), this); });
}

void HygProjectMaterialsWidget::add(const QStringList & paths) {
    if (m_projects.hasProject())
        attempt([&] { HygProjectMaterials::add(m_projects, paths); });
}

void HygProjectMaterialsWidget::addMaterial() {
    const QString path = HygMaterialDBDialog::choose(tr("Add material to the project"), this);
    if (!path.isEmpty())
        add({path});
}

void HygProjectMaterialsWidget::replaceMaterial() {
    if (current() >= 0)
        replace(current());
}

void HygProjectMaterialsWidget::editMaterial() {
    const int index = current();
    if (index < 0)
        return;
    const HYGRION::Project & project = m_projects.project();
    const QString path = HygProjectMaterials::file(project, project.m_materials[static_cast<std::size_t>(index)]);
    attempt([&] {
        const QString edited = HygMaterialEditor::edit(m_database, path, this);
        // A duplicate of a built-in material is meant for this place.
        if (!edited.isEmpty() && edited != path)
            HygProjectMaterials::replace(m_projects, static_cast<std::size_t>(index), edited);
    });
}

void HygProjectMaterialsWidget::removeMaterial() {
    if (const int index = current(); index >= 0)
        attempt([&] { HygProjectMaterials::remove(m_projects, static_cast<std::size_t>(index)); });
}

void HygProjectMaterialsWidget::removeUnused() {
    attempt([&] { HygProjectMaterials::removeUnused(m_projects); });
}

void HygProjectMaterialsWidget::acceptChange() {
    if (const int index = current(); index >= 0)
        m_files.accept(static_cast<std::size_t>(index));
}

void HygProjectMaterialsWidget::retranslate() {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    m_title->setFont(bold);
    m_title->setText(tr("Materials of the project"));
    m_empty->setText(tr("The project has no materials yet. Double click a material of the database to add it."));
    m_list->setHeaderLabels({tr("Name"), tr("File"), tr("Uses")});
    m_list->setAccessibleName(tr("Materials of the project"));
    for (const ActionRow & row : ACTIONS) {
        QAction & action = *m_actions[QLatin1String(row.name)];
        action.setText(tr(row.text));
        action.setToolTip(tr(row.toolTip));
    }
    update();
}

void HygProjectMaterialsWidget::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        update();
}
