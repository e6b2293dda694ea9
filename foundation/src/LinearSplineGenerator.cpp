#include <KOR/LinearSplineGenerator.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <numeric>
#include <queue>

namespace KOR {

namespace {

constexpr const char * WHERE = "[LinearSplineGenerator::generate]";

/// Intervals of the first grid. Its points are taken out again where they prove superfluous; without it a feature that
/// lies between the few first samples, or a wave that is straight at all of them, would be missed.
constexpr std::size_t FIRST_INTERVALS = 16;

struct Point {
    double x, y;
};

double onLine(const Point & left, const Point & right, double x) {
    const double t = (x - left.x) / (right.x - left.x);
    return (1 - t) * left.y + t * right.y;
}

/// Refines the intervals between points, the worst first.
class Sampler {
public:
    Sampler(const std::function<double(double)> & function, double absTol, double relTol)
        : m_function(function), m_absTol(absTol), m_relTol(relTol) {}

    /// Evaluates the function at \p x, at most once.
    Point sample(double x) {
        const auto [known, isNew] = m_samples.try_emplace(x, 0.0);
        if (isNew) {
            const double y = m_function(x);
            if (!std::isfinite(y))
                throw Exception(text("The function is not finite at x = %1.", x), WHERE);
            known->second = y;
        }
        return {x, known->second};
    }

    /// Makes the points of the first grid, ends included. Uneven, so that no wave fits it.
    void addGrid(double xmin, double xmax, std::size_t intervals) {
        m_knots[xmin] = sample(xmin).y;
        m_knots[xmax] = sample(xmax).y;
        for (std::size_t i = 1; i < intervals; ++i) {
            const double part = static_cast<double>(i) / static_cast<double>(intervals);
            const double x = xmin + (xmax - xmin) * part * (1 + 0.1 * (1 - part));
            if (x > xmin && x < xmax)
                m_knots[x] = sample(x).y;
        }
    }

    /// \return whether all intervals came within the tolerance
    bool refine(std::size_t maxPoints) {
        for (auto right = std::next(m_knots.begin()); right != m_knots.end(); ++right)
            push(std::prev(right)->first, right->first);
        while (!m_open.empty() && m_knots.size() < maxPoints) {
            const Interval worst = m_open.top();
            m_open.pop();
            const double middle = std::midpoint(worst.left, worst.right);
            m_knots[middle] = sample(middle).y;
            push(worst.left, middle);
            push(middle, worst.right);
        }
        return m_open.empty();
    }

    /// Takes out the points of the first grid between which the function is straight.
    void simplify(const std::vector<double> & candidates) {
        for (const double x : candidates) {
            const auto knot = m_knots.find(x);
            const Point left{std::prev(knot)->first, std::prev(knot)->second};
            const Point right{std::next(knot)->first, std::next(knot)->second};
            if (deviation(left.x, right.x) <= 1 && samplesFit(left, right))
                m_knots.erase(knot);
        }
    }

    const std::map<double, double> & knots() const { return m_knots; }

private:
    struct Interval {
        double left, right, deviation;
        bool operator<(const Interval & other) const { return deviation < other.deviation; }
    };

    double deviation(const Point & left, const Point & right, const Point & at) const {
        const double allowed = m_absTol + m_relTol * std::abs(at.y);
        const double off = std::abs(onLine(left, right, at.x) - at.y);
        return off == 0 ? 0 : off / allowed; // infinite where nothing is allowed
    }

    /// Largest distance at the middle and the quarters, in tolerances.
    double deviation(double leftX, double rightX) {
        const Point left = sample(leftX);
        const Point right = sample(rightX);
        const double middle = std::midpoint(leftX, rightX);
        double largest = 0;
        for (const double x : {std::midpoint(leftX, middle), middle, std::midpoint(middle, rightX)})
            if (x > leftX && x < rightX)
                largest = std::max(largest, deviation(left, right, sample(x)));
        return largest;
    }

    bool samplesFit(const Point & left, const Point & right) const {
        return std::all_of(m_samples.upper_bound(left.x), m_samples.lower_bound(right.x), [&](const auto & known) {
            return deviation(left, right, {known.first, known.second}) <= 1;
        });
    }

    /// Keeps the interval for refinement if it needs it and can still be halved.
    void push(double left, double right) {
        const double middle = std::midpoint(left, right);
        if (middle <= left || middle >= right)
            return;
        const double off = deviation(left, right);
        if (off > 1)
            m_open.push({left, right, off});
    }

    const std::function<double(double)> & m_function;
    double m_absTol;
    double m_relTol;
    std::map<double, double> m_samples; ///< all that was ever evaluated
    std::map<double, double> m_knots;   ///< the points of the spline
    std::priority_queue<Interval> m_open;
};

void checkArguments(double xmin, double xmax, double absTol, double relTol, std::size_t maxPoints) {
    if (!std::isfinite(xmin) || !std::isfinite(xmax) || !(xmin < xmax))
        throw Exception(text("Expected a range of x values, found %1..%2.", xmin, xmax), WHERE);
    if (!(absTol >= 0) || !(relTol >= 0) || absTol + relTol == 0)
        throw Exception(text("Expected positive tolerances, found %1 (absolute) and %2 (relative).", absTol, relTol),
                        WHERE);
    if (maxPoints < 2)
        throw Exception(text("Expected at least 2 as maximum number of points, found %1.", maxPoints), WHERE);
}

} // namespace

LinearSplineGenerator::Result LinearSplineGenerator::generate(const std::function<double(double)> & function,
                                                              double xmin, double xmax, double absTol, double relTol,
                                                              std::size_t maxPoints, LinearSpline & spline) {
    if (!spline.empty()) {
        xmin = spline.x().front();
        xmax = spline.x().back();
        message(text("Spline data already existing in generator, using min/max values: %1/%2", xmin, xmax),
                MSG_INFORMATION, WHERE, 2);
    }
    checkArguments(xmin, xmax, absTol, relTol, maxPoints);

    Sampler sampler(function, absTol, relTol);
    sampler.addGrid(xmin, xmax, std::clamp<std::size_t>(maxPoints / 4, 1, FIRST_INTERVALS));
    std::vector<double> firstGrid;
    for (const auto & knot : sampler.knots())
        if (knot.first != xmin && knot.first != xmax)
            firstGrid.push_back(knot.first);
    Result result;
    result.isWithinTolerance = sampler.refine(maxPoints);
    sampler.simplify(firstGrid);

    std::vector<double> x;
    std::vector<double> y;
    for (const auto & knot : sampler.knots()) {
        x.push_back(knot.first);
        y.push_back(knot.second);
    }
    spline.setValues(x, y);
    result.points = x.size();
    if (!result.isWithinTolerance)
        message(text("Stopped at the maximum number of %1 points, the tolerance is not met everywhere.", maxPoints),
                MSG_WARNING, WHERE);
    message(text("Generated a spline of %1 points.", result.points), MSG_INFORMATION, WHERE, 3);
    return result;
}

} // namespace KOR
