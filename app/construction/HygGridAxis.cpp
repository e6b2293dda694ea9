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
    setLayers({0, static_cast<std::uint32_t>(count())});
}

void HygGridAxis::setLayers(std::vector<std::uint32_t> borders) {
    m_layers = std::move(borders);
    makeSlots();
}

void HygGridAxis::setView(double scale, double origin) {
    m_origin = origin;
    if (scale == m_scale)
        return;
    m_scale = scale;
    makeSlots();
}

void HygGridAxis::makeSlots() {
    m_slots.clear();
    const double least = MIN_LAYER / m_scale;
    const std::size_t layers = m_layers.size() - 1;
    const auto widthOf = [&](std::size_t layer) { return m_edges[m_layers[layer + 1]] - m_edges[m_layers[layer]]; };
    double free = 0; // where the place of the slot before ends
    for (std::size_t layer = 0; layer < layers; ++layer) {
        if (widthOf(layer) >= least)
            continue;
        const std::size_t first = layer;
        while (layer + 1 < layers && widthOf(layer + 1) < least)
            ++layer;
        const std::size_t thin = layer + 1 - first;
        const double wanted = static_cast<double>(thin) * least;
        const double middle = (m_edges[m_layers[first]] + m_edges[m_layers[layer + 1]]) / 2;
        // The layers beside keep half of their room, so that they stay in sight too.
        const double lowest = first == 0 ? 0 : std::max(free, m_edges[m_layers[first]] - widthOf(first - 1) / 2);
        const double highest = layer + 1 == layers ? length() : m_edges[m_layers[layer + 1]] + widthOf(layer + 1) / 2;
        if (highest - lowest < wanted)
            continue; // too many for the screen
        const double from = std::clamp(middle - wanted / 2, lowest, highest - wanted);
        m_slots.push_back({from, from + wanted, first, thin});
        free = from + wanted;
    }
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

double HygGridAxis::pixelOfPosition(double metres) const {
    const std::size_t cell = cellAtPosition(metres);
    const double width = m_positions[cell + 1] - m_positions[cell];
    const double part = width > 0 ? std::clamp((metres - m_positions[cell]) / width, 0.0, 1.0) : 0.5;
    return toPixel(m_edges[cell] + part * (m_edges[cell + 1] - m_edges[cell]));
}

std::size_t HygGridAxis::cellAtPosition(double metres) const {
    const auto next = std::upper_bound(m_positions.begin(), m_positions.end(), metres) - m_positions.begin();
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(next - 1, 0, static_cast<std::ptrdiff_t>(count()) - 1));
}

std::size_t HygGridAxis::cellInSlot(const Slot & slot, double drawn) const {
    const double part = (drawn - slot.from) / (slot.to - slot.from) * static_cast<double>(slot.count);
    const std::size_t layer = slot.layer + std::min(static_cast<std::size_t>(std::max(part, 0.0)), slot.count - 1);
    const std::ptrdiff_t cell = cellToScale(drawn);
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(cell, m_layers[layer], m_layers[layer + 1] - 1));
}

std::ptrdiff_t HygGridAxis::cellToScale(double drawn) const {
    if (drawn < 0)
        return -1;
    if (drawn >= length())
        return static_cast<std::ptrdiff_t>(count());
    return std::upper_bound(m_edges.begin(), m_edges.end(), drawn) - m_edges.begin() - 1;
}

std::ptrdiff_t HygGridAxis::cellAt(double pixel) const {
    const double drawn = toDrawn(pixel);
    const std::ptrdiff_t cell = cellToScale(drawn);
    if (cell < 0 || cell >= static_cast<std::ptrdiff_t>(count()))
        return cell;
    const auto slot = std::upper_bound(m_slots.begin(), m_slots.end(), drawn,
                                       [](double place, const Slot & other) { return place < other.to; });
    return slot != m_slots.end() && drawn >= slot->from ? static_cast<std::ptrdiff_t>(cellInSlot(*slot, drawn)) : cell;
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
            cell = cellToScale(drawn);
        while (cell + 1 < size && m_edges[static_cast<std::size_t>(cell) + 1] <= drawn)
            ++cell;
        cells[static_cast<std::size_t>(p)] = static_cast<std::int32_t>(cell);
    }
    for (const Slot & slot : m_slots) {
        const auto [low, high] = std::minmax({toPixel(slot.from) * ratio, toPixel(slot.to) * ratio});
        const int last = static_cast<int>(std::min(high, count - 1.0));
        for (int p = static_cast<int>(std::clamp(low, 0.0, count - 1.0)); p <= last; ++p)
            if (const double drawn = toDrawn((p + 0.5) / ratio); drawn >= slot.from && drawn < slot.to)
                cells[static_cast<std::size_t>(p)] = static_cast<std::int32_t>(cellInSlot(slot, drawn));
    }
    return cells;
}
