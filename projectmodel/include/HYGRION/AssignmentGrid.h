#pragma once

#include <HYGRION/Assignment.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace HYGRION {

/// Which assignments apply to each cell and to each cell face, as indices into the list of assignments, in its order.
/// Cells with the same assignments share one list, so the grid takes 4 bytes a cell, and 4 a face once an axis has a
/// side assignment; a list number stands for all cells that look alike.
class AssignmentGrid {
public:
    using ListId = std::uint32_t; ///< 0 is the empty list

    /// Bits of flags(): the face of the cell towards its lower neighbour carries an inner interface.
    enum flag_t : std::uint32_t { INNER_LEFT = 1, INNER_BOTTOM = 2, INNER_BACK = 4 };
    enum axis_t : std::size_t { X, Y, Z };

    std::size_t nx() const { return m_size[X]; }
    std::size_t ny() const { return m_size[Y]; }
    std::size_t nz() const { return m_size[Z]; }

    ListId elementList(std::size_t i, std::size_t j, std::size_t k) const { return m_cells[cellIndex(i, j, k)]; }
    /// The list of the face before cell i, j or k along the axis; the index may be one beyond the last cell.
    ListId faceList(axis_t axis, std::size_t i, std::size_t j, std::size_t k) const {
        return m_faces[axis].empty() ? 0 : m_faces[axis][faceIndex(axis, i, j, k)];
    }
    /// The assignments of a list, in order.
    std::vector<std::uint32_t> list(ListId id) const;
    std::size_t listCount() const { return m_lists.size(); }

    std::vector<std::uint32_t> elements(std::size_t i, std::size_t j, std::size_t k) const {
        return list(elementList(i, j, k));
    }
    /// The assignments to a side of the cell that lies on the outer boundary; empty for a side that does not.
    std::vector<std::uint32_t> sides(std::size_t i, std::size_t j, std::size_t k, Assignment::location_t side) const;
    /// Bits of flag_t.
    std::uint32_t flags(std::size_t i, std::size_t j, std::size_t k) const;

    bool operator==(const AssignmentGrid &) const = default;

private:
    friend class Discretization;

    /// A list is its longer part and one more assignment.
    struct List {
        ListId parent = 0;
        std::uint32_t assignment = 0;
        ListId latestChild = 0; ///< the list made out of this one last
        bool operator==(const List &) const = default;
    };

    /// Empties the grid and gives it a size. Throws as Discretization::updateDiscAssignmentGrid.
    void reset(std::size_t nx, std::size_t ny, std::size_t nz);
    void addElement(std::uint32_t assignment, const Range & range);
    void addFaces(std::uint32_t assignment, axis_t axis, Range faces);
    /// The list with \p assignment appended.
    ListId extended(ListId id, std::uint32_t assignment);

    std::size_t cellIndex(std::size_t i, std::size_t j, std::size_t k) const { return (k * ny() + j) * nx() + i; }
    std::size_t faceIndex(axis_t axis, std::size_t i, std::size_t j, std::size_t k) const {
        return (k * (ny() + (axis == Y)) + j) * (nx() + (axis == X)) + i;
    }

    std::array<std::size_t, 3> m_size{};
    std::vector<ListId> m_cells;                ///< nz x ny x nx
    std::array<std::vector<ListId>, 3> m_faces; ///< per axis one more in its direction; empty until first used
    std::vector<List> m_lists;
};

} // namespace HYGRION
