#include <SOLVER/CheckProject.h>

#include "ModelBuilder.h"

#include <SOLVER/OutputWriter.h>

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
        collect("Init", [&] { module = ModelBuilder::moduleOf(m_project.m_init); });
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

private:
    template <typename Body> void collect(const std::string & place, Body && body) {
        ProjectCheck::collect(m_findings, place, body);
    }

    void check(const Interface * interface) {
        if (interface == nullptr)
            return;
        if (interface->m_type == Interface::type_t::External)
            collect(ProjectCheck::place(definition_t::Interface, interface->m_name), [] {
                refuse("Interfaces of type 'External' need an external model, which the solver cannot run with.");
            });
        if (interface->m_type != Interface::type_t::Detailed)
            return;
        for (const std::string & name : interface->m_bcReferences) {
            const BoundaryCond * condition = find(m_project.m_conditions.m_boundaryConditions, name);
            if (condition == nullptr || !m_seenConditions.insert(name).second)
                continue;
            const std::string place = ProjectCheck::place(definition_t::BoundaryCondition, name);
            if (!ModelBuilder::isCoupling(*condition))
                collect(place, [condition] {
                    ModelBuilder::checkCondition(*condition);
                    BoundaryLaw::fromCondition(*condition);
                });
            checkClimate(place, condition->m_ccReferences);
        }
    }

    void check(const FieldCond * condition, module_t module) {
        if (condition == nullptr)
            return;
        const std::string place = ProjectCheck::place(definition_t::FieldCondition, condition->m_name);
        collect(place, [&] {
            if (condition->m_type == FieldCond::condition_t::LongWaveRadiation)
                checkCavityRadiation(*condition);
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
            if (const auto * climate = find(m_project.m_conditions.m_climateConditions, name))
                collect(place, [&, quantity = quantity] { ClimateSignals::checkUse(*climate, quantity); });
    }

    void checkOutputs() {
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
    std::set<std::string> m_seenConditions;
};

void checkFurther(const Project & project, Findings & findings) {
    Check(project, findings).perform();
}

} // namespace

Findings checkProject(const Project & project) {
    Findings findings = ProjectCheck::checkProject(project);
    checkFurther(project, findings);
    return findings;
}

Findings checkFile(const std::string & filename, Project & project) {
    return ProjectCheck::checkFile(filename, project, [](const Project & read, Findings & findings) {
        checkFurther(read, findings);
        if (!std::isfinite(read.m_init.m_interval.end()))
            findings.push_back({.severity = ProjectCheck::WARNING,
                                .place = "Init",
                                .message = "The simulation has no end; it needs one when it is started."});
    });
}

} // namespace SOLVER
