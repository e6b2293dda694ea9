#pragma once

#include "materials/HygMaterialFunctions.h"
#include "materials/HygMaterialRowModel.h"

#include <SCI/PointModel.h>

class HygMaterialDocument;

/// The points of one function as a table of two columns, edited through the document.
class HygMaterialPointModel : public HygMaterialRowModel {
    Q_OBJECT
public:
    enum column_t { XColumn, YColumn, NUM_COLUMNS };

    explicit HygMaterialPointModel(HygMaterialDocument & document, QObject * parent = nullptr);

    void setPlace(const HygMaterialFunctions::Place & place);
    const HygMaterialFunctions::Place & place() const { return m_place; }
    const KOR::LinearSpline & spline() const;
    void retranslate();

    /// A point halfway to the next one, behind \p row; the first point of an empty table.
    void insertAfter(int row) override;
    void removeEntries(const std::vector<int> & rows) override;
    /// Moves a point; x stays between its neighbours. \param xStep, \param yStep what a pixel means: values are rounded to
    /// as many digits \param field see HygMaterialDocument::change
    void movePoint(int row, double x, double y, double xStep, double yStep, const QString & field);
    /// Two numbers a line; long texts are read by another thread while the window waits.
    void setText(const QString & text) override;
    QString text() const override;
    void clearPoints();

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;

    /// The points for the chart, read where they are.
    class Series;

private:
    void takeOver();
    void change(const QString & text, std::vector<double> x, std::vector<double> y, const QString & field = {});

    HygMaterialDocument & m_document;
    HygMaterialFunctions::Place m_place;
    int m_rows = 0; ///< that the views know of
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
