// Any bytes are a geometry file or an error. What was read is written and read again to the same grid.
#include <DATAIO/GeoFile.h>

#include <KOR/Exception.h>

#include <cstdint>
#include <cstdlib>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * bytes, std::size_t size) {
    if (size == 0)
        return 0;
    // The first byte tells which body follows; the head itself is that of all our files.
    const bool isBinary = bytes[0] % 2 == 0;
    const std::string body(reinterpret_cast<const char *>(bytes) + 1, size - 1);
    const auto read = [isBinary](DATAIO::GeoFile & file, const std::string & content) {
        std::istringstream in(content);
        isBinary ? file.readBinaryGeometryData(in) : file.parseGeometryData(content);
    };
    DATAIO::GeoFile file;
    try {
        read(file, body);
    } catch (const KOR::Exception &) { // refused, as it should be
        return 0;
    }
    constexpr std::size_t HEAD[] = {4 + 4 + 8, 4 + 4 + 4}; // text, binary
    const std::string content = file.content(isBinary).substr(HEAD[isBinary ? 1 : 0]);
    DATAIO::GeoFile again;
    again.m_version = file.m_version;
    read(again, content);
    if (again.content(isBinary).substr(HEAD[isBinary ? 1 : 0]) != content)
        std::abort();
    for (int d = 0; d < 3; ++d)
        if (file.centres(d).size() != file.widths(d).size())
            std::abort();
    return 0;
}
