#include <SOLVER/CheckProject.h>

#include "ModelBuilder.h"

#include <SOLVER/OutputWriter.h>

#include <cmath>
#include <map>
#include <set>

namespace SOLVER {

namespace {

using HYGRION::Assignment;
using HYGRION::BoundaryCond;
using HYGRION::definition_t;
using HYGRION::FieldCond;
using HYGRION::Interface;
using HYGRION::Project;
using HYGRION::ProjectCheck;
using Findings = std::vector<ProjectCheck::Finding>;

template <typename Definition> const Definition * find(const std::vector<Definition> & list, const std::string & name) {
    const auto found =
        std::find_if(list.begin(), list.end(), [&name](const Definition & known) { return known.m_name == name; });
    return found == list.end() ? nullptr : &*found; // a reference to nothing is found elsewhere
}

/// Checks what assignments lead to, each definition once.
class Check {
public:
    Check(const Project & project, Findings & findings) : m_project(project), m_findings(findings) {}

    void perform() {
        module_t module = module_t::heatAndMoisture;
        collect("Init", [&] {
            module = ModelBuilder::moduleOf(m_project.m_init);
            ModelBuilder::warnOfSettings(m_project.m_init);
        });
        collect("Discretization", [&] { ModelBuilder::checkGrid(m_project.m_disc); });
        const auto & conditions = m_project.m_conditions;
        for (std::size_t a = 0; a < m_project.m_assignments.size(); ++a) {
            const Assignment & assignment = m_project.m_assignments.m_list[a];
            collect(ProjectCheck::assignmentPlace(m_project, a),
                    [&] { ModelBuilder::checkAssignment(assignment, m_project.assignmentLabel(a)); });
            if (!m_seen.emplace(assignment.m_type, assignment.m_reference).second)
                continue;
            if (assignment.m_type == Assignment::type_t::Interface)
                check(find(conditions.m_interfaces, assignment.m_reference));
            else if (assignment.m_type == Assignment::type_t::FieldCondition)
                check(find(conditions.m_fieldConditions, assignment.m_reference), module);
            else if (assignment.m_type == Assignment::type_t::ContactCondition)
                check(find(conditions.m_contactConditions, assignment.m_reference));
        }
        checkOutputs();
    }

    /// Whether something in use takes its climate from the file of the location.
    bool needsLocation() const { return m_needsLocation; }

private:
    template <typename Body> void collect(const std::string & place, Body && body) {
        ProjectCheck::collect(m_findings, place, body);
    }

    void check(const Interface * interface) {
        if (interface == nullptr)
            return;
        using Type = Interface::type_t;
        using Flag = Interface::flag_t;
        const std::string place = ProjectCheck::place(definition_t::Interface, interface->m_name);
        bool needsOrientation = false;
        if (interface->m_type == Type::External) {
            collect(place, [] {
                refuse("Interfaces of type 'External' need an external model, which the solver cannot run with.");
            });
        } else if (interface->m_type == Type::Detailed) {
            for (const std::string & name : interface->m_bcReferences)
                needsOrientation = check(find(m_project.m_conditions.m_boundaryConditions, name)) || needsOrientation;
        } else {
            const bool hasWeather = interface->m_type == Type::EngineeringOutdoor &&
                                    interface->m_climateTypeOutdoor == Interface::climateTypeOutdoor_t::OutdoorUserData;
            const bool isAdaptive = interface->m_type == Type::EngineeringIndoor &&
                                    interface->m_climateTypeIndoor == Interface::climateTypeIndoor_t::IndoorWTA;
            m_needsLocation = m_needsLocation || hasWeather || isAdaptive;
            needsOrientation = hasWeather && (interface->m_flag.isEnabled(Flag::UseShortWaveRadiation) ||
                                              interface->m_flag.isEnabled(Flag::UseStandardRain));
        }
        collect(place, [&] { ModelBuilder::positionOf(*interface, needsOrientation); });
    }

