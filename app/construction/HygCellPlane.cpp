#include "construction/HygCellPlane.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

template <typename Take, typename Cover>
void HygCellPlane::distribute(const HYGRION::Project & project, std::uint32_t plane, const Take & take,
                              const Cover & cover) {
    using HYGRION::Assignment;
    const std::size_t nx = project.m_disc.nx();
    const std::size_t ny = project.m_disc.ny();
    // From the last assignment back: a cell that has its material is never looked at again. An entry of free names the
    // next column of its row that may be without one.
    const std::size_t stride = nx + 1;
    std::vector<std::uint32_t> free(stride * ny);
    for (std::size_t n = 0; n < free.size(); ++n)
        free[n] = static_cast<std::uint32_t>(n % stride);
    const std::vector<Assignment> & list = project.m_assignments.m_list;
    for (std::size_t n = list.size(); n-- > 0;) {
        const HYGRION::Range & range = list[n].m_range;
        if (list[n].m_type != Assignment::type_t::Material || list[n].m_location != Assignment::location_t::Element ||
            !range.isNormalised() || plane < range.back || plane > range.front || range.left >= nx)
            continue;
        const std::size_t right = std::min<std::size_t>(range.right, nx - 1);
        std::uint64_t covered = 0;
        for (std::size_t j = range.bottom; j <= range.top && j < ny; ++j) {
            std::uint32_t * next = free.data() + j * stride;
            const auto find = [next](std::uint32_t i) {
                while (next[i] != i)
                    i = next[i] = next[next[i]];
                return i;
            };
            covered += right - range.left + 1;
            for (std::uint32_t i = find(range.left); i <= right; i = find(i)) {
                take(n, j * nx + i);
                next[i] = i + 1;
                --covered;
            }
        }
        if (covered > 0)
            cover(n, covered);
    }
}

void HygCellPlane::update(const HYGRION::Project & project, std::size_t plane) {
    m_nx = project.m_disc.nx();
    m_ny = project.m_disc.ny();
    m_plane = static_cast<std::uint32_t>(plane);
    m_cells.assign(m_nx * m_ny, NO_MATERIAL);
    m_overlaps.clear();
    std::unordered_map<std::string_view, std::int32_t> indices;
    for (std::size_t i = 0; i < project.m_materials.size(); ++i)
        indices.emplace(project.m_materials[i].m_name, static_cast<std::int32_t>(i));
    std::size_t shown = project.m_assignments.size();
    std::int32_t material = UNKNOWN;
    distribute(
        project, m_plane,
        [&](std::size_t assignment, std::size_t cell) {
            if (std::exchange(shown, assignment) != assignment) {
                const auto found = indices.find(project.m_assignments.m_list[assignment].m_reference);
                material = found == indices.end() ? UNKNOWN : found->second;
            }
            m_cells[cell] = material;
        },
        [&](std::size_t assignment, std::uint64_t cells) {
            m_overlaps.push_back({static_cast<std::uint32_t>(assignment), cells});
        });
    std::reverse(m_overlaps.begin(), m_overlaps.end());
    findBorders();
}

HygCellPlane::Parts HygCellPlane::seenParts(const HYGRION::Project & project) {
    using HYGRION::Range;
    constexpr std::uint32_t NOBODY = std::numeric_limits<std::uint32_t>::max();
    const std::size_t nx = project.m_disc.nx();
    const std::size_t ny = project.m_disc.ny();
    Parts parts;
    std::vector<std::vector<std::uint32_t>> owners(std::max<std::size_t>(project.m_disc.nz(), 1));
    for (std::uint32_t plane = 0; plane < owners.size(); ++plane) {
        owners[plane].assign(nx * ny, NOBODY);
        distribute(
            project, plane,
            [&](std::size_t assignment, std::size_t cell) {
                owners[plane][cell] = static_cast<std::uint32_t>(assignment);
            },
            [&](std::size_t assignment, std::uint64_t) { parts[static_cast<std::uint32_t>(assignment)]; });
    }
    // Runs of a row that go on above are one block, blocks that go on in the next plane too.
    using Columns = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>; // owner, left, right
    std::map<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t>, Range> behind;
    for (std::uint32_t plane = 0; plane < owners.size(); ++plane) {
        std::map<Columns, Range> below;
        decltype(behind) blocks;
        const auto close = [&](std::uint32_t owner, Range block) {
            const auto key = std::tuple(owner, block.left, block.bottom, block.right, block.top);
            if (const auto found = behind.find(key); found != behind.end()) {
                block.back = found->second.back;
                behind.erase(found);
            }
            blocks.emplace(key, block);
        };
        for (std::uint32_t j = 0; j < ny; ++j) {
            std::map<Columns, Range> ending;
            const std::uint32_t * row = owners[plane].data() + j * nx;
            for (std::uint32_t i = 0; i < nx; ++i) {
                const std::uint32_t left = i;
                while (i + 1 < nx && row[i + 1] == row[left])
                    ++i;
                if (parts.count(row[left]) == 0)
                    continue;
                Range block{left, j, plane, i, j, plane};
                const auto found = below.find({row[left], left, i});
                if (found != below.end()) {
                    block.bottom = found->second.bottom;
                    below.erase(found);
                }
                ending.emplace(Columns{row[left], left, i}, block);
            }
            for (const auto & [columns, block] : below)
                close(std::get<0>(columns), block);
            below = std::move(ending);
        }
        for (const auto & [columns, block] : below)
            close(std::get<0>(columns), block);
        for (const auto & [key, block] : behind)
            parts[std::get<0>(key)].push_back(block);
        behind = std::move(blocks);
    }
    for (const auto & [key, block] : behind)
        parts[std::get<0>(key)].push_back(block);
    return parts;
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
