#include <CCM/ClimateDataLoader.h>
#include <CCM/SolarRadiationModel.h>

#include "TextFile.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>
#include <KOR/Time.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace CCM {

namespace {

constexpr const char * WHERE = "[ClimateDataLoader::readClimateDataWAC]";
constexpr std::size_t MIN_HEADER_LINES = 9;
constexpr const char * NOT_ANNUAL = "WAC files without time column must be annual climate data files with 8760 values "
                                    "spaced at 1 h time difference.";

/// The numbers that the header ends with, "value<tab>label".
enum header_t { H_LONGITUDE, H_LATITUDE, H_HEIGHT, H_TIME_ZONE, H_TIME_STEP, H_ROWS, H_COLUMNS, NUM_HEADER_VALUES };

/// What a column holds. Radiation is on the horizontal.
enum column_t { C_DIRECT, C_GLOBAL, C_DIFFUSE, C_TIME, C_QUANTITY, C_UNUSED };

struct Caption {
    std::string_view name;
    column_t column;
    quantity_t quantity; ///< of C_QUANTITY
};
constexpr Caption CAPTIONS[] = {
    {"TA",   C_QUANTITY, Q_TEMPERATURE        },
    {"HREL", C_QUANTITY, Q_RELATIVE_HUMIDITY  },
    {"ISD",  C_DIRECT,   Q_DIRECT_RADIATION   },
    {"ISGH", C_GLOBAL,   Q_DIRECT_RADIATION   },
    {"ISDH", C_DIFFUSE,  Q_DIFFUSE_RADIATION  },
    {"ILAH", C_QUANTITY, Q_LONG_WAVE_RADIATION},
    {"WS",   C_QUANTITY, Q_WIND_VELOCITY      },
    {"WV",   C_QUANTITY, Q_WIND_VELOCITY      },
    {"WD",   C_QUANTITY, Q_WIND_DIRECTION     },
    {"RN",   C_QUANTITY, Q_RAIN               },
    {"PSTA", C_QUANTITY, Q_AIR_PRESSURE       },
    {"TIME", C_TIME,     NUM_QUANTITIES       },
};
constexpr Caption UNUSED{"", C_UNUSED, NUM_QUANTITIES};

class WacReader {
public:
    WacReader(ClimateDataLoader & data, std::string_view text) : m_data(data), m_lines(text) {}

    void readHeader();
    void readRecords();

private:
    void readCaptions();
    void readRecord(std::string_view line, std::size_t row);
    bool readTime(std::string_view text, std::size_t row);
    void setDirectFromGlobal();
    void convertUnits();
    bool has(column_t column) const;

