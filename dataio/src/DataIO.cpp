#include <DATAIO/DataIO.h>

#include "DataHeaderText.h"

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <set>

namespace DATAIO {

using KOR::Exception;
using KOR::text;

namespace {

constexpr std::size_t CHUNK_SIZE = 1u << 20;
/// Above this record size a column is picked value by value, below it the file is streamed.
constexpr std::size_t STREAMED_RECORD_SIZE = 4096;
constexpr std::size_t PREFETCHED = 512;      ///< values that are asked for before they are read
constexpr std::size_t LONGEST_NUMBER = 64;   ///< [bytes]
constexpr std::string_view NO_VALUE = "nan"; ///< where the quantity does not exist, humidity in metal for one
constexpr std::string_view BLANKS = " \t\r\n";

} // namespace

void DataIO::openAndReadHeader(const std::string & path) {
    constexpr const char * WHERE = "[DataIO::openAndReadHeader]";
    try {
        *this = DataIO();
        if (path.empty())
            throw Exception("No filename or invalid file path given.", WHERE);
        std::error_code error;
        if (!std::filesystem::exists(path, error))
            throw Exception(text("File '%1' doesn't exist.", path), WHERE);
        m_path = path;
        std::ifstream in(path, std::ios::binary);
        if (!m_file.open(path) || !in)
            throw Exception(text("Cannot open file '%1'", path), WHERE);

        std::string title(PRE_V6_TITLE.size(), '\0');
        in.read(title.data(), static_cast<std::streamsize>(title.size()));
        in.clear();
        in.seekg(0);
        const bool isPreV6 = title == PRE_V6_TITLE;
        if (isPreV6) {
            m_version = {5, 6};
            std::string rest;
            std::getline(in, rest);
            const std::string_view kind = KOR::trimmed(std::string_view(rest).substr(PRE_V6_TITLE.size()));
            if (!kind.empty() && kind != PRE_V6_BINARY)
                throw Exception("File format not recognized!", WHERE);
            m_isBinary = kind == PRE_V6_BINARY;
        } else {
            try {
                m_isBinary = DATA_MAGICS[m_version.read(in, DATA_MAGICS)].isBinary;
            } catch (const Exception & ex) {
                throw Exception(ex, "File format not recognized!", WHERE);
            }
        }
        try {
            if (!m_isBinary)
                m_header = parseASCIIHeader(in, m_geometry);
            else
                m_header = isPreV6 ? parseBinaryHeaderPreV6(in, m_geometry.emplace()) : parseBinaryHeader(in);
        } catch (const Exception & ex) {
            throw Exception(ex,
                            m_isBinary ? "Error on reading binary header from file."
                                       : "Error on reading ASCII header from file.",
                            WHERE);
        }
        m_dataOffset = static_cast<std::uint64_t>(in.tellg());
        m_lineOffsets.assign(1, m_dataOffset);
        update();
    } catch (const Exception & ex) {
        m_file.close();
        throw Exception(ex, text("Error reading DataIO file '%1'", path), WHERE);
    }
}

bool DataIO::update() {
    reopen();
    const std::size_t before = m_timeCount;
    if (m_isBinary) {
        const std::uint64_t size = m_file.size();
        const std::uint64_t recordSize = sizeof(double) * (1 + m_header.valueCount());
        m_timeCount = size < m_dataOffset ? 0 : static_cast<std::size_t>((size - m_dataOffset) / recordSize);
    } else {
        indexLines();
    }
    return m_timeCount > before;
}

void DataIO::reopen() {
    if (!m_file.isOpen() && !m_file.open(m_path))
        throw Exception("Cannot open output file for reading.", "[DataIO::data]");
}

/// Continues the index of complete lines where it ended last time.
void DataIO::indexLines() {
    std::uint64_t lineStart = m_lineOffsets.back();
    std::uint64_t position = lineStart;
    bool isBlank = true;
    std::vector<char> chunk(CHUNK_SIZE);
    while (const std::size_t got = m_file.readAt(position, chunk)) {
        for (std::size_t i = 0; i < got; ++i) {
            if (chunk[i] != '\n') {
                isBlank = isBlank && BLANKS.find(chunk[i]) != std::string_view::npos;
                continue;
            }
            const std::uint64_t lineEnd = position + i + 1;
            if (isBlank)
                m_lineOffsets.back() = lineEnd; // the next record starts behind the empty line
            else
                m_lineOffsets.push_back(lineEnd);
            isBlank = true;
        }
        position += got;
    }
    m_timeCount = m_lineOffsets.size() - 1;
}

std::vector<double> DataIO::record(std::size_t timeIndex) const {
    const std::size_t needed = m_header.valueCount();
    std::vector<double> values;
    if (m_isBinary) {
        values.resize(1 + needed);
        const std::size_t size = values.size() * sizeof(double);
        const std::size_t got =
            m_file.readAt(m_dataOffset + timeIndex * size, {reinterpret_cast<char *>(values.data()), size});
        values.resize(got / sizeof(double));
    } else {
        std::string line(static_cast<std::size_t>(m_lineOffsets[timeIndex + 1] - m_lineOffsets[timeIndex]), '\0');
        if (m_file.readAt(m_lineOffsets[timeIndex], line) != line.size())
            throw Exception("Error reading file with FileReader.", "[DataIO::readASCIIData]");
        addValueLine(line, values);
    }
    if (values.size() != 1 + needed)
        throw Exception(text("Not enough values for time index %1 in output file, only got %2 values, but needed %3.",
                             timeIndex, values.empty() ? 0 : values.size() - 1, needed),
                        "[DataIO::data]");
    return values;
}

void DataIO::addValueLine(std::string_view line, std::vector<double> & values) const {
    line = KOR::trimmed(line, BLANKS);
    const std::string_view time = line.substr(0, line.find_first_of(BLANKS));
    if (!KOR::parseDouble(time))
        throw Exception(text("Error parsing time point from line '%1', using substr '%2'.", line.substr(0, 80), time),
                        "[DataIO::addValueLine]");
    values.reserve(1 + m_header.valueCount());
    for (std::size_t bad = 0; (bad = KOR::parseDoubles(line, values)) != std::string_view::npos;) {
        line.remove_prefix(bad);
        const std::string_view word = line.substr(0, line.find_first_of(BLANKS));
        if (word != NO_VALUE)
            KOR::throwNoValue(word);
        values.push_back(std::numeric_limits<double>::quiet_NaN());
        line.remove_prefix(word.size());
    }
}

std::vector<double> DataIO::data(std::size_t timeIndex) {
    const std::size_t count = m_header.valueCount();
    try {
        if (timeIndex >= m_timeCount)
            throw Exception(
                text("Time index %1 is out of range, the file holds %2 time points.", timeIndex, m_timeCount),
                "[DataIO::data]");
        if ((timeIndex + 1) * count <= m_values.size()) {
            const auto first = m_values.begin() + static_cast<std::ptrdiff_t>(timeIndex * count);
            return {first, first + static_cast<std::ptrdiff_t>(count)};
        }
        reopen();
        std::vector<double> values = record(timeIndex);
        values.erase(values.begin());
        return values;
    } catch (const Exception & ex) {
        throw Exception(ex, "Error reading data for this time index.", "[DataIO::data]");
    }
}

std::vector<double> DataIO::records(std::size_t first, std::size_t count) {
    first = std::min(first, m_timeCount);
    count = std::min(count, m_timeCount - first);
    const std::size_t width = 1 + m_header.valueCount();
    std::vector<double> values;
    try {
        reopen();
        if (!m_isBinary) {
            values.reserve(count * width);
            for (std::size_t t = first; t < first + count; ++t) {
                const std::vector<double> one = record(t);
                values.insert(values.end(), one.begin(), one.end());
            }
            return values;
        }
        values.resize(count * width);
        const std::size_t size = values.size() * sizeof(double);
        if (m_file.readAt(m_dataOffset + first * width * sizeof(double),
                          {reinterpret_cast<char *>(values.data()), size}) != size)
            throw Exception("Error on read binary data.", "[DataIO::records]");
    } catch (const Exception & ex) {
        throw Exception(ex, text("Error reading records %1 to %2.", first, first + count), "[DataIO::records]");
    }
    return values;
}

std::vector<double> DataIO::column(std::size_t column, std::vector<double> * times) const {
    std::vector<double> values;
    values.reserve(m_timeCount);
    if (times != nullptr) {
        times->clear();
        times->reserve(m_timeCount);
    }
    const std::size_t recordSize = sizeof(double) * (1 + m_header.valueCount());
    const auto fail = [](std::size_t timeIndex) {
        throw Exception(text("Error retrieving values for time index %1.", timeIndex), "[DataIO::dataVector]");
    };
    if (!m_isBinary) {
        for (std::size_t t = 0; t < m_timeCount; ++t) {
            const std::vector<double> all = record(t);
            values.push_back(all[column]);
            if (times != nullptr)
                times->push_back(all[0]);
        }
        return values;
    }
    if (recordSize > STREAMED_RECORD_SIZE) {
        std::size_t asked = 0; // records up to this one are on their way
        const auto pick = [&](std::size_t t, std::size_t from) {
            double value = 0;
            const std::span<char> bytes{reinterpret_cast<char *>(&value), sizeof(value)};
            const auto placeOf = [&](std::size_t record, std::size_t which) {
                return m_dataOffset + record * recordSize + which * sizeof(double);
            };
            if (m_file.readCached(placeOf(t, from), bytes))
                return value;
            if (t >= asked) // a disk answers many questions in the time of one
                for (asked = t; asked < std::min(t + PREFETCHED, m_timeCount); ++asked) {
                    m_file.prefetch(placeOf(asked, column), sizeof(double));
                    if (times != nullptr)
                        m_file.prefetch(placeOf(asked, 0), sizeof(double));
                }
            if (m_file.readAt(placeOf(t, from), bytes) != bytes.size())
                fail(t);
            return value;
        };
        for (std::size_t t = 0; t < m_timeCount; ++t) {
            values.push_back(pick(t, column));
            if (times != nullptr)
                times->push_back(pick(t, 0));
        }
        return values;
    }
    const std::size_t recordsInChunk = CHUNK_SIZE / recordSize;
    std::vector<char> chunk(recordsInChunk * recordSize);
    for (std::size_t t = 0; t < m_timeCount; t += recordsInChunk) {
        const std::size_t records = std::min(recordsInChunk, m_timeCount - t);
        if (m_file.readAt(m_dataOffset + t * recordSize, {chunk.data(), records * recordSize}) != records * recordSize)
            fail(t);
        const auto pick = [&](std::size_t r, std::size_t from) {
            double value = 0;
            std::memcpy(&value, chunk.data() + r * recordSize + from * sizeof(double), sizeof(value));
            return value;
        };
        for (std::size_t r = 0; r < records; ++r) {
            values.push_back(pick(r, column));
            if (times != nullptr)
                times->push_back(pick(r, 0));
        }
    }
    return values;
}

const std::vector<double> & DataIO::timePoints() {
    if (m_timePoints.size() != m_timeCount) {
        reopen();
        m_timePoints = column(0);
    }
    return m_timePoints;
}

double DataIO::timePoint(std::size_t timeIndex) {
    if (timeIndex < m_timePoints.size())
        return m_timePoints[timeIndex];
    reopen();
    const auto fail = [timeIndex] {
        throw Exception(text("Error retrieving values for time index %1.", timeIndex), "[DataIO::timePoint]");
    };
    if (timeIndex >= m_timeCount)
        fail();
    double time = 0;
    if (m_isBinary) {
        if (m_file.readAt(m_dataOffset + timeIndex * sizeof(double) * (1 + m_header.valueCount()),
                          {reinterpret_cast<char *>(&time), sizeof(time)}) != sizeof(time))
            fail();
        return time;
    }
    char start[LONGEST_NUMBER] = {};
    const std::uint64_t length = m_lineOffsets[timeIndex + 1] - m_lineOffsets[timeIndex];
    const std::size_t got =
        m_file.readAt(m_lineOffsets[timeIndex], {start, std::min<std::size_t>(length, sizeof(start))});
    const std::string_view line = KOR::trimmed(std::string_view(start, got), BLANKS);
    const auto value = KOR::parseDouble(line.substr(0, line.find_first_of(BLANKS)));
    if (!value)
        fail();
    return *value;
}

DataIO::Course DataIO::course(std::size_t valueIndex, std::span<const std::size_t> timeIndices) {
    constexpr const char * WHERE = "[DataIO::course]";
    reopen();
    const std::size_t recordSize = sizeof(double) * (1 + m_header.valueCount());
    const std::uint64_t place = sizeof(double) * (1 + valueIndex);
    for (const std::size_t t : timeIndices)
        if (t >= m_timeCount || valueIndex >= m_header.valueCount())
            throw Exception(text("Error retrieving values for time index %1.", t), WHERE);
    if (m_isBinary)
        for (const std::size_t t : timeIndices) {
            m_file.prefetch(m_dataOffset + t * recordSize, sizeof(double));
            m_file.prefetch(m_dataOffset + t * recordSize + place, sizeof(double));
        }
    Course course;
    course.times.reserve(timeIndices.size());
    course.values.reserve(timeIndices.size());
    for (const std::size_t t : timeIndices) {
        if (!m_isBinary) {
            const std::vector<double> all = record(t);
            course.times.push_back(all[0]);
            course.values.push_back(all[1 + valueIndex]);
            continue;
        }
        for (const auto & [column, from] : {
                 std::pair(&course.times, std::uint64_t(0)), {&course.values, place}
        }) {
            double value = 0;
            if (m_file.readAt(m_dataOffset + t * recordSize + from,
                              {reinterpret_cast<char *>(&value), sizeof(value)}) != sizeof(value))
                throw Exception(text("Error retrieving values for time index %1.", t), WHERE);
            column->push_back(value);
        }
    }
    return course;
}

std::vector<double> DataIO::dataVector(std::size_t valueIndex) {
    constexpr const char * WHERE = "[DataIO::dataVector]";
    if (m_timeCount == 0)
        throw Exception("No data in output file.", WHERE);
    if (valueIndex >= m_header.valueCount())
        throw Exception(
            text("Value index %1 is out of range, each time point has %2 values.", valueIndex, m_header.valueCount()),
            WHERE);
    const std::size_t count = m_header.valueCount();
    std::vector<double> values;
    try {
        if (m_values.size() == m_timeCount * count) {
            values.resize(m_timeCount);
            for (std::size_t t = 0; t < m_timeCount; ++t)
                values[t] = m_values[t * count + valueIndex];
        } else { // time points that are not known yet come along in the same pass
            reopen();
            values = column(1 + valueIndex, m_timePoints.size() != m_timeCount ? &m_timePoints : nullptr);
        }
    } catch (const Exception & ex) {
        if (ex.message().starts_with("Error retrieving"))
            throw;
        throw Exception(ex, text("Error retrieving values for time index %1.", 0), WHERE);
    }
    const std::vector<double> & times = timePoints();
    for (std::size_t t = 1; t < times.size(); ++t)
        if (!(times[t] > times[t - 1]))
            throw Exception(text("Time value %1 follows %2, not monotonically increasing time points found.", times[t],
                                 times[t - 1]),
                            WHERE);
    return values;
}

void DataIO::readBinaryData() {
    const std::size_t recordSize = 1 + m_header.valueCount();
    std::vector<double> record(recordSize);
    m_timePoints.reserve(m_timeCount);
    m_values.reserve(m_timeCount * m_header.valueCount());
    for (std::size_t t = 0; t < m_timeCount; ++t) {
        const std::size_t size = recordSize * sizeof(double);
        if (m_file.readAt(m_dataOffset + t * size, {reinterpret_cast<char *>(record.data()), size}) != size)
            throw Exception("Error on read binary data.", "[DataIO::readBinaryData]");
        m_timePoints.push_back(record[0]);
        m_values.insert(m_values.end(), record.begin() + 1, record.end());
    }
}

void DataIO::readASCIIData() {
    try {
        for (std::size_t t = 0; t < m_timeCount; ++t) {
            const std::vector<double> values = record(t);
            m_timePoints.push_back(values[0]);
            m_values.insert(m_values.end(), values.begin() + 1, values.end());
        }
    } catch (const Exception & ex) {
        throw Exception(ex, "Error reading ASCII data.", "[DataIO::readASCIIData]");
    }
}

void DataIO::read(const std::string & path, bool headerOnly) {
    constexpr const char * WHERE = "[DataIO::read]";
    openAndReadHeader(path);
    if (headerOnly)
        return;
    try {
        if (m_isBinary)
            readBinaryData();
        else
            readASCIIData();
    } catch (const Exception & ex) {
        m_timePoints.clear();
        m_values.clear();
        const char * message = !m_isBinary            ? "Error on reading ASCII content from file."
                               : m_version.major >= 6 ? "Error on reading binary content from file."
                                                      : "Error on reading binary data from file.";
        throw Exception(Exception(ex, message, WHERE), text("Error reading DataIO file '%1'", path), WHERE);
    }
    if (!m_geometry)
        return;
    std::set<std::uint32_t> known;
    for (const GeoFile::Material & material : m_geometry->m_materials)
        known.insert(material.id);
    for (const GeoFile::Element & element : m_geometry->m_elements)
        if (!known.contains(element.materialId))
            throw Exception(Exception(text("Error in geometry data, element #%1 references material with ID #%2, which "
                                           "does not exist in materials table.\n",
                                           element.number, element.materialId),
                                      WHERE),
                            "Error in DataIO or embedded geometry data.", WHERE);
}

DataIO::dataFormat_t DataIO::determineDataFormat(const GeoFile * geometry) const {
    constexpr const char * WHERE = "[DataIO::determineDataFormat]";
    if (geometry == nullptr || geometry->widths(0).empty())
        throw Exception("Empty/uninitialized geometry data.", WHERE);
    std::array<std::set<std::uint32_t>, 3> used; // grid indices per direction
    const auto collect = [&used](const auto & cell) {
        used[0].insert(cell.i);
        used[1].insert(cell.j);
        used[2].insert(cell.k);
    };
    if (m_header.type == DataHeader::FLUX) {
        if (geometry->m_sides.empty())
            throw Exception("Missing/empty sides vector in Geometry file.", WHERE);
        for (const std::uint32_t index : m_header.indices) {
            if (index >= geometry->m_sides.size())
                throw Exception(
                    text("Invalid side index #%1, sides vector has only %2 entries.", index, geometry->m_sides.size()),
                    WHERE);
            collect(geometry->m_sides[index]);
        }
    } else {
        if (geometry->m_elements.empty())
            throw Exception("Missing/empty elements vector in Geometry file.", WHERE);
        for (const std::uint32_t index : m_header.indices) {
            if (index >= geometry->m_elements.size())
                throw Exception(text("Invalid element index #%1, elements vector has only %2 entries.", index,
                                     geometry->m_elements.size()),
                                WHERE);
            collect(geometry->m_elements[index]);
        }
    }
    if (m_header.indices.empty())
        throw Exception("Cannot determine data format.", WHERE);
    if (m_header.valueCount() == 1)
        return SERIES;
    const std::array<bool, 3> spans{used[0].size() > 1, used[1].size() > 1, used[2].size() > 1};
    static constexpr dataFormat_t FORMATS[] = {SERIES,    PROFILE_X, PROFILE_Y, PLANE_XY,
                                               PROFILE_Z, PLANE_XZ,  PLANE_YZ,  VOLUME};
    return FORMATS[(spans[0] ? 1 : 0) + (spans[1] ? 2 : 0) + (spans[2] ? 4 : 0)];
}

} // namespace DATAIO
