#pragma once

#include <DATAIO/DataIO.h>

#include <iosfwd>

namespace DATAIO {

inline constexpr KOR::Version::Magic DATA_MAGICS[] = {
    {"H6OB", true },
    {"H6OA", false},
};
inline constexpr std::string_view PRE_V6_TITLE = "Hygrion 5 Output file";
inline constexpr std::string_view PRE_V6_BINARY = "- binary";
inline constexpr std::string_view PRE_V6_HEADER_END = "HDR_END";
inline constexpr std::string_view TABLE_LINE = "TABLE";

/// The whole header in either form, up to the first byte of the data.
std::string binaryHeader(const DataHeader & header);
std::string asciiHeader(const DataHeader & header);

/// Reads what follows the magic header of a binary file of version 6 and later; the stream stands behind it after.
/// Throws ("[DataIO::readBinaryHeader]").
DataHeader parseBinaryHeader(std::istream & in);

/// Reads what follows the title line of an older binary file: the embedded geometry, then the header.
/// Throws ("[DataIO::readBinaryHeaderPreV6]").
DataHeader parseBinaryHeaderPreV6(std::istream & in, GeoFile & geometry);

/// Reads keyword lines up to the line "TABLE"; the stream stands behind it after. Older files may embed a geometry.
/// Throws "Error reading ..." ("[DataIO::readASCIIHeader]").
DataHeader parseASCIIHeader(std::istream & in, std::optional<GeoFile> & geometry);

} // namespace DATAIO
