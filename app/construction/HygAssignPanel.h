#pragma once

#include "construction/HygConstructionEditor.h"
#include "construction/HygMaterialOffer.h"

#include <QWidget>

#include <array>

class HygConstructionCanvas;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

/// Lists what can be assigned to the selection and what is assigned to it. A double click or Enter assigns, Delete takes
/// off, and each entry can be dragged onto the drawing.
class HygAssignPanel : public QWidget {
    Q_OBJECT
public:
    HygAssignPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, HygMaterialOffer & offer,
                   QWidget * parent = nullptr);

    /// The project, or what the offer holds, has changed.
    void updateDefinitions();
    /// Marks the materials whose files cannot be used, as the scene tells.
    void updateProblems();
    /// The selection has changed.
    void updateSelection();
    /// Assigns a definition, or a material of the database, to blocks of cells.
    void assign(HYGRION::Assignment::type_t type, const QString & name, const std::vector<HYGRION::Range> & blocks,
                HYGRION::Assignment::location_t side);
    /// A menu with all that fits the selection.
    void fillMenu(QMenu & menu);
    /// The side to which interfaces and contact conditions are assigned now.
    HYGRION::Assignment::location_t side() const;
    void setSide(HYGRION::Assignment::location_t side);
    /// Makes a definition the current entry.
    void showDefinition(HYGRION::Assignment::type_t type, const QString & name);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void retranslate();
    void filter();
    QTreeWidgetItem * firstShown() const;
    void assignCurrent();
    void takeOffCurrent();
    void assignToSelection(HYGRION::Assignment::type_t type, const QString & name);
    bool fits(HYGRION::Assignment::type_t type) const;
    /// The sides of the selection that lie on a surface: at the construction's end or beside cells without material.
    std::vector<HYGRION::Assignment::location_t> surfaces() const;
    void chooseSide();

    HygConstructionEditor & m_editor;
    HygConstructionCanvas & m_canvas;
    HygMaterialOffer & m_offer;
    std::vector<HygMaterialOffer::Entry> m_materials;
    QLabel * m_hint;
    QLineEdit * m_search;
    QTreeWidget * m_tree;
    QLabel * m_sideLabel;
    std::array<QToolButton *, 6> m_sides{};
    QToolButton * m_assign;
    QToolButton * m_takeOff;
};
