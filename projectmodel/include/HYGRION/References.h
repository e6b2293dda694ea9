#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// Definitions refer to one another and assignments to definitions by identification name. All such places stand here
/// once; checking, renaming and cleaning walk them.
namespace HYGRION {

/// The kinds of definitions that have an identification name, unique within the kind.
enum class definition_t {
    Material,
    Interface,
    InitialCondition,
    FieldCondition,
    ContactCondition,
    BoundaryCondition,
    ClimateCondition,
    Schedule,
    OutputFile,
    OutputGrid,
    SolutionDefinition
};
inline constexpr std::size_t DEFINITION_KINDS = 11;

/// "boundary condition" and so on, for messages.
std::string_view definitionWord(definition_t kind);

/// Who refers: a definition, or, without a kind, an assignment or the model settings.
struct ReferenceSource {
    enum place_t { DEFINITION, ASSIGNMENT, MATERIAL_MAPPING };
    place_t place = DEFINITION;
    std::optional<definition_t> kind; ///< of a definition
    std::size_t index = 0;            ///< in its list
};

/// Calls body(kind, list) for the list of each kind, in the order of definition_t.
template <typename AnyProject, typename Body> void forEachDefinitionList(AnyProject & project, Body && body) {
    body(definition_t::Material, project.m_materials);
    body(definition_t::Interface, project.m_conditions.m_interfaces);
    body(definition_t::InitialCondition, project.m_conditions.m_initialConditions);
    body(definition_t::FieldCondition, project.m_conditions.m_fieldConditions);
    body(definition_t::ContactCondition, project.m_conditions.m_contactConditions);
    body(definition_t::BoundaryCondition, project.m_conditions.m_boundaryConditions);
    body(definition_t::ClimateCondition, project.m_conditions.m_climateConditions);
    body(definition_t::Schedule, project.m_conditions.m_schedules);
    body(definition_t::OutputFile, project.m_outputs.m_outputFiles);
    body(definition_t::OutputGrid, project.m_outputs.m_outputGrids);
    body(definition_t::SolutionDefinition, project.m_conditions.m_solutionDefinitions);
}

/// The kind that an assignment of this type refers to.
template <typename Assignment> definition_t referencedKind(const Assignment & assignment) {
    constexpr definition_t KINDS[] = {definition_t::Material,         definition_t::Interface,
                                      definition_t::InitialCondition, definition_t::FieldCondition,
                                      definition_t::ContactCondition, definition_t::OutputFile};
    return KINDS[static_cast<std::size_t>(assignment.m_type)];
}

/// Calls body(source, kind referred to, name) for every reference; the name may be changed in a project that may.
/// Empty names are no references, except in assignments.
template <typename AnyProject, typename Body> void forEachReference(AnyProject & project, Body && body) {
    const auto inList = [&body](definition_t kind, auto & list, auto && visit) {
        for (std::size_t i = 0; i < list.size(); ++i)
            visit(list[i], [&](definition_t target, auto & name) {
                if (!name.empty())
                    body(ReferenceSource{ReferenceSource::DEFINITION, kind, i}, target, name);
            });
    };
    auto & conditions = project.m_conditions;
    inList(definition_t::Interface, conditions.m_interfaces, [](auto & item, auto && refer) {
        for (auto & name : item.m_bcReferences)
            refer(definition_t::BoundaryCondition, name);
    });
    inList(definition_t::InitialCondition, conditions.m_initialConditions,
           [](auto & item, auto && refer) { refer(definition_t::InitialCondition, item.m_reference); });
    inList(definition_t::FieldCondition, conditions.m_fieldConditions, [](auto & item, auto && refer) {
        for (auto & [quantity, name] : item.m_ccReferences)
            refer(definition_t::ClimateCondition, name);
        for (auto & [quantity, name] : item.m_additionalReferences)
            refer(definition_t::ClimateCondition, name);
        refer(definition_t::Schedule, item.m_schedule);
        refer(definition_t::Interface, item.m_otherInterfaceReference);
    });
    inList(definition_t::BoundaryCondition, conditions.m_boundaryConditions, [](auto & item, auto && refer) {
        for (auto & [quantity, name] : item.m_ccReferences)
            refer(definition_t::ClimateCondition, name);
        refer(definition_t::Schedule, item.m_schedule);
        refer(definition_t::Interface, item.m_otherInterfaceReference);
        refer(definition_t::ContactCondition, item.m_contactConditionName);
    });
    inList(definition_t::OutputFile, project.m_outputs.m_outputFiles,
           [](auto & item, auto && refer) { refer(definition_t::OutputGrid, item.m_outputGrid); });
    auto & mappings = project.m_init.m_modelSettingsVOC.m_materialMapping;
    for (std::size_t i = 0; i < mappings.size(); ++i)
        body(ReferenceSource{ReferenceSource::MATERIAL_MAPPING, {}, i}, definition_t::Material, mappings[i].m_material);
    auto & assignments = project.m_assignments.m_list;
    for (std::size_t i = 0; i < assignments.size(); ++i)
        body(ReferenceSource{ReferenceSource::ASSIGNMENT, {}, i}, referencedKind(assignments[i]),
             assignments[i].m_reference);
}

/// Calls body(path, name of the definition or setting) for every path to a file that the project refers to.
template <typename AnyProject, typename Body> void forEachPath(AnyProject & project, Body && body) {
    for (auto & material : project.m_materials)
        body(material.m_filename, material.m_name);
    for (auto & climate : project.m_conditions.m_climateConditions)
        body(climate.m_filename, climate.m_name);
    body(project.m_init.m_climateDataFilePath, "ClimateDataFilePath");
    body(project.m_init.m_modelSettingsSalt.m_saltDatabase, "SaltDatabase");
    body(project.m_init.m_modelSettingsVOC.m_vocDatabase, "VOCDatabase");
}

} // namespace HYGRION
