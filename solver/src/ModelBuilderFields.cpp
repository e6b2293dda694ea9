#include "ModelBuilder.h"

#include <algorithm>
#include <array>

/// Field conditions of the project become loads of cells and radiation between the walls of cavities.
namespace SOLVER {

using HYGRION::Assignment;
using HYGRION::FieldCond;
using HYGRION::Range;
using KOR::text;

namespace {

using Index = std::array<std::uint32_t, 3>;
using Quantity = QuantitySignals::Quantity;

/// First and last cell of a range.
std::array<Index, 2> corners(const Range & range) {
    return {
        Index{range.left,  range.bottom, range.back },
        Index{range.right, range.top,    range.front}
    };
}

template <typename Body> void forEachCell(const std::array<Index, 2> & range, Body && body) {
    const auto & [first, last] = range;
    Index index{};
    for (index[2] = first[2]; index[2] <= last[2]; ++index[2])
        for (index[1] = first[1]; index[1] <= last[1]; ++index[1])
            for (index[0] = first[0]; index[0] <= last[0]; ++index[0])
                body(index);
}

constexpr const char * SIDES[3][2] = {
    {"left",   "right"},
    {"bottom", "top"  },
    {"back",   "front"},
};

} // namespace

const FieldCond & ModelBuilder::fieldCondition(const std::string & name) const {
    return named(m_project.m_conditions.m_fieldConditions, name, "Field condition");
}

FieldLaw ModelBuilder::fieldLawOf(const FieldCond & condition) {
    FieldLaw law = FieldLaw::fromCondition(condition, m_result.input.module != module_t::heat);
    ClimateSignals & signals = m_driver->signals();
    for (const auto & [quantity, name] : condition.m_ccReferences)
        law.signals.set(quantity, signals.add(name, quantity));
    for (const auto & [key, name] : condition.m_additionalReferences)
        law.ambient = static_cast<std::int32_t>(signals.add(name, HYGRION::ClimateCond::condition_t::Temperature));
    for (const Quantity flow : {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Velocity})
        if (law.isFlow() && law.signals.has(flow) && signals.smallest(law.signals.signal(flow)) < 0)
            refuse(text("Climate condition '%1' is negative, but 'FlowDirection' alone tells where the water flows.",
                        condition.m_ccReferences.at(flow)));
    law.active = activeTimes(condition.m_schedule);
    if (!condition.m_otherInterfaceReference.empty()) {
        for (const BoundaryLaw & boundary : lawsOf(interfaceOf(condition.m_otherInterfaceReference)).laws)
            if (boundary.isRain())
                law.rain.push_back(boundary);
        if (law.rain.empty())
            refuse(text("Interface '%1' has no boundary condition of type 'WindDrivenRain'.",
                        condition.m_otherInterfaceReference));
    }
    return law;
}

double ModelBuilder::layerThickness(const Range & range) const {
    const auto [first, last] = corners(range);
    double thickness = std::numeric_limits<double>::infinity();
    for (std::size_t d = 0; d < 3; ++d)
        if (m_size[d] > 1 || (d == 0 && m_size[1] == 1 && m_size[2] == 1))
            thickness = std::min(thickness, m_borders[d][last[d] + 1] - m_borders[d][first[d]]);
    return thickness;
}

void ModelBuilder::makeFieldLoads(const FieldCond & condition, const Range & range) {
    const FieldLaw law = fieldLawOf(condition);
    const bool isFull = m_project.m_init.isEnabled(HYGRION::Init::flag_t::PreventOverfilling);
    std::vector<std::pair<Index, std::uint32_t>> cells;
    double total = 0;
    forEachCell(corners(range), [&](const Index & index) {
        const std::int64_t cell = cellAt(index);
        if (cell == NO_CELL)
            return;
        cells.emplace_back(index, static_cast<std::uint32_t>(cell));
        total += m_result.input.cells[cells.back().second].volume;
    });
    if (cells.empty())
        refuse("It covers no cell with material.");
    const WaterFlow flow = law.isFlow() ? waterFlow(condition, range) : WaterFlow();
    const bool byVelocity = law.signals.has(Quantity::Velocity) && !law.signals.has(Quantity::MassFlowRate) &&
                            !law.signals.has(Quantity::FluidFlowRate);
    const std::uint32_t number = m_driver->addFieldLaw(law);
    for (const auto & [index, cell] : cells) {
        const ModelInput::Cell & input = m_result.input.cells[cell];
        double factor = 1;
        std::int64_t source = NO_CELL;
        if (law.share == FieldLaw::TOTAL)
            factor = 1 / total;
        if (law.share == FieldLaw::LAYER)
            factor = 1 / layerThickness(range);
        if (law.isFlow()) {
            // The same water passes all cells of a line, whatever their cross-section.
            GridFace inlet{flow.direction, index};
            inlet.index[flow.direction] = flow.inlet;
            factor = area(inlet) / (byVelocity ? 1 : flow.area) / input.volume;
            if (index[flow.direction] != flow.first) {
                Index before = index;
                before[flow.direction] += flow.isUpwards ? -1u : 1u;
                source = cellAt(before);
                if (source == NO_CELL)
                    refuse(text("The water cannot flow through %1, which has no material.", placeText(before)));
            }
        }
        m_driver->addCell(
            {number, factor,
             isFull ? m_result.input.materials[input.material].saturation() : std::numeric_limits<double>::infinity()});
        m_result.input.loadedCells.push_back(cell);
        m_result.input.fluidSources.push_back(source);
    }
}

ModelBuilder::WaterFlow ModelBuilder::waterFlow(const FieldCond & condition, const Range & range) const {
    const int given = condition.m_intPara.value(FieldCond::intpara_t::FlowDirection).value_or(0);
    const auto [first, last] = corners(range);
    WaterFlow flow;
    flow.direction = static_cast<std::size_t>(given) / 2;
    flow.isUpwards = given % 2 == 1; // to the right, the top, the front
    flow.first = flow.isUpwards ? first[flow.direction] : last[flow.direction];
    flow.inlet = flow.isUpwards ? flow.first : flow.first + 1;
    std::array<Index, 2> plane{first, last};
    plane[0][flow.direction] = plane[1][flow.direction] = flow.inlet;
    forEachCell(plane, [&](const Index & index) { flow.area += area({flow.direction, index}); });
    if (!(flow.area > 0))
        refuse("The water enters at the axis of the body of revolution, which has no area.");
    return flow;
}

/// Pairs of opposite walls, line by line; each direction for itself, as between parallel planes.
void ModelBuilder::makeCavityRadiation(const FieldCond & condition, const Range & range) {
    const auto emissions = cavityEmissions(condition);
    const std::array<Index, 2> ends = corners(range);
    const Index & first = ends[0];
    const Index & last = ends[1];
    for (std::size_t d = 0; d < 3; ++d) {
        if (!emissions[d])
            continue;
        const std::array<double, 2> & emission = *emissions[d];
        std::array<Index, 2> plane{first, last};
        plane[1][d] = first[d];
        forEachCell(plane, [&](const Index & index) {
            GridFace faces[2] = {
                {d, index},
                {d, index}
            };
            faces[1].index[d] = last[d] + 1;
            const std::int64_t walls[2] = {cellsAt(faces[0]).first, cellsAt(faces[1]).second};
            for (std::size_t side = 0; side < 2; ++side)
                if (walls[side] == NO_CELL)
                    refuse(
                        text("The cavity has no wall on its %1 side, seen from %2.", SIDES[d][side], placeText(index)));
            const auto distance = [&](std::int64_t wall) {
                const auto & place = m_result.cellPlaces[static_cast<std::size_t>(wall)];
                return m_widths[d][place.index[d]] / 2;
            };
            // Of concentric cylinders the inner one counts; planes are those of the same area.
            const double inner = area(faces[0]);
            const double exchange = emission[0] > 0 && emission[1] > 0
                                        ? 1 / (1 / emission[0] + inner / area(faces[1]) * (1 / emission[1] - 1))
                                        : 0;
            m_result.input.radiation.push_back({static_cast<std::uint32_t>(walls[0]),
                                                static_cast<std::uint32_t>(walls[1]), distance(walls[0]),
                                                distance(walls[1]), inner, exchange, static_cast<int>(d)});
        });
    }
}

void ModelBuilder::makeFieldConditions() {
    const auto & assignments = m_project.m_assignments.m_list;
    for (std::size_t a = 0; a < assignments.size(); ++a) {
        const Assignment & assignment = assignments[a];
        if (assignment.m_type != Assignment::type_t::FieldCondition)
            continue;
        inContext(
            text("Assignment %1 (%2) cannot be calculated.", m_project.assignmentLabel(a), assignment.description()),
            [&] {
                const FieldCond & condition = fieldCondition(assignment.m_reference);
                inContext(text("Field condition '%1' cannot be calculated.", condition.m_name), [&] {
                    condition.checkParameters();
                    if (condition.m_type == FieldCond::condition_t::LongWaveRadiation)
                        makeCavityRadiation(condition, assignment.m_range);
                    else
                        makeFieldLoads(condition, assignment.m_range);
                });
            });
    }
}

} // namespace SOLVER
