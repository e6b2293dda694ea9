#pragma once

#include <HYGRION/AssignmentGrid.h>
#include <HYGRION/BoundaryIDGrid.h>

#include <cstddef>

namespace HYGRION {

class Assignments;

/// Builds the tables per cell out of the grid's size and the assignments.
class Discretization {
public:
    /// No grid has more cells; the tables of one that size take about 3 GB.
    static constexpr std::size_t MAX_CELLS = 1u << 27;

    /// Throws ("[Discretization::updateDiscAssignmentGrid]") "Invalid range '%1' in assignment '%2'.",
    /// "An index in the range '%1' in assignment '%2' is out of grid range." and for a grid beyond memory
    /// "The grid is too large (can't allocate continuous memory)! ". After a fault the grid holds what came before it.
    static void updateDiscAssignmentGrid(std::size_t nx, std::size_t ny, std::size_t nz,
                                         const Assignments & assignments, AssignmentGrid & grid);

    /// Parts of a range outside of the grid are skipped.
    /// Throws "The grid is too large (can't allocate continuous memory)! " ("[Discretization::updateBoundaryIDGrid]").
    static void updateBoundaryIDGrid(std::size_t nx, std::size_t ny, std::size_t nz, const Assignments & assignments,
                                     BoundaryIDGrid & grid);
};

} // namespace HYGRION
