#include <HYGRION/Disc.h>

#include <KOR/MessageHandler.h>
#include <KOR/Xml.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace HYGRION {

namespace {

constexpr KOR::xml::ElementTexts TEXTS{
    .where = "[Disc::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown element '%1' in 'Discretization' section.",
    .wrapping = {},
};

/// One direction of the grid in the file and in messages.
struct Direction {
    unsigned int dir;
    KOR::UnitVector Disc::*steps;
    const char * element;
    const char * missing;
    const char * notPositive;
    const char * heading; ///< of autoDisc's log
    const char * line;
};

//   bit      list              element   no list at all
constexpr Direction DIRECTIONS[] = {
    {Disc::X, &Disc::m_xSteps, "XSteps",
     "Invalid discretization found in section 'Discretization', x-steps vector is missing.", "Invalid discretization found in section 'Discretization', x-steps vector contains negative or zero width.",
     "Discretization columns",      "  Discretizing column %1 (dx=%2) with discMode %3 into "     },
    {Disc::Y, &Disc::m_ySteps, "YSteps",
     "Invalid discretization found in section 'Discretization', y-steps vector is missing.", "Invalid discretization found in section 'Discretization', y-steps vector contains negative or zero width.",
     "Discretization rows",         "  Discretizing row %1 (dx=%2) with discMode %3 into "        },
    {Disc::Z, &Disc::m_zSteps, "ZSteps",
     "Invalid discretization found in section 'Discretization', z-steps vector is missing.", "Invalid discretization found in section 'Discretization', z-steps vector contains negative or zero width.",
     "Discretization stack planes", "  Discretizing stack plane %1 (dx=%2) with discMode %3 into "},
};

bool isPositive(double width) {
    return width > 0 && std::isfinite(width);
}

double sum(const std::vector<double> & values) {
    return std::accumulate(values.begin(), values.end(), 0.0);
}

KOR::UnitVector oneMetre() {
    return {{1.0}, KOR::Unit("m")};
}

void readSteps(const TiXmlElement & element, KOR::UnitVector & steps) {
    const std::string where(TEXTS.where);
    KOR::UnitVector read;
    try {
        read.readXML(element);
    } catch (const KOR::Exception & ex) {
        const KOR::Exception cause = KOR::xml::located(element, ex);
        throw KOR::Exception(cause,
                             KOR::text("%1\nInvalid format of xml element '%2' in section 'Discretization'",
                                       cause.message(), element.ValueStr()),
                             where);
    }
    if (read.m_unit.base() != KOR::Unit("m"))
        throw KOR::Exception(
            KOR::xml::withLine(element, KOR::text("Invalid format of xml element '%1' in section 'Discretization'",
                                                  element.ValueStr())),
            where);
    steps = std::move(read);
}

[[noreturn]] void refuse(const char * message) {
    throw KOR::Exception(message, "[Disc::checkParameters]");
}

/// The cells of one column, row or plane for autoDisc; they fill \p width exactly.
std::vector<double> dividedLayer(double width, const Disc::LayerSettings & settings, double metre) {
    if (settings.mode > Disc::MODE_BOTH)
        throw KOR::Exception(KOR::text("Unknown discretization mode %1.", settings.mode), "[Disc::autoDisc]");
    const double minStep = settings.minStep * metre;
    const double maxStep = settings.maxStep * metre;
    std::vector<double> steps;
    Disc::discretizeWidth(width, settings.mode, minStep, maxStep, settings.stretch, settings.isGeometric, steps);
    const double rest = width - sum(steps);
    if (!settings.isGeometric && rest > 1e-9 * width) { // the closing cell of a tangent grid
        (settings.mode == Disc::MODE_END ? steps.front() : steps.back()) += rest;
        Disc::applyMaxStepSize(steps, maxStep);
    }
    return steps;
}

/// For each border 0..oldSteps of the grid the border that takes its place when \p count widths from \p first on
/// become \p newWidths. Borders within the run go to the nearest new one; inserted cells belong to the cell before.
std::vector<std::uint32_t> movedEdges(const std::vector<double> & oldSteps, std::size_t first, std::size_t count,
                                      const std::vector<double> & newWidths) {
    std::vector<std::uint32_t> edges(oldSteps.size() + 1);
    std::iota(edges.begin(), edges.end(), 0u);
    const std::size_t run = newWidths.size();
    for (std::size_t edge = first + count; edge < edges.size(); ++edge)
        if (edge > 0)
            edges[edge] = static_cast<std::uint32_t>(edge - count + run);
    if (count == run)
        return edges;
    const double oldWidth = sum({oldSteps.begin() + static_cast<std::ptrdiff_t>(first),
                                 oldSteps.begin() + static_cast<std::ptrdiff_t>(first + count)});
    const double newWidth = sum(newWidths);
    double position = 0;
    double newPosition = 0; // of the border behind newCell cells
    std::size_t newCell = 0;
    for (std::size_t i = 1; i < count; ++i) {
        position += oldSteps[first + i - 1] / oldWidth * newWidth;
        while (newCell < run && newPosition + newWidths[newCell] / 2 <= position)
            newPosition += newWidths[newCell++];
        edges[first + i] = static_cast<std::uint32_t>(first + newCell);
    }
    return edges;
}

} // namespace

