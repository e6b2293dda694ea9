#pragma once

#include <HYGRION/Point3D.h>
#include <HYGRION/Range.h>
#include <HYGRION/RotationMatrix.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

class Disc;

/// Ties one definition of the project to a block of cells, to one side of a block, or to a point.
class Assignment {
public:
    enum class type_t { Material, Interface, InitialCondition, FieldCondition, ContactCondition, Output };
    enum class location_t { Element, Left, Right, Bottom, Top, Back, Front, Coordinate };
    /// Which of a material's direction axes u, v, w lies along x, y and z.
    enum class AnisotropyInitType {
        UUU,
        VVV,
        WWW,
        UVV,
        UUV,
        UVU,
        VUU,
        VUV,
        VVU,
        UVW,
        UWV,
        VUW,
        VWU,
        WUV,
        WVU,
        UserMatrix
    };

    type_t m_type = type_t::Material;
    location_t m_location = location_t::Element;
    Range m_range;                                             ///< for every location but Coordinate
    std::string m_reference;                                   ///< identification name of the definition
    std::string m_name;                                        ///< label shown to the user; may be empty
    AnisotropyInitType m_anisotropy = AnisotropyInitType::UUU; ///< of materials
    std::vector<RotationMatrix> m_rotationMatrices;            ///< for UserMatrix
    Point3D m_coordinates;                                     ///< for Coordinate

    Assignment() = default;
    Assignment(type_t type, location_t location, const Range & range, std::string reference)
        : m_type(type), m_location(location), m_range(range), m_reference(std::move(reference)) {}

    /// Whether it sits on a side of its range.
    bool isOnSide() const { return m_location != location_t::Element && m_location != location_t::Coordinate; }
    /// The assignment in words for messages: type, reference and label.
    std::string description() const;

    /// Throws with "[Assignment::readXML]" and the line.
    void readXML(const TiXmlElement & element);
    /// \param writeDefaults also writes what has its default
    void writeXML(TiXmlElement & parent, bool writeDefaults = false) const;

    /// Checks range or coordinates against the grid. Throws "Invalid attribute 'left' in Range.",
    /// "Invalid x-coordinate." and so on ("[Assignment::checkParameters]").
    void checkParameters(const Disc & disc) const;

    bool operator==(const Assignment &) const = default;
};

} // namespace HYGRION
