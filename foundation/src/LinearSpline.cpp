#include <KOR/LinearSpline.h>

#include <KOR/MessageHandler.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>
#include <KOR/UnitList.h>
#include <KOR/Xml.h>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace KOR {

namespace {

constexpr xml::ElementTexts LINEAR_SPLINE{
    .where = "[LinearSpline::readXML]",
    .missingAttr = "Missing '%1' attribute in KOR:LinearSpline element.",
    .unknownTag = "Undefined child element '%1' in KOR:LinearSpline element, should be either X or Y.",
    .wrapping = {},
};

/// More buckets than points: most hold one point at most, and the table stays smaller than the points.
constexpr std::size_t BUCKETS_PER_POINT = 2;

/// Largest distance of an equidistant point from its place, in steps: the round-off of sums of steps.
constexpr double EQUIDISTANT_TOLERANCE = 1e-9;

constexpr int LEVEL_DETAIL = 3;

std::vector<double> readLine(std::string_view line, char axis) {
    std::vector<double> values;
    const std::size_t badAt = parseDoubles(line, values);
    if (badAt != std::string_view::npos) {
        const std::string_view rest = line.substr(badAt);
        throw Exception(text("Cannot read %1 value #%2 '%3' of linear spline.", std::string(1, axis), values.size() + 1,
                             rest.substr(0, std::min<std::size_t>(rest.find_first_of(WHITE_SPACE), 40))),
                        "[LinearSpline::read]");
    }
    if (values.empty())
        throw Exception("Missing data to read!", "[LinearSpline::read]");
    return values;
}

Unit readUnit(const TiXmlElement & element) {
    const auto name = xml::attribute(element, "unit");
    return name ? Unit(*name) : Unit();
}

void appendAxis(TiXmlElement & parent, const char * axis, const std::vector<double> & values, Unit unit) {
    TiXmlElement & element = xml::appendText(parent, axis, joinNumbers(values));
    if (unit != Unit())
        xml::setAttribute(element, "unit", unit.name());
}

} // namespace

void LinearSpline::eliminateConsecutive(const std::vector<double> & x, const std::vector<double> & y,
                                        std::vector<double> & newX, std::vector<double> & newY) {
    const char * const where = "[LinearSpline::eliminateConsecutive]";
    newX.clear();
    newY.clear();
    newX.reserve(x.size());
    newY.reserve(y.size());
    std::size_t skipped = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (i == 0 || x[i] != newX.back()) {
            newX.push_back(x[i]);
            newY.push_back(y[i]);
        } else if (i + 1 < x.size()) {
            message(text("Duplicate x-value %1 found (and skipped).", x[i]), MSG_WARNING, where, LEVEL_DETAIL);
            ++skipped;
        } else {
            message(
                text("Duplicate x-value found at the end. End y value %1 copied to the new spline (old y value: %2.",
                     y[i], newY.back()),
                MSG_WARNING, where, LEVEL_DETAIL);
            newY.back() = y[i];
        }
    }
    if (skipped != 0)
        message(text("Skipped a total of %1 values because of duplicate x-values.", skipped), MSG_WARNING, where);
}

void LinearSpline::setValues(const std::vector<double> & x, const std::vector<double> & y) {
    const char * const where = "[LinearSpline::setValues]";
    if (x.size() != y.size())
        throw Exception("X and Y vector size mismatch.", where);
    if (x.empty())
        throw Exception("Input vectors are empty.", where);
    std::vector<double> newX;
    std::vector<double> newY;
    eliminateConsecutive(x, y, newX, newY);
    setPoints(std::move(newX), std::move(newY));
    std::string reason;
    if (!makeSpline(reason))
        throw Exception(text("Error generating spline for linear interpolation: %1", reason), where);
}

void LinearSpline::setPoints(std::vector<double> x, std::vector<double> y) {
    clear();
    m_x = std::move(x);
    m_y = std::move(y);
}

void LinearSpline::clear() {
    m_x.clear();
    m_y.clear();
    m_slopes.clear();
    m_step = m_start = 0;
    m_valid = false;
    forgetSearch();
}

