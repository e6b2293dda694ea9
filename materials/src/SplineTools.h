#pragma once

#include <KOR/LinearSpline.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Splines made out of splines.
namespace MM {

/// Reads the two lines of a function's points; more than MaterialFunctionBase::MAX_POINTS are refused before memory is
/// taken. Throws ("%1" is \p function) "Error reading data for function '%1'." with the cause.
void readPoints(KOR::LinearSpline & spline, std::string_view function, std::string_view x, std::string_view y,
                const std::string & where);

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

/// The spline without the rounding errors by which a function that never falls (or, with \p falling, never rises) does.
KOR::LinearSpline monotone(const KOR::LinearSpline & spline, bool falling);

/// The sorted knots without those that are closer together than \p smallest.
std::vector<double> merged(std::vector<double> knots, double smallest);

/// The spline with scaled and shifted points.
KOR::LinearSpline transformed(const KOR::LinearSpline & spline, double xFactor, double xShift, double yFactor,
                              double yShift);

} // namespace MM
