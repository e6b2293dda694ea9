#include <HYGRION/GridEdit.h>

#include <HYGRION/Project.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Xml.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <set>

namespace HYGRION::edit {

namespace {

using location_t = Assignment::location_t;
using type_t = Assignment::type_t;

struct Axis {
    unsigned int dir;
    std::uint32_t Range::*first;
    std::uint32_t Range::*last;
    location_t low;
    location_t high;
    KOR::UnitVector Disc::*steps;
    double Point3D::*coordinate;
};
constexpr std::array AXES = {
    Axis{Disc::X, &Range::left,   &Range::right, location_t::Left,   location_t::Right, &Disc::m_xSteps, &Point3D::x},
    Axis{Disc::Y, &Range::bottom, &Range::top,   location_t::Bottom, location_t::Top,   &Disc::m_ySteps, &Point3D::y},
    Axis{Disc::Z, &Range::back,   &Range::front, location_t::Back,   location_t::Front, &Disc::m_zSteps, &Point3D::z},
};

/// Throws "Invalid argument for dir." or that the cells are outside of the grid.
const Axis & checkedAxis(const Disc & disc, unsigned int dir, std::size_t first, std::size_t last, const char * where) {
    const auto * axis = std::find_if(AXES.begin(), AXES.end(), [dir](const Axis & row) { return row.dir == dir; });
    if (axis == AXES.end())
        throw KOR::Exception("Invalid argument for dir.", where);
    const std::size_t size = (disc.*axis->steps).size();
    if (first > last || last >= size)
        throw KOR::Exception(KOR::text("Cells %1..%2 lie outside of the grid of %3 cells.", first, last, size), where);
    return *axis;
}

bool isAcross(const Axis & axis, location_t location) {
    return location == axis.low || location == axis.high;
}

/// The same assignment on other cells.
Assignment onCells(Assignment assignment, const Range & range) {
    assignment.m_range = range;
    return assignment;
}

/// Rearranges the cells first..last of an axis: newIndex tells where each goes. Assignments that lie partly inside are
/// divided; a part inside that stays in one piece is one assignment.
template <typename NewIndex, typename Change>
void rearrange(Assignments & assignments, const Axis & axis, std::uint32_t first, std::uint32_t last,
               const NewIndex & newIndex, const Change & changeSide) {
    std::vector<Assignment> result;
    result.reserve(assignments.size());
    for (Assignment & assignment : assignments.m_list) {
        const Range cells = effectiveRange(assignment);
        const bool isOutside = cells.*axis.last < first || cells.*axis.first > last;
        if (assignment.m_location == location_t::Coordinate || isOutside) {
            result.push_back(std::move(assignment));
            continue;
        }
        std::vector<std::uint32_t> places;
        for (std::uint32_t i = cells.*axis.first; i <= cells.*axis.last; ++i)
            places.push_back(i < first || i > last ? i : newIndex(i));
        std::sort(places.begin(), places.end());
        changeSide(assignment);
        for (auto start = places.begin(); start != places.end();) {
            const auto end = std::adjacent_find(start, places.end(), [](auto a, auto b) { return b != a + 1; });
            const auto lastOfRun = end == places.end() ? end - 1 : end;
            Range moved = cells;
            moved.*axis.first = *start;
            moved.*axis.last = *lastOfRun;
            result.push_back(onCells(assignment, moved));
            start = lastOfRun + 1;
        }
    }
    assignments.m_list = std::move(result);
}

/// The conditions for a quantity of an initial condition, nothing if the project does not know it.
std::optional<InitialCond::condition_t> quantity(const Project & project, const std::string & name) {
    for (const InitialCond & condition : project.m_conditions.m_initialConditions)
        if (condition.m_name == name)
            return condition.m_type;
    return std::nullopt;
}

/// Whether two assignments cannot stand on the same cell.
bool excludes(const Project & project, const Assignment & a, const Assignment & b) {
    if (a.m_type != b.m_type || a.m_location != b.m_location || a.m_location == location_t::Coordinate)
        return false;
    if (a.m_reference == b.m_reference || a.m_type == type_t::Material || a.m_type == type_t::Interface)
        return true;
    if (a.m_type != type_t::InitialCondition)
        return false;
    const auto first = quantity(project, a.m_reference);
    return first && first == quantity(project, b.m_reference);
}

/// Takes the cells of \p range out of all assignments that \p isConcerned names. \return whether there were any
template <typename Condition>
bool cutOut(Assignments & assignments, const Range & range, const Condition & isConcerned) {
    bool hasChanged = false;
    std::vector<Assignment> result;
    result.reserve(assignments.size() + 1);
    for (Assignment & assignment : assignments.m_list) {
        const Range cells = effectiveRange(assignment);
        if (assignment.m_location == location_t::Coordinate || !isConcerned(assignment) ||
            !intersection(cells, range).isNormalised()) {
            result.push_back(std::move(assignment));
            continue;
        }
        hasChanged = true;
        for (const Range & rest : difference(cells, range))
            result.push_back(onCells(assignment, rest));
    }
    assignments.m_list = std::move(result);
    return hasChanged;
}

/// Makes one block of two that touch with equal faces; false if they are not one.
bool join(Range & range, const Range & other) {
    for (const Axis & axis : AXES) {
        const bool isSameAcross = std::all_of(AXES.begin(), AXES.end(), [&](const Axis & across) {
            return across.dir == axis.dir ||
                   (range.*across.first == other.*across.first && range.*across.last == other.*across.last);
        });
        const bool touches = range.*axis.last + 1 == other.*axis.first || other.*axis.last + 1 == range.*axis.first;
        if (isSameAcross && touches) {
            range.*axis.first = std::min(range.*axis.first, other.*axis.first);
            range.*axis.last = std::max(range.*axis.last, other.*axis.last);
            return true;
        }
    }
    return false;
}

} // namespace

void insertSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t before, std::size_t count) {
    const std::vector<double> & widths = std::as_const(disc).steps(dir).m_data;
    const std::size_t like = std::min(before == 0 ? 0 : before - 1, widths.size() - 1);
    disc.modifySteps(dir, before, 0, std::vector<double>(count, widths[like]), assignments);
}

