#include <CCM/ClimateDataLoader.h>

#include "TextFile.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Time.h>

#include <algorithm>
#include <cmath>

namespace CCM {

namespace {

constexpr const char * WHERE = "[ClimateDataLoader::readClimateDataEPW]";
constexpr std::size_t NUM_FIELDS = 35;
constexpr std::size_t MIN_FIELDS = 22; ///< up to the last column that is always used
constexpr std::size_t HOURS_OF_DAY = 24;

/// A column of the data lines. A value that is equal to the missing code or above it is missing.
struct Column {
    quantity_t quantity;
    std::size_t field; ///< counted from 1
    double missingCode;
};
constexpr Column COLUMNS[] = {
    {Q_TEMPERATURE,         7,  99.9  },
    {Q_RELATIVE_HUMIDITY,   9,  999   },
    {Q_DIRECT_RADIATION,    15, 9999  },
    {Q_DIFFUSE_RADIATION,   16, 9999  },
    {Q_WIND_DIRECTION,      21, 999   },
    {Q_WIND_VELOCITY,       22, 999   },
    {Q_LONG_WAVE_RADIATION, 13, 9999  },
    {Q_AIR_PRESSURE,        10, 999999},
};
constexpr Column RAIN{Q_RAIN, 34, 999};
constexpr Column RAIN_PERIOD{Q_RAIN, 35, 99};

/// When a record ends.
struct Stamp {
    std::int32_t year = 0;
    double secondsOfYear = 0; ///< end of the record [s]
    std::size_t line = 0;
};

/// A depth of rain [mm] that fell in the hours before the end of a record.
struct RainSum {
    std::size_t row;
    double depth;
    double hours;
};

class EpwReader {
public:
    explicit EpwReader(ClimateDataLoader & data, std::string_view text) : m_data(data), m_lines(text) {}

    void readHeader();
    void readRecords();

private:
    std::string_view requiredLine(std::string_view & line);
    [[noreturn]] void failInLine(const char * reason) const;
    double value(const Column & column) const;
    bool readStamp(Stamp & stamp);
    void readRain();
    void spreadRain();
    void setTimes();
    void setMeansAtMiddle();
    void prependBegin();

