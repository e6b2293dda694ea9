#pragma once

#include <cstdint>
#include <vector>

namespace SOLVER {

/// Colours the cells so that no two of one colour have a common neighbour: their columns of the Jacobian share no row
/// and are found by one difference. Greedy in the order of the cells.
/// \param neighbours of each cell, itself included
/// \return the cells of each colour
inline std::vector<std::vector<std::uint32_t>> colourCells(const std::vector<std::vector<std::uint32_t>> & neighbours) {
    constexpr std::uint32_t NONE = ~0u;
    std::vector<std::uint32_t> colour(neighbours.size(), NONE);
    std::vector<std::vector<std::uint32_t>> cells;
    std::vector<std::uint32_t> usedBy; // colour -> the cell that saw it last
    for (std::uint32_t c = 0; c < neighbours.size(); ++c) {
        for (const std::uint32_t n : neighbours[c])
            for (const std::uint32_t second : neighbours[n])
                if (colour[second] != NONE)
                    usedBy[colour[second]] = c;
        std::uint32_t free = 0;
        while (free < cells.size() && usedBy[free] == c)
            ++free;
        if (free == cells.size()) {
            cells.emplace_back();
            usedBy.push_back(NONE);
        }
        colour[c] = free;
        cells[free].push_back(c);
    }
    return cells;
}

} // namespace SOLVER