void splitStep(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t index, std::size_t count) {
    checkedAxis(disc, dir, index, index, "[edit::splitStep]");
    count = std::clamp<std::size_t>(count, 1, Disc::MAX_CELLS_OF_LAYER);
    const double width = std::as_const(disc).steps(dir).m_data[index] / static_cast<double>(count);
    disc.modifySteps(dir, index, 1, std::vector<double>(count, width), assignments);
}

std::vector<Assignment> mergeSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first,
                                   std::size_t last) {
    const Axis & axis = checkedAxis(disc, dir, first, last, "[edit::mergeSteps]");
    const auto start = (disc.*axis.steps).m_data.begin();
    const double width =
        std::accumulate(start + static_cast<std::ptrdiff_t>(first), start + static_cast<std::ptrdiff_t>(last + 1), 0.0);
    return disc.modifySteps(dir, first, last - first + 1, {width}, assignments);
}

std::vector<Assignment> removeSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first,
                                    std::size_t last) {
    checkedAxis(disc, dir, first, last, "[edit::removeSteps]");
    return disc.modifySteps(dir, first, last - first + 1, {}, assignments);
}

void moveSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first, std::size_t last,
               std::size_t before) {
    constexpr const char * WHERE = "[edit::moveSteps]";
    const Axis & axis = checkedAxis(disc, dir, first, last, WHERE);
    std::vector<double> & widths = (disc.*axis.steps).m_data;
    if (before > widths.size())
        throw KOR::Exception(KOR::text("There is no cell %1.", before), WHERE);
    if (before >= first && before <= last + 1)
        return;
    // A run that moves is a rotation of the cells between its old and its new place.
    const std::size_t start = std::min(first, before);
    const std::size_t end = std::max(last + 1, before);
    const std::size_t middle = before < first ? first : last + 1;
    const auto at = [&widths](std::size_t index) { return widths.begin() + static_cast<std::ptrdiff_t>(index); };
    std::rotate(at(start), at(middle), at(end));
    const std::size_t size = end - start;
    rearrange(
        assignments, axis, static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - 1),
        [=](std::uint32_t i) {
            return static_cast<std::uint32_t>(start + (i - start + size - (middle - start)) % size);
        },
        [](Assignment &) {});
}

