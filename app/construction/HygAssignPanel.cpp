#include "construction/HygAssignPanel.h"

#include "HygIconEngine.h"
#include "construction/HygConstructionCanvas.h"
#include "views/HygListKeys.h"

#include <HYGRION/GridEdit.h>
#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QButtonGroup>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <map>

namespace {

using HYGRION::Assignment;
using HYGRION::Range;
using type_t = Assignment::type_t;
using location_t = Assignment::location_t;

enum role_t { TypeRole = Qt::UserRole, NameRole, FileRole };

constexpr location_t SIDES[] = {location_t::Left, location_t::Right, location_t::Bottom,
                                location_t::Top,  location_t::Back,  location_t::Front};
constexpr const char * SIDE_SIGNS[] = {"←", "→", "↓", "↑", "⊗", "⊙"};
constexpr const char * SIDE_NAMES[] = {"sideLeft", "sideRight", "sideBottom", "sideTop", "sideBack", "sideFront"};

/// The groups of the tree, in their order.
constexpr type_t GROUPS[] = {type_t::Material,       type_t::Interface,        type_t::ContactCondition,
                             type_t::FieldCondition, type_t::InitialCondition, type_t::Output};
constexpr const char * GROUP_NAMES[] = {
    QT_TRANSLATE_NOOP("HygAssignPanel", "Materials"),          QT_TRANSLATE_NOOP("HygAssignPanel", "Interfaces"),
    QT_TRANSLATE_NOOP("HygAssignPanel", "Contact conditions"), QT_TRANSLATE_NOOP("HygAssignPanel", "Field conditions"),
    QT_TRANSLATE_NOOP("HygAssignPanel", "Initial conditions"), QT_TRANSLATE_NOOP("HygAssignPanel", "Outputs")};

bool isOnSide(type_t type) {
    return type == type_t::Interface || type == type_t::ContactCondition;
}

QIcon dot(const QColor & colour) {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(4, 11, 24, 10), 4, 4);
    painter.end();
    pixmap.setDevicePixelRatio(2);
    return pixmap;
}

/// A tree whose entries can be dragged onto the drawing.
class Tree : public QTreeWidget {
public:
    using QTreeWidget::QTreeWidget;

protected:
    QStringList mimeTypes() const override { return {QLatin1String(HygConstructionCanvas::MIME_TYPE)}; }
    QMimeData * mimeData(const QList<QTreeWidgetItem *> items) const override {
        if (items.isEmpty() || !items.front()->data(0, TypeRole).isValid())
            return nullptr;
        auto * dragged = new QMimeData;
        const QTreeWidgetItem & item = *items.front();
        dragged->setData(
            QLatin1String(HygConstructionCanvas::MIME_TYPE),
            (QString::number(item.data(0, TypeRole).toInt()) + QLatin1Char('\n') + item.data(0, NameRole).toString())
                .toUtf8());
        return dragged;
    }
};

/// A material of the project whose file is missing or broken.
void markUnusable(QTreeWidgetItem & item, const QString & problem) {
    if (problem.isEmpty())
        return;
    item.setIcon(0, HygIconEngine::icon(QStringLiteral("error"), QtExt::Palette::color(QtExt::Palette::ERROR_TEXT)));
    item.setToolTip(0, problem);
}

} // namespace

