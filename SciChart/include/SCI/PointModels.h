#pragma once

#include <SCI/PointModel.h>

#include <functional>
#include <utility>
#include <vector>

namespace SCI {

/// Points in two arrays that outlive the model and keep their place.
class ArrayModel : public PointModel {
public:
    /// The shorter array counts.
    ArrayModel(const std::vector<double> & x, const std::vector<double> & y, bool isSorted = true)
        : m_x(x), m_y(y), m_isSorted(isSorted) {}

    std::size_t count() const override { return m_x.size() < m_y.size() ? m_x.size() : m_y.size(); }
    double x(std::size_t i) const override { return m_x[i]; }
    double y(std::size_t i) const override { return m_y[i]; }
    bool isSorted() const override { return m_isSorted; }

private:
    const std::vector<double> & m_x;
    const std::vector<double> & m_y;
    bool m_isSorted;
};

/// A function, evaluated anew whenever a point is asked for. What it throws is a gap.
class FunctionModel : public PointModel {
public:
    enum spacing_t {
        EVEN,       ///< equal distances
        LOGARITHMIC ///< equal ratios; needs from > 0
    };
    /// Points at \p count (at least 2) places from \p from to \p to, both included.
    FunctionModel(std::function<double(double)> function, double from, double to, std::size_t count = 500,
                  spacing_t spacing = EVEN);

    std::size_t count() const override { return m_count; }
    double x(std::size_t i) const override;
    double y(std::size_t i) const override;
    bool isSorted() const override { return true; }

private:
    std::function<double(double)> m_function;
    double m_from;
    double m_to;
    std::size_t m_count;
    spacing_t m_spacing;
};

} // namespace SCI