bool LinearSpline::makeSpline(std::string & errorMessage) {
    m_valid = false;
    m_slopes.clear();
    forgetSearch();
    if (m_x.empty() || m_x.size() != m_y.size()) {
        errorMessage = "Invalid vector dimensions.";
        return false;
    }
    // The negation catches NaN as well.
    for (std::size_t i = 1; i < m_x.size(); ++i)
        if (!(m_x[i] > m_x[i - 1])) {
            errorMessage = text("X values are not strictly monotonic increasing (at position/index %1).", i);
            return false;
        }
    if (!std::isfinite(m_x.front()) || !std::isfinite(m_x.back() - m_x.front())) {
        errorMessage = "X values or their range are not finite.";
        return false;
    }
    m_slopes.reserve(m_x.size() - 1);
    for (std::size_t i = 1; i < m_x.size(); ++i)
        m_slopes.push_back((m_y[i] - m_y[i - 1]) / (m_x[i] - m_x[i - 1]));
    m_valid = true;
    prepareSearch();
    return true;
}

bool LinearSpline::setEquidistant(std::string & errorMessage) {
    m_step = m_start = 0;
    if (!m_valid || m_x.size() < 2) {
        errorMessage = "Expected a valid spline of at least two points.";
        return false;
    }
    // The evaluation takes point i to be at i * step.
    if (m_x.front() != 0) {
        errorMessage = text("Expected the first x value to be 0, found %1.", m_x.front());
        return false;
    }
    const double step = m_x.back() / static_cast<double>(m_x.size() - 1);
    for (std::size_t i = 0; i < m_x.size(); ++i)
        if (!(std::abs(m_x[i] - static_cast<double>(i) * step) <= EQUIDISTANT_TOLERANCE * step)) {
            errorMessage = text("X values are not equidistant (at position/index %1).", i);
            return false;
        }
    forgetSearch();
    m_start = m_x.front();
    m_step = step;
    return true;
}

void LinearSpline::convert(Unit xUnit, Unit yUnit) {
    LinearSpline converted = *this;
    UnitList::instance().convert(m_xUnit, xUnit, converted.m_x);
    UnitList::instance().convert(m_yUnit, yUnit, converted.m_y);
    converted.m_xUnit = xUnit;
    converted.m_yUnit = yUnit;
    converted.setValues(converted.x(), converted.y());
    *this = std::move(converted);
}

void LinearSpline::forgetSearch() {
    m_buckets.clear();
    m_bucketsPerX = 0;
    m_searchBegin = m_searchEnd = NEVER;
}

void LinearSpline::prepareSearch() {
    forgetSearch();
    const std::size_t n = m_x.size();
    if (n < 2 || n > std::numeric_limits<std::uint32_t>::max())
        return;
    const double range = m_x.back() - m_x.front();
    const double bucketsPerX = static_cast<double>(BUCKETS_PER_POINT * n) / range;
    // For a range at the limits of double numbers lowerIndex searches by itself.
    if (m_step != 0 || !std::isnormal(bucketsPerX))
        return;

    // The very expression of lowerIndexInGrid: rounded in the same way it grows with x, whatever the rounding.
    const auto bucketOf = [this, bucketsPerX](double x) {
        return static_cast<std::size_t>(static_cast<std::int64_t>((x - m_x.front()) * bucketsPerX));
    };
    const std::size_t bucketCount = bucketOf(m_x.back()) + 1;
    m_buckets.assign(bucketCount + 1, static_cast<std::uint32_t>(n - 1));
    std::size_t bucket = 0;
    for (std::size_t i = 0; i < n; ++i)
        for (const std::size_t end = bucketOf(m_x[i]); bucket <= end; ++bucket)
            m_buckets[bucket] = static_cast<std::uint32_t>(i);
    m_bucketsPerX = bucketsPerX;
    m_searchBegin = m_x.front();
    m_searchEnd = m_x.back();
}

void LinearSpline::requireValid() const {
    if (!m_valid)
        throw Exception("Linear spline not properly initialized!", "[LinearSpline::value]");
}

std::size_t LinearSpline::lowerIndex(double x) const {
    if (x > m_searchBegin && x <= m_searchEnd)
        return lowerIndexInGrid(x);
    return static_cast<std::size_t>(std::lower_bound(m_x.begin(), m_x.end(), x) - m_x.begin());
}

double LinearSpline::valueOffGrid(double x) const {
    requireValid();
    if (m_x.size() == 1)
        return m_y.front();
    if (std::isnan(x))
        return x;
    if (x <= m_x.front())
        return m_extrapolation == EP_CONSTANT ? m_y.front() : (x - m_x.front()) * m_slopes.front() + m_y.front();
    if (m_step != 0)
        return equidistantValue(x);
    if (x > m_x.back())
        return m_extrapolation == EP_CONSTANT ? m_y.back() : (x - m_x.back()) * m_slopes.back() + m_y.back();
    return interpolated(lowerIndex(x), x);
}