HygAssignPanel::HygAssignPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, HygMaterialOffer & offer,
                               QWidget * parent)
    : QWidget(parent), m_editor(editor), m_canvas(canvas), m_offer(offer), m_hint(new QLabel(this)),
      m_search(new QLineEdit(this)), m_tree(new Tree(this)), m_sideLabel(new QLabel(this)),
      m_assign(new QToolButton(this)), m_takeOff(new QToolButton(this)) {
    setObjectName(QStringLiteral("assignPanel"));
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    m_hint->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(m_hint);
    m_search->setObjectName(QStringLiteral("assignSearch"));
    m_search->setClearButtonEnabled(true);
    layout->addWidget(m_search);
    m_tree->setObjectName(QStringLiteral("assignTree"));
    m_tree->setHeaderHidden(true);
    m_tree->setColumnCount(1);
    m_tree->setDragEnabled(true);
    m_tree->setDragDropMode(QAbstractItemView::DragOnly);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(14);
    m_tree->installEventFilter(this);
    layout->addWidget(m_tree, 1);

    auto * sides = new QHBoxLayout;
    sides->setSpacing(2);
    sides->addWidget(m_sideLabel);
    auto * group = new QButtonGroup(this);
    for (std::size_t n = 0; n < m_sides.size(); ++n) {
        auto * button = new QToolButton(this);
        button->setObjectName(QLatin1String(SIDE_NAMES[n]));
        button->setText(QString::fromUtf8(SIDE_SIGNS[n]));
        button->setCheckable(true);
        group->addButton(button);
        sides->addWidget(button);
        m_sides[n] = button;
    }
    m_sides[0]->setChecked(true);
    sides->addStretch(1);
    layout->addLayout(sides);
    auto * buttons = new QHBoxLayout;
    buttons->addWidget(m_assign, 1);
    buttons->addWidget(m_takeOff, 1);
    layout->addLayout(buttons);
    m_assign->setObjectName(QStringLiteral("assignButton"));
    m_takeOff->setObjectName(QStringLiteral("takeOffButton"));
    for (QToolButton * button : {m_assign, m_takeOff})
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    new HygListKeys(*m_search, *m_tree);
    connect(m_search, &QLineEdit::returnPressed, this, &HygAssignPanel::assignCurrent);
    connect(m_search, &QLineEdit::textChanged, this, &HygAssignPanel::filter);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &HygAssignPanel::assignCurrent);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &HygAssignPanel::updateSelection);
    connect(m_assign, &QToolButton::clicked, this, &HygAssignPanel::assignCurrent);
    connect(m_takeOff, &QToolButton::clicked, this, &HygAssignPanel::takeOffCurrent);
    connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonClicked), this,
            &HygAssignPanel::updateSelection);
    connect(&m_offer, &HygMaterialOffer::changed, this, &HygAssignPanel::updateDefinitions);
    retranslate();
}

