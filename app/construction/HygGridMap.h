#pragma once

#include <HYGRION/Disc.h>
#include <HYGRION/Range.h>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// What has become of the cells of one direction in a change of the grid, so that what was selected stays selected.
struct HygGridMap {
    /// Cells of the grid as it is afterwards; count 0 for what is gone.
    struct Place {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        bool operator==(const Place &) const = default;
    };

    unsigned int dir = HYGRION::Disc::X;
    std::vector<Place> places;           ///< of each cell before; empty: all stay
    std::uint32_t size = 0;              ///< number of cells afterwards
    std::optional<Place> chosen = {};    ///< what is selected instead: cells that are new
    std::optional<HYGRION::Range> block; ///< what is selected instead, whatever was before

    /// Cells divided or united: each old one becomes the new ones that lie in it, or the one in which it lies.
    /// \param before widths; \param after widths, the same length in all and in the same unit
    static HygGridMap divided(unsigned int dir, std::span<const double> before, std::span<const double> after);
    /// \p removed cells from \p first on gave way to \p added ones, which are selected.
    static HygGridMap replaced(unsigned int dir, std::size_t size, std::size_t first, std::size_t removed,
                               std::size_t added);
    /// The cells first..last in reverse order.
    static HygGridMap mirrored(unsigned int dir, std::size_t size, std::size_t first, std::size_t last);
    /// The cells first..last moved before cell \p before of the grid as it was.
    static HygGridMap moved(unsigned int dir, std::size_t size, std::size_t first, std::size_t last,
                            std::size_t before);

    /// The blocks where their cells are now. Where nothing is left of them: the cell that took their place.
    std::vector<HYGRION::Range> mapped(const std::vector<HYGRION::Range> & blocks) const;
};
