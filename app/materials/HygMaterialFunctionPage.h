#pragma once

#include "materials/HygMaterialFunctions.h"

#include <QWidget>

#include <map>

class HygMaterialDocument;
class HygMaterialPointModel;
class QLabel;
class QListWidget;
class QTableView;
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

    void setReadOnly(bool isReadOnly);
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
    struct ToolRow;
    static const ToolRow TOOLS[];

    void choose(int index);
    void updateList();
    void updateChart();
    void updateFinding();
    void retranslate();
    void insertPoint();
    void removePoints();
    void copyPoints();
    void pastePoints();
    void removeFunction();
    bool dragPoint(QObject * watched, QEvent * event);
    /// The point under a place of the canvas, -1 if there is none.
    int pointAt(const QPointF & place) const;

    HygMaterialDocument & m_document;
    HygMaterialPointModel * m_points;
    std::vector<HygMaterialFunctions::Place> m_places;
    std::map<QString, QString> m_findings;
    QListWidget * m_list;
    QTableView * m_table;
    SCI::Chart * m_chart;
    QLabel * m_finding;
    std::vector<QToolButton *> m_tools;
    int m_series = -1;
    int m_dragged = -1;       ///< point
    unsigned int m_drags = 0; ///< each drag is one step of undo
    bool m_isReadOnly = false;
};
