#include "construction/HygConstructionActions.h"

#include "HygIconEngine.h"
#include "construction/HygConstructionView.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

using HYGRION::Disc;
using HYGRION::Range;

/// What must be there for an action.
enum need_t { NeedsProject, NeedsCells, NeedsSelection, NeedsSeveralColumns, NeedsSeveralRows, NeedsRows };

struct GroupRow {
    const char * name;
    const char * text;
    const char * icon;
};
constexpr GroupRow GROUPS[] = {
    {"insert", QT_TRANSLATE_NOOP("HygConstructionView", "Insert"), "cell_insert"},
    {"split",  QT_TRANSLATE_NOOP("HygConstructionView", "Split"),  "cell_split" },
    {"merge",  QT_TRANSLATE_NOOP("HygConstructionView", "Merge"),  "cell_merge" },
    {"delete", QT_TRANSLATE_NOOP("HygConstructionView", "Delete"), "cell_delete"},
    {"mirror", QT_TRANSLATE_NOOP("HygConstructionView", "Mirror"), "cell_mirror"},
};

} // namespace

struct HygConstructionActions::Row {
    const char * name;
    const char * text;
    const char * tip;
    const char * icon;
    const char * keys;
    const char * group; ///< whose button offers it; "" stands in the tool bar itself, nullptr only in menus
    need_t need;
    bool isChoice;
    void (*run)(HygConstructionView & view);
};

