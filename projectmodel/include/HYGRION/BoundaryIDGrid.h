#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace HYGRION {

/// Which sides of each cell carry an interface. Bit 0 is Left, then Right, Bottom, Top, Back, Front.
struct BoundaryIDGrid {
    std::size_t nx = 0;
    std::size_t ny = 0;
    std::size_t nz = 0;
    std::vector<std::uint32_t> masks; ///< nz x ny x nx, columns fastest

    std::uint32_t at(std::size_t i, std::size_t j, std::size_t k) const { return masks[(k * ny + j) * nx + i]; }
    bool operator==(const BoundaryIDGrid &) const = default;
};

} // namespace HYGRION
