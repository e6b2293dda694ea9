#include <SOLVER/Model.h>

#include "FaceElimination.h"
#include "Freezing.h"
#include "HalfCell.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

Model::Model(ModelInput input)
    : m_input(std::move(input)), m_unknowns(m_input.module == module_t::heatAndMoisture ? 2 : 1),
      m_hasHeat(m_input.module != module_t::moisture), m_hasMoisture(m_input.module != module_t::heat),
      m_intervals(m_input.cells.size(), 0), m_faceFluxes(m_input.faces.size()),
      m_surfaceStates(m_input.surfaces.size()), m_loads(m_input.surfaces.size()),
      m_cellLoads(m_input.loadedCells.size()), m_exchange(m_input.surfaces.size() + 1),
      m_loadRates(m_input.loadedCells.size()), m_radiation(m_input.radiation.size()),
      m_neighbours(m_input.cells.size()) {
    for (const MaterialTable & table : m_input.materials)
        if (table.isAnisotropic())
            m_otherTransport.resize(m_input.cells.size());
    m_cells.reserve(m_input.cells.size());
    for (std::uint32_t c = 0; c < m_input.cells.size(); ++c) {
        const ModelInput::Cell & cell = m_input.cells[c];
        if (!(cell.volume > 0))
            throw KOR::Exception(KOR::text("Cell %1 has no volume.", c), "[Model::Model]");
        m_neighbours[c].push_back(c);
        // What is not balanced stays as it was at the start.
        m_cells.push_back(initialCell(cell));
        evaluateTransport(c, m_input.materials.at(cell.material));
    }
    const auto couple = [this](std::uint32_t a, std::uint32_t b) {
        m_neighbours.at(a).push_back(b);
        m_neighbours.at(b).push_back(a);
    };
    for (const ModelInput::Face & face : m_input.faces)
        couple(face.a, face.b);
    for (const ModelInput::RadiationLink & link : m_input.radiation)
        couple(link.a, link.b);
    for (std::size_t i = 0; i < m_input.fluidSources.size(); ++i)
        if (m_input.fluidSources[i] >= 0)
            couple(m_input.loadedCells.at(i), static_cast<std::uint32_t>(m_input.fluidSources[i]));
    for (auto & list : m_neighbours) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
        list.shrink_to_fit();
    }
}

Model::CellState Model::initialCell(const ModelInput::Cell & cell) const {
    const MaterialTable & table = m_input.materials.at(cell.material);
    CellState state{};
    state.temperature = cell.temperature;
    state.suction = cell.suction;
    state.moisture = m_hasMoisture || cell.suction > 0 ? table.moisture(cell.suction) : 0;
    if (m_input.useIce && m_hasHeat)
        state.ice = iceContent(table, state.moisture, cell.temperature);
    return state;
}

std::vector<double> Model::initialState() const {
    std::vector<double> state;
    state.reserve(size());
    for (const ModelInput::Cell & cell : m_input.cells) {
        const CellState initial = initialCell(cell);
        if (m_hasHeat)
            state.push_back(
                energyOf(m_input.materials[cell.material], initial.moisture, initial.ice, initial.temperature));
        if (m_hasMoisture)
            state.push_back(initial.moisture);
    }
    return state;
}

std::vector<double> Model::scales() const {
    std::vector<double> scale;
    scale.reserve(size());
    for (const ModelInput::Cell & cell : m_input.cells) {
        const MaterialTable & table = m_input.materials[cell.material];
        if (m_hasHeat)
            scale.push_back(table.heatCapacity());
        if (m_hasMoisture)
            scale.push_back(std::min(1.0, std::max(table.saturation() * 1e-3, 1e-6)));
    }
    return scale;
}

bool Model::evaluateCells(std::span<const double> state) {
    bool isPossible = true;
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    for (std::size_t c = 0; c < m_cells.size(); ++c) {
        const MaterialTable & table = m_input.materials[m_input.cells[c].material];
        CellState & cell = m_cells[c];
        bool isTransportKnown = !table.hasLambdaByTemperature() && !(m_hasMoisture && table.isAnisotropic());
        if (m_hasMoisture) {
            cell.moisture = state[m_unknowns * c + m_unknowns - 1];
            const MaterialTable::State s = table.fromMoisture(cell.moisture, m_intervals[c]);
            cell.suction = s.suction;
            cell.potential = s.potential;
            cell.vapor = s.vapor;
            cell.lambda = s.lambda;
        }
        if (m_hasHeat) {
            const double energy = state[m_unknowns * c];
            cell.temperature = table.temperature(energy, C_WATER * cell.moisture);
            if (m_input.useIce)
                isTransportKnown = freezeCell(c, table, energy) && isTransportKnown;
        }
        isPossible = isPossible && cell.temperature > LOWEST_TEMPERATURE && cell.temperature < HIGHEST_TEMPERATURE;
        if (!isTransportKnown)
            evaluateTransport(c, table);
        cell.humidity = std::exp(-cell.suction / thermodynamics.kelvin(cell.temperature));
        cell.vaporPressure = cell.humidity * saturationPressure(cell.temperature);
    }
    return isPossible;
}