Disc::Disc() : m_xSteps(oneMetre()), m_ySteps(oneMetre()), m_zSteps(oneMetre()) {}

const KOR::UnitVector & Disc::steps(unsigned int dir) const {
    for (const Direction & direction : DIRECTIONS)
        if (direction.dir == dir)
            return this->*direction.steps;
    throw KOR::Exception("Invalid argument for dir.", "[Disc::steps]");
}

void Disc::readXML(const TiXmlElement & element) {
    Disc read;
    const KOR::xml::ElementReader reader(element, TEXTS);
    const TiXmlElement * first = element.FirstChildElement();
    if (first == nullptr || first->ValueStr() != "XSteps")
        reader.fail("Invalid discretization found in section 'Discretization', x-steps vector is missing.");
    bool hasSteps[std::size(DIRECTIONS)] = {};
    for (const TiXmlElement * child = first; child != nullptr; child = child->NextSiblingElement()) {
        const std::string & name = child->ValueStr();
        const auto * direction = std::find_if(std::begin(DIRECTIONS), std::end(DIRECTIONS),
                                              [&name](const Direction & row) { return name == row.element; });
        if (direction != std::end(DIRECTIONS)) {
            if (std::exchange(hasSteps[direction - DIRECTIONS], true))
                reader.fail(*child, KOR::text("'%1' is given more than once.", name));
            readSteps(*child, read.*direction->steps);
        } else if (name == "KOR:Parameter") {
            read.m_thetaZ.readXML(*child);
            if (read.m_thetaZ.name() != "ThetaZ")
                reader.fail(*child,
                            KOR::text("Unknown parameter '%1' in 'Discretization' section.", read.m_thetaZ.name()));
        } else {
            reader.fail(*child, KOR::text(TEXTS.unknownTag, name));
        }
    }
    *this = std::move(read);
}

void Disc::writeXML(TiXmlElement & parent) const {
    KOR::xml::appendComment(parent, "Discretization data (grid and sketches)");
    TiXmlElement & element = KOR::xml::appendElement(parent, "Discretization");
    for (const Direction & direction : DIRECTIONS) {
        const KOR::UnitVector & list = this->*direction.steps;
        const bool isDefault = direction.dir != X && list == oneMetre();
        if (!list.empty() && !isDefault)
            list.writeXML(element, direction.element);
    }
    if (!m_thetaZ.empty())
        m_thetaZ.writeXML(element);
}

