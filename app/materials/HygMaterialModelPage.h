#pragma once

#include "materials/HygMaterialModels.h"

#include <QWidget>

class HygMaterialChart;
class HygMaterialDocument;
class HygMaterialModelTable;
class HygMaterialTable;
class QLabel;
class QListWidget;
class QMenu;
class QToolButton;

/// The parametrised models of a material: a list of them, the parameters of the chosen one, and the function that a
/// calculation makes of it.
class HygMaterialModelPage : public QWidget {
    Q_OBJECT
public:
    explicit HygMaterialModelPage(HygMaterialDocument & document, QWidget * parent = nullptr);

    /// Chooses the first model.
    void showFirst();
    HygMaterialChart & chart() { return *m_chart; }

signals:
    /// For the user: what could not be done.
    void refused(const QString & message);

protected:
    void changeEvent(QEvent * event) override;

private:
    void fillMenu();
    void add(const HygMaterialModels::Row & row, int direction);
    void remove();
    void choose(int index);
    void updateList();
    void updateState();
    void showChart();
    void retranslate();

    HygMaterialDocument & m_document;
    HygMaterialModelTable * m_parameters;
    std::vector<HygMaterialModels::Place> m_places;
    QListWidget * m_list;
    QToolButton * m_add;
    QMenu * m_menu;
    QToolButton * m_remove;
    QLabel * m_hint;
    QLabel * m_problem;
    HygMaterialTable * m_table;
    HygMaterialChart * m_chart;
};
