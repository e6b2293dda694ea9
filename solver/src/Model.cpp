#include <SOLVER/Model.h>

#include "FaceElimination.h"
#include "HalfCell.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

Model::Model(ModelInput input)
    : m_input(std::move(input)), m_unknowns(m_input.module == module_t::heatAndMoisture ? 2 : 1),
      m_hasHeat(m_input.module != module_t::moisture), m_hasMoisture(m_input.module != module_t::heat),
      m_cells(m_input.cells.size()), m_intervals(m_input.cells.size(), 0), m_faceFluxes(m_input.faces.size()),
      m_surfaceStates(m_input.surfaces.size()), m_loads(m_input.surfaces.size()),
      m_cellLoads(m_input.loadedCells.size()), m_exchange(m_input.surfaces.size() + 1),
      m_neighbours(m_input.cells.size()) {
    for (std::uint32_t c = 0; c < m_cells.size(); ++c) {
        const ModelInput::Cell & cell = m_input.cells[c];
        const MaterialTable & table = m_input.materials.at(cell.material);
        if (!(cell.volume > 0))
            throw KOR::Exception(KOR::text("Cell %1 has no volume.", c), "[Model::Model]");
        m_neighbours[c].push_back(c);
        // What is not balanced stays as it was at the start.
        m_cells[c].temperature = cell.temperature;
        m_cells[c].suction = cell.suction;
        m_cells[c].moisture = m_hasMoisture || cell.suction > 0 ? table.moisture(cell.suction) : 0;
        MaterialTable::Slopes slopes{};
        const MaterialTable::State state = table.fromSuction(cell.suction, slopes);
        m_cells[c].potential = state.potential;
        m_cells[c].vapor = state.vapor;
        m_cells[c].lambda = state.lambda;
        m_cells[c].vaporPotential = state.vaporPotential;
    }
    for (const ModelInput::Face & face : m_input.faces) {
        m_neighbours.at(face.a).push_back(face.b);
        m_neighbours.at(face.b).push_back(face.a);
    }
    for (auto & list : m_neighbours) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
}

std::vector<double> Model::initialState() const {
    std::vector<double> state;
    state.reserve(size());
    for (const ModelInput::Cell & cell : m_input.cells) {
        const MaterialTable & table = m_input.materials[cell.material];
        const double moisture = table.moisture(cell.suction);
        if (m_hasHeat)
            state.push_back((table.heatCapacity() + C_WATER * moisture) * (cell.temperature - T_ZERO));
        if (m_hasMoisture)
            state.push_back(moisture);
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

void Model::evaluateCells(std::span<const double> state) {
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    for (std::size_t c = 0; c < m_cells.size(); ++c) {
        const MaterialTable & table = m_input.materials[m_input.cells[c].material];
        CellState & cell = m_cells[c];
        if (m_hasMoisture) {
            cell.moisture = state[m_unknowns * c + m_unknowns - 1];
            const MaterialTable::State s = table.fromMoisture(cell.moisture, m_intervals[c]);
            cell.suction = s.suction;
            cell.potential = s.potential;
            cell.vapor = s.vapor;
            cell.lambda = s.lambda;
            cell.vaporPotential = s.vaporPotential;
        }
        if (m_hasHeat)
            cell.temperature = T_ZERO + state[m_unknowns * c] / (table.heatCapacity() + C_WATER * cell.moisture);
        cell.humidity = std::exp(-cell.suction / thermodynamics.kelvin(cell.temperature));
        cell.vaporPressure = cell.humidity * saturationPressure(cell.temperature);
    }
}

Model::FaceFlux Model::homogeneousFlux(const ModelInput::Face & face) const {
    const CellState & a = m_cells[face.a];
    const CellState & b = m_cells[face.b];
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
        if (m_input.useGravity && face.rise != 0) {
            MaterialTable::Slopes slopes{};
            m_input.materials[m_input.cells[face.a].material].fromSuction(weightA * a.suction + weightB * b.suction,
                                                                          slopes);
            flux.liquid -= slopes.liquid * RHO_WATER * GRAVITY * face.rise / distance;
        }
        flux.enthalpy = flux.vapor * enthalpyOfVapor(T) + flux.liquid * enthalpyOfLiquid(T);
    }
    return flux;
}

void Model::evaluateFaces() {
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    for (std::size_t f = 0; f < m_faceFluxes.size(); ++f) {
        const ModelInput::Face & face = m_input.faces[f];
        const std::uint32_t materialA = m_input.cells[face.a].material;
        const std::uint32_t materialB = m_input.cells[face.b].material;
        if (materialA == materialB && face.contact.isPerfect()) {
            m_faceFluxes[f] = homogeneousFlux(face);
            continue;
        }
        const double head = m_input.useGravity ? RHO_WATER * GRAVITY * face.rise : 0;
        const double distance = face.distanceA + face.distanceB;
        m_faceFluxes[f] = eliminateContact(
            {m_input.materials[materialA], m_cells[face.a], face.distanceA, head * face.distanceA / distance},
            {m_input.materials[materialB], m_cells[face.b], face.distanceB, -head * face.distanceB / distance},
            face.contact, thermodynamics, m_input.module);
    }
}

void Model::evaluateSurfaces() {
    const Thermodynamics thermodynamics{m_input.useReferenceTemperature};
    for (std::size_t s = 0; s < m_surfaceStates.size(); ++s) {
        const ModelInput::Surface & surface = m_input.surfaces[s];
        m_surfaceStates[s] = eliminateSurface(
            {m_input.materials[m_input.cells[surface.cell].material], m_cells[surface.cell], surface.distance, 0},
            m_loads[s], thermodynamics, m_input.module);
    }
}

bool Model::rightHandSide(double time, std::span<const double> state, std::span<double> derivative) {
    if (m_input.climate)
        m_input.climate(time, {m_loads, m_cellLoads});
    evaluateCells(state);
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
    double sum = 0; // one NaN or infinity shows in it
    for (const double value : derivative)
        sum += value * 0;
    return sum == 0;
}

} // namespace SOLVER