    /// \return whether it matters where the surface faces
    bool check(const BoundaryCond * condition) {
        if (condition == nullptr)
            return false;
        const auto [known, isNew] = m_conditions.emplace(condition->m_name, false);
        if (!isNew)
            return known->second;
        const std::string place = ProjectCheck::place(definition_t::BoundaryCondition, condition->m_name);
        if (!ModelBuilder::isCoupling(*condition))
            collect(place, [condition, &needsOrientation = known->second] {
                ModelBuilder::checkCondition(*condition);
                needsOrientation = BoundaryLaw::fromCondition(*condition).needsOrientation();
            });
        checkClimate(place, condition->m_ccReferences);
        return known->second;
    }

    void check(const FieldCond * condition, module_t module) {
        if (condition == nullptr)
            return;
        const std::string place = ProjectCheck::place(definition_t::FieldCondition, condition->m_name);
        collect(place, [&] {
            if (condition->m_type == FieldCond::condition_t::LongWaveRadiation)
                cavityEmissions(*condition);
            else
                FieldLaw::fromCondition(*condition, module != module_t::heat);
        });
        checkClimate(place, condition->m_ccReferences);
    }

    void check(const HYGRION::ContactCond * condition) {
        if (condition != nullptr)
            collect(ProjectCheck::place(definition_t::ContactCondition, condition->m_name),
                    [condition] { ModelBuilder::checkContact(*condition); });
    }

    void checkClimate(const std::string & place, const HYGRION::ClimateReferences & references) {
        for (const auto & [quantity, name] : references)
            if (const auto * climate = find(m_project.m_conditions.m_climateConditions, name)) {
                m_needsLocation = m_needsLocation ||
                                  (climate->m_kind == HYGRION::ClimateCond::kind_t::CCM && climate->m_filename.empty());
                collect(place, [&, quantity = quantity] { ClimateSignals::checkUse(*climate, quantity); });
            }
    }

    void checkOutputs() {
        const double endTime = m_project.m_init.m_interval.end();
        for (const HYGRION::OutputGrid & grid : m_project.m_outputs.m_outputGrids)
            if (std::isfinite(endTime))
                collect(ProjectCheck::place(definition_t::OutputGrid, grid.m_name),
                        [&] { OutputWriter::checkGrid(grid, endTime); });
        for (const HYGRION::OutputFile & definition : m_project.m_outputs.m_outputFiles)
            collect(ProjectCheck::place(definition_t::OutputFile, definition.m_name), [&] {
                OutputWriter::checkDefinition(definition);
                for (const Assignment & assignment : m_project.m_assignments.m_list)
                    if (assignment.m_type == Assignment::type_t::Output && assignment.m_reference == definition.m_name)
                        OutputWriter::checkPlace(definition, assignment);
            });
    }

    const Project & m_project;
    Findings & m_findings;
    std::set<std::pair<Assignment::type_t, std::string>> m_seen;
    std::map<std::string, bool> m_conditions; ///< boundary conditions; whether they need an orientation
    bool m_needsLocation = false;
};

/// What the editor says in its own words and a command may still give.
void checkRun(const Project & project, bool needsLocation, Findings & findings) {
    if (!std::isfinite(project.m_init.m_interval.end()))
        findings.push_back({.severity = ProjectCheck::WARNING,
                            .place = "Init",
                            .message = "The simulation has no end; it needs one when it is started."});
    if (needsLocation && project.m_init.m_climateDataFilePath.empty())
        findings.push_back(
            {.place = "Init",
             .message = "There is no climate data file of the location, but conditions take their values from it."});
}

} // namespace

Findings checkProject(const Project & project) {
    Findings findings = ProjectCheck::checkProject(project);
    Check(project, findings).perform();
    return findings;
}

Findings checkFile(const std::string & filename, Project & project) {
    return ProjectCheck::checkFile(filename, project, [](const Project & read, Findings & findings) {
        Check check(read, findings);
        check.perform();
        checkRun(read, check.needsLocation(), findings);
    });
}

} // namespace SOLVER
