#include <CCM/ClimateDataLoader.h>

#include <KOR/Binary.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>
#include <KOR/Strings.h>
#include <KOR/Version.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace CCM {

namespace {

constexpr std::uint32_t FIRST_MAGIC = 0x46444C43;  // "CLDF"
constexpr std::uint32_t SECOND_MAGIC = 0x215A4C52; // "RLZ!"
constexpr KOR::Version VERSION{1, 0};
constexpr std::uint32_t MAX_STRING_LENGTH = 2000;
constexpr std::uint32_t MAX_VECTOR_LENGTH = 10000000;
constexpr const char * WHERE = "[ClimateDataLoader::readClimateDataKOR]";

/// A number of a header line as an integer; fractions are cut off.
std::int32_t toInteger(std::string_view value) {
    return static_cast<std::int32_t>(std::clamp(KOR::string2val<double>(value), -1e9, 1e9));
}

struct HeaderKey {
    std::string_view key;
    void (*read)(ClimateDataLoader & data, std::string_view value);
    std::string (*write)(const ClimateDataLoader & data);
};

// In the order in which they are written.
constexpr HeaderKey HEADER_KEYS[] = {
    {"COUNTRY",   [](ClimateDataLoader & data, std::string_view value) { data.m_country = value; },
     [](const ClimateDataLoader & data) { return data.m_country; }                               },
    {"CITY",      [](ClimateDataLoader & data, std::string_view value) { data.m_city = value; },
     [](const ClimateDataLoader & data) { return data.m_city; }                                  },
    {"WMO",       [](ClimateDataLoader & data, std::string_view value) { data.m_wmoCode = value; },
     [](const ClimateDataLoader & data) { return data.m_wmoCode; }                               },
    {"SOURCE",    [](ClimateDataLoader & data, std::string_view value) { data.m_source = value; },
     [](const ClimateDataLoader & data) { return data.m_source; }                                },
    {"TIMEZONE",
     [](ClimateDataLoader & data,              std::string_view value) { data.setUtcOffset(KOR::string2val<double>(value)); },
     [](const ClimateDataLoader & data) { return KOR::toString(data.utcOffset()); }              },
    {"LATITUDE",
     [](ClimateDataLoader & data,              std::string_view value) { data.m_latitude = KOR::string2val<double>(value); },
     [](const ClimateDataLoader & data) { return KOR::toString(data.m_latitude); }               },
    {"LONGITUDE",
     [](ClimateDataLoader & data,              std::string_view value) { data.m_longitude = KOR::string2val<double>(value); },
     [](const ClimateDataLoader & data) { return KOR::toString(data.m_longitude); }              },
    {"STARTYEAR", [](ClimateDataLoader & data, std::string_view value) { data.m_startYear = toInteger(value); },
     [](const ClimateDataLoader & data) { return KOR::toString(data.m_startYear); }              },
    {"ELEVATION", [](ClimateDataLoader & data, std::string_view value) { data.m_elevation = toInteger(value); },
     [](const ClimateDataLoader & data) { return KOR::toString(std::llround(data.m_elevation)); }},
    {"COMMENT",   [](ClimateDataLoader & data, std::string_view value) { data.m_comment = value; },
     [](const ClimateDataLoader & data) { return data.m_comment; }                               },
};

void readHeaderLine(ClimateDataLoader & data, std::string_view line) {
    const std::size_t equals = line.find('=');
    const std::string_view key = line.substr(0, equals);
    const bool isComment = key == "COMMENT";
    if (!isComment && (equals == std::string_view::npos || line.find('=', equals + 1) != std::string_view::npos))
        throw KOR::Exception("Invalid key-value format.", WHERE);
    const std::string_view value = equals == std::string_view::npos ? "" : line.substr(equals + 1);
    for (const HeaderKey & known : HEADER_KEYS) {
        if (known.key != key)
            continue;
        try {
            known.read(data, value);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, KOR::text("Error reading header line '%1'.", line), WHERE);
        }
    }
}

std::vector<double> readVector(std::istream & in, const std::string & name) {
    try {
        std::vector<double> values = KOR::read_vector_binary<double>(in, MAX_VECTOR_LENGTH);
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!std::isfinite(values[i]))
                throw KOR::Exception(KOR::text("Value %1 is not a finite number.", i), WHERE);
        return values;
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error reading %1.", name), WHERE);
    }
}

/// The line as a reader accepts it: one equals sign except in the comment, no longer than the format allows.
std::string headerLine(const HeaderKey & key, const ClimateDataLoader & data) {
    constexpr const char * WRITE = "[ClimateDataLoader::writeClimateDataKOR]";
    std::string value = key.write(data);
    if (key.key != "COMMENT" && value.find('=') != std::string::npos) {
        value = KOR::replaced(value, "=", ":");
        KOR::message(KOR::text("Equals signs in %1 written as colons: '%2'.", key.key, value), KOR::MSG_WARNING, WRITE);
    }
    std::string line = std::string(key.key) + '=' + value;
    if (line.size() > MAX_STRING_LENGTH) {
        // No more than the part of a character is lost when well-formed text is cut.
        line.resize(MAX_STRING_LENGTH);
        const std::size_t valid = KOR::validUtf8Length(line);
        if (valid + 4 > MAX_STRING_LENGTH)
            line.resize(valid);
        KOR::message(KOR::text("%1 shortened to %2 bytes.", key.key, line.size()), KOR::MSG_WARNING, WRITE);
    }
    return line;
}