// clang-format off
const HygConstructionActions::Row HygConstructionActions::ROWS[] = {
    {"addLayer", QT_TRANSLATE_NOOP("HygConstructionView", "Add layer ..."), QT_TRANSLATE_NOOP("HygConstructionView", "Add a layer of a material and thickness"), "layer_add", "Ins", "", NeedsProject, false,
     [](HygConstructionView & view) { view.addLayer(); }},
    {"insertLeft", QT_TRANSLATE_NOOP("HygConstructionView", "Insert column to the left"), QT_TRANSLATE_NOOP("HygConstructionView", "New columns like the one on their left, as many as are selected"), "cell_insert", "Ctrl+Shift+Left", "insert", NeedsSelection, false,
     [](HygConstructionView & view) { view.insertCells(Disc::X, false); }},
    {"insertRight", QT_TRANSLATE_NOOP("HygConstructionView", "Insert column to the right"), QT_TRANSLATE_NOOP("HygConstructionView", "New columns like the one on their left, as many as are selected"), "cell_insert", "Ctrl+Shift+Right", "insert", NeedsSelection, false,
     [](HygConstructionView & view) { view.insertCells(Disc::X, true); }},
    {"insertAbove", QT_TRANSLATE_NOOP("HygConstructionView", "Insert row above"), QT_TRANSLATE_NOOP("HygConstructionView", "New rows like the one below them, as many as are selected"), "cell_insert", "Ctrl+Shift+Up", "insert", NeedsSelection, false,
     [](HygConstructionView & view) { view.insertCells(Disc::Y, true); }},
    {"insertBelow", QT_TRANSLATE_NOOP("HygConstructionView", "Insert row below"), QT_TRANSLATE_NOOP("HygConstructionView", "New rows like the one below them, as many as are selected"), "cell_insert", "Ctrl+Shift+Down", "insert", NeedsSelection, false,
     [](HygConstructionView & view) { view.insertCells(Disc::Y, false); }},
    {"splitColumns", QT_TRANSLATE_NOOP("HygConstructionView", "Split columns"), QT_TRANSLATE_NOOP("HygConstructionView", "Divide each selected column in two"), "cell_split", "Ctrl+T", "split", NeedsSelection, false,
     [](HygConstructionView & view) { view.splitCells(Disc::X); }},
    {"splitRows", QT_TRANSLATE_NOOP("HygConstructionView", "Split rows"), QT_TRANSLATE_NOOP("HygConstructionView", "Divide each selected row in two"), "cell_split", "Ctrl+Shift+T", "split", NeedsSelection, false,
     [](HygConstructionView & view) { view.splitCells(Disc::Y); }},
    {"mergeColumns", QT_TRANSLATE_NOOP("HygConstructionView", "Merge columns"), QT_TRANSLATE_NOOP("HygConstructionView", "Make one column of the selected ones; the widest part decides on its material"), "cell_merge", "Ctrl+J", "merge", NeedsSeveralColumns, false,
     [](HygConstructionView & view) { view.mergeCells(Disc::X); }},
    {"mergeRows", QT_TRANSLATE_NOOP("HygConstructionView", "Merge rows"), QT_TRANSLATE_NOOP("HygConstructionView", "Make one row of the selected ones; the highest part decides on its material"), "cell_merge", "Ctrl+Shift+J", "merge", NeedsSeveralRows, false,
     [](HygConstructionView & view) { view.mergeCells(Disc::Y); }},
    {"deleteColumns", QT_TRANSLATE_NOOP("HygConstructionView", "Delete columns"), QT_TRANSLATE_NOOP("HygConstructionView", "Take the selected columns out; the construction becomes narrower"), "cell_delete", "Ctrl+Del", "delete", NeedsSelection, false,
     [](HygConstructionView & view) { view.deleteCells(Disc::X); }},
    {"deleteRows", QT_TRANSLATE_NOOP("HygConstructionView", "Delete rows"), QT_TRANSLATE_NOOP("HygConstructionView", "Take the selected rows out; the construction becomes lower"), "cell_delete", "Ctrl+Shift+Del", "delete", NeedsSelection, false,
     [](HygConstructionView & view) { view.deleteCells(Disc::Y); }},
    {"mirrorColumns", QT_TRANSLATE_NOOP("HygConstructionView", "Mirror left and right"), QT_TRANSLATE_NOOP("HygConstructionView", "Reverse the order of the selected columns, of all without a selection"), "cell_mirror", "Ctrl+I", "mirror", NeedsCells, false,
     [](HygConstructionView & view) { view.mirrorCells(Disc::X); }},
    {"mirrorRows", QT_TRANSLATE_NOOP("HygConstructionView", "Mirror top and bottom"), QT_TRANSLATE_NOOP("HygConstructionView", "Reverse the order of the selected rows, of all without a selection"), "cell_mirror", "Ctrl+Shift+I", "mirror", NeedsRows, false,
     [](HygConstructionView & view) { view.mirrorCells(Disc::Y); }},
    {"columnWidth", QT_TRANSLATE_NOOP("HygConstructionView", "Column width ..."), QT_TRANSLATE_NOOP("HygConstructionView", "Set the width of the selected columns (usually 0.1 mm to 1 m)"), "width", "F2", "", NeedsSelection, false,
     [](HygConstructionView & view) { const Range range = view.m_canvas->scene().selection.bounds(); view.askWidth(Qt::Horizontal, range.left, range.right); }},
    {"rowHeight", QT_TRANSLATE_NOOP("HygConstructionView", "Row height ..."), QT_TRANSLATE_NOOP("HygConstructionView", "Set the height of the selected rows (usually 0.1 mm to 1 m)"), "width", "Shift+F2", nullptr, NeedsSelection, false,
     [](HygConstructionView & view) { const Range range = view.m_canvas->scene().selection.bounds(); view.askWidth(Qt::Vertical, range.bottom, range.top); }},
    {"discretize", QT_TRANSLATE_NOOP("HygConstructionView", "Automatic discretization ..."), QT_TRANSLATE_NOOP("HygConstructionView", "Divide layers into cells, fine where temperature and moisture change quickly"), "discretize", "Ctrl+D", "", NeedsCells, false,
     [](HygConstructionView & view) { view.discretize(); }},
    {"copyCells", QT_TRANSLATE_NOOP("HygConstructionView", "Copy cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Copy what is assigned to the selected cells"), "copy", "Ctrl+C", "", NeedsSelection, false,
     [](HygConstructionView & view) { view.copyCells(); }},
    {"cutCells", QT_TRANSLATE_NOOP("HygConstructionView", "Cut cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Copy what is assigned to the selected cells and take it off them"), "cell_delete", "Ctrl+X", nullptr, NeedsSelection, false,
     [](HygConstructionView & view) { view.cutCells(); }},
    {"pasteCells", QT_TRANSLATE_NOOP("HygConstructionView", "Paste cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Assign what was copied, from the lower left selected cell on"), "paste", "Ctrl+V", "", NeedsSelection, false,
     [](HygConstructionView & view) { view.pasteCells(); }},
    {"clearCells", QT_TRANSLATE_NOOP("HygConstructionView", "Clear cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Take everything off the selected cells"), "clear", "Del", nullptr, NeedsSelection, false,
     [](HygConstructionView & view) { view.clearCells(); }},
    {"selectAllCells", QT_TRANSLATE_NOOP("HygConstructionView", "Select all cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Select the whole construction"), nullptr, "Ctrl+A", nullptr, NeedsCells, false,
     [](HygConstructionView & view) { view.m_canvas->selectAll(); }},
    {"selectMaterial", QT_TRANSLATE_NOOP("HygConstructionView", "Select cells of this material"), QT_TRANSLATE_NOOP("HygConstructionView", "Select all cells of the material under the last selected cell; in the drawing the key M does the same"), nullptr, "Ctrl+M", nullptr, NeedsSelection, false,
     [](HygConstructionView & view) { view.m_canvas->selectMaterial(); }},
    {"zoomFit", QT_TRANSLATE_NOOP("HygConstructionView", "Show all"), QT_TRANSLATE_NOOP("HygConstructionView", "Fit the construction into the window"), "zoom_fit", "Ctrl+0", "", NeedsCells, false,
     [](HygConstructionView & view) { view.m_canvas->fitAll(); }},
    {"zoomSelection", QT_TRANSLATE_NOOP("HygConstructionView", "Show selection"), QT_TRANSLATE_NOOP("HygConstructionView", "Zoom to the selected cells"), "zoom_selection", "Ctrl+Shift+0", "", NeedsSelection, false,
     [](HygConstructionView & view) { view.m_canvas->zoomToSelection(); }},
    {"zoomIn", QT_TRANSLATE_NOOP("HygConstructionView", "Zoom in"), QT_TRANSLATE_NOOP("HygConstructionView", "Zoom in; the mouse wheel zooms at the pointer"), "zoom_in", "Ctrl++", "", NeedsCells, false,
     [](HygConstructionView & view) { view.m_canvas->zoomIn(); }},
    {"zoomOut", QT_TRANSLATE_NOOP("HygConstructionView", "Zoom out"), QT_TRANSLATE_NOOP("HygConstructionView", "Zoom out; the mouse wheel zooms at the pointer"), "zoom_out", "Ctrl+-", "", NeedsCells, false,
     [](HygConstructionView & view) { view.m_canvas->zoomOut(); }},
    {"equidistant", QT_TRANSLATE_NOOP("HygConstructionView", "Equal cells"), QT_TRANSLATE_NOOP("HygConstructionView", "Draw all cells alike, so that thin ones can be reached; otherwise to scale"), "equidistant", "Ctrl+E", "", NeedsProject, true,
     [](HygConstructionView & view) { view.setEquidistant(view.m_actions->action("equidistant").isChecked()); }},
    {"gridLines", QT_TRANSLATE_NOOP("HygConstructionView", "Grid lines"), QT_TRANSLATE_NOOP("HygConstructionView", "Draw the borders of the cells"), "gridlines", "Ctrl+G", "", NeedsProject, true,
     [](HygConstructionView & view) { view.setGridLines(view.m_actions->action("gridLines").isChecked()); }},
};
// clang-format on