void Disc::checkParameters() const {
    try {
        for (const Direction & direction : DIRECTIONS)
            if ((this->*direction.steps).empty())
                refuse(direction.missing);
        for (const Direction & direction : DIRECTIONS) {
            const std::vector<double> & widths = (this->*direction.steps).m_data;
            const bool mayBeFlat = direction.dir == Z && widths.size() == 1 && widths[0] == 0;
            if (!mayBeFlat && !std::all_of(widths.begin(), widths.end(), isPositive))
                refuse(direction.notPositive);
        }
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Disc has invalid parameters.", "[Disc::checkParameters]");
    }
}

std::vector<Assignment> Disc::modifySteps(unsigned int dir, std::size_t first, std::size_t count,
                                          const std::vector<double> & newWidths, Assignments & assignments) {
    constexpr const char * WHERE = "[Disc::modifySteps]";
    if (dir != X && dir != Y && dir != Z)
        throw KOR::Exception("Invalid argument for dir.", WHERE);
    std::vector<double> & widths = steps(dir).m_data;
    if (first > widths.size() || count > widths.size() - first)
        throw KOR::Exception(
            KOR::text("Cells %1..%2 lie outside of the grid of %3 cells.", first, first + count, widths.size()), WHERE);
    if (!std::all_of(newWidths.begin(), newWidths.end(), isPositive))
        throw KOR::Exception("A cell must have a positive width.", WHERE);
    if (count == widths.size() && newWidths.empty())
        throw KOR::Exception("The last cell cannot be removed.", WHERE);
    std::vector<Assignment> gone = assignments.followCells(dir, movedEdges(widths, first, count, newWidths));
    const auto start = widths.begin() + static_cast<std::ptrdiff_t>(first);
    widths.insert(widths.erase(start, start + static_cast<std::ptrdiff_t>(count)), newWidths.begin(), newWidths.end());
    return gone;
}

void Disc::autoDisc(std::span<const LayerSettings> columns, std::span<const LayerSettings> rows,
                    std::span<const LayerSettings> planes, Assignments & assignments, BoundaryIDGrid & boundaryIDs) {
    constexpr const char * WHERE = "[Disc::autoDisc]";
    checkParameters();
    const std::span<const LayerSettings> settings[] = {columns, rows, planes};
    Disc result = *this;
    Assignments moved = assignments;
    for (std::size_t d = 0; d < std::size(DIRECTIONS); ++d) {
        const Direction & direction = DIRECTIONS[d];
        const KOR::UnitVector & list = this->*direction.steps;
        if (settings[d].empty())
            continue;
        if (settings[d].size() != list.size())
            throw KOR::Exception(
                KOR::text("Settings for %1 layers do not fit to %2 cells.", settings[d].size(), list.size()), WHERE);
        KOR::message(direction.heading, KOR::MSG_PROGRESS, WHERE, 2);
        KOR::UnitVector metre = {{1.0}, KOR::Unit("m")};
        metre.convert(list.m_unit);
        std::vector<double> widths;
        std::vector<std::uint32_t> edges{0};
        for (std::size_t i = 0; i < list.size(); ++i) {
            const std::vector<double> cells = dividedLayer(list.m_data[i], settings[d][i], metre.m_data[0]);
            KOR::message(KOR::text(direction.line, i, list.m_data[i], settings[d][i].mode) +
                             KOR::text("%1 elements", cells.size()),
                         KOR::MSG_PROGRESS, WHERE, 2);
            widths.insert(widths.end(), cells.begin(), cells.end());
            edges.push_back(static_cast<std::uint32_t>(widths.size()));
        }
        (result.*direction.steps).m_data = std::move(widths);
        moved.followCells(direction.dir, edges);
    }
    KOR::message("Updating boundary ID grid", KOR::MSG_PROGRESS, WHERE, 2);
    BoundaryIDGrid grid;
    Discretization::updateBoundaryIDGrid(result.nx(), result.ny(), result.nz(), moved, grid);
    *this = std::move(result);
    assignments = std::move(moved);
    boundaryIDs = std::move(grid);
}

} // namespace HYGRION
