#pragma once

#include <HYGRION/Project.h>

#include <cstdint>
#include <map>
#include <vector>

/// The materials of one stack plane, cell by cell, as drawn: where materials overlap, the one assigned last.
class HygCellPlane {
public:
    static constexpr std::int32_t NO_MATERIAL = -1;
    static constexpr std::int32_t UNKNOWN = -2; ///< one is assigned that the project does not have

    /// An assignment of a material of which cells lie under later ones.
    struct Overlap {
        std::uint32_t assignment = 0;
        std::uint64_t cells = 0; ///< that are covered
    };

    /// What is seen of assignments, as blocks; none of those that are covered wholly.
    using Parts = std::map<std::uint32_t, std::vector<HYGRION::Range>>;
    /// Of the assignments of materials of which cells are covered, in all planes. Linear in the number of cells.
    static Parts seenParts(const HYGRION::Project & project);

    /// Linear in the number of cells, however many assignments lie upon one another. Ranges beyond the grid are cut off.
    void update(const HYGRION::Project & project, std::size_t plane);

    std::size_t nx() const { return m_nx; }
    std::size_t ny() const { return m_ny; }
    std::uint32_t plane() const { return m_plane; }
    /// Index into the project's materials or NO_MATERIAL or UNKNOWN.
    std::int32_t material(std::size_t i, std::size_t j) const { return m_cells[j * m_nx + i]; }
    const std::int32_t * row(std::size_t j) const { return m_cells.data() + j * m_nx; }
    const std::vector<Overlap> & overlaps() const { return m_overlaps; }

    /// Borders between layers: 0, every border of columns across which the material of a cell changes, nx.
    const std::vector<std::uint32_t> & columnBorders() const { return m_columnBorders; }
    /// The same of the rows.
    const std::vector<std::uint32_t> & rowBorders() const { return m_rowBorders; }

    /// The cells that have the value, as blocks: runs of a row, joined with equal runs above. At most \p limit blocks.
    std::vector<HYGRION::Range> blocksOf(std::int32_t material, std::size_t limit) const;

private:
    /// Gives each cell of the plane to the last assignment of a material that covers it.
    /// \param take called as take(assignment, cell), \param cover as cover(assignment, number of cells that others have)
    template <typename Take, typename Cover>
    static void distribute(const HYGRION::Project & project, std::uint32_t plane, const Take & take,
                           const Cover & cover);
    void findBorders();

    std::size_t m_nx = 0;
    std::size_t m_ny = 0;
    std::uint32_t m_plane = 0;
    std::vector<std::int32_t> m_cells; ///< ny x nx, columns fastest
    std::vector<Overlap> m_overlaps;
    std::vector<std::uint32_t> m_columnBorders;
    std::vector<std::uint32_t> m_rowBorders;
};