HygConstructionActions::HygConstructionActions(HygConstructionView & view) : m_view(view) {
    for (const Row & row : ROWS) {
        auto * made = new QAction(&view);
        made->setObjectName(QLatin1String(row.name));
        made->setShortcut(QKeySequence(QLatin1String(row.keys)));
        made->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        made->setCheckable(row.isChoice);
        if (row.icon != nullptr)
            made->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        QObject::connect(made, &QAction::triggered, &view, [&view, &row] { row.run(view); });
        view.addAction(made);
        m_actions[made->objectName()] = made;
    }
}

QAction & HygConstructionActions::action(const char * name) const {
    return *m_actions.at(QLatin1String(name));
}

void HygConstructionActions::fillTools(QToolBar & tools) {
    std::map<QString, QMenu *> menus;
    const auto separatorBefore = {QLatin1String("discretize"), QLatin1String("copyCells"), QLatin1String("zoomFit"),
                                  QLatin1String("equidistant")};
    for (const Row & row : ROWS) {
        if (row.group == nullptr)
            continue;
        QAction & made = action(row.name);
        if (*row.group == '\0') {
            if (std::find(separatorBefore.begin(), separatorBefore.end(), made.objectName()) != separatorBefore.end())
                tools.addSeparator();
            tools.addAction(&made);
            if (made.objectName() == QLatin1String("addLayer")) {
                static_cast<QToolButton *>(tools.widgetForAction(&made))
                    ->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
                tools.addSeparator();
            }
            continue;
        }
        QMenu *& menu = menus[QLatin1String(row.group)];
        if (menu == nullptr) {
            const auto * group = std::find_if(std::begin(GROUPS), std::end(GROUPS), [&](const GroupRow & candidate) {
                return QLatin1String(candidate.name) == QLatin1String(row.group);
            });
            menu = new QMenu(&m_view);
            auto * button = new QToolButton(&tools);
            button->setObjectName(QLatin1String(group->name) + QStringLiteral("Button"));
            button->setIcon(HygIconEngine::icon(QLatin1String(group->icon)));
            button->setPopupMode(QToolButton::InstantPopup);
            button->setMenu(menu);
            button->setFocusPolicy(Qt::TabFocus);
            tools.addWidget(button);
            m_groupButtons.emplace_back(button, group->text);
        }
        menu->addAction(&made);
    }
    for (QToolButton * button : tools.findChildren<QToolButton *>())
        button->setFocusPolicy(Qt::TabFocus);
}