    ClimateDataLoader & m_data;
    LineReader m_lines;
    std::array<double, NUM_HEADER_VALUES> m_header{};
    std::vector<Caption> m_columns;
    std::vector<double> m_global;
    std::vector<std::size_t> m_rowLines; ///< line of the file from which a record came
    const KOR::TimePattern m_pattern{"yyyy-MM-dd hh:mm"};
};

/// The fields of a line: between tabs where there are any, else between blanks.
std::vector<std::string_view> fieldsOf(std::string_view line) {
    if (line.find('\t') == std::string_view::npos)
        return KOR::words(line);
    std::vector<std::string_view> fields = KOR::split(line, '\t');
    for (std::string_view & field : fields)
        field = KOR::trimmed(field);
    while (!fields.empty() && fields.back().empty())
        fields.pop_back();
    return fields;
}

void WacReader::readHeader() {
    std::string_view line;
    if (!m_lines.next(line) || line.find("WAC") == std::string_view::npos)
        throw KOR::Exception("Invalid file format, expected WAC in line 1.", WHERE);
    std::optional<std::size_t> offset;
    if (m_lines.next(line)) {
        const auto words = KOR::words(line);
        offset = words.empty() ? std::nullopt : KOR::parseInteger<std::size_t>(words.front());
    }
    if (!offset)
        throw KOR::Exception("Error reading number of header lines from line 2.", WHERE);
    if (*offset < MIN_HEADER_LINES)
        throw KOR::Exception("Missing header lines, expected at least 9 lines.", WHERE);

    // The offset counts from line 1 to the line with the number of columns.
    std::vector<std::string_view> header;
    for (std::size_t number = 3; number - 1 <= *offset; ++number) {
        if (!m_lines.next(line))
            throw KOR::Exception(
                KOR::text("Expected header lines (offset) %1, but got an error reading line #%2.", *offset, number),
                WHERE);
        header.push_back(line);
    }
    const std::size_t firstValue = header.size() - NUM_HEADER_VALUES;
    for (std::size_t i = 0; i < NUM_HEADER_VALUES; ++i) {
        const auto words = KOR::words(header[firstValue + i]);
        const auto value = words.empty() ? std::nullopt : KOR::parseDouble(words.front());
        if (!value)
            throw KOR::Exception(KOR::text("Expected header lines (offset) %1, but found no number in line #%2.",
                                           *offset, firstValue + i + 3),
                                 WHERE);
        m_header[i] = *value;
    }
    m_data.m_longitude = m_header[H_LONGITUDE];
    m_data.m_latitude = m_header[H_LATITUDE];
    m_data.m_elevation = m_header[H_HEIGHT];
    m_data.setUtcOffset(m_header[H_TIME_ZONE]);
    // Free text: the place, then remarks.
    for (std::size_t i = 0; i < firstValue; ++i) {
        const std::string text = toUtf8(KOR::trimmed(header[i]));
        if (i == 0)
            m_data.m_city = text.empty() ? "---" : text;
        else if (!text.empty())
            m_data.m_comment += (m_data.m_comment.empty() ? "" : " ") + text;
    }
}

void WacReader::readCaptions() {
    std::string_view line;
    if (!m_lines.next(line) || KOR::trimmed(line).empty())
        throw KOR::Exception("Error reading last header line with table captions.", WHERE);
    for (const std::string_view field : fieldsOf(line)) {
        const std::string name = KOR::lowered(field);
        const auto * known = std::find_if(std::begin(CAPTIONS), std::end(CAPTIONS), [&name](const Caption & caption) {
            return KOR::lowered(caption.name) == name;
        });
        m_columns.push_back(known == std::end(CAPTIONS) ? UNUSED : *known);
    }
    if (!has(C_DIRECT)) {
        if (!has(C_GLOBAL))
            throw KOR::Exception("Missing direct radiation or global radiation, either must be present!", WHERE);
        if (!has(C_DIFFUSE))
            throw KOR::Exception(
                "Diffuse radiation is required to split global radiation into direct radiation component!", WHERE);
    }
}

bool WacReader::has(column_t column) const {
    return std::any_of(m_columns.begin(), m_columns.end(),
                       [column](const Caption & caption) { return caption.column == column; });
}

/// \return false for the leap day, which the climate year does not have
bool WacReader::readTime(std::string_view text, std::size_t row) {
    const KOR::Time time = KOR::Time::fromString(text, m_pattern);
    if (!time.valid())
        throw KOR::Exception(
            KOR::text("Error parsing date/time entry in line #%1 (total line #%2)", row + 1, m_lines.number()), WHERE);
    if (text.substr(4, 6) == "-02-29")
        return false;
    if (m_data.m_timePoints.empty())
        m_data.m_startYear = time.m_year;
    const double point = time.secondsSinceYearOf(KOR::Time(m_data.m_startYear, 0));
    if (!m_data.m_timePoints.empty() && point <= m_data.m_timePoints.back())
        throw KOR::Exception(
            KOR::text("Error parsing date/time entry in line #%1 (total line #%2): times must increase "
                      "from line to line.",
                      row + 1, m_lines.number()),
            WHERE);
    m_data.m_timePoints.push_back(point);
    return true;
}

void WacReader::readRecord(std::string_view line, std::size_t row) {
    std::vector<std::string_view> fields = fieldsOf(line);
    // A time stamp holds a blank itself: where blanks separate, it comes as two words.
    if (has(C_TIME) && line.find('\t') == std::string_view::npos) {
        const auto column = static_cast<std::size_t>(
            std::find_if(m_columns.begin(), m_columns.end(), [](auto & c) { return c.column == C_TIME; }) -
            m_columns.begin());
        if (column + 1 < fields.size()) {
            const char * const begin = fields[column].data();
            const char * const end = fields[column + 1].data() + fields[column + 1].size();
            fields[column] = std::string_view(begin, static_cast<std::size_t>(end - begin));
            fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(column) + 1);
        }
    }
    if (fields.size() < m_columns.size())
        throw KOR::Exception(KOR::text("Error reading data line #%1 (total line #%2); not enough columns (expected %3 "
                                       "columns, got %4 columns)!",
                                       row + 1, m_lines.number(), m_columns.size(), fields.size()),
                             WHERE);
    std::array<double, NUM_QUANTITIES> values;
    values.fill(MISSING);
    double global = MISSING;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].column == C_UNUSED)
            continue;
        if (m_columns[i].column == C_TIME) {
            if (!readTime(fields[i], row))
                return;
            continue;
        }
        const auto value = KOR::parseDouble(fields[i]);
        if (!value)
            throw KOR::Exception(KOR::text("Error reading data line #%1 (total line #%2): '%3' in column %4 is not a "
                                           "number.",
                                           row + 1, m_lines.number(), excerpt(fields[i]), m_columns[i].name),
                                 WHERE);
        if (m_columns[i].column == C_GLOBAL)
            global = *value;
        else
            values[m_columns[i].quantity] = *value;
    }
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        m_data.m_data[q].push_back(values[q]);
    m_global.push_back(global);
    m_rowLines.push_back(m_lines.number());
}

