#include "construction/HygGridMap.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using HYGRION::Disc;
using HYGRION::Range;

/// The ends of a block in a direction.
std::pair<std::uint32_t Range::*, std::uint32_t Range::*> endsOf(unsigned int dir) {
    return dir == Disc::X   ? std::pair(&Range::left, &Range::right)
           : dir == Disc::Y ? std::pair(&Range::bottom, &Range::top)
                            : std::pair(&Range::back, &Range::front);
}

std::vector<double> bordersOf(std::span<const double> widths) {
    std::vector<double> borders(widths.size() + 1, 0.0);
    std::partial_sum(widths.begin(), widths.end(), borders.begin() + 1);
    return borders;
}

/// Each cell stays; \p newIndex tells where.
template <typename NewIndex> HygGridMap reordered(unsigned int dir, std::size_t size, const NewIndex & newIndex) {
    HygGridMap map{.dir = dir, .places = {}, .size = static_cast<std::uint32_t>(size), .block = {}};
    for (std::size_t i = 0; i < size; ++i)
        map.places.push_back({static_cast<std::uint32_t>(newIndex(i)), 1});
    return map;
}

} // namespace

HygGridMap HygGridMap::divided(unsigned int dir, std::span<const double> before, std::span<const double> after) {
    HygGridMap map{.dir = dir, .places = {}, .size = static_cast<std::uint32_t>(after.size()), .block = {}};
    const std::vector<double> was = bordersOf(before);
    const std::vector<double> is = bordersOf(after);
    // Sums of the same lengths in another order differ by their rounding.
    const double tolerance = 1e-9 * was.back();
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto first = std::upper_bound(is.begin() + 1, is.end() - 1, was[i] + tolerance) - is.begin() - 1;
        const auto last = std::lower_bound(is.begin() + 1, is.end() - 1, was[i + 1] - tolerance) - is.begin() - 1;
        map.places.push_back({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last - first + 1)});
    }
    return map;
}

HygGridMap HygGridMap::replaced(unsigned int dir, std::size_t size, std::size_t first, std::size_t removed,
                                std::size_t added) {
    HygGridMap map = reordered(dir, size, [=](std::size_t i) {
        return i < first ? i : i < first + removed ? first : i - removed + added;
    });
    map.size = static_cast<std::uint32_t>(size - removed + added);
    for (std::size_t i = first; i < first + removed; ++i)
        map.places[i].count = 0;
    if (added > 0)
        map.chosen = Place{static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(added)};
    return map;
}

HygGridMap HygGridMap::mirrored(unsigned int dir, std::size_t size, std::size_t first, std::size_t last) {
    return reordered(dir, size, [=](std::size_t i) { return i < first || i > last ? i : first + last - i; });
}

HygGridMap HygGridMap::moved(unsigned int dir, std::size_t size, std::size_t first, std::size_t last,
                             std::size_t before) {
    const std::size_t count = last - first + 1;
    return reordered(dir, size, [=](std::size_t i) {
        const bool isOfRun = i >= first && i <= last;
        if (before > last)
            return isOfRun ? i + (before - last - 1) : i > last && i < before ? i - count : i;
        return isOfRun ? i - (first - before) : i >= before && i < first ? i + count : i;
    });
}

std::vector<Range> HygGridMap::mapped(const std::vector<Range> & blocks) const {
    if (block)
        return {*block};
    if (blocks.empty() || places.empty())
        return blocks;
    const auto firstEnd = endsOf(dir).first;
    const auto lastEnd = endsOf(dir).second;
    Range bounds = blocks.front();
    for (const Range & each : blocks)
        for (const unsigned int axis : {Disc::X, Disc::Y, Disc::Z}) {
            const auto [first, last] = endsOf(axis);
            bounds.*first = std::min(bounds.*first, each.*first);
            bounds.*last = std::max(bounds.*last, each.*last);
        }
    const auto over = [&](Range range, const Place & place) {
        range.*firstEnd = place.first;
        range.*lastEnd = place.first + place.count - 1;
        return range;
    };
    if (chosen)
        return {over(bounds, *chosen)};
    std::vector<Range> result;
    for (const Range & each : blocks) {
        std::vector<Place> there;
        for (std::size_t i = each.*firstEnd; i <= each.*lastEnd && i < places.size(); ++i)
            if (places[i].count > 0)
                there.push_back(places[i]);
        std::sort(there.begin(), there.end(), [](const Place & a, const Place & b) { return a.first < b.first; });
        for (std::size_t n = 0; n < there.size();) {
            Place run = there[n];
            for (++n; n < there.size() && there[n].first <= run.first + run.count; ++n)
                run.count = std::max(run.first + run.count, there[n].first + there[n].count) - run.first;
            if (const Range moved = over(each, run); std::find(result.begin(), result.end(), moved) == result.end())
                result.push_back(moved);
        }
    }
    if (result.empty() && size > 0)
        result.push_back(over(
            bounds, {std::min(places[std::min<std::size_t>(bounds.*firstEnd, places.size() - 1)].first, size - 1), 1}));
    return result;
}
