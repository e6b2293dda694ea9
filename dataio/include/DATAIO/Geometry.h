#pragma once

#include <DATAIO/DataIO.h>

namespace DATAIO {

/// The grid that a result file points into, as far as it is there.
struct Geometry {
    std::optional<GeoFile> grid;
    std::string note; ///< where it is, or why there is none
};

/// Looks within the file, then beside it; a geometry that has been changed since is none. Never throws for a geometry
/// that cannot be read.
Geometry geometryOf(const DataIO & file);

} // namespace DATAIO
