#include "outputs/HygOutputsView.h"

#include "HygIconEngine.h"
#include "document/HygProjectHandler.h"
#include "outputs/HygOutputDialog.h"
#include "outputs/HygOutputModel.h"
#include "outputs/HygOutputTexts.h"
#include "outputs/HygScheduleDialog.h"
#include "outputs/HygStandardOutputs.h"
#include "undo/HygEditing.h"
#include "undo/HygModification.h"
#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoSections.h"
#include "views/HygMessageBar.h"

#include <KOR/Exception.h>

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QUndoStack>

using HYGRION::OutputFile;
using HYGRION::OutputGrid;

namespace {

/// A name that nobody else of the list has.
template <typename List> std::string freeName(const List & list, const std::string & wanted) {
    std::string name = wanted;
    for (int n = 2; std::any_of(list.begin(), list.end(), [&](const auto & item) { return item.m_name == name; }); ++n)
        name = wanted + ' ' + std::to_string(n);
    return name;
}

OutputGrid hourly(const HYGRION::Project & project, const QString & name) {
    OutputGrid grid;
    grid.m_name = freeName(project.m_outputs.m_outputGrids, name.toStdString());
    grid.m_intervals.emplace_back().m_para.set(HYGRION::Interval::para_t::StepSize, 1, "h");
    return grid;
}

} // namespace

struct HygOutputsView::ActionRow {
    const char * name;
    const char * icon;
    const char * text;
    const char * tip;
    const char * keys;
    void (HygOutputsView::*slot)();
    enum { ALWAYS, OUTPUT, SCHEDULE } need;
    bool hasText; ///< on its button
};

// clang-format off
const HygOutputsView::ActionRow HygOutputsView::ACTIONS[] = {
    {"addStandardOutputs", "outputs", QT_TRANSLATE_NOOP("HygOutputsView", "Add standard outputs"),
     QT_TRANSLATE_NOOP("HygOutputsView", "Temperature and humidity of all cells, the moisture in the construction, and the state and fluxes at each interface"), "Ctrl+Shift+O", &HygOutputsView::addStandard, ActionRow::ALWAYS, true},
    {"newOutput", "add", QT_TRANSLATE_NOOP("HygOutputsView", "New output ..."),
     QT_TRANSLATE_NOOP("HygOutputsView", "Choose a quantity, where and when it is written"), "Ins", &HygOutputsView::newOutput, ActionRow::ALWAYS, true},
    {"editOutput", "edit", QT_TRANSLATE_NOOP("HygOutputsView", "Edit output ..."),
     QT_TRANSLATE_NOOP("HygOutputsView", "Change the chosen output (Enter)"), "", &HygOutputsView::editOutput, ActionRow::OUTPUT, false},
    {"duplicateOutput", "copy", QT_TRANSLATE_NOOP("HygOutputsView", "Duplicate output ..."),
     QT_TRANSLATE_NOOP("HygOutputsView", "A further output like the chosen one"), "Ctrl+D", &HygOutputsView::duplicateOutput, ActionRow::OUTPUT, false},
    {"removeOutput", "remove", QT_TRANSLATE_NOOP("HygOutputsView", "Remove outputs"),
     QT_TRANSLATE_NOOP("HygOutputsView", "Take the chosen outputs out of the project (Delete)"), "", &HygOutputsView::removeOutputs, ActionRow::OUTPUT, false},
    {"newSchedule", "add", QT_TRANSLATE_NOOP("HygOutputsView", "New schedule ..."),
     QT_TRANSLATE_NOOP("HygOutputsView", "Times at which outputs are written"), "", &HygOutputsView::newSchedule, ActionRow::ALWAYS, false},
    {"editSchedule", "edit", QT_TRANSLATE_NOOP("HygOutputsView", "Edit schedule ..."),
     QT_TRANSLATE_NOOP("HygOutputsView", "Change the chosen schedule; outputs that use it follow"), "", &HygOutputsView::editSchedule, ActionRow::SCHEDULE, false},
    {"removeSchedule", "remove", QT_TRANSLATE_NOOP("HygOutputsView", "Remove schedule"),
     QT_TRANSLATE_NOOP("HygOutputsView", "Take the chosen schedule out of the project"), "", &HygOutputsView::removeSchedule, ActionRow::SCHEDULE, false},
};
// clang-format on

