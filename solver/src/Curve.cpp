#include <SOLVER/Curve.h>

#include "Hermite.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

std::vector<double> monotoneSlopes(const std::vector<double> & distance, const std::vector<double> & y) {
    const std::size_t n = y.size();
    std::vector<double> slopes(n, 0.0);
    const auto secant = [&](std::size_t i) { return (y[i + 1] - y[i]) / distance[i]; };
    for (std::size_t i = 1; i + 1 < n; ++i) {
        const double before = secant(i - 1);
        const double after = secant(i);
        if (before * after <= 0)
            continue;
        const double w1 = 2 * distance[i] + distance[i - 1];
        const double w2 = distance[i] + 2 * distance[i - 1];
        slopes[i] = (w1 + w2) / (w1 / before + w2 / after);
    }
    slopes.front() = secant(0);
    slopes.back() = secant(n - 2);
    return slopes;
}

Curve::Curve(const std::function<double(double)> & function, Range range, std::string_view name)
    : m_begin(range.begin), m_step(range.step) {
    const auto intervals = static_cast<std::size_t>(std::lround((range.end - range.begin) / range.step));
    std::vector<double> values(intervals + 1);
    for (std::size_t i = 0; i <= intervals; ++i) {
        const double x = range.begin + range.step * static_cast<double>(i);
        values[i] = function(x);
        if (!std::isfinite(values[i]))
            throw KOR::Exception(KOR::text("%1 is not finite at %2.", name, KOR::toString(x, 4)), "[Curve::Curve]");
    }
    const std::vector<double> slopes = monotoneSlopes(std::vector<double>(intervals, range.step), values);
    m_nodes.resize(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        m_nodes[i] = {values[i], slopes[i]};
}

double Curve::value(double x, double & slope) const {
    slope = 0;
    if (m_nodes.empty())
        return 0;
    const double position = (x - m_begin) / m_step;
    const double last = static_cast<double>(m_nodes.size() - 1);
    if (!(position > 0)) {
        slope = m_nodes.front().slope;
        return m_nodes.front().value + slope * position * m_step;
    }
    if (position >= last) {
        slope = m_nodes.back().slope;
        return m_nodes.back().value + slope * (position - last) * m_step;
    }
    const auto i = static_cast<std::size_t>(position);
    const double t = position - static_cast<double>(i);
    const Node & a = m_nodes[i];
    const Node & b = m_nodes[i + 1];
    slope = hermiteSlope(t, m_step, a.value, a.slope, b.value, b.slope);
    return hermite(t, m_step, a.value, a.slope, b.value, b.slope);
}

} // namespace SOLVER
