#pragma once

#include <DATAIO/GeoFile.h>

#include <KOR/InputFile.h>
#include <KOR/Version.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace DATAIO {

/// What a result file says about itself.
struct DataHeader {
    /// Kind of output.
    enum type_t {
        FIELD, ///< state values in elements
        FLUX,  ///< flux values at sides
        STATE, ///< any values, always one per index
        NUM_TYPES
    };
    enum spaceType_t { SPACE_SINGLE, SPACE_MEAN, SPACE_INTEGRAL, SPACE_MIN, SPACE_MAX, NUM_SPACE_TYPES };
    enum timeType_t { TIME_NONE, TIME_MEAN, TIME_INTEGRAL, TIME_MIN, TIME_MAX, NUM_TIME_TYPES };

    type_t type = FIELD;
    std::string projectFile;       ///< path of the project that produced the file
    std::string created;           ///< creation time, "2026-01-31 12:00:00" (UTC)
    std::string geoFile;           ///< geometry file that the indices refer to
    std::uint32_t geoFileHash = 0; ///< GeoFile::hash of it
    std::string quantity;          ///< display name
    std::string quantityKeyword;
    spaceType_t spaceType = SPACE_SINGLE;
    timeType_t timeType = TIME_NONE;
    std::string valueUnit; ///< name of a KOR::Unit
    std::string timeUnit;  ///< name of a KOR::Unit
    std::int32_t startYear = 0;
    std::vector<std::uint32_t> indices; ///< numbers of elements or sides in the geometry file

    /// Values at each time point: one per index for single values and states, else one.
    std::size_t valueCount() const { return spaceType == SPACE_SINGLE || type == STATE ? indices.size() : 1; }
    bool operator==(const DataHeader &) const = default;
};

/// Keyword of a header's enumerations, as in ASCII files; index is the code in binary files.
std::string_view keyword(DataHeader::type_t type);
std::string_view keyword(DataHeader::spaceType_t type);
std::string_view keyword(DataHeader::timeType_t type);

/// A result file, ASCII (*.h6o) or binary (*.h6b), of this version or an older one. Values stay in the file until they
/// are asked for. A file that is still being written is readable up to its last complete record.
class DataIO {
public:
    /// What the indices form in the construction's grid.
    enum dataFormat_t { SERIES, PROFILE_X, PROFILE_Y, PROFILE_Z, PLANE_XY, PLANE_XZ, PLANE_YZ, VOLUME };

    /// Recognises the format, reads the header and remembers where the data begin.
    /// Throws "Error reading DataIO file '%1'" above the cause ("[DataIO::openAndReadHeader]").
    void openAndReadHeader(const std::string & path);
    /// The header and, unless \p headerOnly, all data into memory. Throws ("[DataIO::read]").
    void read(const std::string & path, bool headerOnly = false);
    /// Looks for records that were written since; true if there are new ones.
    bool update();

    const DataHeader & header() const { return m_header; }
    const std::string & path() const { return m_path; }
    bool isBinary() const { return m_isBinary; }
    KOR::Version version() const { return m_version; }
    /// The geometry that files of older versions carry within.
    const std::optional<GeoFile> & embeddedGeometry() const { return m_geometry; }

    /// Number of complete records.
    std::size_t timeCount() const { return m_timeCount; }
    /// Time points of all records, in the header's time unit.
    const std::vector<double> & timePoints();
    /// One of them; of binary files nothing else is read. Throws ("[DataIO::timePoint]").
    double timePoint(std::size_t timeIndex);
    /// The values of one time point, in the header's value unit; header().valueCount() long.
    /// Throws "Error reading data for this time index." above the cause ("[DataIO::data]").
    std::vector<double> data(std::size_t timeIndex);
    /// Consecutive records, of each the time point and its values: count x (1 + valueCount()), as many as there are.
    /// For reading large files in parts. Throws ("[DataIO::records]").
    std::vector<double> records(std::size_t first, std::size_t count);
    /// The course of one value over all time points. Throws "No data in output file.",
    /// "Time value %1 follows %2, not monotonically increasing time points found." and
    /// "Error retrieving values for time index %1." ("[DataIO::dataVector]").
    std::vector<double> dataVector(std::size_t valueIndex);

    /// Time points and the course of one value, in the header's units.
    struct Course {
        std::vector<double> times, values;
    };
    /// The course of one value over some records; the places in the file are fetched at once. \p timeIndices below
    /// timeCount(). Throws ("[DataIO::course]").
    Course course(std::size_t valueIndex, std::span<const std::size_t> timeIndices);

    /// Checks the indices against the geometry's tables and says what they form.
    /// Throws ("[DataIO::determineDataFormat]"), nullptr: "Empty/uninitialized geometry data.".
    dataFormat_t determineDataFormat(const GeoFile * geometry) const;

private:
    friend class DataWriter;
    void readBinaryData();
    void readASCIIData();
    void addValueLine(std::string_view line, std::vector<double> & record) const;
    void reopen();
    std::vector<double> record(std::size_t timeIndex) const;
    /// \param times filled with the time points in the same pass, unless nullptr
    std::vector<double> column(std::size_t column, std::vector<double> * times = nullptr) const;
    void indexLines();

    std::string m_path;
    KOR::InputFile m_file;
    bool m_isBinary = false;
    KOR::Version m_version;
    DataHeader m_header;
    std::optional<GeoFile> m_geometry;
    std::uint64_t m_dataOffset = 0; ///< of the first record [bytes]
    std::size_t m_timeCount = 0;
    std::vector<std::uint64_t> m_lineOffsets; ///< ASCII: start of each record, and the end of the last
    std::vector<double> m_timePoints;         ///< as far as read
    std::vector<double> m_values;             ///< all records, timeCount x valueCount, if read into memory
};

} // namespace DATAIO