HygOutputsView::HygOutputsView(HygProjectHandler * projects, QWidget * parent)
    : QWidget(parent), m_projects(*projects), m_message(new HygMessageBar(this)),
      m_model(new HygOutputModel(*projects, this)), m_table(new QTableView(this)), m_empty(new QLabel(this)),
      m_scheduleTitle(new QLabel(this)), m_schedules(new QListWidget(this)) {
    setObjectName(QStringLiteral("outputsView"));
    setUpActions();
    const auto toolBar = [this](std::size_t first, std::size_t last) {
        auto * tools = new QToolBar(this);
        tools->setIconSize({20, 20});
        for (std::size_t n = first; n <= last; ++n) {
            QAction * action = m_actions[QLatin1String(ACTIONS[n].name)];
            tools->addAction(action);
            auto * button = static_cast<QToolButton *>(tools->widgetForAction(action));
            button->setFocusPolicy(Qt::TabFocus);
            if (ACTIONS[n].hasText)
                button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        }
        return tools;
    };
    m_table->setObjectName(QStringLiteral("outputTable"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_empty->setObjectName(QStringLiteral("outputsEmpty"));
    m_empty->setWordWrap(true);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_schedules->setObjectName(QStringLiteral("outputSchedules"));
    m_schedules->setMaximumHeight(fontMetrics().height() * 5);
    m_scheduleTitle->setBuddy(m_schedules);

    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->addWidget(m_message);
    layout->addWidget(toolBar(0, 4));
    layout->addWidget(m_table, 1);
    layout->addWidget(m_empty, 1);
    auto * heading = new QHBoxLayout;
    heading->addWidget(m_scheduleTitle);
    heading->addWidget(toolBar(5, 7));
    heading->addStretch(1);
    layout->addLayout(heading);
    layout->addWidget(m_schedules);

    for (QAbstractItemView * list :
         {static_cast<QAbstractItemView *>(m_table), static_cast<QAbstractItemView *>(m_schedules)}) {
        const bool isTable = list == m_table;
        connect(list, &QAbstractItemView::activated, this,
                isTable ? &HygOutputsView::editOutput : &HygOutputsView::editSchedule);
        connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &HygOutputsView::updateActions);
        auto * remove = new QAction(list);
        remove->setShortcut(QKeySequence::Delete);
        remove->setShortcutContext(Qt::WidgetShortcut);
        connect(remove, &QAction::triggered, this,
                isTable ? &HygOutputsView::removeOutputs : &HygOutputsView::removeSchedule);
        list->addAction(remove);
    }
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_table, &QWidget::customContextMenuRequested, this, [this](const QPoint & place) {
        QMenu menu(this);
        for (std::size_t n = 0; n < 5; ++n)
            menu.addAction(m_actions[QLatin1String(ACTIONS[n].name)]);
        menu.exec(m_table->viewport()->mapToGlobal(place));
    });
    connect(m_empty, &QLabel::linkActivated, this, &HygOutputsView::addStandard);
    connect(&m_projects, &HygProjectHandler::modified, this, [this](int code) {
        // Outputs, what they are assigned to and what the names of places are made of.
        if (code != HygModification::SolverSettingsModified && code != HygModification::LocationModified)
            update();
    });
    connect(&m_projects, &HygProjectHandler::definitionRequested, this, &HygOutputsView::selectDefinition);
    retranslate();
}