void mirrorSteps(Disc & disc, Assignments & assignments, unsigned int dir, std::size_t first, std::size_t last) {
    const Axis & axis = checkedAxis(disc, dir, first, last, "[edit::mirrorSteps]");
    KOR::UnitVector & steps = disc.*axis.steps;
    const bool isWhole = first == 0 && last + 1 == steps.size();
    const auto from = static_cast<std::uint32_t>(first);
    const auto to = static_cast<std::uint32_t>(last);

    // Points within the run, in metres.
    const std::vector<double> metres = steps.baseValues();
    const auto border = [&metres](std::size_t index) {
        return std::accumulate(metres.begin(), metres.begin() + static_cast<std::ptrdiff_t>(index), 0.0);
    };
    const double start = border(first);
    const double end = border(last + 1);
    for (Assignment & assignment : assignments.m_list) {
        double & x = assignment.m_coordinates.*axis.coordinate;
        if (assignment.m_location == location_t::Coordinate && x >= start && x <= end)
            x = start + end - x;
    }

    // What is on the outer surface is taken out while the others move.
    std::vector<Assignment> kept;
    std::vector<std::size_t> places;
    if (!isWhole) {
        std::vector<Assignment> inner;
        const auto lastCell = static_cast<std::uint32_t>(steps.size() - 1);
        for (std::size_t i = 0; i < assignments.size(); ++i) {
            Assignment & assignment = assignments.m_list[i];
            const Range cells = effectiveRange(assignment);
            const bool isOuter = (assignment.m_location == axis.low && cells.*axis.first == 0) ||
                                 (assignment.m_location == axis.high && cells.*axis.last == lastCell);
            (isOuter ? kept : inner).push_back(std::move(assignment));
        }
        assignments.m_list = std::move(inner);
    }
    rearrange(
        assignments, axis, from, to, [=](std::uint32_t i) { return from + to - i; },
        [&axis](Assignment & assignment) {
            if (isAcross(axis, assignment.m_location))
                assignment.m_location = assignment.m_location == axis.low ? axis.high : axis.low;
        });
    std::move(kept.begin(), kept.end(), std::back_inserter(assignments.m_list));
    std::reverse(steps.m_data.begin() + static_cast<std::ptrdiff_t>(first),
                 steps.m_data.begin() + static_cast<std::ptrdiff_t>(last + 1));
}

void setWidths(Disc & disc, unsigned int dir, std::size_t first, std::size_t last, double width) {
    checkedAxis(disc, dir, first, last, "[edit::setWidths]");
    Assignments none;
    disc.modifySteps(dir, first, last - first + 1, std::vector<double>(last - first + 1, width), none);
}

Range effectiveRange(const Assignment & assignment) {
    Range range = assignment.m_range;
    for (const Axis & axis : AXES) {
        if (assignment.m_location == axis.low)
            range.*axis.last = range.*axis.first;
        if (assignment.m_location == axis.high)
            range.*axis.first = range.*axis.last;
    }
    return range;
}

Range intersection(const Range & a, const Range & b) {
    Range both;
    for (const Axis & axis : AXES) {
        both.*axis.first = std::max(a.*axis.first, b.*axis.first);
        both.*axis.last = std::min(a.*axis.last, b.*axis.last);
    }
    return both;
}

std::vector<Range> difference(const Range & range, const Range & hole) {
    const Range both = intersection(range, hole);
    if (!both.isNormalised())
        return {range};
    std::vector<Range> parts;
    Range rest = range;
    // From the outside in: planes, rows, then what is left and right of the hole.
    for (auto axis = AXES.rbegin(); axis != AXES.rend(); ++axis) {
        if (rest.*axis->first < both.*axis->first) {
            parts.push_back(rest);
            parts.back().*axis->last = both.*axis->first - 1;
        }
        if (rest.*axis->last > both.*axis->last) {
            parts.push_back(rest);
            parts.back().*axis->first = both.*axis->last + 1;
        }
        rest.*axis->first = both.*axis->first;
        rest.*axis->last = both.*axis->last;
    }
    return parts;
}

void assign(const Project & project, Assignments & assignments, Assignment added) {
    if (added.m_location != location_t::Coordinate) {
        added.m_range = effectiveRange(added);
        cutOut(assignments, added.m_range, [&](const Assignment & other) { return excludes(project, added, other); });
        // One that grows may touch a further one.
        for (bool hasGrown = true; hasGrown;) {
            const auto joined =
                std::find_if(assignments.m_list.begin(), assignments.m_list.end(), [&](const Assignment & other) {
                    Range cells = effectiveRange(other);
                    if (onCells(other, added.m_range) != added || !join(cells, added.m_range))
                        return false;
                    added.m_range = cells;
                    return true;
                });
            hasGrown = joined != assignments.m_list.end();
            if (hasGrown)
                assignments.m_list.erase(joined);
        }
    }
    assignments.m_list.push_back(std::move(added));
}

bool unassign(Assignments & assignments, type_t type, location_t location, const Range & range,
              const std::string & reference) {
    return cutOut(assignments, range, [&](const Assignment & assignment) {
        return assignment.m_type == type && assignment.m_location == location &&
               (reference.empty() || assignment.m_reference == reference);
    });
}

