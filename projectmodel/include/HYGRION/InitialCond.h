#pragma once

#include <KOR/Parameter.h>

#include <optional>
#include <string>

class TiXmlElement;

namespace HYGRION {

/// A state in which cells start.
class InitialCond {
public:
    enum class condition_t {
        Temperature,
        MoistureContent,
        MoistureMass,
        MoistureMassByMass,
        RelativeHumidity,
        CapillaryPressure,
        VOCMass,
        SolutionMass,
        SolutionContent,
        SaltMass
    };

    std::string m_name;
    std::optional<condition_t> m_type;
    KOR::Parameter m_value;  ///< named "Value"
    std::string m_reference; ///< another definition from which the value is taken

    /// \param value in \p unit
    void setValue(double value, KOR::Unit unit) { m_value = KOR::Parameter("Value", value, unit); }

    /// Throws ("[InitialCond::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[InitialCond::checkParameters]") a missing type or value and values that no material can have.
    void checkParameters() const;

    bool operator==(const InitialCond &) const = default;
};

} // namespace HYGRION
