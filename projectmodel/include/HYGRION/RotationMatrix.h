#pragma once

#include <array>
#include <cstdint>

class TiXmlElement;

namespace HYGRION {

/// Turns the direction axes (u, v, w) of a material into the axes (x, y, z) of the grid, for one grid element.
struct RotationMatrix {
    std::uint32_t elementID = 0; ///< number of the grid element
    /// [-], row by row; column 0 is the direction of u in the grid's axes
    std::array<double, 9> values{1, 0, 0, 0, 1, 0, 0, 0, 1};

    /// Whether rows are of unit length, perpendicular and right-handed within \p tolerance.
    bool isRotation(double tolerance = 1e-6) const;

    /// Reads a "RotationMatrixInstance": attribute "elementID" and nine numbers.
    /// Throws "Could not convert '%1' into value." ("[string2val]") and "Expected %1 numbers, found %2.".
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const RotationMatrix &) const = default;
};

} // namespace HYGRION
