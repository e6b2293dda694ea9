#pragma once

#include <KOR/LinearSpline.h>

#include <functional>
#include <optional>
#include <vector>

/// Splines made out of splines.
namespace MM {

/// Points of \p function at the \p knots (increasing), and halfway between them as long as a straight line is farther
/// than \p tolerance off at the quarters of an interval.
KOR::LinearSpline refined(const std::function<double(double)> & function, const std::vector<double> & knots,
                          double tolerance);

/// The inverse of a function that nowhere falls (or nowhere rises), through the same points. Where the function stands
/// still, points are moved apart by \p smallest; of a stretch at content 0 only the wettest point is kept.
/// Throws KOR::Exception when the points make no function.
KOR::LinearSpline inverted(const KOR::LinearSpline & spline, double smallest);

/// The first interval with a slope of the wrong sign: below 0 or, with \p falling, above 0.
std::optional<std::size_t> wrongSlope(const KOR::LinearSpline & spline, bool falling);

/// The sorted knots without those that are closer together than \p smallest.
std::vector<double> merged(std::vector<double> knots, double smallest);

/// The spline with scaled and shifted points.
KOR::LinearSpline transformed(const KOR::LinearSpline & spline, double xFactor, double xShift, double yFactor,
                              double yShift);

} // namespace MM
