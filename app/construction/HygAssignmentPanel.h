#pragma once

#include "construction/HygConstructionEditor.h"

#include <QWidget>

class HygAssignmentModel;
class HygConstructionCanvas;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;
class QToolButton;

/// The table of all assignments with search, sorting, and the way to each of them in the drawing.
class HygAssignmentPanel : public QWidget {
    Q_OBJECT
public:
    HygAssignmentPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, QWidget * parent = nullptr);

    void updateAssignments();
    /// Chooses assignments by their indices and goes to them in the drawing.
    void choose(const std::vector<std::size_t> & indices);

signals:
    /// The user wants another file for a material of the project.
    void replaceRequested(std::size_t material);
    /// The plane in which the drawing has to be for what was looked for.
    void planeRequested(int plane);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void retranslate();
    std::vector<std::size_t> chosen() const;
    void highlight();
    void find();
    void remove();

    HygConstructionEditor & m_editor;
    HygConstructionCanvas & m_canvas;
    HygAssignmentModel * m_model;
    QSortFilterProxyModel * m_proxy;
    QLineEdit * m_search;
    QTableView * m_table;
    QToolButton * m_find;
    QToolButton * m_remove;
};
