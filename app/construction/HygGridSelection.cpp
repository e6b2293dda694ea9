#include "construction/HygGridSelection.h"

#include <algorithm>

namespace {

HYGRION::Range between(HygGridSelection::Cell a, HygGridSelection::Cell b, std::uint32_t plane) {
    return {std::min(a.i, b.i), std::min(a.j, b.j), plane, std::max(a.i, b.i), std::max(a.j, b.j), plane};
}

} // namespace

void HygGridSelection::setCorners(Cell anchor, Cell cursor, std::uint32_t plane, bool isAdded) {
    if (!isAdded)
        m_blocks.clear();
    m_anchor = anchor;
    m_cursor = cursor;
    m_blocks.push_back(between(anchor, cursor, plane));
}

void HygGridSelection::moveCursor(Cell cursor, std::uint32_t plane) {
    if (m_blocks.empty())
        m_blocks.emplace_back();
    m_cursor = cursor;
    m_blocks.back() = between(m_anchor, cursor, plane);
}

void HygGridSelection::setBlocks(std::vector<HYGRION::Range> blocks) {
    m_blocks = std::move(blocks);
    if (m_blocks.empty())
        return;
    m_anchor = {m_blocks.back().left, m_blocks.back().bottom};
    m_cursor = {m_blocks.back().right, m_blocks.back().top};
}

void HygGridSelection::fit(std::size_t nx, std::size_t ny, std::uint32_t plane) {
    const auto lastColumn = static_cast<std::uint32_t>(std::max<std::size_t>(nx, 1) - 1);
    const auto lastRow = static_cast<std::uint32_t>(std::max<std::size_t>(ny, 1) - 1);
    std::erase_if(m_blocks, [&](HYGRION::Range & block) {
        block.right = std::min(block.right, lastColumn);
        block.top = std::min(block.top, lastRow);
        block.back = block.front = plane;
        return !block.isNormalised();
    });
    for (Cell * cell : {&m_anchor, &m_cursor})
        *cell = {std::min(cell->i, lastColumn), std::min(cell->j, lastRow)};
}

bool HygGridSelection::contains(std::uint32_t i, std::uint32_t j) const {
    return std::any_of(m_blocks.begin(), m_blocks.end(),
                       [=](const HYGRION::Range & block) { return block.contains(i, j, block.back); });
}

HYGRION::Range HygGridSelection::bounds() const {
    if (m_blocks.empty())
        return {};
    HYGRION::Range all = m_blocks.front();
    for (const HYGRION::Range & block : m_blocks) {
        all.left = std::min(all.left, block.left);
        all.bottom = std::min(all.bottom, block.bottom);
        all.right = std::max(all.right, block.right);
        all.top = std::max(all.top, block.top);
    }
    return all;
}

std::uint64_t HygGridSelection::cellCount() const {
    std::uint64_t count = 0;
    for (const HYGRION::Range & block : m_blocks)
        count += block.cellCount();
    return count;
}
