#include <CCM/ClimateDataLoader.h>
#include <CCM/SolarRadiationModel.h>

#include "Lambert.h"
#include "TextFile.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Time.h>

#include <numbers>
#include <optional>

namespace CCM {

namespace {

constexpr const char * WHERE = "[ClimateDataLoader::readClimateDataBBSRDat]";
constexpr std::size_t NUM_COLUMNS = 17;
constexpr double DATA_TIME_ZONE = 1; ///< [h] the clock of all files, whatever the season

/// Columns of the data lines from 0. The rest of 17 is not used: cloud cover, mixing ratio, long-wave emission, quality.
enum column_t {
    COL_EASTING = 0,  // m
    COL_NORTHING = 1, // m
    COL_MONTH = 2,
    COL_DAY = 3,
    COL_HOUR = 4,           // 1 to 24
    COL_TEMPERATURE = 5,    // C
    COL_PRESSURE = 6,       // hPa
    COL_WIND_DIRECTION = 7, // degrees, 999: variable
    COL_WIND_VELOCITY = 8,  // m/s
    COL_HUMIDITY = 11,      // %
    COL_DIRECT = 12,        // on the horizontal, W/m2
    COL_DIFFUSE = 13,       // on the horizontal, W/m2
    COL_LONG_WAVE = 14      // from the atmosphere, W/m2
};
constexpr double VARIABLE_WIND = 999;

/// The first number after the colon of a header line "Rechtswert : 4201500 Meter".
bool readHeaderNumber(std::string_view line, std::string_view key, double & value) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || !KOR::lowered(line.substr(0, colon)).starts_with(key))
        return false;
    const auto words = KOR::words(line.substr(colon + 1));
    const auto number = words.empty() ? std::nullopt : KOR::parseDouble(words.front());
    value = number.value_or(value);
    return number.has_value();
}

class TryReader {
public:
    TryReader(ClimateDataLoader & data, std::string_view text) : m_data(data), m_lines(text) {}

    void readHeader();
    /// Takes the place from the first data line when the header names none.
    void readRecords(bool firstOnly);

private:
    double number(std::size_t column) const;
    void setPlace(double easting, double northing);
    void readRecord(std::size_t hour);

    ClimateDataLoader & m_data;
    LineReader m_lines;
    std::vector<std::string_view> m_words;
    bool m_hasPlace = false;
};

void TryReader::setPlace(double easting, double northing) {
    const GeographicPosition place = fromLambertEurope(easting, northing);
    m_data.m_latitude = place.latitude;
    m_data.m_longitude = place.longitude;
    m_hasPlace = true;
}

void TryReader::readHeader() {
    m_data.m_source = "DWD/BBSR TRY 2017";
    m_data.m_country = "Germany";
    m_data.m_comment = "Import from BBSR-Data";
    m_data.m_wmoCode = "BBSR";
    m_data.setUtcOffset(DATA_TIME_ZONE);

    double easting = 0;
    double northing = 0;
    bool hasEasting = false;
    bool hasNorthing = false;
    std::string_view line;
    // The length of the header differs between editions, its last line does not.
    while (m_lines.next(line)) {
        if (line.starts_with("***")) {
            if (hasEasting && hasNorthing)
                setPlace(easting, northing);
            return;
        }
        hasEasting = readHeaderNumber(line, "rechtswert", easting) || hasEasting;
        hasNorthing = readHeaderNumber(line, "hochwert", northing) || hasNorthing;
        for (const std::string_view key : {"hoehenlage", "h\xC3\xB6henlage", "h\xF6henlage"})
            readHeaderNumber(line, key, m_data.m_elevation);
    }
    throw KOR::Exception(m_lines.number() < 2 ? "Missing header lines.\n" : "Error reading last header line with ***.",
                         WHERE);
}

double TryReader::number(std::size_t column) const {
    const auto value = KOR::parseDouble(m_words[column]);
    if (!value)
        throw KOR::Exception(KOR::text("Invalid data line: %1, '%2' in column %3 is not a number.", m_lines.number(),
                                       excerpt(m_words[column]), column + 1),
                             WHERE);
    return *value;
}

void TryReader::readRecord(std::size_t hour) {
    const double month = number(COL_MONTH);
    const double day = number(COL_DAY);
    const double hourOfDay = number(COL_HOUR);
    KOR::Time date;
    if (month >= 1 && month <= 12 && day >= 1 && day <= 31)
        date.set(0, static_cast<int>(month) - 1, static_cast<int>(day) - 1, 0);
    if (!date.valid() || date.m_seconds + hourOfDay * 3600 != annualTime(Q_TEMPERATURE, hour))
        throw KOR::Exception(KOR::text("Invalid data line: %1, expected hour %2 of the year, 8760 hours without gaps.",
                                       m_lines.number(), hour + 1),
                             WHERE);
    const double wind = number(COL_WIND_DIRECTION);
    const double pressure = number(COL_PRESSURE);
    m_data.m_data[Q_TEMPERATURE].push_back(number(COL_TEMPERATURE));
    m_data.m_data[Q_RELATIVE_HUMIDITY].push_back(number(COL_HUMIDITY));
    m_data.m_data[Q_DIRECT_RADIATION].push_back(number(COL_DIRECT)); // still horizontal
    m_data.m_data[Q_DIFFUSE_RADIATION].push_back(number(COL_DIFFUSE));
    m_data.m_data[Q_WIND_DIRECTION].push_back(wind == VARIABLE_WIND ? MISSING : wind);
    m_data.m_data[Q_WIND_VELOCITY].push_back(number(COL_WIND_VELOCITY));
    m_data.m_data[Q_LONG_WAVE_RADIATION].push_back(number(COL_LONG_WAVE));
    m_data.m_data[Q_AIR_PRESSURE].push_back(isMissing(pressure) ? MISSING : pressure * 100);
    m_data.m_data[Q_RAIN].push_back(MISSING);
}

void TryReader::readRecords(bool firstOnly) {
    std::string_view line;
    std::size_t hour = 0;
    while (m_lines.nextNonEmpty(line)) {
        if (hour == HOURS_OF_YEAR)
            throw KOR::Exception(
                KOR::text("Invalid data line: %1, expected no more than 8760 hourly values.", m_lines.number()), WHERE);
        m_words = KOR::words(line);
        if (m_words.size() != NUM_COLUMNS)
            throw KOR::Exception(
                KOR::text("Invalid data line: %1, invalid number of columns (expected 17).", m_lines.number()), WHERE);
        if (!m_hasPlace)
            setPlace(number(COL_EASTING), number(COL_NORTHING));
        if (firstOnly)
            return;
        readRecord(hour++);
    }
    if (firstOnly)
        return;
    if (hour != HOURS_OF_YEAR)
        throw KOR::Exception(KOR::text("Missing data, only got %1 values, expected 8760 hourly values.", hour), WHERE);
}

} // namespace

void ClimateDataLoader::readClimateDataBBSRDat(const std::string & path, bool headerOnly) {
    parseBBSRDat(readText(path, headerOnly, WHERE), headerOnly);
}

void ClimateDataLoader::parseBBSRDat(std::string_view text, bool headerOnly) {
    *this = ClimateDataLoader();
    TryReader reader(*this, text);
    reader.readHeader();
    reader.readRecords(headerOnly);
    if (headerOnly)
        return;
    SolarRadiationModel::normalFromHorizontal(*this);
    checkValues();
}

} // namespace CCM