    ClimateDataLoader & m_data;
    LineReader m_lines;
    std::vector<std::string_view> m_fields;
    std::vector<Stamp> m_stamps;
    std::vector<RainSum> m_rain;
};

void EpwReader::failInLine(const char * reason) const {
    throw KOR::Exception(KOR::text("Error reading line %1, %2", m_lines.number(), reason), WHERE);
}

std::string_view EpwReader::requiredLine(std::string_view & line) {
    if (!m_lines.next(line))
        throw KOR::Exception(KOR::text("Error reading line %1.", m_lines.number() + 1), WHERE);
    return line;
}

void EpwReader::readHeader() {
    std::string_view line;
    if (!m_lines.next(line))
        throw KOR::Exception("Error reading line 1.", WHERE);
    splitFields(line, m_fields, NUM_FIELDS);
    std::array<double, 4> place{};
    bool isGood = m_fields.size() >= 10;
    for (std::size_t i = 0; isGood && i < place.size(); ++i) {
        const auto number = KOR::parseDouble(m_fields[6 + i]);
        isGood = number.has_value();
        place[i] = number.value_or(0);
    }
    if (!isGood)
        throw KOR::Exception("Error reading line 1, bad format.", WHERE);
    m_data.m_city = m_fields[1].empty() ? "---" : unquoted(m_fields[1]);
    m_data.m_country = unquoted(m_fields[3]);
    m_data.m_source = unquoted(m_fields[4]);
    m_data.m_wmoCode = unquoted(m_fields[5]);
    m_data.m_latitude = place[0];
    m_data.m_longitude = place[1];
    m_data.setUtcOffset(place[2]);
    m_data.m_elevation = place[3];

    for (int number = 2; number <= 8; ++number) {
        requiredLine(line);
        const std::size_t comma = line.find(',');
        if ((number != 6 && number != 7) || comma == std::string_view::npos)
            continue;
        // A comment in quotes is one field; without them it holds commas of its own.
        std::string_view comment = line.substr(comma + 1);
        comment = comment.substr(0, comment.find_last_not_of(" \t") + 1);
        if (comment.size() > 1 && comment.front() == '"' && comment.back() == '"')
            m_data.m_comment += unquoted(comment.substr(1, comment.size() - 2));
        else
            m_data.m_comment += toUtf8(comment);
    }
}

double EpwReader::value(const Column & column) const {
    const double number = numberOrMissing(m_fields[column.field - 1]);
    return number >= column.missingCode ? MISSING : number;
}

/// \return false for a record of the leap day, which the climate year does not have
bool EpwReader::readStamp(Stamp & stamp) {
    const auto year = KOR::parseInteger<std::int32_t>(m_fields[0]);
    const auto month = KOR::parseInteger<int>(m_fields[1]);
    const auto day = KOR::parseInteger<int>(m_fields[2]);
    const auto hour = KOR::parseInteger<unsigned int>(m_fields[3]);
    const auto minute = KOR::parseInteger<unsigned int>(m_fields[4]);
    if (!year || std::abs(*year) > 100000)
        failInLine("bad year.");
    if (!month || *month < 1 || *month > 12 || !day || *day < 1 || *day > 31 || !hour || *hour < 1 ||
        *hour > HOURS_OF_DAY || !minute || *minute > 60)
        failInLine("bad date or time.");
    if (*month == 2 && *day == 29)
        return false;
    stamp.year = *year;
    stamp.line = m_lines.number();
    KOR::Time date;
    date.set(0, *month - 1, *day - 1, 0);
    const double endOfDayBefore = date.m_seconds;
    // Minutes 0 and 60 both mean the end of the hour. Only where records within the hour follow minute 0 of the same
    // hour does it mean the beginning; then the record before ended an hour earlier.
    stamp.secondsOfYear = endOfDayBefore + *hour * 3600.0 - (*minute == 0 ? 0.0 : (60.0 - *minute) * 60);
    if (!m_stamps.empty() && *minute != 0 && *minute != 60) {
        Stamp & last = m_stamps.back();
        const double beginOfHour = endOfDayBefore + (*hour - 1) * 3600.0;
        if (last.secondsOfYear == beginOfHour + 3600 && last.year == stamp.year)
            last.secondsOfYear = beginOfHour;
    }
    return true;
}

void EpwReader::readRain() {
    double depth = MISSING;
    double hours = MISSING;
    if (m_fields.size() >= RAIN.field)
        depth = value(RAIN);
    if (m_fields.size() >= RAIN_PERIOD.field)
        hours = value(RAIN_PERIOD);
    m_data.m_data[Q_RAIN].push_back(MISSING);
    if (!isMissing(depth) && depth >= 0)
        m_rain.push_back({m_stamps.size() - 1, depth, hours >= 1 && hours <= 24 ? hours : 1});
}

void EpwReader::readRecords() {
    const std::size_t expected = std::min(m_lines.bytesLeft() / (2 * MIN_FIELDS) + 1, HOURS_OF_YEAR);
    for (std::vector<double> & values : m_data.m_data)
        values.reserve(expected);
    m_stamps.reserve(expected);
    std::string_view line;
    while (m_lines.nextNonEmpty(line)) {
        if (line.find('"') == std::string_view::npos)
            splitAtCommas(line, m_fields, NUM_FIELDS);
        else
            splitFields(line, m_fields, NUM_FIELDS);
        if (m_fields.size() < MIN_FIELDS)
            failInLine("bad format.");
        Stamp stamp;
        if (!readStamp(stamp))
            continue;
        m_stamps.push_back(stamp);
        for (const Column & column : COLUMNS)
            m_data.m_data[column.quantity].push_back(value(column));
        readRain();
    }
    if (m_stamps.empty())
        throw KOR::Exception("Missing data, the file holds no records.", WHERE);
    setTimes();
    spreadRain();
    if (!m_data.isAnnual()) {
        setMeansAtMiddle();
        prependBegin();
    }
}

/// Decides whether the records are one year of hours; else gives them time points.
void EpwReader::setTimes() {
    m_data.m_startYear = m_stamps.front().year;
    // In a typical year each month has a year of its own, so years count only where the calendar starts anew.
    bool isOneYear = true;
    bool isHourly = true;
    for (std::size_t i = 0; i < m_stamps.size(); ++i) {
        isHourly = isHourly && static_cast<std::int64_t>(m_stamps[i].secondsOfYear) % 3600 == 0;
        isOneYear = isOneYear && (i == 0 || m_stamps[i].secondsOfYear > m_stamps[i - 1].secondsOfYear);
    }
    std::vector<double> points(m_stamps.size());
    std::size_t firstGap = 0;
    for (std::size_t i = 0; i < m_stamps.size(); ++i) {
        const Stamp & stamp = m_stamps[i];
        points[i] = stamp.secondsOfYear;
        if (!isOneYear)
            points[i] += (static_cast<double>(stamp.year) - m_data.m_startYear) * SECONDS_OF_YEAR;
        if (i > 0 && points[i] <= points[i - 1])
            throw KOR::Exception(
                KOR::text("Error reading line %1, times must increase from record to record.", stamp.line), WHERE);
        if (firstGap == 0 && points[i] != 3600.0 * static_cast<double>(i + 1))
            firstGap = stamp.line;
    }
    if (isOneYear && isHourly && m_stamps.size() == HOURS_OF_YEAR)
        return;
    // A year from which a few hours are lost is damaged; a part of a year is what somebody has measured.
    if (isOneYear && isHourly && m_stamps.size() + HOURS_OF_DAY >= HOURS_OF_YEAR)
        throw KOR::Exception(
            KOR::text("Missing data, only got %1 values, expected 8760 hourly values; the first gap is "
                      "before line %2.",
                      m_stamps.size(), firstGap == 0 ? m_lines.number() + 1 : firstGap),
            WHERE);
    m_data.m_timePoints = std::move(points);
}

/// Puts the depths of rain into the hours in which they fell, as rates [l/m2h]. Sums over several hours are spread
/// over those hours of their period of which nothing else is known.
void EpwReader::spreadRain() {
    std::vector<double> & rain = m_data.m_data[Q_RAIN];
    const auto endOf = [this](std::size_t row) {
        return m_data.isAnnual() ? 3600.0 * static_cast<double>(row + 1) : m_data.m_timePoints[row];
    };
    const auto length = [&](std::size_t row) { // of a record [h]
        if (rain.size() < 2)
            return 1.0;
        return std::min(row == 0 ? endOf(1) - endOf(0) : endOf(row) - endOf(row - 1), 3600.0) / 3600;
    };
    std::stable_sort(m_rain.begin(), m_rain.end(),
                     [](const RainSum & a, const RainSum & b) { return a.hours < b.hours; });
    for (const RainSum & sum : m_rain) {
        if (sum.hours <= 1) {
            rain[sum.row] = sum.depth / length(sum.row);
            continue;
        }
        double rest = sum.depth;
        double unknownHours = 0;
        std::size_t first = sum.row + 1;
        while (first > 0 && endOf(first - 1) > endOf(sum.row) - sum.hours * 3600) {
            --first;
            if (isMissing(rain[first]))
                unknownHours += length(first);
            else
                rest -= rain[first] * length(first);
        }
        for (std::size_t row = first; row <= sum.row; ++row)
            if (isMissing(rain[row]))
                rain[row] = std::max(rest, 0.0) / unknownHours;
    }
}

/// Radiation and rain are means over the record; without this they would stand at its end.
void EpwReader::setMeansAtMiddle() {
    const std::vector<double> & points = m_data.m_timePoints;
    std::vector<double> middles(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double before =
            i > 0 ? points[i - 1] : (points.size() > 1 ? 2 * points[0] - points[1] : points[0] - 3600);
        middles[i] = points[i] - std::min(points[i] - before, 3600.0) / 2;
    }
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const std::vector<double> & values = m_data.m_data[q];
        if (!CLIMATE_QUANTITIES[q].middleOfHour || std::all_of(values.begin(), values.end(), isMissing))
            continue;
        std::vector<double> means = values;
        std::replace_if(means.begin(), means.end(), isMissing, CLIMATE_QUANTITIES[q].whenMissing);
        m_data.m_splines[q].setValues(middles, means);
    }
}

/// Data that cannot be repeated are used from the first time point on, and that is the end of the first record. A
/// simulation starts where that record begins.
void EpwReader::prependBegin() {
    std::vector<double> & points = m_data.m_timePoints;
    if (points.size() < 2 || points.back() <= SECONDS_OF_YEAR)
        return;
    points.insert(points.begin(), std::max(2 * points[0] - points[1], points[0] - 3600));
    for (std::vector<double> & values : m_data.m_data)
        values.insert(values.begin(), values.front());
}

} // namespace

void ClimateDataLoader::readClimateDataEPW(const std::string & path, bool headerOnly) {
    parseEPW(readText(path, headerOnly, WHERE), headerOnly);
}

void ClimateDataLoader::parseEPW(std::string_view text, bool headerOnly) {
    *this = ClimateDataLoader();
    EpwReader reader(*this, text);
    reader.readHeader();
    if (headerOnly)
        return;
    reader.readRecords();
    checkValues();
}

} // namespace CCM
