#pragma once

#include <HYGRION/BoundaryCond.h>
#include <HYGRION/ClimateCond.h>
#include <HYGRION/ContactCond.h>
#include <HYGRION/FieldCond.h>
#include <HYGRION/InitialCond.h>
#include <HYGRION/Interface.h>
#include <HYGRION/Schedule.h>
#include <HYGRION/SolutionDefinition.h>

#include <vector>

class TiXmlElement;

namespace HYGRION {

/// Every definition that drives the construction or sets its starting state: the section "Conditions".
/// Names are unique within a list; definitions refer to one another by name.
class Conditions {
public:
    enum class conditionList_t {
        Schedules,
        Interfaces,
        ClimateConditions,
        BoundaryConditions,
        InitialConditions,
        FieldConditions,
        ContactConditions,
        SolutionDefinitions
    };
    enum class conditionType_t {
        ClimateCondition,
        BoundaryCondition,
        InitialCondition,
        FieldCondition,
        ContactCondition,
        Interface,
        SolutionDefinition
    };

    std::vector<Schedule> m_schedules;
    std::vector<Interface> m_interfaces;
    std::vector<ClimateCond> m_climateConditions;
    std::vector<BoundaryCond> m_boundaryConditions;
    std::vector<InitialCond> m_initialConditions;
    std::vector<FieldCond> m_fieldConditions;
    std::vector<ContactCond> m_contactConditions;
    std::vector<SolutionDefinition> m_solutionDefinitions;

    /// Throws ("[Conditions::readXML]") with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends the section; nothing when all lists are empty. Empty lists are not written.
    void writeXML(TiXmlElement & parent) const;
    /// Checks every definition; stops at the first fault.
    void checkParameters() const;

    bool operator==(const Conditions &) const = default;
};

} // namespace HYGRION