/// \return whether no ice was or is in the cell, so that its conductivities are those of its moisture
bool Model::freezeCell(std::size_t c, const MaterialTable & table, double energy) {
    CellState & cell = m_cells[c];
    const bool wasFrozen = cell.ice > 0;
    if (!m_hasMoisture)
        cell.suction = m_input.cells[c].suction;
    cell.ice = 0;
    if (cell.temperature < T_ZERO) {
        const Freezing freezing = freeze(table, energy, cell.moisture, cell.temperature, cell.suction);
        cell.temperature = freezing.temperature;
        cell.suction = freezing.suction;
        cell.ice = freezing.ice;
    }
    return !wasFrozen && !(cell.ice > 0);
}

/// Conductivities of a cell whose moisture alone does not tell them.
void Model::evaluateTransport(std::size_t c, const MaterialTable & table) {
    CellState & cell = m_cells[c];
    double slope = 0;
    const auto in = [&](const MaterialTable & direction) {
        MaterialTable::Slopes slopes{};
        const MaterialTable::State s = direction.fromSuction(cell.suction, slopes);
        double lambda = s.lambda;
        if (cell.ice > 0) {
            std::uint32_t interval = m_intervals[c];
            lambda = direction.lambdaByIce().isEmpty() ? direction.fromMoisture(cell.moisture, interval).lambda
                                                       : s.lambda + direction.lambdaByIce().value(cell.ice / RHO_ICE);
        }
        lambda += direction.lambdaByTemperature(cell.temperature, slope);
        return Transport{s.potential, s.vapor, lambda};
    };
    const Transport own = in(table);
    cell.potential = own.potential;
    cell.vapor = own.vapor;
    cell.lambda = own.lambda;
    if (table.isAnisotropic())
        m_otherTransport[c] = {in(table.along(1)), in(table.along(2))};
}

const Model::CellState & Model::along(std::uint32_t c, int axis, CellState & buffer) const {
    if (m_otherTransport.empty())
        return m_cells[c];
    const int direction = materialDirection(c, axis);
    if (direction == 0 || !m_input.materials[m_input.cells[c].material].isAnisotropic())
        return m_cells[c];
    const Transport & other = m_otherTransport[c][static_cast<std::size_t>(direction - 1)];
    buffer = m_cells[c];
    buffer.potential = other.potential;
    buffer.vapor = other.vapor;
    buffer.lambda = other.lambda;
    return buffer;
}

Model::FaceFlux Model::homogeneousFlux(const ModelInput::Face & face, const MaterialTable & table, const CellState & a,
                                       const CellState & b) const {
    const double distance = face.distanceA + face.distanceB;
    const double weightA = face.distanceB / distance;
    const double weightB = face.distanceA / distance;
    const double T = weightA * a.temperature + weightB * b.temperature;
    FaceFlux flux;
    if (m_hasHeat)
        flux.conduction = (weightA * a.lambda + weightB * b.lambda) * (a.temperature - b.temperature) / distance;
    if (m_hasMoisture) {
        const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
        flux.vapor = thermodynamics.permeabilityFactor(T) * (weightA * a.vapor + weightB * b.vapor) *
                     (a.vaporPressure - b.vaporPressure) / distance;
        flux.liquid = (a.potential - b.potential) / distance;
        if (m_input.useGravity && face.rise != 0)
            flux.liquid -= meanConductivity(table, a.suction, a.potential, b.suction, b.potential) * RHO_WATER *
                           GRAVITY * face.rise / distance;
        flux.enthalpy = flux.vapor * enthalpyOfVapor(T) + flux.liquid * enthalpyOfLiquid(T);
    }
    return flux;
}

bool Model::isHomogeneous(const ModelInput::Face & face) const {
    return m_input.cells[face.a].material == m_input.cells[face.b].material &&
           materialDirection(face.a, face.direction) == materialDirection(face.b, face.direction) &&
           face.contact.isPerfect();
}

