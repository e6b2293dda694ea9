#include "construction/HygConstructionHint.h"

#include <HYGRION/Discretization.h>

#include <KOR/Exception.h>

#include <algorithm>

namespace {

using HYGRION::Assignment;
using HYGRION::Range;
using location_t = Assignment::location_t;
using Hint = HygConstructionHint;

constexpr std::size_t MAX_BLOCKS = 500; ///< of one hint

struct Side {
    location_t side;
    location_t opposite;
    int di;
    int dj;
};
constexpr Side SIDES[] = {
    {location_t::Left,   location_t::Right,  -1, 0 },
    {location_t::Right,  location_t::Left,   1,  0 },
    {location_t::Bottom, location_t::Top,    0,  -1},
    {location_t::Top,    location_t::Bottom, 0,  1 }
};

std::uint32_t bit(location_t side) {
    return 1U << (static_cast<unsigned int>(side) - 1);
}

/// Adds a cell to the last block if it goes on there along the surface.
void append(Hint & hint, std::uint32_t i, std::uint32_t j, std::uint32_t plane) {
    ++hint.count;
    if (!hint.ranges.empty()) {
        Range & last = hint.ranges.back();
        if (last.bottom == j && last.top == j && last.right + 1 == i) {
            last.right = i;
            return;
        }
        if (last.left == i && last.right == i && last.top + 1 == j) {
            last.top = j;
            return;
        }
    }
    if (hint.ranges.size() < MAX_BLOCKS)
        hint.ranges.push_back({i, j, plane, i, j, plane});
}

/// Surfaces of materials without an interface: beside cells without material, at the ends of a stack and at the edges of
/// a detail.
void findSurfaces(const Hint::Snapshot & construction, std::vector<Hint> & hints) {
    const HygCellPlane & cells = construction.cells;
    HYGRION::BoundaryIDGrid interfaces;
    HYGRION::Discretization::updateBoundaryIDGrid(cells.nx(), cells.ny(), 1, construction.interfaces, interfaces);
    const auto nx = static_cast<std::ptrdiff_t>(cells.nx());
    const auto ny = static_cast<std::ptrdiff_t>(cells.ny());
    for (const Side & side : SIDES) {
        if (construction.isStack && side.dj != 0)
            continue; // the ends of a stack are sections through the wall
        Hint open{Hint::NoInterface, true, {}, side.side, 0, {}, {}};
        Hint edge{Hint::OpenEdge, !construction.hasInterfaces, {}, side.side, 0, {}, {}};
        const auto look = [&](std::ptrdiff_t i, std::ptrdiff_t j) {
            const auto column = static_cast<std::uint32_t>(i);
            const auto row = static_cast<std::uint32_t>(j);
            if (cells.material(column, row) == HygCellPlane::NO_MATERIAL ||
                (interfaces.at(column, row, 0) & bit(side.side)) != 0)
                return;
            const std::ptrdiff_t besideI = i + side.di;
            const std::ptrdiff_t besideJ = j + side.dj;
            if (besideI < 0 || besideJ < 0 || besideI >= nx || besideJ >= ny)
                return append(construction.isStack ? open : edge, column, row, cells.plane());
            const auto otherColumn = static_cast<std::size_t>(besideI);
            const auto otherRow = static_cast<std::size_t>(besideJ);
            if (cells.material(otherColumn, otherRow) == HygCellPlane::NO_MATERIAL &&
                (interfaces.at(otherColumn, otherRow, 0) & bit(side.opposite)) == 0)
                append(open, column, row, cells.plane());
        };
        // Along the surface, so that neighbours become one block.
        if (side.di != 0)
            for (std::ptrdiff_t i = 0; i < nx; ++i)
                for (std::ptrdiff_t j = 0; j < ny; ++j)
                    look(i, j);
        else
            for (std::ptrdiff_t j = 0; j < ny; ++j)
                for (std::ptrdiff_t i = 0; i < nx; ++i)
                    look(i, j);
        for (Hint & hint : {std::ref(open), std::ref(edge)})
            if (hint.count > 0)
                hints.push_back(std::move(hint));
    }
}

} // namespace

