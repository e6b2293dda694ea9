#pragma once

#include <KOR/Unit.h>

#include <cstdint>
#include <iosfwd>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

class TiXmlElement;

namespace KOR {

/// A tabulated function: points with strictly increasing x, straight lines between them.
/// Evaluation is const, takes no memory and may run in any number of threads at once.
class LinearSpline {
public:
    /// How the function continues beyond its points.
    enum extrapolation_t {
        EP_CONSTANT, ///< the end values continue
        EP_LINEAR    ///< the end slopes continue
    };

    /// What stands beside the points in a file. The points are in these units; "undefined" where the file names none.
    std::string m_name;
    std::string m_interpolation;
    Unit m_xUnit;
    Unit m_yUnit;

    LinearSpline() = default;
    /// Throws as setValues.
    LinearSpline(const std::vector<double> & x, const std::vector<double> & y) { setValues(x, y); }

    /// Replaces the points (duplicate x values are skipped) and makes the spline; name and units stay.
    /// Throws ("[LinearSpline::setValues]") "X and Y vector size mismatch.", "Input vectors are empty." and
    /// "Error generating spline for linear interpolation: %1"; after the last the points are stored, but not valid.
    void setValues(const std::vector<double> & x, const std::vector<double> & y);
    /// Stores the points as they are; the spline is not valid until makeSpline.
    void setPoints(std::vector<double> x, std::vector<double> y);
    /// Checks the points and computes the slopes. \return false, and the reason in \p errorMessage, when they are no
    /// function.
    bool makeSpline(std::string & errorMessage);
    /// Declares that the points are equidistant and start at x = 0, so that value() needs no search. The declaration
    /// ends with the next change of the points. \return false, and the reason in \p errorMessage, when they are not.
    bool setEquidistant(std::string & errorMessage);
    void setExtrapolation(extrapolation_t method) { m_extrapolation = method; }
    /// Removes the points; name, units and extrapolation stay.
    void clear();
    /// Converts the points to other units of the same base; a failure leaves the spline unchanged.
    /// Throws as UnitList::convert.
    void convert(Unit xUnit, Unit yUnit);

    /// The interpolated value at \p x. NaN for an \p x that is NaN, where there is more than one point.
    /// Throws "Linear spline not properly initialized!" ("[LinearSpline::value]").
    double value(double x) const {
        // The negation lets NaN, invalid, one-point and equidistant splines (whose border is NaN) leave here as well.
        if (!(x > m_searchBegin && x <= m_searchEnd))
            return valueOffGrid(x);
        return interpolated(lowerIndexInGrid(x), x);
    }
    /// The value of the last point at or below \p x (a step function), the end values beyond the ends. Throws as value.
    double nonInterpolatedValue(double x) const;
    /// The slope of the interval that holds \p x, at a point that of the interval below it. Throws as value.
    double slope(double x) const;

    std::size_t size() const { return m_x.size(); }
    bool empty() const { return m_x.empty(); }
    bool valid() const { return m_valid; }
    const std::vector<double> & x() const { return m_x; }
    const std::vector<double> & y() const { return m_y; }
    /// size() - 1 long; entry i belongs to the interval from point i to point i + 1.
    const std::vector<double> & slopes() const { return m_slopes; }
    extrapolation_t extrapolation() const { return m_extrapolation; }
    /// Distance of equidistant points, 0 when they are not declared so.
    double equidistantStep() const { return m_step; }
    /// The first x of equidistant points.
    double equidistantStart() const { return m_start; }

    /// Reads a line of x values and a line of y values. A failure leaves the spline unchanged.
    /// Throws ("[LinearSpline::read]") "Missing data to read!", "Number of x [%1] and y [%2] values differs!" and for
    /// what is no number; and as setValues.
    void read(std::string_view text);
    void read(std::string_view xText, std::string_view yText);
    /// Writes the x values on one line and the y values on the next, both indented by \p indentation blanks.
    void write(std::ostream & out, std::size_t indentation = 0) const;

    /// Reads a "KOR:LinearSpline" element. A failure leaves the spline unchanged.
    /// Throws ("[LinearSpline::readXML]") with the element's line; the units are only known to exist.
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:LinearSpline name= interpolation=\>\<X unit=\>...\</X\>\<Y unit=\>...\</Y\>\</KOR:LinearSpline\>.
    void writeXML(TiXmlElement & parent) const;

    /// Copies the points, skipping those whose x was just there; of two last ones the later y counts.
    static void eliminateConsecutive(const std::vector<double> & x, const std::vector<double> & y,
                                     std::vector<double> & newX, std::vector<double> & newY);

    /// Same points, names, units and extrapolation.
    bool operator==(const LinearSpline & other) const;

private:
    static constexpr double NEVER = std::numeric_limits<double>::quiet_NaN();

    void forgetSearch();
    void prepareSearch();
    double valueOffGrid(double x) const;
    double equidistantValue(double x) const;
    void requireValid() const;
    /// The value within the interval from point i - 1 to point i.
    double interpolated(std::size_t i, double x) const {
        const double t = (x - m_x[i - 1]) / (m_x[i] - m_x[i - 1]);
        return (1 - t) * m_y[i - 1] + t * m_y[i];
    }
    /// The first index whose x is not less; size() when there is none.
    std::size_t lowerIndex(double x) const;
    /// The same for m_searchBegin < x <= m_searchEnd.
    std::size_t lowerIndexInGrid(double x) const {
        const auto bucket = static_cast<std::size_t>(static_cast<std::int64_t>((x - m_searchBegin) * m_bucketsPerX));
        std::size_t first = m_buckets[bucket];
        std::size_t last = m_buckets[bucket + 1];
        while (last - first > 1) {
            const std::size_t middle = (first + last) / 2;
            if (m_x[middle] < x)
                first = middle;
            else
                last = middle;
        }
        return first + (m_x[first] < x ? 1 : 0);
    }

    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_slopes;
    extrapolation_t m_extrapolation = EP_CONSTANT;
    double m_step = 0;
    double m_start = 0;
    bool m_valid = false;

    /// The range from first to last x in buckets of equal width. Entry k is the first point in bucket k or behind it,
    /// so that the search for an x in bucket k runs from entry k to entry k + 1: mostly over one or two points.
    std::vector<std::uint32_t> m_buckets;
    double m_bucketsPerX = 0;
    double m_searchBegin = NEVER; ///< first x where there is a bucket table, else NaN
    double m_searchEnd = NEVER;
};

} // namespace KOR
