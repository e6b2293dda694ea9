#pragma once

#include <DATAIO/DataIO.h>

#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace DATAIO {

/// Writes a result file record by record. What was flushed stays readable whatever happens later.
class DataWriter {
public:
    /// Creates the file (an earlier one is replaced) and writes the header.
    /// \param precision significant digits of ASCII values, 0 for the shortest that read back the same
    /// Throws "Cannot write result file '%1': %2" ("[DataWriter::DataWriter]").
    DataWriter(const std::string & path, DataHeader header, bool binary, int precision = 0);

    /// Opens an existing file to go on behind the last record whose time is not above \p lastTime; later records are
    /// removed. Throws as the constructor, and when the header is another one (its creation time apart).
    static DataWriter resume(const std::string & path, const DataHeader & header, double lastTime, int precision = 0);

    /// Appends a record. \param time in the header's time unit \param values header.valueCount() long
    /// Throws "Cannot write result file '%1': %2" ("[DataWriter::append]"), for example on a full disk.
    void append(double time, std::span<const double> values);
    /// Hands all records to the system, so that readers see them. Throws as append.
    void flush();

    const std::string & path() const { return m_path; }
    const DataHeader & header() const { return m_header; }

private:
    struct Close {
        void operator()(std::FILE * file) const { std::fclose(file); }
    };
    DataWriter(const std::string & path, const DataHeader & header, int precision, bool binary, std::FILE * file);
    void write(std::string_view bytes, const char * where);

    std::string m_path;
    DataHeader m_header;
    bool m_isBinary = true;
    int m_precision = 0;
    std::unique_ptr<std::FILE, Close> m_file;
};

} // namespace DATAIO