void HygOutputsView::setUpActions() {
    for (const ActionRow & row : ACTIONS) {
        auto * action = new QAction(HygIconEngine::icon(QLatin1String(row.icon)), QString(), this);
        action->setObjectName(QLatin1String(row.name));
        action->setShortcut(QKeySequence(QLatin1String(row.keys)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, row.slot);
        addAction(action);
        m_actions[action->objectName()] = action;
    }
}

void HygOutputsView::changeEvent(QEvent * event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void HygOutputsView::retranslate() {
    for (const ActionRow & row : ACTIONS) {
        QAction * action = m_actions[QLatin1String(row.name)];
        action->setText(tr(row.text));
        action->setToolTip(tr(row.tip));
    }
    m_table->setAccessibleName(tr("Outputs"));
    m_schedules->setAccessibleName(tr("Schedules"));
    m_scheduleTitle->setText(tr("Schedules"));
    m_empty->setText(tr("The project has no outputs yet: a simulation would leave no results.<br><br>"
                        "<a href='standard'>Add standard outputs</a> – temperature and humidity of all cells, the "
                        "moisture in the construction, the state and fluxes at each interface"));
    update();
}

void HygOutputsView::update() {
    const QModelIndex before = m_table->currentIndex();
    const int schedule = m_schedules->currentRow();
    m_model->update();
    const HYGRION::Outputs & outputs = m_projects.project().m_outputs;
    m_schedules->clear();
    for (const OutputGrid & grid : outputs.m_outputGrids)
        m_schedules->addItem(
            QStringLiteral("%1: %2").arg(QString::fromStdString(grid.m_name), HygOutputTexts::schedule(grid)));
    m_schedules->setCurrentRow(std::min(schedule, m_schedules->count() - 1));
    m_table->setVisible(!outputs.m_outputFiles.empty());
    m_empty->setVisible(outputs.m_outputFiles.empty());
    m_table->resizeColumnsToContents();
    if (const int rows = m_model->rowCount(); rows > 0 && before.isValid())
        m_table->selectRow(std::min(before.row(), rows - 1));
    updateActions();
}

void HygOutputsView::updateActions() {
    const bool isThere[] = {m_projects.hasProject(), currentOutput() >= 0, currentSchedule() >= 0};
    for (const ActionRow & row : ACTIONS)
        m_actions[QLatin1String(row.name)]->setEnabled(isThere[row.need]);
}

int HygOutputsView::currentOutput() const {
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty()                                              ? -1
           : rows.contains(m_table->currentIndex().siblingAtColumn(0)) ? m_table->currentIndex().row()
                                                                       : rows.front().row();
}

int HygOutputsView::currentSchedule() const {
    return m_schedules->currentRow();
}

void HygOutputsView::selectDefinition(int kind, const QString & name) {
    const auto index = [&name](const auto & list) {
        const auto found = std::find_if(list.begin(), list.end(),
                                        [&](const auto & item) { return QString::fromStdString(item.m_name) == name; });
        return found == list.end() ? -1 : static_cast<int>(found - list.begin());
    };
    const HYGRION::Outputs & outputs = m_projects.project().m_outputs;
    if (kind == static_cast<int>(HYGRION::definition_t::OutputFile))
        m_table->selectRow(index(outputs.m_outputFiles));
    else if (kind == static_cast<int>(HYGRION::definition_t::OutputGrid))
        m_schedules->setCurrentRow(index(outputs.m_outputGrids));
}

template <typename Change> void HygOutputsView::attempt(const QString & text, const Change & change) {
    QUndoStack & stack = m_projects.undoStack();
    stack.beginMacro(text);
    try {
        change(stack);
    } catch (const KOR::Exception & ex) {
        m_message->showMessage(QString::fromStdString(ex.cause()));
    }
    stack.endMacro();
}

void HygOutputsView::addStandard() {
    if (!HygStandardOutputs::add(m_projects.undoStack(), m_projects.project()))
        m_message->showMessage(tr("The project has all standard outputs already."));
}

void HygOutputsView::newOutput() {
    HYGRION::Project project = m_projects.project();
    const bool needsSchedule = project.m_outputs.m_outputGrids.empty();
    if (needsSchedule)
        project.m_outputs.m_outputGrids.push_back(hourly(project, tr("Hourly")));
    OutputFile file;
    file.m_quantity = "Temperature";
    file.m_outputGrid = project.m_outputs.m_outputGrids.front().m_name;
    HygOutputDialog dialog(project, file, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    attempt(tr("New output '%1'").arg(QString::fromStdString(dialog.file().m_name)), [&](QUndoStack & stack) {
        if (needsSchedule)
            stack.push(new HygUndoAddListItem(tr("Add schedule"), project.m_outputs.m_outputGrids.front()));
        stack.push(new HygUndoAddOutput(tr("Add output"), dialog.file()));
        stack.push(HygEditing::assignmentsCommand(tr("Assign output"), m_projects.project(),
                                                  [&](HYGRION::Assignments & assignments) {
                                                      HygOutputPlaces::set(assignments, dialog.file().m_name,
                                                                           dialog.place());
                                                  })
                       .release());
    });
    m_table->selectRow(m_model->rowCount() - 1);
}

void HygOutputsView::editOutput() {
    const int row = currentOutput();
    if (row < 0)
        return;
    const OutputFile before = m_projects.project().m_outputs.m_outputFiles[static_cast<std::size_t>(row)];
    HygOutputDialog dialog(m_projects.project(), before, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const OutputFile after = dialog.file();
    HYGRION::Assignments assignments = m_projects.project().m_assignments;
    for (HYGRION::Assignment & assignment : assignments.m_list)
        if (assignment.m_type == HYGRION::Assignment::type_t::Output && assignment.m_reference == before.m_name)
            assignment.m_reference = after.m_name;
    const HYGRION::Assignments moved = assignments; // as the renaming leaves them
    if (dialog.place().text != HygOutputPlaces::of(m_projects.project(), before.m_name).text)
        HygOutputPlaces::set(assignments, after.m_name, dialog.place());
    if (after == before && assignments == moved)
        return;
    attempt(tr("Edit output '%1'").arg(QString::fromStdString(after.m_name)), [&](QUndoStack & stack) {
        if (!(after == before))
            stack.push(new HygUndoModifyOutput(tr("Edit output"), static_cast<unsigned int>(row), after));
        if (!(assignments == moved))
            stack.push(new HygUndoAssignments(tr("Assign output"), assignments));
    });
}

void HygOutputsView::duplicateOutput() {
    const int row = currentOutput();
    if (row < 0)
        return;
    const HYGRION::Project & project = m_projects.project();
    OutputFile file = project.m_outputs.m_outputFiles[static_cast<std::size_t>(row)];
    const HygOutputPlaces::Place place = HygOutputPlaces::of(project, file.m_name);
    file.m_name = freeName(project.m_outputs.m_outputFiles, file.m_name);
    attempt(tr("Duplicate output"), [&](QUndoStack & stack) {
        stack.push(new HygUndoAddOutput(tr("Add output"), file));
        stack.push(
            HygEditing::assignmentsCommand(tr("Assign output"), project, [&](HYGRION::Assignments & assignments) {
                HygOutputPlaces::set(assignments, file.m_name, place);
            }).release());
    });
    m_table->selectRow(m_model->rowCount() - 1);
    editOutput();
}

void HygOutputsView::removeOutputs() {
    std::vector<std::size_t> rows;
    for (const QModelIndex & index : m_table->selectionModel()->selectedRows())
        rows.push_back(static_cast<std::size_t>(index.row()));
    std::sort(rows.rbegin(), rows.rend());
    HYGRION::Outputs outputs = m_projects.project().m_outputs;
    HYGRION::Assignments assignments = m_projects.project().m_assignments;
    for (const std::size_t row : rows) {
        HygOutputPlaces::set(assignments, outputs.m_outputFiles[row].m_name, {});
        outputs.m_outputFiles.erase(outputs.m_outputFiles.begin() + static_cast<std::ptrdiff_t>(row));
    }
    if (rows.empty())
        return;
    attempt(tr("Remove %n outputs", nullptr, static_cast<int>(rows.size())), [&](QUndoStack & stack) {
        stack.push(new HygUndoAssignments(tr("Take outputs off"), std::move(assignments)));
        stack.push(new HygUndoOutputs(tr("Remove outputs"), std::move(outputs)));
    });
}

void HygOutputsView::newSchedule() {
    HygScheduleDialog dialog(m_projects.project(), hourly(m_projects.project(), tr("Hourly")), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    attempt(tr("New schedule"),
            [&](QUndoStack & stack) { stack.push(new HygUndoAddListItem(tr("Add schedule"), dialog.grid())); });
    m_schedules->setCurrentRow(m_schedules->count() - 1);
}

void HygOutputsView::editSchedule() {
    const int row = currentSchedule();
    if (row < 0)
        return;
    const OutputGrid before = m_projects.project().m_outputs.m_outputGrids[static_cast<std::size_t>(row)];
    HygScheduleDialog dialog(m_projects.project(), before, this);
    if (dialog.exec() != QDialog::Accepted || dialog.grid() == before)
        return;
    attempt(tr("Edit schedule"), [&](QUndoStack & stack) {
        stack.push(new HygUndoModifyOutputGrid(tr("Edit schedule"), static_cast<unsigned int>(row), dialog.grid()));
    });
}

void HygOutputsView::removeSchedule() {
    const int row = currentSchedule();
    if (row < 0)
        return;
    const std::string & name = m_projects.project().m_outputs.m_outputGrids[static_cast<std::size_t>(row)].m_name;
    for (const OutputFile & file : m_projects.project().m_outputs.m_outputFiles)
        if (file.m_outputGrid == name)
            return m_message->showMessage(tr("The schedule '%1' is used by the output '%2'; give it another one first.")
                                              .arg(QString::fromStdString(name), QString::fromStdString(file.m_name)));
    attempt(tr("Remove schedule"), [&](QUndoStack & stack) {
        HygEditing::removeDefinition(stack, tr("Remove schedule"), m_projects.project(),
                                     HYGRION::definition_t::OutputGrid, static_cast<unsigned int>(row));
    });
}
