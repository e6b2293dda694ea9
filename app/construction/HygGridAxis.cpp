#include "construction/HygGridAxis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

void HygGridAxis::setWidths(const KOR::UnitVector & widths, bool isEquidistant) {
    std::vector<double> metres = widths.baseValues();
    if (metres.empty())
        metres.push_back(1);
    m_positions.assign(1, 0);
    m_edges.assign(1, 0);
    m_smallest = metres.front();
    for (const double width : metres) {
        m_positions.push_back(m_positions.back() + width);
        // A stack plane may have no width; it is drawn all the same.
        m_edges.push_back(isEquidistant || width <= 0 ? m_edges.back() + 1 : m_positions.back());
        m_smallest = std::min(m_smallest, width);
    }
    if (isEquidistant || m_smallest <= 0)
        m_smallest = 1;
    m_widths = std::move(metres);
}

double HygGridAxis::width(std::size_t first, std::size_t last) const {
    const auto begin = m_widths.begin();
    const double sum =
        std::accumulate(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last + 1), 0.0);
    constexpr double PER_METRE = 1e10; // finer is only the rounding of the sum
    return sum > 1e-7 ? std::round(sum * PER_METRE) / PER_METRE : sum;
}

std::pair<double, double> HygGridAxis::span(std::size_t first, std::size_t last) const {
    const double from = pixel(first);
    const double to = pixel(last + 1);
    return std::minmax(from, to);
}

std::ptrdiff_t HygGridAxis::cellAt(double pixel) const {
    const double drawn = toDrawn(pixel);
    if (drawn < 0)
        return -1;
    if (drawn >= length())
        return static_cast<std::ptrdiff_t>(count());
    return std::upper_bound(m_edges.begin(), m_edges.end(), drawn) - m_edges.begin() - 1;
}

std::size_t HygGridAxis::nearestCell(double pixel) const {
    return static_cast<std::size_t>(
        std::clamp<std::ptrdiff_t>(cellAt(pixel), 0, static_cast<std::ptrdiff_t>(count()) - 1));
}

std::pair<std::size_t, std::size_t> HygGridAxis::cellsBetween(double pixel, double otherPixel) const {
    const double from = std::min(toDrawn(pixel), toDrawn(otherPixel));
    const double to = std::max(toDrawn(pixel), toDrawn(otherPixel));
    if (to < 0 || from > length())
        return {1, 0};
    return std::minmax(nearestCell(pixel), nearestCell(otherPixel));
}

std::vector<std::int32_t> HygGridAxis::cellsOfPixels(int count, double ratio) const {
    std::vector<std::int32_t> cells(static_cast<std::size_t>(count), -1);
    const auto size = static_cast<std::ptrdiff_t>(this->count());
    // Neighbouring pixels lie in the same or in the next cells, so the search goes on from the last one.
    std::ptrdiff_t cell = -1;
    for (int n = 0; n < count; ++n) {
        const int p = m_isReversed ? count - 1 - n : n;
        const double drawn = toDrawn((p + 0.5) / ratio);
        if (drawn < 0 || drawn >= length())
            continue;
        if (cell < 0)
            cell = cellAt((p + 0.5) / ratio);
        while (cell + 1 < size && m_edges[static_cast<std::size_t>(cell) + 1] <= drawn)
            ++cell;
        cells[static_cast<std::size_t>(p)] = static_cast<std::int32_t>(cell);
    }
    return cells;
}
