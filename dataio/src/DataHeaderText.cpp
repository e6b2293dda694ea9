#include "DataHeaderText.h"

#include "GeoText.h"

#include <KOR/Binary.h>
#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <functional>
#include <sstream>

namespace DATAIO {

using KOR::Exception;
using KOR::text;

namespace {

constexpr std::uint32_t MAX_PATH_LENGTH = 10'000;
constexpr std::uint32_t MAX_QUANTITY_LENGTH = 500'000;
constexpr std::uint32_t MAX_UNIT_LENGTH = 100;
constexpr std::uint32_t MAX_INDICES = 1'000'000;
constexpr std::uint32_t MAX_GEOMETRY_SIZE = 512u << 20;
constexpr std::string_view BLANKS = " \t\r";
constexpr const char * TIME_FORMAT = "%Y-%m-%d %H:%M:%S";

constexpr std::string_view TYPES[] = {"FIELD", "FLUX", "STATE"};
constexpr std::string_view SPACE_TYPES[] = {"SINGLE", "MEAN", "INTEGRAL", "MIN", "MAX"};
constexpr std::string_view TIME_TYPES[] = {"NONE", "MEAN", "INTEGRAL", "MIN", "MAX"};
static_assert(std::size(TYPES) == DataHeader::NUM_TYPES);
static_assert(std::size(SPACE_TYPES) == DataHeader::NUM_SPACE_TYPES);
static_assert(std::size(TIME_TYPES) == DataHeader::NUM_TIME_TYPES);

std::string timeText(std::int64_t stamp) {
    const auto seconds = static_cast<std::time_t>(stamp);
    std::tm utc{};
    if (gmtime_r(&seconds, &utc) == nullptr)
        return {};
    std::array<char, 80> buffer{};
    return {buffer.data(), std::strftime(buffer.data(), buffer.size(), TIME_FORMAT, &utc)};
}

std::int64_t timeStamp(const std::string & created) {
    std::tm utc{};
    return strptime(created.c_str(), TIME_FORMAT, &utc) != nullptr ? static_cast<std::int64_t>(timegm(&utc)) : 0;
}

/// Runs one field's reader; a failure gets the field's message in front.
template <typename Read> auto field(std::string_view message, Read && read) {
    try {
        return read();
    } catch (const Exception & ex) {
        throw Exception(ex, std::string(message) + ex.message(), "[DataIO::readBinaryHeader]");
    }
}

template <typename Enumeration> Enumeration readCode(std::istream & in, int count) {
    const auto code = KOR::read_binary<std::int32_t>(in);
    if (code < 0 || code >= count)
        throw Exception(text("Enumeration code %1 is out of range 0..%2.", code, count - 1),
                        "[DataIO::readBinaryHeader]");
    return static_cast<Enumeration>(code);
}

/// The fields that older and current binary headers share, from the quantity to the indices.
void readCommonFields(std::istream & in, DataHeader & header) {
    const auto string = [&in](std::string_view message, std::uint32_t limit) {
        return field(message, [&] { return KOR::read_string_binary(in, limit); });
    };
    header.quantity = string("Error reading QUANTITY property in header: ", MAX_QUANTITY_LENGTH);
    header.quantityKeyword = string("Error reading QUANTITY_KW property in header: ", MAX_QUANTITY_LENGTH);
    header.spaceType = readCode<DataHeader::spaceType_t>(in, DataHeader::NUM_SPACE_TYPES);
    header.timeType = readCode<DataHeader::timeType_t>(in, DataHeader::NUM_TIME_TYPES);
    header.valueUnit = string("Error reading VALUE_UNIT property in header: ", MAX_UNIT_LENGTH);
    header.timeUnit = string("Error reading TIME_UNIT property in header: ", MAX_UNIT_LENGTH);
    header.startYear = KOR::read_binary<std::int32_t>(in);
    header.indices = field("Error reading element/sides numbers vector: ",
                           [&] { return KOR::read_vector_binary<std::uint32_t>(in, MAX_INDICES); });
}

void writeCommonFields(std::ostream & out, const DataHeader & header) {
    KOR::write_string_binary(out, header.quantity);
    KOR::write_string_binary(out, header.quantityKeyword);
    KOR::write_binary(out, static_cast<std::int32_t>(header.spaceType));
    KOR::write_binary(out, static_cast<std::int32_t>(header.timeType));
    KOR::write_string_binary(out, header.valueUnit);
    KOR::write_string_binary(out, header.timeUnit);
    KOR::write_binary(out, header.startYear);
    KOR::write_vector_binary(out, header.indices);
}

std::string joined(const std::vector<std::uint32_t> & numbers) {
    std::string line;
    for (const std::uint32_t number : numbers)
        line += (line.empty() ? "" : " ") + KOR::toString(number);
    return line;
}

template <typename Enumeration, std::size_t N>
Enumeration parseKeyword(std::string_view word, const std::string_view (&keywords)[N]) {
    const auto * const found = std::find(std::begin(keywords), std::end(keywords), word);
    if (found == std::end(keywords))
        throw Exception(text("Unknown keyword '%1'.", word), "[DataIO::readASCIIHeader]");
    return static_cast<Enumeration>(found - std::begin(keywords));
}

/// "Missing value for START_YEAR keyword." and "Invalid value for START_YEAR keyword."
template <typename Number> Number parseNumber(std::string_view keyword, std::string_view value) {
    if (value.empty())
        throw Exception(text("Missing value for %1 keyword.", keyword), "[DataIO::readASCIIHeader]");
    try {
        return KOR::string2val<Number>(value);
    } catch (const Exception & ex) {
        throw Exception(ex, text("Invalid value for %1 keyword.", keyword), "[DataIO::readASCIIHeader]");
    }
}

void parseIndices(std::string_view value, std::vector<std::uint32_t> & indices) {
    if (value.empty())
        throw Exception("Missing value for ELEMENTS|SIDES|INDICES keyword.", "[DataIO::readASCIIHeader]");
    try {
        indices.clear();
        for (const std::string_view word : KOR::words(value)) {
            if (indices.size() == MAX_INDICES)
                throw Exception("Vector length exceeds given maximum!", "[DataIO::readASCIIHeader]");
            indices.push_back(KOR::string2val<std::uint32_t>(word));
        }
    } catch (const Exception & ex) {
        throw Exception(ex, "Invalid value for ELEMENTS|SIDES|INDICES keyword.", "[DataIO::readASCIIHeader]");
    }
}

/// One header keyword: how it is written and how it is read. A missing writer marks a keyword of older files.
struct HeaderKeyword {
    std::string_view word;
    std::string (*write)(const DataHeader & header);
    void (*read)(std::string_view value, DataHeader & header);
};

using H = DataHeader;
using V = std::string_view;
const HeaderKeyword HEADER_KEYWORDS[] = {
    {"TYPE",          [](const H & h) { return std::string(keyword(h.type)); },
     [](V v,                                                                                 H & h) { h.type = parseKeyword<H::type_t>(v, TYPES); }                    },
    {"PROJECT_FILE",  [](const H & h) { return h.projectFile; },                     [](V v, H & h) { h.projectFile = v; }                                             },
    {"CREATED",       [](const H & h) { return h.created; },                         [](V v, H & h) { h.created = v; }                                                 },
    {"GEO_FILE",      [](const H & h) { return h.geoFile; },                         [](V v, H & h) { h.geoFile = v; }                                                 },
    {"GEO_FILE_HASH", [](const H & h) { return KOR::toString(h.geoFileHash); },
     [](V v,                                                                                 H & h) { h.geoFileHash = parseNumber<std::uint32_t>("GEO_FILE_HASH", v); }},
    {"QUANTITY",      [](const H & h) { return h.quantity; },                        [](V v, H & h) { h.quantity = v; }                                                },
    {"QUANTITY_KW",   [](const H & h) { return h.quantityKeyword; },                 [](V v, H & h) { h.quantityKeyword = v; }                                         },
    {"SPACE_TYPE",    [](const H & h) { return std::string(keyword(h.spaceType)); },
     [](V v,                                                                                 H & h) { h.spaceType = parseKeyword<H::spaceType_t>(v, SPACE_TYPES); }    },
    {"TIME_TYPE",     [](const H & h) { return std::string(keyword(h.timeType)); },
     [](V v,                                                                                 H & h) { h.timeType = parseKeyword<H::timeType_t>(v, TIME_TYPES); }       },
    {"VALUE_UNIT",    [](const H & h) { return h.valueUnit; },                       [](V v, H & h) { h.valueUnit = v; }                                               },
    {"TIME_UNIT",     [](const H & h) { return h.timeUnit; },                        [](V v, H & h) { h.timeUnit = v; }                                                },
    {"START_YEAR",    [](const H & h) { return KOR::toString(h.startYear); },
     [](V v,                                                                                 H & h) { h.startYear = parseNumber<std::int32_t>("START_YEAR", v); }      },
    {"INDICES",       [](const H & h) { return joined(h.indices); },                 [](V v, H & h) { parseIndices(v, h.indices); }                                    },
    {"ELEMENTS",      nullptr,
     [](V v,                                                                                 H & h) {
         h.type = H::FIELD;
         parseIndices(v, h.indices);
     }                                                                                                                                                     },
    {"SIDES",         nullptr,
     [](V v,                                                                                 H & h) {
         h.type = H::FLUX;
         parseIndices(v, h.indices);
     }                                                                                                                                                     },
};

/// Collects the embedded geometry of an older file: from its first section to the next keyword line.
std::string geometrySection(std::istream & in, std::string firstLine, std::string & keywordLine) {
    std::string section = std::move(firstLine) + '\n';
    bool inGrid = false;
    while (std::getline(in, keywordLine)) {
        const std::string_view line = KOR::trimmed(keywordLine);
        const bool isSection =
            std::find(std::begin(GEO_SECTIONS), std::end(GEO_SECTIONS), line) != std::end(GEO_SECTIONS);
        inGrid = isSection ? line == GEO_SECTIONS[1] : inGrid && !line.empty();
        // The lines of the grid hold an equals sign of their own.
        if (!inGrid && line.find('=') != std::string_view::npos)
            return section;
        section += keywordLine + '\n';
    }
    throw Exception("Missing = character in last line of geometry header.", "[DataIO::readASCIIHeader]");
}

} // namespace

std::string_view keyword(DataHeader::type_t type) {
    return TYPES[type];
}
std::string_view keyword(DataHeader::spaceType_t type) {
    return SPACE_TYPES[type];
}
std::string_view keyword(DataHeader::timeType_t type) {
    return TIME_TYPES[type];
}

std::string binaryHeader(const DataHeader & header) {
    std::ostringstream fields;
    KOR::write_binary(fields, static_cast<std::uint32_t>(header.valueCount()));
    KOR::write_binary(fields, static_cast<std::int32_t>(header.type));
    KOR::write_string_binary(fields, header.projectFile);
    KOR::write_string_binary(fields, header.geoFile);
    KOR::write_binary(fields, header.geoFileHash);
    KOR::write_binary(fields, timeStamp(header.created));
    writeCommonFields(fields, header);

    std::ostringstream out;
    KOR::FILE_VERSION.write(out, DATA_MAGICS[0]);
    const std::string body = fields.str();
    const auto magicSize = static_cast<std::size_t>(out.tellp());
    KOR::write_binary(out, static_cast<std::uint32_t>(magicSize + sizeof(std::uint32_t) + body.size()));
    out << body;
    return out.str();
}

DataHeader parseBinaryHeader(std::istream & in) {
    try {
        DataHeader header;
        const auto offset = KOR::read_binary<std::uint32_t>(in);
        const auto valueCount = KOR::read_binary<std::uint32_t>(in);
        header.type = readCode<DataHeader::type_t>(in, DataHeader::NUM_TYPES);
        header.projectFile = field("Error reading PROJECT_FILE property in header: ",
                                   [&] { return KOR::read_string_binary(in, MAX_PATH_LENGTH); });
        header.geoFile = field("Error reading GEO_FILE property in header: ",
                               [&] { return KOR::read_string_binary(in, MAX_PATH_LENGTH); });
        header.geoFileHash = KOR::read_binary<std::uint32_t>(in);
        header.created = timeText(KOR::read_binary<std::int64_t>(in));
        readCommonFields(in, header);
        if (static_cast<std::uint64_t>(in.tellg()) != offset)
            throw Exception(
                "Data section offset defined at header start does not match file offset after reading header section.",
                "[DataIO::readBinaryHeader]");
        if (valueCount != header.valueCount())
            throw Exception(
                text("Number of values in data section %1  defined at header start does not match number of "
                     "values computed from INDICES and SPACE_TYPE = %2.",
                     valueCount, header.valueCount()),
                "[DataIO::readBinaryHeader]");
        return header;
    } catch (const Exception & ex) {
        throw Exception(ex, "Error reading binary header.", "[DataIO::readBinaryHeader]");
    }
}

DataHeader parseBinaryHeaderPreV6(std::istream & in, GeoFile & geometry) {
    constexpr const char * WHERE = "[DataIO::readBinaryHeaderPreV6]";
    try {
        const auto size = KOR::read_binary<std::uint32_t>(in);
        const std::streampos start = in.tellg();
        if (size > MAX_GEOMETRY_SIZE)
            throw Exception("Binary header data corrupt!", WHERE);
        try {
            geometry.readBinaryGeometryData(in);
        } catch (const Exception & ex) {
            throw Exception(ex, "Error reading geometry data:\n" + ex.cause(), WHERE);
        }
        if (in.tellg() - start != static_cast<std::streamoff>(size))
            throw Exception("[DataIO::readBinaryHeader]  Size mismatch in geometry section!", WHERE);
        DataHeader header;
        header.type = readCode<DataHeader::type_t>(in, DataHeader::NUM_TYPES);
        header.projectFile = field("Error reading PROJECT_FILE property in header: ",
                                   [&] { return KOR::read_string_binary(in, MAX_PATH_LENGTH); });
        header.created = timeText(KOR::read_binary<std::int64_t>(in));
        readCommonFields(in, header);
        std::string tag(PRE_V6_HEADER_END.size(), '\0');
        if (!in.read(tag.data(), static_cast<std::streamsize>(tag.size())) || tag != PRE_V6_HEADER_END)
            throw Exception("Binary header data corrupt! Failed to read HDR_END tag.", WHERE);
        return header;
    } catch (const Exception & ex) {
        throw Exception(ex, "Error reading binary header (pre V6 version).", WHERE);
    }
}

std::string asciiHeader(const DataHeader & header) {
    std::ostringstream out;
    KOR::FILE_VERSION.write(out, DATA_MAGICS[1]);
    out << '\n';
    for (const HeaderKeyword & row : HEADER_KEYWORDS) {
        if (row.write == nullptr)
            continue;
        std::string word(row.word);
        word.resize(14, ' ');
        std::string value = row.write(header);
        std::replace(value.begin(), value.end(), '\n', ' ');
        out << word << "= " << value << '\n';
    }
    out << '\n' << TABLE_LINE << '\n';
    return out.str();
}

DataHeader parseASCIIHeader(std::istream & in, std::optional<GeoFile> & geometry) {
    DataHeader header;
    std::string line;
    while (std::getline(in, line)) {
        std::string_view content = KOR::trimmed(line, BLANKS);
        if (content.empty())
            continue;
        if (content.starts_with(TABLE_LINE) && content.find('=') == std::string_view::npos)
            return header;
        std::string next;
        if (std::find(std::begin(GEO_SECTIONS), std::end(GEO_SECTIONS), content) != std::end(GEO_SECTIONS)) {
            try {
                const std::string section = geometrySection(in, line, next);
                try {
                    geometry.emplace().parseGeometryData(section);
                } catch (const Exception & ex) {
                    throw Exception(ex, "Error reading geometry file.", "[DataIO::readASCIIHeader]");
                }
            } catch (const Exception & ex) {
                throw Exception(ex, "Error reading geometry section.", "[DataIO::readASCIIHeader]");
            }
            content = KOR::trimmed(next, BLANKS);
        }
        const std::size_t equals = content.find('=');
        const std::string_view word = KOR::trimmed(content.substr(0, equals), BLANKS);
        const auto * const row = std::find_if(std::begin(HEADER_KEYWORDS), std::end(HEADER_KEYWORDS),
                                              [word](const HeaderKeyword & known) { return known.word == word; });
        if (row == std::end(HEADER_KEYWORDS) || equals == std::string_view::npos)
            throw Exception(text("Unknown header line '%1'.", content.substr(0, 80)), "[DataIO::readASCIIHeader]");
        row->read(KOR::trimmed(content.substr(equals + 1), BLANKS), header);
    }
    throw Exception("The header does not end with a line 'TABLE'.", "[DataIO::readASCIIHeader]");
}

} // namespace DATAIO
