#pragma once

#include <HYGRION/Range.h>

#include <cstdint>
#include <vector>

/// The selected cells as blocks, and the cell from which the keyboard goes on.
class HygGridSelection {
public:
    struct Cell {
        std::uint32_t i = 0;
        std::uint32_t j = 0;
        bool operator==(const Cell &) const = default;
    };

    const std::vector<HYGRION::Range> & blocks() const { return m_blocks; }
    bool empty() const { return m_blocks.empty(); }
    void clear() { m_blocks.clear(); }
    /// Selects the cells between two corners; \p isAdded keeps what is selected already.
    void setCorners(Cell anchor, Cell cursor, std::uint32_t plane, bool isAdded = false);
    /// Moves the free corner of the block last selected.
    void moveCursor(Cell cursor, std::uint32_t plane);
    void setBlocks(std::vector<HYGRION::Range> blocks);
    /// Cuts off what lies beyond a grid that has become smaller, and follows the plane.
    void fit(std::size_t nx, std::size_t ny, std::uint32_t plane);

    Cell anchor() const { return m_anchor; }
    Cell cursor() const { return m_cursor; }
    bool contains(std::uint32_t i, std::uint32_t j) const;
    /// The block around all blocks; cell 0, 0 without any.
    HYGRION::Range bounds() const;
    /// Cells of all blocks; those in two blocks count twice.
    std::uint64_t cellCount() const;

private:
    std::vector<HYGRION::Range> m_blocks;
    Cell m_anchor;
    Cell m_cursor;
};
