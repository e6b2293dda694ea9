#pragma once

#include "materials/HygMaterialFunctions.h"

#include <QWidget>

#include <map>

class HygMaterialDocument;
class HygMaterialPointModel;
class HygMaterialTable;
class QLabel;
class QListWidget;
class QToolButton;
namespace SCI {
class Chart;
}

/// The tabulated functions of a material: a list of them, and table and chart of the chosen one. Points are typed into the
/// table or dragged in the chart.
class HygMaterialFunctionPage : public QWidget {
    Q_OBJECT
public:
    explicit HygMaterialFunctionPage(HygMaterialDocument & document, QWidget * parent = nullptr);

    /// Texts by the keyword of the function.
    void setFindings(const std::map<QString, QString> & findings);
    bool hasFunction(const QString & keyword) const;
    void showFunction(const QString & keyword);
    SCI::Chart & chart() { return *m_chart; }

signals:
    /// For the user: what could not be done.
    void refused(const QString & message);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void choose(int index);
    void updateList();
    void updateChart();
    void updateFinding();
    void retranslate();
    bool dragPoint(QObject * watched, QEvent * event);
    /// The point under a place of the canvas, -1 if there is none.
    int pointAt(const QPointF & place) const;

    HygMaterialDocument & m_document;
    HygMaterialPointModel * m_points;
    std::vector<HygMaterialFunctions::Place> m_places;
    std::map<QString, QString> m_findings;
    QListWidget * m_list;
    HygMaterialTable * m_table;
    QToolButton * m_remove;
    SCI::Chart * m_chart;
    QLabel * m_finding;
    int m_series = -1;
    int m_dragged = -1;       ///< point
    unsigned int m_drags = 0; ///< each drag is one step of undo
};
