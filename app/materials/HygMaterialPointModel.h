#pragma once

#include "materials/HygMaterialFunctions.h"

#include <SCI/PointModel.h>

#include <QAbstractTableModel>

class HygMaterialDocument;

/// The points of one function as a table of two columns, edited through the document.
class HygMaterialPointModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t { XColumn, YColumn, NUM_COLUMNS };

    explicit HygMaterialPointModel(HygMaterialDocument & document, QObject * parent = nullptr);

    void setPlace(const HygMaterialFunctions::Place & place);
    const HygMaterialFunctions::Place & place() const { return m_place; }
    const KOR::LinearSpline & spline() const;
    void setReadOnly(bool isReadOnly) { m_isReadOnly = isReadOnly; }
    void retranslate();

    /// A point halfway to the next one, behind \p row; the first point of an empty table.
    void insertAfter(int row);
    void removePoints(const std::vector<int> & rows);
    /// Moves a point; x stays between its neighbours. \param field see HygMaterialDocument::change
    void movePoint(int row, double x, double y, const QString & field);
    /// Replaces all points by the lines of a text: two numbers a line. Throws KOR::Exception with the line.
    void setText(const QString & text);
    QString text() const;
    void clearPoints();

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;

    /// The points for the chart, read where they are.
    class Series;

signals:
    /// What was typed is no number.
    void refused(const QString & message);

private:
    void takeOver();
    void change(const QString & text, std::vector<double> x, std::vector<double> y, const QString & field = {});

    HygMaterialDocument & m_document;
    HygMaterialFunctions::Place m_place;
    int m_rows = 0; ///< that the views know of
    bool m_isReadOnly = false;
};

class HygMaterialPointModel::Series : public SCI::PointModel {
public:
    explicit Series(const HygMaterialPointModel & points) : m_points(points) {}
    std::size_t count() const override { return m_points.spline().size(); }
    double x(std::size_t i) const override { return m_points.spline().x()[i]; }
    double y(std::size_t i) const override { return m_points.spline().y()[i]; }
    bool isSorted() const override { return m_points.spline().valid(); }

private:
    const HygMaterialPointModel & m_points;
};
