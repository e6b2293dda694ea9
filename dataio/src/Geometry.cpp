#include <DATAIO/Geometry.h>

#include <KOR/Exception.h>

#include <filesystem>
#include <mutex>

namespace DATAIO {

namespace fs = std::filesystem;

namespace {

/// Reads a geometry, or gives the one that is in use already: large runs have many files and one grid.
std::shared_ptr<const GeoFile> sharedGrid(const fs::path & path) {
    struct Entry {
        fs::path path;
        fs::file_time_type changed;
        std::uintmax_t size;
        std::weak_ptr<const GeoFile> grid;
    };
    static std::mutex mutex;
    static std::vector<Entry> entries;
    std::error_code ignored;
    const auto changed = fs::last_write_time(path, ignored);
    const auto size = fs::file_size(path, ignored);
    const std::lock_guard lock(mutex);
    std::erase_if(entries, [](const Entry & entry) { return entry.grid.expired(); });
    for (const Entry & entry : entries)
        if (entry.path == path && entry.changed == changed && entry.size == size)
            if (auto known = entry.grid.lock())
                return known;
    auto grid = std::make_shared<GeoFile>();
    grid->read(path.string());
    entries.push_back({path, changed, size, grid});
    return grid;
}

fs::path found(const DataIO & file) {
    const fs::path folder = fs::path(file.path()).parent_path();
    const fs::path name = file.header().geoFile;
    std::error_code error;
    for (const fs::path & candidate : {folder / name, folder / name.filename(), folder / ".." / name.filename()})
        if (fs::is_regular_file(candidate, error))
            if (fs::path path = fs::canonical(candidate, error); !error)
                return path;
    return {};
}

} // namespace

Geometry geometryOf(const DataIO & file) {
    Geometry geometry;
    if (file.embeddedGeometry()) {
        geometry.state = Geometry::WITHIN;
        geometry.grid = std::make_shared<GeoFile>(*file.embeddedGeometry());
        return geometry;
    }
    if (file.header().geoFile.empty())
        return geometry;
    const fs::path path = found(file);
    geometry.path = path.string();
    geometry.state = Geometry::MISSING;
    if (path.empty())
        return geometry;
    try {
        geometry.grid = sharedGrid(path);
        geometry.state = geometry.grid->hash() == file.header().geoFileHash ? Geometry::BESIDE : Geometry::CHANGED;
    } catch (const KOR::Exception & ex) {
        geometry.state = Geometry::UNREADABLE;
        geometry.problem = ex.what();
    }
    return geometry;
}

} // namespace DATAIO
