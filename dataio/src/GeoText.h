#pragma once

#include <DATAIO/GeoFile.h>

namespace DATAIO {

/// The tables of a geometry file in their text form.
struct GeoText {
    std::vector<GeoFile::Material> materials;
    std::array<std::vector<double>, 3> widths; ///< [m], x, y, z
    std::vector<GeoFile::Element> elements;
    std::vector<GeoFile::Side> sides;
};

/// Names of the sections, in the order in which they are written.
inline constexpr std::string_view GEO_SECTIONS[] = {"MATERIALS", "GRID", "ELEMENT_GEOMETRY", "SIDES_GEOMETRY"};

/// Throws "Currupt element table!", "Currupt sides table!", "Missing element widths in x direction!" and alike
/// ("[GeoFile::parseGeometryData]").
GeoText parseGeoText(std::string_view body);

std::string printGeoText(const GeoText & geometry);

} // namespace DATAIO