Model::FaceFlux Model::solveFace(const ModelInput::Face & face, FaceNodes * nodes) const {
    CellState bufferA;
    CellState bufferB;
    const CellState & a = along(face.a, face.direction, bufferA);
    const CellState & b = along(face.b, face.direction, bufferB);
    const auto tableOf = [&](std::uint32_t cell) -> const MaterialTable & {
        return m_input.materials[m_input.cells[cell].material].along(materialDirection(cell, face.direction));
    };
    if (nodes == nullptr && isHomogeneous(face))
        return homogeneousFlux(face, tableOf(face.a), a, b);
    const double head = m_input.useGravity ? RHO_WATER * GRAVITY * face.rise : 0;
    const double distance = face.distanceA + face.distanceB;
    const ModelInput::Foil * const foil =
        face.contact.foil < 0 ? nullptr : &m_input.foils[static_cast<std::size_t>(face.contact.foil)];
    return eliminateContact({tableOf(face.a), a, face.distanceA, head * face.distanceA / distance, m_input.module},
                            {tableOf(face.b), b, face.distanceB, -head * face.distanceB / distance, m_input.module},
                            {face.contact, foil}, {m_input.useReferenceTemperature}, m_input.module, nodes);
}

void Model::evaluateFaces() {
    for (std::size_t f = 0; f < m_faceFluxes.size(); ++f)
        m_faceFluxes[f] = solveFace(m_input.faces[f], nullptr);
}

Model::SideState Model::sideState(std::size_t f, bool isSeenFromB) const {
    const ModelInput::Face & face = m_input.faces.at(f);
    if (isHomogeneous(face)) {
        const CellState & a = m_cells[face.a];
        const CellState & b = m_cells[face.b];
        const double share = face.distanceA / (face.distanceA + face.distanceB);
        const auto between = [share](double atA, double atB) { return (1 - share) * atA + share * atB; };
        return {between(a.temperature, b.temperature), between(a.suction, b.suction), between(a.humidity, b.humidity),
                between(a.vaporPressure, b.vaporPressure)};
    }
    FaceNodes nodes{};
    solveFace(face, &nodes);
    const FaceNode & node = isSeenFromB ? nodes.b : nodes.a;
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    return {node.temperature, -thermodynamics.kelvin(node.temperature) * std::log(node.humidity), node.humidity,
            node.humidity * saturationPressure(node.temperature)};
}

void Model::evaluateSurfaces() {
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    CellState buffer;
    for (std::size_t s = 0; s < m_surfaceStates.size(); ++s) {
        const ModelInput::Surface & surface = m_input.surfaces[s];
        const MaterialTable & table = m_input.materials[m_input.cells[surface.cell].material];
        m_surfaceStates[s] = eliminateSurface({table.along(materialDirection(surface.cell, surface.direction)),
                                               along(surface.cell, surface.direction, buffer), surface.distance,
                                               m_input.useGravity ? RHO_WATER * GRAVITY * surface.rise : 0,
                                               m_input.module, m_loads[s].openToLiquid},
                                              m_loads[s], thermodynamics, m_input.module);
    }
}

/// The walls' temperatures follow from the conduction between them and their cells' centres.
void Model::evaluateRadiation() {
    CellState buffer;
    for (std::size_t i = 0; i < m_radiation.size(); ++i) {
        const ModelInput::RadiationLink & link = m_input.radiation[i];
        const double resistanceA = link.distanceA / along(link.a, link.direction, buffer).lambda;
        const double resistanceB = link.distanceB / along(link.b, link.direction, buffer).lambda;
        const double factor = link.emissivity * STEFAN_BOLTZMANN;
        double flux = 0;
        for (int k = 0; k < 20; ++k) { // Newton on a monotone function; the exchange is nearly linear
            const double a = m_cells[link.a].temperature - flux * resistanceA;
            const double b = m_cells[link.b].temperature + flux * resistanceB;
            const double step = (flux - factor * (a * a * a * a - b * b * b * b)) /
                                (1 + 4 * factor * (a * a * a * resistanceA + b * b * b * resistanceB));
            flux -= step;
            if (!(std::fabs(step) > 1e-12 * std::fabs(flux)))
                break;
        }
        m_radiation[i] = flux;
    }
}

namespace {
/// One well inside the limits of a cell's moisture, zero at them; the width of the way between is a thousandth of it.
double room(double moisture, double limit) {
    return std::clamp((limit - moisture) / std::max(1e-3 * limit, 1e-3), 0.0, 1.0);
}
} // namespace