std::string CellBlock::text() const {
    TiXmlDocument document;
    TiXmlElement & root = *document.LinkEndChild(new TiXmlElement(ROOT_ELEMENT))->ToElement();
    KOR::xml::setAttribute(root, "nx", KOR::toString(nx));
    KOR::xml::setAttribute(root, "ny", KOR::toString(ny));
    KOR::xml::setAttribute(root, "nz", KOR::toString(nz));
    assignments.writeXML(root);
    return KOR::xml::print(document);
}

CellBlock CellBlock::fromText(const std::string & text) {
    constexpr const char * WHERE = "[CellBlock::fromText]";
    constexpr const char * MESSAGE = "The text holds no block of cells.";
    TiXmlDocument document;
    if (KOR::xml::parse(text, document) || document.RootElement() == nullptr ||
        document.RootElement()->ValueStr() != ROOT_ELEMENT)
        throw KOR::Exception(MESSAGE, WHERE);
    const TiXmlElement & root = *document.RootElement();
    CellBlock block;
    const auto read = [&root](const char * name, std::uint32_t & size) {
        const auto number = KOR::parseInteger<std::uint32_t>(KOR::xml::attribute(root, name).value_or(""));
        if (!number || *number == 0)
            throw KOR::Exception(MESSAGE, WHERE);
        size = *number;
    };
    read("nx", block.nx);
    read("ny", block.ny);
    read("nz", block.nz);
    if (const TiXmlElement * list = root.FirstChildElement("Assignments")) {
        try {
            block.assignments.readXML(*list);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, MESSAGE, WHERE);
        }
    }
    return block;
}

CellBlock copyBlock(const Assignments & assignments, const Range & range) {
    CellBlock block{.nx = range.right - range.left + 1,
                    .ny = range.top - range.bottom + 1,
                    .nz = range.front - range.back + 1,
                    .assignments = {}};
    for (const Assignment & assignment : assignments.m_list) {
        Range cells = intersection(effectiveRange(assignment), range);
        if (assignment.m_location == location_t::Coordinate || !cells.isNormalised())
            continue;
        for (const Axis & axis : AXES) {
            cells.*axis.first -= range.*axis.first;
            cells.*axis.last -= range.*axis.first;
        }
        block.assignments.m_list.push_back(onCells(assignment, cells));
    }
    return block;
}

std::vector<std::string> pasteBlock(const Project & project, Assignments & assignments, const CellBlock & block,
                                    std::uint32_t left, std::uint32_t bottom, std::uint32_t back) {
    const auto end = [](std::uint32_t start, std::uint32_t count, std::size_t size) {
        return static_cast<std::uint32_t>(std::min<std::uint64_t>(std::uint64_t{start} + count, size));
    };
    const std::array starts = {left, bottom, back};
    const std::array ends = {end(left, block.nx, project.m_disc.nx()), end(bottom, block.ny, project.m_disc.ny()),
                             end(back, block.nz, project.m_disc.nz())};
    Range target;
    for (std::size_t a = 0; a < AXES.size(); ++a) {
        if (starts[a] >= ends[a])
            return {};
        target.*AXES[a].first = starts[a];
        target.*AXES[a].last = ends[a] - 1;
    }
    std::set<std::pair<definition_t, std::string>> known;
    forEachDefinitionList(project, [&known](definition_t kind, const auto & list) {
        for (const auto & item : list)
            known.emplace(kind, item.m_name);
    });
    std::set<std::string> missing;
    cutOut(assignments, target, [](const Assignment &) { return true; });
    for (const Assignment & assignment : block.assignments.m_list) {
        if (!known.contains({referencedKind(assignment), assignment.m_reference})) {
            missing.insert(assignment.m_reference);
            continue;
        }
        Range cells = assignment.m_range;
        bool isInside = assignment.m_location != location_t::Coordinate;
        for (std::size_t a = 0; a < AXES.size() && isInside; ++a) {
            const std::uint64_t first = std::uint64_t{cells.*AXES[a].first} + starts[a];
            const std::uint64_t last = std::uint64_t{cells.*AXES[a].last} + starts[a];
            isInside = first <= target.*AXES[a].last;
            cells.*AXES[a].first = static_cast<std::uint32_t>(first);
            cells.*AXES[a].last = static_cast<std::uint32_t>(std::min<std::uint64_t>(last, target.*AXES[a].last));
        }
        if (isInside)
            assignments.m_list.push_back(onCells(assignment, cells));
    }
    return {missing.begin(), missing.end()};
}

} // namespace HYGRION::edit
