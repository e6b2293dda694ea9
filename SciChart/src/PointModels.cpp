#include <SCI/PointModels.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace SCI {

Bounds PointModel::bounds() const {
    Bounds bounds;
    const std::size_t n = count();
    for (std::size_t i = 0; i < n; ++i)
        if (const double xi = x(i), yi = y(i); std::isfinite(xi) && std::isfinite(yi))
            bounds.include(xi, yi);
    return bounds;
}

FunctionModel::FunctionModel(std::function<double(double)> function, double from, double to, std::size_t count,
                             spacing_t spacing)
    : m_function(std::move(function)), m_from(std::min(from, to)), m_to(std::max(from, to)),
      m_count(std::max<std::size_t>(count, 2)), m_spacing(spacing) {}

double FunctionModel::x(std::size_t i) const {
    if (i + 1 >= m_count)
        return m_to;
    const double share = static_cast<double>(i) / static_cast<double>(m_count - 1);
    return m_spacing == EVEN ? m_from + (m_to - m_from) * share : m_from * std::pow(m_to / m_from, share);
}

double FunctionModel::y(std::size_t i) const {
    try {
        return m_function(x(i));
    } catch (const std::exception &) {
        return std::numeric_limits<double>::quiet_NaN(); // outside the function's domain
    }
}

} // namespace SCI
