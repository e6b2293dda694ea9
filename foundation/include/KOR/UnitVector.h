#pragma once

#include <KOR/Unit.h>

#include <string>
#include <string_view>
#include <vector>

class TiXmlElement;

namespace KOR {

/// A sequence of values in one unit. The values stay in the unit in which they were given.
class UnitVector {
public:
    UnitVector() = default;
    UnitVector(std::vector<double> values, Unit unit) : m_data(std::move(values)), m_unit(unit) {}

    std::vector<double> m_data; ///< in m_unit
    Unit m_unit;

    std::size_t size() const { return m_data.size(); }
    bool empty() const { return m_data.empty(); }
    /// Converts all values; a failure leaves all unchanged. Throws as UnitList::convert.
    void convert(Unit unit);
    /// The values in their base unit.
    std::vector<double> baseValues() const;
    /// The special conversions, see KOR::convertSpecial.
    static double convert_special(Unit source, Unit target, double value);

    /// Reads "1 2 3.5" in the unit \p unitName. Throws ("[UnitVector::read]") "Invalid vector unit '%1'!" and
    /// "Error reading vector data. String was empty or did not contain any values (started with string or similar)!".
    void read(std::string_view text, std::string_view unitName);
    /// The values with their shortest digits. Throws "Error writing unit vector!" ("[UnitVector::write]") for values
    /// that could not be read again.
    std::string write() const;

    /// Reads an element with the attribute "unit" and the values as text (KOR:UnitVector, XSteps, ...).
    /// Throws with the element's line.
    void readXML(const TiXmlElement & element);
    /// Reads a "KOR:UnitVector" element and its name. Throws "Missing 'name' attribute in KOR:UnitVector element.".
    void readXML(const TiXmlElement & element, std::string & name);
    /// Appends an element with the attributes name (if not empty) and unit.
    void writeXML(TiXmlElement & parent, const std::string & elementName, const std::string & name = {}) const;

    bool operator==(const UnitVector &) const = default;
};

} // namespace KOR
