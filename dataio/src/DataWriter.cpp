#include <DATAIO/DataWriter.h>

#include "DataHeaderText.h"

#include <KOR/Exception.h>

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace DATAIO {

using KOR::Exception;
using KOR::text;

namespace {

Exception failure(const std::string & path, const char * where) {
    return {text("Cannot write result file '%1': %2", path, std::generic_category().message(errno)), where};
}

} // namespace

DataWriter::DataWriter(const std::string & path, const DataHeader & header, int precision, bool binary,
                       std::FILE * file)
    : m_path(path), m_header(header), m_isBinary(binary), m_precision(precision), m_file(file) {}

DataWriter::DataWriter(const std::string & path, DataHeader header, bool binary, int precision)
    : m_path(path), m_header(std::move(header)), m_isBinary(binary), m_precision(precision) {
    m_file.reset(std::fopen(path.c_str(), "wbe"));
    if (!m_file)
        throw failure(m_path, "[DataWriter::DataWriter]");
    write(binary ? binaryHeader(m_header) : asciiHeader(m_header), "[DataWriter::DataWriter]");
    flush();
}

DataWriter DataWriter::resume(const std::string & path, const DataHeader & header, double lastTime, int precision) {
    constexpr const char * WHERE = "[DataWriter::resume]";
    DataIO existing;
    existing.openAndReadHeader(path);
    DataHeader found = existing.header();
    found.created = header.created;
    if (!(found == header))
        throw Exception(text("Result file '%1' belongs to another output, it cannot be continued.", path), WHERE);

    const std::vector<double> & times = existing.timePoints();
    std::size_t kept = times.size();
    while (kept > 0 && times[kept - 1] > lastTime)
        --kept;
    const std::uint64_t end = existing.m_isBinary
                                  ? existing.m_dataOffset + kept * sizeof(double) * (1 + header.valueCount())
                                  : existing.m_lineOffsets[kept];
    std::FILE * file = std::fopen(path.c_str(), "r+be");
    if (file == nullptr)
        throw failure(path, WHERE);
    DataWriter writer(path, header, precision, existing.m_isBinary, file);
    if (::ftruncate(::fileno(file), static_cast<off_t>(end)) != 0 || std::fseek(file, 0, SEEK_END) != 0)
        throw failure(path, WHERE);
    return writer;
}

void DataWriter::append(double time, std::span<const double> values) {
    constexpr const char * WHERE = "[DataWriter::append]";
    if (values.size() != m_header.valueCount())
        throw Exception(text("Result file '%1' takes %2 values at each time point, got %3.", m_path,
                             m_header.valueCount(), values.size()),
                        WHERE);
    if (m_isBinary) {
        write({reinterpret_cast<const char *>(&time), sizeof(time)}, WHERE);
        write({reinterpret_cast<const char *>(values.data()), values.size_bytes()}, WHERE);
        return;
    }
    std::string line = KOR::toString(time);
    for (const double value : values)
        line += '\t' + (m_precision > 0 ? KOR::toString(value, m_precision) : KOR::toString(value));
    write(line + '\n', WHERE);
}

void DataWriter::flush() {
    if (std::fflush(m_file.get()) != 0)
        throw failure(m_path, "[DataWriter::flush]");
}

void DataWriter::write(std::string_view bytes, const char * where) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file.get()) != bytes.size())
        throw failure(m_path, where);
}

} // namespace DATAIO
