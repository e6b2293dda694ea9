#pragma once

#include <SCI/GridModel.h>
#include <SCI/PointModel.h>

#include <cmath>
#include <vector>

namespace PLOT {

/// Points of a picture that is drawn once.
class Points : public SCI::PointModel {
public:
    Points(std::vector<double> x, std::vector<double> y, bool isSorted = true)
        : m_x(std::move(x)), m_y(std::move(y)), m_isSorted(isSorted) {}

    std::size_t count() const override { return m_x.size(); }
    double x(std::size_t i) const override { return m_x[i]; }
    double y(std::size_t i) const override { return m_y[i]; }
    bool isSorted() const override { return m_isSorted; }

private:
    std::vector<double> m_x, m_y; ///< of the same length
    bool m_isSorted;
};

/// Cells of a picture that is drawn once.
class Cells : public SCI::GridModel {
public:
    /// \param values (xEdges.size() - 1) times (yEdges.size() - 1) long, row by row
    /// \param isThere whether there is a cell, the same
    Cells(std::vector<double> xEdges, std::vector<double> yEdges, std::vector<double> values, std::vector<bool> isThere)
        : m_xEdges(std::move(xEdges)), m_yEdges(std::move(yEdges)), m_values(std::move(values)),
          m_isThere(std::move(isThere)) {}

    std::size_t columns() const override { return m_xEdges.size() - 1; }
    std::size_t rows() const override { return m_yEdges.size() - 1; }
    double xEdge(std::size_t i) const override { return m_xEdges[i]; }
    double yEdge(std::size_t j) const override { return m_yEdges[j]; }
    double value(std::size_t i, std::size_t j) const override { return m_values[j * columns() + i]; }
    bool isWithoutValue(std::size_t i, std::size_t j) const override {
        return m_isThere[j * columns() + i] && !std::isfinite(value(i, j));
    }

private:
    std::vector<double> m_xEdges, m_yEdges, m_values;
    std::vector<bool> m_isThere;
};

} // namespace PLOT
