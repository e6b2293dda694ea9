#include "construction/HygCellPlane.h"

#include <algorithm>
#include <unordered_map>

void HygCellPlane::update(const HYGRION::Project & project, std::size_t plane) {
    using HYGRION::Assignment;
    m_nx = project.m_disc.nx();
    m_ny = project.m_disc.ny();
    m_plane = static_cast<std::uint32_t>(plane);
    m_cells.assign(m_nx * m_ny, NO_MATERIAL);
    m_overlaps.clear();
    if (m_cells.empty()) {
        findBorders();
        return;
    }
    std::unordered_map<std::string_view, std::int32_t> indices;
    for (std::size_t i = 0; i < project.m_materials.size(); ++i)
        indices.emplace(project.m_materials[i].m_name, static_cast<std::int32_t>(i));

    // From the last assignment back: a cell that has its material is never looked at again. An entry of free names the
    // next column of its row that may be without one.
    const std::size_t stride = m_nx + 1;
    std::vector<std::uint32_t> free(stride * m_ny);
    for (std::size_t n = 0; n < free.size(); ++n)
        free[n] = static_cast<std::uint32_t>(n % stride);
    const std::vector<Assignment> & list = project.m_assignments.m_list;
    for (std::size_t n = list.size(); n-- > 0;) {
        const Assignment & assignment = list[n];
        const HYGRION::Range & range = assignment.m_range;
        if (assignment.m_type != Assignment::type_t::Material ||
            assignment.m_location != Assignment::location_t::Element || !range.isNormalised() || m_plane < range.back ||
            m_plane > range.front || range.left >= m_nx)
            continue;
        const auto found = indices.find(assignment.m_reference);
        const std::int32_t material = found == indices.end() ? UNKNOWN : found->second;
        const std::size_t right = std::min<std::size_t>(range.right, m_nx - 1);
        std::uint64_t covered = 0;
        for (std::size_t j = range.bottom; j <= range.top && j < m_ny; ++j) {
            std::uint32_t * next = free.data() + j * stride;
            const auto find = [next](std::uint32_t i) {
                while (next[i] != i)
                    i = next[i] = next[next[i]];
                return i;
            };
            covered += right - range.left + 1;
            for (std::uint32_t i = find(range.left); i <= right; i = find(i)) {
                m_cells[j * m_nx + i] = material;
                next[i] = i + 1;
                --covered;
            }
        }
        if (covered > 0)
            m_overlaps.push_back({static_cast<std::uint32_t>(n), covered});
    }
    std::reverse(m_overlaps.begin(), m_overlaps.end());
    findBorders();
}

void HygCellPlane::findBorders() {
    std::vector<char> changes(m_nx + 1, 0);
    m_rowBorders.assign(1, 0);
    for (std::size_t j = 0; j < m_ny; ++j) {
        const std::int32_t * cells = row(j);
        for (std::size_t i = 1; i < m_nx; ++i)
            changes[i] = static_cast<char>(changes[i] | (cells[i] != cells[i - 1]));
        if (j > 0 && !std::equal(cells, cells + m_nx, row(j - 1)))
            m_rowBorders.push_back(static_cast<std::uint32_t>(j));
    }
    m_columnBorders.assign(1, 0);
    for (std::size_t i = 1; i < m_nx; ++i)
        if (changes[i] != 0)
            m_columnBorders.push_back(static_cast<std::uint32_t>(i));
    m_columnBorders.push_back(static_cast<std::uint32_t>(m_nx));
    m_rowBorders.push_back(static_cast<std::uint32_t>(m_ny));
}

std::vector<HYGRION::Range> HygCellPlane::blocksOf(std::int32_t material, std::size_t limit) const {
    std::vector<HYGRION::Range> blocks;
    std::unordered_map<std::uint64_t, std::size_t> below; // blocks that end in the row below, by their columns
    for (std::size_t j = 0; j < m_ny; ++j) {
        const std::int32_t * cells = row(j);
        std::unordered_map<std::uint64_t, std::size_t> ending;
        for (std::size_t i = 0; i < m_nx; ++i) {
            if (cells[i] != material)
                continue;
            const std::size_t left = i;
            while (i + 1 < m_nx && cells[i + 1] == material)
                ++i;
            const std::uint64_t columns = (static_cast<std::uint64_t>(left) << 32U) | i;
            const auto found = below.find(columns);
            std::size_t block = blocks.size();
            if (found != below.end()) {
                block = found->second;
                blocks[block].top = static_cast<std::uint32_t>(j);
            } else {
                if (blocks.size() == limit)
                    return blocks;
                blocks.push_back({static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(j), m_plane,
                                  static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j), m_plane});
            }
            ending.emplace(columns, block);
        }
        below = std::move(ending);
    }
    return blocks;
}