double LinearSpline::equidistantValue(double x) const {
    const double steps = (x - m_start) / m_step;
    if (!(steps < static_cast<double>(m_slopes.size())))
        return m_y.back();
    const auto i = static_cast<std::size_t>(steps);
    return (x - static_cast<double>(i) * m_step) * m_slopes[i] + m_y[i];
}

double LinearSpline::nonInterpolatedValue(double x) const {
    requireValid();
    if (m_x.size() == 1 || x <= m_x.front())
        return m_y.front();
    if (x > m_x.back())
        return m_y.back();
    if (std::isnan(x))
        return x;
    const std::size_t i = lowerIndex(x);
    return x == m_x[i] ? m_y[i] : m_y[i - 1];
}

double LinearSpline::slope(double x) const {
    requireValid();
    if (m_x.size() == 1)
        return 0;
    const std::size_t i = lowerIndex(x);
    if (i < 2)
        return m_slopes.front();
    return i < m_x.size() - 1 ? m_slopes[i - 1] : m_slopes.back();
}

void LinearSpline::read(std::string_view lines) {
    std::vector<std::string_view> filled;
    for (const std::string_view line : split(lines, '\n'))
        if (!trimmed(line).empty())
            filled.push_back(line);
    if (filled.size() < 2)
        throw Exception("Missing data to read!", "[LinearSpline::read]");
    if (filled.size() > 2)
        throw Exception(text("Expected a line of x values and a line of y values, found %1 lines.", filled.size()),
                        "[LinearSpline::read]");
    read(filled[0], filled[1]);
}

void LinearSpline::read(std::string_view xText, std::string_view yText) {
    const std::vector<double> xValues = readLine(xText, 'x');
    const std::vector<double> yValues = readLine(yText, 'y');
    if (xValues.size() != yValues.size())
        throw Exception(text("Number of x [%1] and y [%2] values differs!", xValues.size(), yValues.size()),
                        "[LinearSpline::read]");
    LinearSpline spline = *this;
    spline.setValues(xValues, yValues);
    *this = std::move(spline);
}

void LinearSpline::write(std::ostream & out, std::size_t indentation) const {
    const std::string blanks(indentation, ' ');
    out << blanks << joinNumbers(m_x) << '\n' << blanks << joinNumbers(m_y) << '\n';
}

void LinearSpline::readXML(const TiXmlElement & element) {
    const xml::ElementReader reader(element, LINEAR_SPLINE);
    LinearSpline spline;
    spline.m_extrapolation = m_extrapolation;
    spline.m_name = reader.attribute("name");
    spline.m_interpolation = xml::attribute(element, "interpolation").value_or("");
    const auto failAt = [](const Exception & cause, const TiXmlElement & at, const char * problem) {
        throw Exception(xml::located(at, cause), xml::withLine(at, problem), std::string(LINEAR_SPLINE.where));
    };

    std::string xText;
    std::string yText;
    const auto axis = [&](std::string & values, Unit & unit) {
        return [&](const TiXmlElement & child) {
            if (!values.empty())
                reader.fail(child, KOR::text("A second '%1' in KOR:LinearSpline element.", child.ValueStr()));
            values = xml::text(child);
            try {
                unit = readUnit(child);
            } catch (const Exception & ex) {
                failAt(ex, child, "Invalid x or y unit.");
            }
        };
    };
    reader.children({
        {"X", axis(xText, spline.m_xUnit)},
        {"Y", axis(yText, spline.m_yUnit)}
    });
    try {
        spline.read(xText, yText);
    } catch (const Exception & ex) {
        failAt(ex, element, "Invalid data in KOR::LinearSpline element.");
    }
    *this = std::move(spline);
}

void LinearSpline::writeXML(TiXmlElement & parent) const {
    TiXmlElement & element = xml::appendElement(parent, "KOR:LinearSpline");
    xml::setAttribute(element, "name", m_name);
    if (!m_interpolation.empty())
        xml::setAttribute(element, "interpolation", m_interpolation);
    appendAxis(element, "X", m_x, m_xUnit);
    appendAxis(element, "Y", m_y, m_yUnit);
}

bool LinearSpline::operator==(const LinearSpline & other) const {
    return m_x == other.m_x && m_y == other.m_y && m_name == other.m_name && m_interpolation == other.m_interpolation &&
           m_xUnit == other.m_xUnit && m_yUnit == other.m_yUnit && m_extrapolation == other.m_extrapolation &&
           m_step == other.m_step;
}

} // namespace KOR
