#pragma once

#include "undo/HygModification.h"

#include <HYGRION/LocationParameter.h>
#include <HYGRION/Project.h>

/// Where the commands write and what they announce: one row a list, one row a section of the project.
namespace HygUndoRows {

/// What the commands on a list announce. A view takes both codes of a pair for "the list is another one".
struct Codes {
    int added;
    int addedUndone;
    int modified;
    int removed;
    int removedUndone;
};
inline constexpr Codes DEFINITION_CODES = {HygModification::DefinitionAdded, HygModification::DefinitionRemoved,
                                           HygModification::DefinitionModified, HygModification::DefinitionRemoved,
                                           HygModification::DefinitionAdded};
inline constexpr Codes LIST_ITEM_CODES = {HygModification::ListItemAdded, HygModification::ListItemRemoved,
                                          HygModification::ListItemModified, HygModification::ListItemRemoved,
                                          HygModification::ListItemRemoved};
inline constexpr Codes MATERIAL_CODES = {HygModification::MaterialAdded, HygModification::MaterialAdded,
                                         HygModification::MaterialModified, HygModification::MaterialRemoved,
                                         HygModification::MaterialRemoved};

/// A list of definitions: its place, its kind by which others refer to it, and what is announced.
template <auto LIST, HYGRION::definition_t DEFINITION_KIND, const Codes & LIST_CODES, int DATA_KIND> struct ListRow {
    static constexpr HYGRION::definition_t DEFINITION = DEFINITION_KIND;
    static constexpr Codes CODES = LIST_CODES;
    static constexpr int KIND = DATA_KIND;
    static auto & list(HYGRION::Project & project) { return LIST(project); }
    using Item = typename std::remove_reference_t<decltype(LIST(std::declval<HYGRION::Project &>()))>::value_type;
};

template <auto MEMBER> inline constexpr auto CONDITIONS = [](auto & project) -> auto & {
    return project.m_conditions.*MEMBER;
};
template <auto MEMBER> inline constexpr auto OUTPUTS = [](auto & project) -> auto & {
    return project.m_outputs.*MEMBER;
};
inline constexpr auto MATERIALS = [](auto & project) -> auto & {
    return project.m_materials;
};

template <auto LIST, HYGRION::definition_t KIND, int DATA>
using Definition = ListRow<LIST, KIND, DEFINITION_CODES, DATA>;
template <auto LIST, HYGRION::definition_t KIND, int DATA> using ListItem = ListRow<LIST, KIND, LIST_ITEM_CODES, DATA>;

using HYGRION::Conditions;
using enum HYGRION::definition_t;

// clang-format off
using Interfaces         = Definition<CONDITIONS<&Conditions::m_interfaces>,         Interface,         HygModification::Interface>;
using InitialConditions  = Definition<CONDITIONS<&Conditions::m_initialConditions>,  InitialCondition,  HygModification::InitialCondition>;
using FieldConditions    = Definition<CONDITIONS<&Conditions::m_fieldConditions>,    FieldCondition,    HygModification::FieldCondition>;
using ContactConditions  = Definition<CONDITIONS<&Conditions::m_contactConditions>,  ContactCondition,  HygModification::ContactCondition>;
using OutputFiles        = Definition<OUTPUTS<&HYGRION::Outputs::m_outputFiles>,     OutputFile,        HygModification::OutputFile>;
using ClimateConditions  = ListItem<CONDITIONS<&Conditions::m_climateConditions>,    ClimateCondition,  HygModification::ClimateConditions>;
using BoundaryConditions = ListItem<CONDITIONS<&Conditions::m_boundaryConditions>,   BoundaryCondition, HygModification::BoundaryConditions>;
using Schedules          = ListItem<CONDITIONS<&Conditions::m_schedules>,            Schedule,          HygModification::Schedules>;
using OutputGrids        = ListItem<OUTPUTS<&HYGRION::Outputs::m_outputGrids>,       OutputGrid,        HygModification::OutputGrids>;
using Materials          = ListRow<MATERIALS, Material, MATERIAL_CODES, 0>;
// clang-format on

/// A section that is exchanged as a whole.
template <auto SECTION, int MODIFIED_CODE> struct SectionRow {
    using Value = std::remove_reference_t<decltype(SECTION(std::declval<HYGRION::Project &>()))>;
    static constexpr int MODIFIED = MODIFIED_CODE;
    static Value get(const HYGRION::Project & project) { return SECTION(project); }
    static void exchange(HYGRION::Project & project, Value & value) { std::swap(SECTION(project), value); }
};

inline constexpr auto SOLVER_SETTINGS = [](auto & p) -> auto & {
    return p.m_init.m_solverSettings;
};
inline constexpr auto INIT = [](auto & p) -> auto & {
    return p.m_init;
};
inline constexpr auto DESCRIPTION = [](auto & p) -> auto & {
    return p.m_projectInfo.m_description;
};
inline constexpr auto INFORMATION = [](auto & p) -> auto & {
    return p.m_projectInfo;
};
inline constexpr auto ASSESSMENTS = [](auto & p) -> auto & {
    return p.m_assessments;
};
inline constexpr auto OUTPUTS_SECTION = [](auto & p) -> auto & {
    return p.m_outputs;
};

using SolverSettings = SectionRow<SOLVER_SETTINGS, HygModification::SolverSettingsModified>;
using Init = SectionRow<INIT, HygModification::ProjectDataModified>;
using ProjectDescription = SectionRow<DESCRIPTION, HygModification::ProjectDataModified>;
using ProjectInformation = SectionRow<INFORMATION, HygModification::ProjectDataModified>;
using AssessmentSettings = SectionRow<ASSESSMENTS, HygModification::ProjectDataModified>;
using Outputs = SectionRow<OUTPUTS_SECTION, HygModification::OutputsModified>;

/// The whole project but for the name of its file, which "save as" may change in between.
struct Project {
    using Value = HYGRION::Project;
    static constexpr int MODIFIED = HygModification::ProjectReplaced;
    static const Value & get(const HYGRION::Project & project) { return project; }
    static void exchange(HYGRION::Project & project, Value & value) {
        std::swap(project, value);
        std::swap(project.m_fileName, value.m_fileName);
    }
};

/// The location's parameters lie among others of the Init section.
struct LocationParameter {
    using Value = HYGRION::LocationParameter;
    static constexpr int MODIFIED = HygModification::LocationModified;
    static Value get(const HYGRION::Project & project) { return Value::of(project.m_init); }
    static void exchange(HYGRION::Project & project, Value & value) {
        Value before = get(project);
        value.applyTo(project.m_init);
        value = std::move(before);
    }
};

} // namespace HygUndoRows
