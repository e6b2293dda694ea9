#pragma once

#include <KOR/Parameter.h>

#include <string>
#include <vector>

class TiXmlElement;

namespace HYGRION {

/// A salt solution that boundary conditions refer to: parameters of any name and the salts in it.
class SolutionDefinition {
public:
    std::string m_name;
    std::vector<KOR::Parameter> m_para;
    std::vector<std::string> m_saltSpecies; ///< identifiers in the salt database

    /// Throws ("[SolutionDefinition::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    void writeXML(TiXmlElement & parent) const;
    /// Refuses ("[SolutionDefinition::checkParameters]") a solution without salts.
    void checkParameters() const;

    bool operator==(const SolutionDefinition &) const = default;
};

} // namespace HYGRION
