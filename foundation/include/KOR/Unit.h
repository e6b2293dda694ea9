#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class TiXmlElement;

namespace KOR {

/// A unit: an index into the process-wide registry UnitList. Two bytes to copy, one comparison to compare.
class Unit {
public:
    Unit() = default; ///< "undefined"
    /// Throws "Unit '%1' not found." ("[Unit::Unit]").
    explicit Unit(std::string_view name);
    /// Throws "Unit index %1 out of range 0..%2." ("[Unit::Unit]").
    explicit Unit(std::size_t index);

    /// Throws "Unit '%1' not found." ("[Unit::set]").
    void set(std::string_view name);
    /// Throws "Unit index %1 out of range 0..%2." ("[Unit::set]").
    void set(std::size_t index);

    const std::string & name() const;
    std::size_t index() const { return m_index; }
    Unit base() const;

    /// The name as engineers write it: "kg/(m²·√s)" for "kg/m2s05", "°C" for "C"; empty for numbers without a unit.
    /// Files and input keep name().
    std::string displayName() const;

    /// Reads the text of a "KOR:Unit" element; throws "Unit '%1' not found." with the line.
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:Unit name="elementName"\>unit\</KOR:Unit\>.
    void writeXML(TiXmlElement & parent, const std::string & elementName) const;

    friend auto operator<=>(Unit, Unit) = default;

private:
    std::uint16_t m_index = 0; ///< 0 is "undefined"
};

} // namespace KOR