Exchange Model::loadRate(const CellLoad & load, const CellState & cell) const {
    Exchange in;
    in.heat = load.imposedHeat(cell.temperature) + load.fluidHeat(cell.temperature) +
              load.airFlow * load.airPressure / (R_AIR * load.airTemperature) * C_AIR *
                  (load.airTemperature - cell.temperature);
    if (!m_hasMoisture)
        return in;
    const double water =
        load.water > 0
            ? load.water * room(cell.moisture, load.maxMoisture)
            : load.water * (1 - room(cell.moisture, load.minMoisture + std::max(1e-3 * load.minMoisture, 1e-3)));
    const double vaporIn = load.airFlow * load.airVaporPressure / (R_VAPOR * load.airTemperature);
    const double vaporOut = load.airFlow * cell.vaporPressure / (R_VAPOR * cell.temperature);
    const double held = saturationPressure(cell.temperature) / (R_VAPOR * cell.temperature);
    const double condensed = load.leakFlow *
                             std::max(0.0, load.leakVaporPressure / (R_VAPOR * load.leakTemperature) - held) *
                             room(cell.moisture, load.maxMoisture);
    in.water = water + vaporIn - vaporOut + condensed;
    in.heat +=
        condensed * enthalpyOfVapor(load.leakTemperature) +
        water * enthalpyOfLiquid(water > 0 && load.waterTemperature > 0 ? load.waterTemperature : cell.temperature) +
        vaporIn * enthalpyOfVapor(load.airTemperature) - vaporOut * enthalpyOfVapor(cell.temperature);
    return in;
}

bool Model::rightHandSide(double time, std::span<const double> state, std::span<double> derivative) {
    if (m_input.climate)
        m_input.climate(time, {m_loads, m_cellLoads});
    if (!evaluateCells(state))
        return false;
    evaluateFaces();
    evaluateSurfaces();

    std::fill(derivative.begin(), derivative.end(), 0.0);
    const auto add = [&](std::uint32_t cell, double heat, double water) {
        double * entry = derivative.data() + m_unknowns * cell;
        if (m_hasHeat)
            *entry++ += heat / m_input.cells[cell].volume;
        if (m_hasMoisture)
            *entry += water / m_input.cells[cell].volume;
    };
    for (std::size_t f = 0; f < m_faceFluxes.size(); ++f) {
        const ModelInput::Face & face = m_input.faces[f];
        const FaceFlux & flux = m_faceFluxes[f];
        const double heat = face.area * (flux.conduction + flux.enthalpy);
        const double water = face.area * (flux.vapor + flux.liquid);
        add(face.a, -heat, -water);
        add(face.b, heat, water);
    }
    for (std::size_t s = 0; s < m_surfaceStates.size(); ++s) {
        const ModelInput::Surface & surface = m_input.surfaces[s];
        const SurfaceState & flux = m_surfaceStates[s];
        m_exchange[s] = {surface.area * (flux.conduction + flux.enthalpyFlux),
                         surface.area * (flux.vaporFlux + flux.liquidFlux)};
        add(surface.cell, m_exchange[s].heat, m_exchange[s].water);
    }
    Exchange & loads = m_exchange.back();
    loads = {};
    for (std::size_t i = 0; i < m_cellLoads.size(); ++i) {
        const std::uint32_t c = m_input.loadedCells[i];
        Exchange & in = m_loadRates[i];
        if (i < m_input.fluidSources.size() && m_input.fluidSources[i] >= 0)
            m_cellLoads[i].fluidTemperature = m_cells[static_cast<std::size_t>(m_input.fluidSources[i])].temperature;
        in = loadRate(m_cellLoads[i], m_cells[c]);
        in.heat *= m_input.cells[c].volume;
        in.water *= m_input.cells[c].volume;
        add(c, in.heat, in.water);
        loads.heat += in.heat;
        loads.water += in.water;
    }
    if (m_hasHeat && !m_radiation.empty()) {
        evaluateRadiation();
        for (std::size_t i = 0; i < m_radiation.size(); ++i) {
            const ModelInput::RadiationLink & link = m_input.radiation[i];
            add(link.a, -link.area * m_radiation[i], 0);
            add(link.b, link.area * m_radiation[i], 0);
        }
    }
    double sum = 0; // one NaN or infinity shows in it
    for (const double value : derivative)
        sum += value * 0;
    return sum == 0;
}

} // namespace SOLVER
