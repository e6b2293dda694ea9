#include "SplineTools.h"

#include <MM/MaterialFunctionBase.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace MM {

namespace {

constexpr int MAX_HALVINGS = 24;
constexpr std::size_t MAX_POINTS = MaterialFunctionBase::MAX_POINTS;
/// A value takes at least a digit and a blank.
constexpr std::size_t MAX_LINE = MAX_POINTS * 32;

struct Refiner {
    const std::function<double(double)> & function;
    double tolerance;
    std::vector<double> x, y;

    /// Appends the points behind the left one up to the right one.
    void add(double left, double yLeft, double right, double yRight, int halvings) {
        const double middle = (left + right) / 2;
        const double yMiddle = function(middle);
        const auto isOff = [&](double at, double value, double share) {
            return at > left && at < right && std::abs((1 - share) * yLeft + share * yRight - value) > tolerance;
        };
        const double first = (left + middle) / 2;
        const double third = (middle + right) / 2;
        if (halvings > 0 && (isOff(middle, yMiddle, 0.5) || isOff(first, function(first), 0.25) ||
                             isOff(third, function(third), 0.75))) {
            add(left, yLeft, middle, yMiddle, halvings - 1);
            add(middle, yMiddle, right, yRight, halvings - 1);
        } else {
            x.push_back(right);
            y.push_back(yRight);
        }
    }
};

} // namespace

void readPoints(KOR::LinearSpline & spline, std::string_view function, std::string_view x, std::string_view y,
                const std::string & where) {
    try {
        if (x.size() > MAX_LINE || y.size() > MAX_LINE)
            throw KOR::Exception(
                KOR::text("Function '%1' has too many values, expected at most %2.", function, MAX_POINTS), where);
        spline.read(x, y);
        if (spline.size() > MAX_POINTS)
            throw KOR::Exception(KOR::text("Found %1 values, expected at most %2.", spline.size(), MAX_POINTS), where);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error reading data for function '%1'.", function), where);
    }
}

KOR::LinearSpline refined(const std::function<double(double)> & function, const std::vector<double> & knots,
                          double tolerance) {
    Refiner refiner{function, tolerance, {knots.front()}, {function(knots.front())}};
    for (std::size_t i = 1; i < knots.size(); ++i)
        refiner.add(knots[i - 1], refiner.y.back(), knots[i], function(knots[i]), MAX_HALVINGS);
    return {refiner.x, refiner.y};
}

KOR::LinearSpline inverted(const KOR::LinearSpline & spline, double smallest) {
    std::vector<double> x = spline.y();
    std::vector<double> y = spline.x();
    if (x.front() > x.back()) {
        std::reverse(x.begin(), x.end());
        std::reverse(y.begin(), y.end());
    }
    std::size_t first = 0;
    while (first + 2 < x.size() && x[first] == 0 && x[first + 1] == 0)
        ++first;
    x.erase(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(first));
    y.erase(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(first));
    // From the wet end down, so that the content at saturation stays what it is.
    for (std::size_t i = x.size() - 1; i-- > 1;)
        x[i] = std::min(x[i], x[i + 1] - smallest);
    // Points that this pushed below the driest one carry nothing.
    std::vector<double> newX{x.front()};
    std::vector<double> newY{y.front()};
    for (std::size_t i = 1; i < x.size(); ++i)
        if (x[i] > newX.back()) {
            newX.push_back(x[i]);
            newY.push_back(y[i]);
        }
    if (newX.size() < 2)
        throw KOR::Exception("The function is constant and has no inverse.", "[MM::inverted]");
    return {newX, newY};
}

std::optional<std::size_t> wrongSlope(const KOR::LinearSpline & spline, bool falling) {
    for (std::size_t i = 0; i < spline.slopes().size(); ++i)
        if (falling ? spline.slopes()[i] > 0 : spline.slopes()[i] < 0)
            return i;
    return std::nullopt;
}

KOR::LinearSpline monotone(const KOR::LinearSpline & spline, bool falling) {
    std::vector<double> y = spline.y();
    for (std::size_t i = 1; i < y.size(); ++i)
        y[i] = falling ? std::min(y[i], y[i - 1]) : std::max(y[i], y[i - 1]);
    return {spline.x(), y};
}

std::vector<double> merged(std::vector<double> knots, double smallest) {
    std::sort(knots.begin(), knots.end());
    std::vector<double> kept;
    for (const double knot : knots)
        if (kept.empty() || knot > kept.back() + smallest)
            kept.push_back(knot);
    return kept;
}

KOR::LinearSpline transformed(const KOR::LinearSpline & spline, double xFactor, double xShift, double yFactor,
                              double yShift) {
    std::vector<double> x = spline.x();
    std::vector<double> y = spline.y();
    for (double & value : x)
        value = value * xFactor + xShift;
    for (double & value : y)
        value = value * yFactor + yShift;
    return {x, y};
}

} // namespace MM