/// The points of all override splines together with those of the data, without repetition.
std::vector<double> mergedTimePoints(const ClimateDataLoader & data) {
    std::vector<double> points = data.m_timePoints;
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const std::vector<double> & x = data.m_splines[q].x();
        points.insert(points.end(), x.begin(), x.end());
        if (data.isAnnual() && data.m_splines[q].empty())
            for (std::size_t i = 0; i < data.m_data[q].size(); ++i)
                points.push_back(annualTime(static_cast<quantity_t>(q), i));
    }
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    // Both ends of the year would forbid cyclic use.
    if (points.size() > 2 && points.front() == 0 && points.back() == SECONDS_OF_YEAR)
        points.pop_back();
    return points;
}

/// The data of a quantity at any time points: linear between its own, missing beside a missing one.
std::vector<double> resampled(const ClimateDataLoader & data, quantity_t quantity, const std::vector<double> & points) {
    const std::vector<double> & values = data.m_data[quantity];
    std::vector<double> result(points.size(), MISSING);
    std::size_t above = 0;
    for (std::size_t i = 0; i < points.size() && !values.empty(); ++i) {
        while (above < values.size() && data.timeOf(quantity, above) < points[i])
            ++above;
        const std::size_t upper = std::min(above, values.size() - 1);
        const std::size_t lower = above == upper && above > 0 ? above - 1 : upper;
        const double distance = data.timeOf(quantity, upper) - data.timeOf(quantity, lower);
        const double weight = distance > 0 ? (points[i] - data.timeOf(quantity, lower)) / distance : 0;
        if (weight == 1 || lower == upper)
            result[i] = values[upper];
        else if (!isMissing(values[lower]) && !isMissing(values[upper]))
            result[i] = (1 - weight) * values[lower] + weight * values[upper];
    }
    return result;
}

/// The same function of time without override splines.
ClimateDataLoader withoutSplines(const ClimateDataLoader & data) {
    ClimateDataLoader result = data;
    result.m_splines = {};
    result.m_timePoints = mergedTimePoints(data);
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        result.m_data[q] = resampled(data, static_cast<quantity_t>(q), result.m_timePoints);
        if (!data.m_splines[q].empty())
            std::transform(result.m_timePoints.begin(), result.m_timePoints.end(), result.m_data[q].begin(),
                           [&spline = data.m_splines[q]](double t) { return spline.value(t); });
    }
    return result;
}

} // namespace

void ClimateDataLoader::readClimateDataKOR(std::istream & in, bool headerOnly) {
    try {
        if (KOR::read_binary<std::uint32_t>(in) != FIRST_MAGIC)
            throw KOR::Exception("Wrong first magic number!", WHERE);
        if (KOR::read_binary<std::uint32_t>(in) != SECOND_MAGIC)
            throw KOR::Exception("Wrong second magic number!", WHERE);
        if (KOR::Version::fromWord(KOR::read_binary<std::uint32_t>(in)).major != VERSION.major)
            throw KOR::Exception("Unsupported file version.", WHERE);
        KOR::read_binary<std::uint32_t>(in); // reserved
        const auto lines = KOR::read_binary<std::uint32_t>(in);
        *this = ClimateDataLoader();
        m_city.clear();
        for (std::uint32_t i = 0; i < lines; ++i)
            readHeaderLine(*this, KOR::read_string_binary(in, MAX_STRING_LENGTH));
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error reading file header.", WHERE);
    }
    if (m_city.empty()) {
        KOR::message("Missing CITY name.", KOR::MSG_WARNING, WHERE);
        m_city = "---";
    }
    if (headerOnly)
        return;

    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        m_data[q] = readVector(in, KOR::text("data vector #%1", q));
        if (m_data[q].size() != m_data[0].size())
            throw KOR::Exception(KOR::text("Error reading data file, data vector #%1 has length %2, but should have "
                                           "length %3 as all previous vectors.",
                                           q, m_data[q].size(), m_data[0].size()),
                                 WHERE);
    }
    m_timePoints = readVector(in, "time points");
    for (std::size_t i = 1; i < m_timePoints.size(); ++i)
        if (m_timePoints[i] <= m_timePoints[i - 1])
            throw KOR::Exception(KOR::text("Time points must increase, but time point %1 (%2 s) follows %3 s.", i,
                                           m_timePoints[i], m_timePoints[i - 1]),
                                 WHERE);
    checkLengths(WHERE);
    checkValues();
}

void ClimateDataLoader::writeClimateDataKOR(const std::string & path) const {
    constexpr const char * WRITE = "[ClimateDataLoader::writeClimateDataKOR]";
    if (std::any_of(m_splines.begin(), m_splines.end(), [](const auto & spline) { return !spline.empty(); })) {
        withoutSplines(*this).writeClimateDataKOR(path);
        return;
    }
    try {
        checkLengths(WRITE);
        std::ostringstream out;
        KOR::write_binary(out, FIRST_MAGIC);
        KOR::write_binary(out, SECOND_MAGIC);
        KOR::write_binary(out, VERSION.word());
        KOR::write_binary(out, std::uint32_t(0));
        KOR::write_binary(out, static_cast<std::uint32_t>(std::size(HEADER_KEYS)));
        for (const HeaderKey & key : HEADER_KEYS)
            KOR::write_string_binary(out, headerLine(key, *this));
        const std::size_t length = std::max_element(m_data.begin(), m_data.end(), [](const auto & a, const auto & b) {
                                       return a.size() < b.size();
                                   })->size();
        for (const std::vector<double> & values : m_data)
            KOR::write_vector_binary(out, values.empty() ? std::vector<double>(length, MISSING) : values);
        KOR::write_vector_binary(out, m_timePoints);
        KOR::writeFile(path, out.view());
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error writing climate data file '%1'.", path), WRITE);
    }
}

} // namespace CCM
