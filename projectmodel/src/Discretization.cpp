#include <HYGRION/Discretization.h>

#include <HYGRION/Assignments.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <new>

namespace HYGRION {

namespace {

using location_t = Assignment::location_t;

constexpr const char * TOO_LARGE = "The grid is too large (can't allocate continuous memory)! ";

/// Runs \p allocate for a grid of this size; names the failure.
template <typename Allocate>
void allocated(std::size_t nx, std::size_t ny, std::size_t nz, const char * where, const Allocate & allocate) {
    constexpr std::size_t MAX = Discretization::MAX_CELLS;
    if (nx > MAX || ny > MAX || nz > MAX || nx * ny > MAX || nx * ny * nz > MAX)
        throw KOR::Exception(TOO_LARGE, where);
    try {
        allocate();
    } catch (const std::bad_alloc &) {
        throw KOR::Exception(TOO_LARGE, where);
    }
}

} // namespace

void Discretization::updateDiscAssignmentGrid(std::size_t nx, std::size_t ny, std::size_t nz,
                                              const Assignments & assignments, AssignmentGrid & grid) {
    constexpr const char * WHERE = "[Discretization::updateDiscAssignmentGrid]";
    const auto add = [&](std::uint32_t index, const Assignment & assignment) {
        const Range & range = assignment.m_range;
        Range face = range; // one thick, at the number of the face
        switch (assignment.m_location) {
        case location_t::Element:
            return grid.addElement(index, range);
        case location_t::Left:
            face.right = face.left;
            return grid.addFaces(index, AssignmentGrid::X, face);
        case location_t::Right:
            face.left = ++face.right;
            return grid.addFaces(index, AssignmentGrid::X, face);
        case location_t::Bottom:
            face.top = face.bottom;
            return grid.addFaces(index, AssignmentGrid::Y, face);
        case location_t::Top:
            face.bottom = ++face.top;
            return grid.addFaces(index, AssignmentGrid::Y, face);
        case location_t::Back:
            face.front = face.back;
            return grid.addFaces(index, AssignmentGrid::Z, face);
        case location_t::Front:
            face.back = ++face.front;
            return grid.addFaces(index, AssignmentGrid::Z, face);
        case location_t::Coordinate:
            break;
        }
    };
    allocated(nx, ny, nz, WHERE, [&] {
        grid.reset(nx, ny, nz);
        for (std::size_t index = 0; index < assignments.size(); ++index) {
            const Assignment & assignment = assignments.m_list[index];
            const Range & range = assignment.m_range;
            if (assignment.m_location == location_t::Coordinate)
                continue;
            if (!range.isNormalised())
                throw KOR::Exception(
                    KOR::text("Invalid range '%1' in assignment '%2'.", range.toString(), assignment.description()),
                    WHERE);
            if (range.right >= nx || range.top >= ny || range.front >= nz)
                throw KOR::Exception(KOR::text("An index in the range '%1' in assignment '%2' is out of grid range.",
                                               range.toString(), assignment.description()),
                                     WHERE);
            add(static_cast<std::uint32_t>(index), assignment);
            if (grid.m_lists.size() > MAX_CELLS)
                throw KOR::Exception(TOO_LARGE, WHERE);
        }
    });
}

void Discretization::updateBoundaryIDGrid(std::size_t nx, std::size_t ny, std::size_t nz,
                                          const Assignments & assignments, BoundaryIDGrid & grid) {
    allocated(nx, ny, nz, "[Discretization::updateBoundaryIDGrid]", [&] {
        grid.masks.assign(nx * ny * nz, 0);
        grid.nx = nx;
        grid.ny = ny;
        grid.nz = nz;
    });
    for (const Assignment & assignment : assignments.m_list) {
        if (assignment.m_type != Assignment::type_t::Interface || !assignment.isOnSide())
            continue;
        const std::uint32_t bit = 1u << (static_cast<unsigned int>(assignment.m_location) - 1);
        const Range & range = assignment.m_range;
        const std::size_t endX = std::min<std::size_t>(std::size_t{range.right} + 1, nx);
        const std::size_t endY = std::min<std::size_t>(std::size_t{range.top} + 1, ny);
        const std::size_t endZ = std::min<std::size_t>(std::size_t{range.front} + 1, nz);
        for (std::size_t k = range.back; k < endZ; ++k)
            for (std::size_t j = range.bottom; j < endY; ++j)
                for (std::size_t i = range.left; i < endX; ++i)
                    grid.masks[(k * ny + j) * nx + i] |= bit;
    }
}

} // namespace HYGRION