HygConstructionHint::Snapshot HygConstructionHint::snapshot(const HygConstructionScene & scene) {
    Snapshot copy;
    if (scene.project == nullptr || scene.isBlank())
        return copy;
    copy.cells = scene.cells;
    copy.isStack = scene.isStack();
    for (std::size_t n = 0; n < scene.project->m_materials.size(); ++n)
        copy.materials.emplace_back(scene.project->m_materials[n].m_name,
                                    scene.problemOf(static_cast<std::int32_t>(n)));
    for (const Assignment & assignment : scene.project->m_assignments.m_list) {
        copy.hasOutputs = copy.hasOutputs || assignment.m_type == Assignment::type_t::Output;
        if (assignment.m_type != Assignment::type_t::Interface)
            continue;
        copy.hasInterfaces = true;
        Range range;
        if (!scene.showsIn(assignment, range))
            continue;
        copy.interfaces.m_list.push_back(assignment);
        copy.interfaces.m_list.back().m_range.back = copy.interfaces.m_list.back().m_range.front = 0;
    }
    for (const HygCellPlane::Overlap & overlap : scene.cells.overlaps()) {
        copy.overlapping += overlap.cells;
        Range range;
        if (copy.overlaps.size() < MAX_BLOCKS &&
            scene.showsIn(scene.project->m_assignments.m_list[overlap.assignment], range))
            copy.overlaps.push_back(range);
    }
    return copy;
}

std::vector<HygConstructionHint> HygConstructionHint::find(const Snapshot & construction) {
    std::vector<Hint> hints;
    const HygCellPlane & cells = construction.cells;
    if (cells.nx() == 0)
        return hints;
    for (const auto & [kind, material] :
         {std::pair(UnknownMaterial, HygCellPlane::UNKNOWN), std::pair(NoMaterial, HygCellPlane::NO_MATERIAL)}) {
        Hint hint{kind, true, cells.blocksOf(material, MAX_BLOCKS), location_t::Element, 0, {}, {}};
        for (std::size_t j = 0; j < cells.ny(); ++j)
            hint.count += static_cast<std::uint64_t>(std::count(cells.row(j), cells.row(j) + cells.nx(), material));
        // In a detail air is what is left without material.
        hint.isWarning = kind == UnknownMaterial || construction.isStack || hint.count == cells.nx() * cells.ny();
        if (hint.count > 0)
            hints.push_back(std::move(hint));
    }
    for (std::size_t n = 0; n < construction.materials.size(); ++n) {
        const auto & [name, problem] = construction.materials[n];
        if (problem.isEmpty())
            continue;
        Hint hint{NoFile, true,   cells.blocksOf(static_cast<std::int32_t>(n), MAX_BLOCKS), location_t::Element, 0,
                  name,   problem};
        if (!hint.ranges.empty())
            hints.push_back(std::move(hint));
    }
    if (construction.overlapping > 0)
        hints.push_back({Overlap, true, construction.overlaps, location_t::Element, construction.overlapping, {}, {}});
    try {
        findSurfaces(construction, hints);
    } catch (const KOR::Exception &) {
        // A grid too large for the table of surfaces; the check of the project tells of that.
    }
    const bool isEmpty = std::any_of(hints.begin(), hints.end(), [&](const Hint & hint) {
        return hint.kind == NoMaterial && hint.count == cells.nx() * cells.ny();
    });
    if (!construction.hasOutputs && !isEmpty)
        hints.push_back({NoOutput, true, {}, location_t::Element, 0, {}, {}});
    std::stable_partition(hints.begin(), hints.end(), [](const Hint & hint) { return hint.isWarning; });
    return hints;
}