void WacReader::readRecords() {
    readCaptions();
    const bool hasTime = has(C_TIME);
    const double rows = m_header[H_ROWS];
    if (!hasTime && (rows != HOURS_OF_YEAR || m_header[H_TIME_STEP] != 1))
        throw KOR::Exception(NOT_ANNUAL, WHERE);
    std::string_view line;
    std::string_view lastLine;
    std::size_t row = 0;
    for (; static_cast<double>(row) < rows; ++row) {
        if (!m_lines.next(line))
            throw KOR::Exception(
                KOR::text("Error reading data line #%1 (total line #%2), last successfully read line was '%3'.",
                          row + 1, m_lines.number() + 1, excerpt(lastLine)),
                WHERE);
        if (KOR::trimmed(line).empty())
            throw KOR::Exception(KOR::text("Missing data, empty line encountered in data line #%1 (total line #%2), "
                                           "expected %3 lines of data.",
                                           row + 1, m_lines.number(), rows),
                                 WHERE);
        readRecord(line, row);
        lastLine = line;
    }
    if (m_lines.nextNonEmpty(line))
        throw KOR::Exception(KOR::text("Unexpected data line #%1 (total line #%2), the header announces %3 lines of "
                                       "data.",
                                       row + 1, m_lines.number(), rows),
                             WHERE);
    if (m_data.size() == 0)
        throw KOR::Exception("Missing data, the file holds no records.", WHERE);
    if (!has(C_DIRECT))
        setDirectFromGlobal();
    convertUnits();
    SolarRadiationModel::normalFromHorizontal(m_data);
}

void WacReader::setDirectFromGlobal() {
    for (std::size_t i = 0; i < m_global.size(); ++i) {
        const double diffuse = m_data.m_data[Q_DIFFUSE_RADIATION][i];
        if (isMissing(m_global[i]) || isMissing(diffuse))
            continue;
        if (m_global[i] < diffuse)
            throw KOR::Exception(KOR::text("Error in line #%1 (total line #%2): global radiation intensity must not be "
                                           "smaller than diffuse radiation intensity!",
                                           i + 1, m_rowLines[i]),
                                 WHERE);
        m_data.m_data[Q_DIRECT_RADIATION][i] = m_global[i] - diffuse;
    }
}

/// Humidity comes as a fraction, in some files in per cent; pressure in hPa, in some files in Pa.
void WacReader::convertUnits() {
    std::vector<double> & humidity = m_data.m_data[Q_RELATIVE_HUMIDITY];
    const bool isPercent = std::any_of(humidity.begin(), humidity.end(), [](double value) { return value > 1.5; });
    for (double & value : humidity)
        if (!isPercent && !isMissing(value))
            value *= 100;
    for (double & value : m_data.m_data[Q_AIR_PRESSURE])
        if (!isMissing(value) && value < 2000)
            value *= 100;
}

} // namespace

void ClimateDataLoader::readClimateDataWAC(const std::string & path, bool headerOnly) {
    parseWAC(readText(path, headerOnly, WHERE), headerOnly);
}

void ClimateDataLoader::parseWAC(std::string_view text, bool headerOnly) {
    *this = ClimateDataLoader();
    WacReader reader(*this, text);
    reader.readHeader();
    if (headerOnly)
        return;
    reader.readRecords();
    checkValues();
}

} // namespace CCM