void HygAssignPanel::retranslate() {
    m_search->setPlaceholderText(tr("Search materials and definitions"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_tree->setAccessibleName(tr("What can be assigned"));
    m_tree->setToolTip(tr(
        "Double-click or Enter assigns to the selection, Delete takes off; entries can be dragged onto the drawing"));
    m_sideLabel->setText(tr("Side:"));
    for (std::size_t n = 0; n < m_sides.size(); ++n) {
        const QString name = HygConstructionScene::locationName(SIDES[n]);
        m_sides[n]->setToolTip(name);
        m_sides[n]->setAccessibleName(name);
    }
    m_assign->setText(tr("Assign"));
    m_takeOff->setText(tr("Take off"));
    m_assign->setToolTip(tr("Assign the chosen entry to the selected cells or to their side"));
    m_takeOff->setToolTip(tr("Take the chosen entry off the selected cells or off their side"));
    updateDefinitions();
}

void HygAssignPanel::updateDefinitions() {
    const QSignalBlocker blocker(m_tree);
    const QString current =
        m_tree->currentItem() == nullptr ? QString() : m_tree->currentItem()->data(0, NameRole).toString();
    m_tree->clear();
    m_materials.clear();
    if (!m_editor.hasProject())
        return;
    const HYGRION::Project & project = m_editor.project();
    m_materials = m_offer.entries(project);
    QTreeWidgetItem * found = nullptr;
    const auto add = [&](QTreeWidgetItem * parent, type_t type, const std::string & name, const QIcon & icon) {
        auto * item = new QTreeWidgetItem(parent, {QString::fromStdString(name)});
        item->setIcon(0, icon);
        item->setData(0, TypeRole, static_cast<int>(type));
        item->setData(0, NameRole, QString::fromStdString(name));
        if (!current.isEmpty() && item->data(0, NameRole) == current)
            found = item;
        return item;
    };
    for (std::size_t n = 0; n < std::size(GROUPS); ++n) {
        auto * group = new QTreeWidgetItem(m_tree, {tr(GROUP_NAMES[n])});
        QFont bold = m_tree->font();
        bold.setBold(true);
        group->setFont(0, bold);
        group->setFlags(Qt::ItemIsEnabled);
        const type_t type = GROUPS[n];
        if (type == type_t::Material) {
            for (const HygMaterialOffer::Entry & entry : m_materials)
                if (entry.isInProject)
                    markUnusable(*add(group, type, entry.reference.m_name, HygMaterialOffer::swatch(entry.reference)),
                                 m_canvas.scene().problemOf(group->childCount() - 1));
        } else {
            Assignment probe;
            probe.m_type = type;
            const HYGRION::definition_t kind = HYGRION::referencedKind(probe);
            HYGRION::forEachDefinitionList(project, [&](HYGRION::definition_t listKind, const auto & list) {
                if (listKind != kind)
                    return;
                for (std::size_t i = 0; i < list.size(); ++i)
                    add(group, type, list[i].m_name, dot(HygConstructionScene::definitionColour(type, i)));
            });
        }
        group->setExpanded(true);
        group->setHidden(group->childCount() == 0);
    }
    auto * database = new QTreeWidgetItem(m_tree, {tr("Material database")});
    QFont bold = m_tree->font();
    bold.setBold(true);
    database->setFont(0, bold);
    database->setFlags(Qt::ItemIsEnabled);
    for (const HygMaterialOffer::Entry & entry : m_materials)
        if (!entry.isInProject)
            add(database, type_t::Material, entry.reference.m_name, HygMaterialOffer::swatch(entry.reference))
                ->setToolTip(0, tr("%1. It is added to the project when it is assigned.").arg(entry.category));
    if (found != nullptr)
        m_tree->setCurrentItem(found);
    filter();
    updateSelection();
}

void HygAssignPanel::updateProblems() {
    QTreeWidgetItem * materials = m_tree->topLevelItem(0);
    for (int n = 0; materials != nullptr && n < materials->childCount(); ++n) {
        QTreeWidgetItem & item = *materials->child(n);
        const auto entry = static_cast<std::size_t>(n);
        if (entry < m_materials.size())
            item.setIcon(0, HygMaterialOffer::swatch(m_materials[entry].reference));
        item.setToolTip(0, QString());
        markUnusable(item, m_canvas.scene().problemOf(n));
    }
}

void HygAssignPanel::filter() {
    const QStringList words = m_search->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int n = 0; n < m_tree->topLevelItemCount(); ++n) {
        QTreeWidgetItem & group = *m_tree->topLevelItem(n);
        int shown = 0;
        for (int i = 0; i < group.childCount(); ++i) {
            QTreeWidgetItem & item = *group.child(i);
            const bool isWanted = std::all_of(words.begin(), words.end(), [&](const QString & word) {
                return item.text(0).contains(word, Qt::CaseInsensitive);
            });
            item.setHidden(!isWanted);
            shown += isWanted ? 1 : 0;
        }
        group.setHidden(shown == 0);
        if (!words.isEmpty())
            group.setExpanded(true);
    }
    // What is not to be seen is not what is assigned.
    const QTreeWidgetItem * current = m_tree->currentItem();
    if (!words.isEmpty() && (current == nullptr || current->isHidden() || current->parent() == nullptr))
        m_tree->setCurrentItem(firstShown());
}

QTreeWidgetItem * HygAssignPanel::firstShown() const {
    for (int n = 0; n < m_tree->topLevelItemCount(); ++n)
        for (int i = 0; i < m_tree->topLevelItem(n)->childCount(); ++i)
            if (!m_tree->topLevelItem(n)->child(i)->isHidden())
                return m_tree->topLevelItem(n)->child(i);
    return nullptr;
}

std::vector<location_t> HygAssignPanel::surfaces() const {
    const HygConstructionScene & scene = m_canvas.scene();
    std::vector<location_t> found;
    if (scene.selection.empty())
        return found;
    const Range range = scene.selection.bounds();
    const auto isVoid = [&](std::uint32_t i, std::uint32_t j) {
        return scene.cells.material(i, j) == HygCellPlane::NO_MATERIAL;
    };
    const std::uint32_t middleColumn = (range.left + range.right) / 2;
    const std::uint32_t middleRow = (range.bottom + range.top) / 2;
    if (range.left == 0 || isVoid(range.left - 1, middleRow))
        found.push_back(location_t::Left);
    if (range.right + 1 == scene.cells.nx() || isVoid(range.right + 1, middleRow))
        found.push_back(location_t::Right);
    if (scene.isStack())
        return found;
    if (range.bottom == 0 || isVoid(middleColumn, range.bottom - 1))
        found.push_back(location_t::Bottom);
    if (range.top + 1 == scene.cells.ny() || isVoid(middleColumn, range.top + 1))
        found.push_back(location_t::Top);
    return found;
}

location_t HygAssignPanel::side() const {
    for (std::size_t n = 0; n < m_sides.size(); ++n)
        if (m_sides[n]->isChecked())
            return SIDES[n];
    return location_t::Left;
}

void HygAssignPanel::showDefinition(type_t type, const QString & name) {
    m_search->clear();
    for (int n = 0; n < m_tree->topLevelItemCount(); ++n)
        for (int i = 0; i < m_tree->topLevelItem(n)->childCount(); ++i) {
            QTreeWidgetItem * item = m_tree->topLevelItem(n)->child(i);
            if (item->data(0, TypeRole).toInt() == static_cast<int>(type) && item->data(0, NameRole) == name) {
                m_tree->setCurrentItem(item);
                return m_tree->setFocus();
            }
        }
}

void HygAssignPanel::setSide(location_t side) {
    const auto * const place = std::find(std::begin(SIDES), std::end(SIDES), side);
    if (place == std::end(SIDES))
        return;
    m_sides[static_cast<std::size_t>(place - std::begin(SIDES))]->setChecked(true);
    updateSelection();
}

void HygAssignPanel::chooseSide() {
    const std::vector<location_t> free = surfaces();
    if (!free.empty() && std::find(free.begin(), free.end(), side()) == free.end())
        setSide(free.front());
}

bool HygAssignPanel::fits(type_t type) const {
    const HygConstructionScene & scene = m_canvas.scene();
    if (scene.selection.empty())
        return false;
    if (type == type_t::Interface)
        return !surfaces().empty();
    if (type == type_t::ContactCondition)
        return scene.cells.nx() * scene.cells.ny() > 1;
    return true;
}

void HygAssignPanel::updateSelection() {
    const HygConstructionScene & scene = m_canvas.scene();
    const bool isSelected = scene.project != nullptr && !scene.selection.empty();
    const bool is3D = scene.project != nullptr && scene.project->m_disc.nz() > 1;
    if (sender() != nullptr && qobject_cast<HygConstructionCanvas *>(sender()) != nullptr)
        chooseSide();
    for (std::size_t n = 0; n < m_sides.size(); ++n)
        m_sides[n]->setVisible(n < 2 || (n < 4 ? !scene.isStack() : is3D));
    m_hint->setText(isSelected ? tr("Fits the selection. ✓ is assigned to all of it, – to a part.")
                               : tr("Select cells in the drawing, or drag an entry onto it."));

    // What is assigned, by the cells of the selection that it covers.
    std::map<std::pair<int, QString>, std::uint64_t> covered;
    if (isSelected)
        for (const Assignment & assignment : scene.project->m_assignments.m_list) {
            Range range;
            if (assignment.m_location == location_t::Coordinate || !scene.showsIn(assignment, range))
                continue;
            if (assignment.isOnSide() && assignment.m_location != side())
                continue;
            std::uint64_t cells = 0;
            for (const Range & block : scene.selection.blocks()) {
                Assignment shown;
                shown.m_range = block;
                shown.m_location = assignment.m_location;
                cells += HYGRION::edit::intersection(HYGRION::edit::effectiveRange(shown), range).cellCount();
            }
            if (cells > 0)
                covered[{static_cast<int>(assignment.m_type), QString::fromStdString(assignment.m_reference)}] += cells;
        }
    for (int n = 0; n < m_tree->topLevelItemCount(); ++n) {
        QTreeWidgetItem & group = *m_tree->topLevelItem(n);
        for (int i = 0; i < group.childCount(); ++i) {
            QTreeWidgetItem & item = *group.child(i);
            const auto type = static_cast<type_t>(item.data(0, TypeRole).toInt());
            const auto place = covered.find({static_cast<int>(type), item.data(0, NameRole).toString()});
            std::uint64_t whole = 0;
            for (const Range & block : scene.selection.blocks()) {
                Assignment shown;
                shown.m_range = block;
                shown.m_location = isOnSide(type) ? side() : location_t::Element;
                whole += HYGRION::edit::effectiveRange(shown).cellCount();
            }
            const QString name = item.data(0, NameRole).toString();
            const QString sign = place == covered.end()   ? QString()
                                 : place->second >= whole ? QStringLiteral("✓ ")
                                                          : QStringLiteral("– ");
            item.setText(0, sign + name);
            item.setForeground(
                0, !isSelected || fits(type) ? QBrush() : QBrush(palette().color(QPalette::Disabled, QPalette::Text)));
        }
    }
    const QTreeWidgetItem * current = m_tree->currentItem();
    const bool isEntry = current != nullptr && current->data(0, TypeRole).isValid();
    m_assign->setEnabled(isSelected && isEntry && fits(static_cast<type_t>(current->data(0, TypeRole).toInt())));
    m_takeOff->setEnabled(isSelected && isEntry &&
                          covered.count({current->data(0, TypeRole).toInt(), current->data(0, NameRole).toString()}) >
                              0);
}

void HygAssignPanel::assignToSelection(type_t type, const QString & name) {
    const std::vector<Range> blocks = m_canvas.scene().selection.blocks();
    if (!blocks.empty())
        assign(type, name, blocks, isOnSide(type) ? side() : location_t::Element);
}

void HygAssignPanel::assign(type_t type, const QString & name, const std::vector<Range> & blocks, location_t side) {
    if (type == type_t::Material) {
        const auto entry =
            std::find_if(m_materials.begin(), m_materials.end(), [&](const HygMaterialOffer::Entry & candidate) {
                return QString::fromStdString(candidate.reference.m_name) == name;
            });
        if (entry != m_materials.end())
            m_editor.assignMaterial(HYGRION::MaterialReference(entry->reference), std::vector<Range>(blocks));
        return;
    }
    m_editor.assign(type, name.toStdString(), blocks, side);
}

void HygAssignPanel::assignCurrent() {
    const QTreeWidgetItem * item = m_tree->currentItem();
    if (item == nullptr || !item->data(0, TypeRole).isValid() || !m_assign->isEnabled())
        return;
    assignToSelection(static_cast<type_t>(item->data(0, TypeRole).toInt()), item->data(0, NameRole).toString());
}

void HygAssignPanel::takeOffCurrent() {
    const QTreeWidgetItem * item = m_tree->currentItem();
    if (item == nullptr || !item->data(0, TypeRole).isValid() || !m_takeOff->isEnabled())
        return;
    const auto type = static_cast<type_t>(item->data(0, TypeRole).toInt());
    m_editor.unassign(type, item->data(0, NameRole).toString().toStdString(), m_canvas.scene().selection.blocks(),
                      isOnSide(type) ? side() : location_t::Element);
}

void HygAssignPanel::fillMenu(QMenu & menu) {
    for (int n = 0; n < m_tree->topLevelItemCount(); ++n) {
        const QTreeWidgetItem & group = *m_tree->topLevelItem(n);
        if (group.childCount() == 0)
            continue;
        const bool isShort = n == 0;
        QMenu * sub = isShort ? &menu : menu.addMenu(group.text(0));
        for (int i = 0; i < group.childCount(); ++i) {
            const QTreeWidgetItem & item = *group.child(i);
            const auto type = static_cast<type_t>(item.data(0, TypeRole).toInt());
            const QString name = item.data(0, NameRole).toString();
            QAction * action =
                sub->addAction(item.icon(0), QString(item.text(0)).replace(QLatin1Char('&'), QStringLiteral("&&")));
            action->setEnabled(fits(type));
            connect(action, &QAction::triggered, this, [this, type, name] { assignToSelection(type, name); });
        }
        if (isShort)
            menu.addSeparator();
    }
}

bool HygAssignPanel::eventFilter(QObject * watched, QEvent * event) {
    // Here these keys mean the list and not the cells.
    if (watched == m_tree && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Delete || key == Qt::Key_F2) {
            event->accept();
            return true;
        }
    }
    if (watched == m_tree && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            assignCurrent();
            return true;
        }
        if (key == Qt::Key_Delete) {
            takeOffCurrent();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HygAssignPanel::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
