#pragma once

class TiXmlElement;

namespace HYGRION {

/// A point of the construction, from its left, bottom, back corner.
struct Point3D {
    double x = 0; ///< [m]
    double y = 0; ///< [m]
    double z = 0; ///< [m]

    /// Reads three numbers. Throws "Expected %1 numbers, found %2." and, for a text that is no number,
    /// "Could not convert '%1' into value.", with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:Point3D\>x y z\</KOR:Point3D\>.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const Point3D &) const = default;
};

} // namespace HYGRION
