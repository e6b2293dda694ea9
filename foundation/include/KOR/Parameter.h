#pragma once

#include <KOR/Unit.h>

#include <string>
#include <string_view>

class TiXmlElement;

namespace KOR {

/// A named real value that keeps the unit (and the very digits) in which the user wrote it.
/// A parameter without a name is not set.
class Parameter {
public:
    Parameter() = default;
    /// \param value in \p unit
    Parameter(std::string name, double value, Unit unit);

    void set(std::string name, double value, Unit unit);
    /// Sets the value, in \p unit, which becomes the input/output unit; the name stays.
    void set_value(double value, Unit unit);
    void set_name(std::string name) { m_name = std::move(name); }
    void clear() { *this = Parameter(); }

    const std::string & name() const { return m_name; }
    bool empty() const { return m_name.empty(); }
    /// The value in the base unit of its unit.
    double value() const { return m_value; }
    /// The value in \p unit. Throws "Error converting unit in parameter '%1'." ("[Parameter::get_value]").
    double get_value(Unit unit) const;
    double get_value(std::string_view unitName) const { return get_value(Unit(unitName)); }
    /// The value in the input/output unit, as it was set.
    double ioValue() const { return m_ioValue; }
    Unit ioUnit() const { return m_ioUnit; }
    /// Shows the same value in another unit of the same base.
    void set_ioUnit(Unit unit);

    /// "12.5 mm"
    std::string valueText() const;
    /// Reads "12.5 mm" and keeps the name; a lone number takes \p defaultUnit (if that is not "undefined").
    /// Throws "Error reading parameter from string '%1'." ("[Parameter::readValue]"); the parameter stays as it was.
    void readValue(std::string_view text, Unit defaultUnit = Unit());
    /// Reads "Width = 12.5 mm" (the equals sign may be missing). Throws as readValue ("[Parameter::read]").
    void read(std::string_view text);

    /// Reads a "KOR:Parameter" element. Throws with the element's line: a missing attribute, an unknown unit,
    /// "Cannot read value in KOR:Parameter element.".
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:Parameter name= unit=\>value\</KOR:Parameter\>.
    void writeXML(TiXmlElement & parent) const;

    bool operator==(const Parameter &) const = default;

private:
    std::string m_name;
    double m_value = 0;   ///< in the base unit of m_ioUnit
    double m_ioValue = 0; ///< in m_ioUnit
    Unit m_ioUnit;
};

} // namespace KOR