void HygConstructionActions::fillMenu(QMenu & menu) const {
    for (const Row & row : ROWS)
        if (row.group == nullptr || *row.group != '\0' || row.need == NeedsSelection)
            if (action(row.name).isVisible())
                menu.addAction(&action(row.name));
}

void HygConstructionActions::retranslate() {
    for (const Row & row : ROWS) {
        QAction & made = action(row.name);
        made.setText(HygConstructionView::tr(row.text));
        made.setStatusTip(HygConstructionView::tr(row.tip));
        const QString keys = made.shortcut().toString(QKeySequence::NativeText);
        made.setToolTip(
            keys.isEmpty()
                ? HygConstructionView::tr(row.tip)
                : HygConstructionView::tr("%1 (%2)", "tool tip and keys").arg(HygConstructionView::tr(row.tip), keys));
    }
    for (const auto & [button, text] : m_groupButtons) {
        button->setText(HygConstructionView::tr(text));
        button->setToolTip(HygConstructionView::tr(text));
        button->setAccessibleName(HygConstructionView::tr(text));
    }
}

void HygConstructionActions::update(const HygConstructionScene & scene) {
    const bool hasProject = scene.project != nullptr;
    const bool hasCells = hasProject && !scene.isBlank();
    const bool hasRows = hasCells && scene.cells.ny() > 1;
    const bool isSelected = hasCells && !scene.selection.empty();
    const Range range = scene.selection.bounds();
    for (const Row & row : ROWS) {
        const bool isPossible = row.need == NeedsProject          ? hasProject
                                : row.need == NeedsCells          ? hasCells
                                : row.need == NeedsRows           ? hasRows
                                : row.need == NeedsSelection      ? isSelected
                                : row.need == NeedsSeveralColumns ? isSelected && range.left < range.right
                                                                  : isSelected && range.bottom < range.top;
        action(row.name).setEnabled(isPossible);
    }
    // In a detail nobody wants layers, in a stack nobody wants rows.
    const bool isStack = !hasProject || scene.isStack();
    for (const char * name :
         {"insertAbove", "insertBelow", "splitRows", "mergeRows", "deleteRows", "mirrorRows", "rowHeight"})
        action(name).setVisible(!isStack);
    action("addLayer").setVisible(isStack);
}
