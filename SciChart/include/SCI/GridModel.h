#pragma once

#include <cstddef>
#include <utility>

namespace SCI {

/// Values in the cells of a rectangular grid, read where they are. Called from the GUI thread only.
class GridModel {
public:
    virtual ~GridModel() = default;

    virtual std::size_t columns() const = 0;
    virtual std::size_t rows() const = 0;
    /// Rising, columns() + 1 long; in the data unit of the x axis.
    virtual double xEdge(std::size_t i) const = 0;
    /// Rising, rows() + 1 long; in the data unit of the y axis.
    virtual double yEdge(std::size_t j) const = 0;
    /// In the data unit of the colour axis; NaN: nothing is drawn.
    virtual double value(std::size_t column, std::size_t row) const = 0;
    /// Whether there is something that has no value: such a cell is hatched, where nothing is at all the ground is left.
    virtual bool isWithoutValue(std::size_t, std::size_t) const { return false; }
    /// Smallest and largest finite value above \p lowest; the first is larger when there is none.
    virtual std::pair<double, double> valueRange(double lowest) const;
};

} // namespace SCI
