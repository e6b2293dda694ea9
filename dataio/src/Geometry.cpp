#include <DATAIO/Geometry.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>

namespace DATAIO {

Geometry geometryOf(const DataIO & file) {
    const DataHeader & header = file.header();
    if (file.embeddedGeometry())
        return {file.embeddedGeometry(), "within the file"};
    if (header.geoFile.empty())
        return {std::nullopt, "none"};
    Geometry found;
    try {
        const KOR::Path path = KOR::Path(header.geoFile).absolutePath(KOR::Path(file.path()).parentPath());
        found.grid.emplace().read(path.str());
        found.note = header.geoFile;
        if (found.grid->hash() != header.geoFileHash)
            return {std::nullopt, header.geoFile + ", which has been changed since"};
    } catch (const KOR::Exception &) {
        return {std::nullopt, header.geoFile + ", which cannot be read"};
    }
    return found;
}

} // namespace DATAIO
