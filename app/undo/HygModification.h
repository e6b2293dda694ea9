#pragma once

#include <cstdint>

/// What a change of the project concerns: the arguments of HygProjectHandler::modified().
namespace HygModification {

enum code_t : int {
    AssignmentsReplaced = 0,
    MaterialAdded = 1,
    MaterialModified = 2,
    MaterialRemoved = 3,
    DefinitionAdded = 4, ///< data: definition_t
    DefinitionModified = 5,
    DefinitionRemoved = 6,
    ListItemAdded = 7, ///< data: list_t
    ListItemModified = 8,
    ListItemRemoved = 9,
    CellDimensionChanged = 10, ///< data: const HygUndoCellDimension::CellData *
    GridModified = 11,         ///< the assignments may have followed
    SolverSettingsModified = 12,
    ProjectDataModified = 13, ///< Init section, project description, project information, assessment settings
    OutputsModified = 14,
    LocationModified = 15,
    ProjectReplaced = 0xFF0001
};

enum definition_t : int { Interface = 1, InitialCondition, FieldCondition, ContactCondition, OutputFile };
enum list_t : int { ClimateConditions, BoundaryConditions, Schedules, OutputGrids };

/// A kind as the data of a notification.
inline void * data(int kind) {
    return reinterpret_cast<void *>(static_cast<std::intptr_t>(kind)); // NOLINT(performance-no-int-to-ptr)
}
/// The kind that a notification carries.
inline int kind(const void * data) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(data));
}

} // namespace HygModification
