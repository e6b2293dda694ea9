#pragma once

#include <cstddef>
#include <vector>

namespace SOLVER {

/// Slopes at the nodes of monotone data, so that the cubic between them stays monotone (Fritsch and Butland, 1984).
/// \param distance of neighbouring x values, one fewer than y
std::vector<double> monotoneSlopes(const std::vector<double> & distance, const std::vector<double> & y);

/// Cubic Hermite interpolation at t in [0, 1] over an interval of length h.
inline double hermite(double t, double h, double y0, double slope0, double y1, double slope1) {
    const double s = 1 - t;
    return s * s * ((1 + 2 * t) * y0 + t * h * slope0) + t * t * ((3 - 2 * t) * y1 - s * h * slope1);
}

inline double hermiteSlope(double t, double h, double y0, double slope0, double y1, double slope1) {
    const double s = 1 - t;
    return 6 * t * s * (y1 - y0) / h + s * (1 - 3 * t) * slope0 + t * (3 * t - 2) * slope1;
}

} // namespace SOLVER
