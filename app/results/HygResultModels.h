#pragma once

#include "results/HygResultFile.h"

#include <SCI/GridModel.h>
#include <SCI/PointModel.h>
#include <SCI/VectorModel.h>

#include <limits>

/// What charts read out of result files.
namespace HygResultModels {

/// Points of a course or a profile.
struct Line : SCI::PointModel {
    std::vector<double> xs, ys;
    std::size_t count() const override { return std::min(xs.size(), ys.size()); }
    double x(std::size_t i) const override { return xs[i]; }
    double y(std::size_t i) const override { return ys[i]; }
    bool isSorted() const override { return true; }
};

/// Where the values of a file lie in a plane of the grid.
struct Plane {
    /// \param file with geometry
    /// \param normal, plane of a volume: the direction across the plane, and the cell in that direction
    Plane(const HygResultFile & file, int normal, std::size_t plane);

    int horizontal = 0, vertical = 1;       ///< directions of the grid
    std::vector<double> xEdges, yEdges;     ///< [m]
    std::vector<double> xCentres, yCentres; ///< [m]
    std::size_t columns() const { return xCentres.size(); }
    std::size_t rows() const { return yCentres.size(); }
    static constexpr std::size_t NOTHING = std::numeric_limits<std::size_t>::max();
    /// Value of a cell: of the file's values; NOTHING where it has none. rows x columns, columns fastest.
    std::vector<std::size_t> ofCell;
    /// Sides of fluxes, the same: at the lower and upper face in both directions of the plane.
    std::vector<std::size_t> ofFace[4];
    /// Whether the file has a value for a cell, or for one of its faces.
    bool covers(std::size_t place) const;
};

/// A field at a time.
struct Field : SCI::GridModel {
    explicit Field(const HygResultFile & file, int normal = 2, std::size_t index = 0) : plane(file, normal, index) {}
    /// \param record the file's values; of fluxes their amounts are shown
    void setValues(const std::vector<double> & record);

    std::size_t columns() const override { return plane.columns(); }
    std::size_t rows() const override { return plane.rows(); }
    double xEdge(std::size_t i) const override { return plane.xEdges[i]; }
    double yEdge(std::size_t j) const override { return plane.yEdges[j]; }
    double value(std::size_t column, std::size_t row) const override { return values[row * columns() + column]; }
    bool isWithoutValue(std::size_t column, std::size_t row) const override;

    Plane plane;
    std::vector<double> values; ///< rows x columns, columns fastest; NaN where there is none
};

/// Fluxes at a time, one arrow a cell.
struct Arrows : SCI::VectorModel {
    explicit Arrows(const HygResultFile & file, int normal = 2, std::size_t index = 0) : plane(file, normal, index) {}
    void setValues(const std::vector<double> & record);

    std::size_t count() const override { return xParts.size(); }
    double x(std::size_t i) const override { return plane.xCentres[i % plane.columns()]; }
    double y(std::size_t i) const override { return plane.yCentres[i / plane.columns()]; }
    double xPart(std::size_t i) const override { return xParts[i]; }
    double yPart(std::size_t i) const override { return yParts[i]; }

    Plane plane;
    std::vector<double> xParts, yParts;
};

} // namespace HygResultModels
