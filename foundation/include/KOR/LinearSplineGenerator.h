#pragma once

#include <KOR/LinearSpline.h>

#include <cstddef>
#include <functional>

namespace KOR {

/// Makes a spline out of a function by adaptive sampling: points stand densely where the function bends and sparsely
/// where it is straight.
class LinearSplineGenerator {
public:
    struct Result {
        std::size_t points = 0;        ///< number of points made
        bool isWithinTolerance = true; ///< false when \p maxPoints stopped the refinement
    };

    /// Samples \p function on [xmin, xmax] until at the middle and the quarters of every interval the spline is within
    /// absTol + relTol * |function| of it. The interval that is farthest off is halved first, so that with too few
    /// points the error is spread evenly; then a warning tells so.
    /// \param spline receives the points; if it has some already, their range is used instead of xmin and xmax
    /// Throws ("[LinearSplineGenerator::generate]") for an empty range, tolerances that are negative or both zero, fewer
    /// than two points and where the function is not finite; the spline then stays as it was.
    static Result generate(const std::function<double(double)> & function, double xmin, double xmax, double absTol,
                           double relTol, std::size_t maxPoints, LinearSpline & spline);
};

} // namespace KOR
