#pragma once

#include <SOLVER/MaterialTable.h>
#include <SOLVER/SurfaceLoad.h>

#include <array>
#include <functional>
#include <span>
#include <vector>

namespace SOLVER {

struct FaceNodes;

/// Which balances are solved.
enum class module_t { heat, moisture, heatAndMoisture };

/// The construction as arrays: cells of the grid that hold a material, faces between them, surfaces.
struct ModelInput {
    struct Cell {
        double volume = 0;          ///< [m3]
        std::uint32_t material = 0; ///< index into materials
        double temperature = 293;   ///< initial [K]
        double suction = 0;         ///< initial [Pa]
        /// Which material direction (0 u, 1 v, 2 w) lies along x, y and z.
        std::array<std::uint8_t, 3> direction{0, 0, 0};
    };
    struct Face {
        std::uint32_t a = 0, b = 0; ///< cells; fluxes from a to b are positive
        double area = 0;            ///< [m2]
        double distanceA = 0;       ///< from the centre of a to the face [m]
        double distanceB = 0;       ///< from the face to the centre of b [m]
        double rise = 0;            ///< height of b's centre above a's [m], for gravity
        ContactResistance contact;
        int direction = 0; ///< 0 x, 1 y, 2 z
    };
    struct Surface {
        std::uint32_t cell = 0;
        double area = 0;     ///< [m2]
        double distance = 0; ///< from the cell's centre to the surface [m]
        int direction = 0;
        double rise = 0; ///< height of the surface above the cell's centre [m], for gravity
    };
    /// A pair of opposite cavity walls that exchange long-wave radiation across the cells between them.
    struct RadiationLink {
        std::uint32_t a = 0, b = 0; ///< the cells behind the walls
        double distanceA = 0;       ///< from their centres to the wall [m]
        double distanceB = 0;
        double area = 0;       ///< [m2]
        double emissivity = 0; ///< effective, 1/(1/ea + 1/eb - 1)
        int direction = 0;
    };
    /// An adaptive foil: vapour resistance [m/s] over relative humidity, where vapour flows from a to b and back.
    struct Foil {
        std::function<double(double)> forward, backward;
        double forwardWeight = 0.5; ///< share of the upstream side in the humidity that counts
        double backwardWeight = 0.5;
    };
    /// What acts from outside at one moment.
    struct Loads {
        std::span<SurfaceLoad> surfaces; ///< one a surface, in their order
        std::span<CellLoad> cells;       ///< one for each of loadedCells
    };
    /// Fills all loads for a time [s]. Called for each right-hand side.
    using Climate = std::function<void(double time, Loads loads)>;

    module_t module = module_t::heatAndMoisture;
    std::vector<MaterialTable> materials;
    std::vector<Cell> cells;
    std::vector<Face> faces;
    std::vector<Surface> surfaces;
    std::vector<std::uint32_t> loadedCells; ///< cells with a CellLoad; a cell may be in it more than once
    /// For each of loadedCells the cell from which its fluid comes, or -1; empty if that is so for all.
    std::vector<std::int64_t> fluidSources;
    std::vector<RadiationLink> radiation;
    std::vector<Foil> foils;
    Climate climate;
    bool useGravity = false;
    /// Kelvin's relation and vapour permeability at T_REF instead of the actual temperature, as some references do.
    bool useReferenceTemperature = false;
    bool useIce = false; ///< pore water freezes in equilibrium below 0 C
};

/// Finite volumes for energy and moisture. The state is the density of energy [J/m3] and of moisture [kg/m3] of every
/// cell, interleaved; energy is counted from liquid water and dry material at 0 C.
class Model {
public:
    explicit Model(ModelInput input);

    /// Unknowns per cell: one or two.
    std::size_t unknowns() const { return m_unknowns; }
    std::size_t cellCount() const { return m_cells.size(); }
    std::size_t size() const { return m_unknowns * m_cells.size(); }
    const ModelInput & input() const { return m_input; }

    /// The state vector of the initial temperatures and suctions.
    std::vector<double> initialState() const;
    /// Typical size of each unknown's change: energy of 1 K [J/m3], 1 kg/m3 or a thousandth of saturation.
    std::vector<double> scales() const;

    /// Time derivatives of the state. \return false when the state or a flux is not finite or a temperature impossible
    /// (nothing is thrown).
    bool rightHandSide(double time, std::span<const double> state, std::span<double> derivative);

    /// Neighbours of each cell in the sense of the Jacobian, itself included, ascending.
    const std::vector<std::vector<std::uint32_t>> & neighbours() const { return m_neighbours; }

    // ---- what the last right-hand side saw --------------------------------------------------------------------
    struct CellState {
        double temperature;   ///< [K]
        double moisture;      ///< liquid, adsorbed and frozen [kg/m3]
        double suction;       ///< of the liquid [Pa]
        double humidity;      ///< relative humidity [-]
        double vaporPressure; ///< [Pa]
        double potential;     ///< [kg/ms]
        double vapor;         ///< vapour permeability [s]
        double lambda;        ///< [W/mK]
        double ice;           ///< frozen part of the moisture [kg/m3]
    };
    /// Per area of the face, from a to b.
    struct FaceFlux {
        double conduction = 0; ///< [W/m2]
        double vapor = 0;      ///< [kg/m2s]
        double liquid = 0;     ///< [kg/m2s]
        double enthalpy = 0;   ///< carried by vapour and liquid [W/m2]
    };
    /// The state on a face, seen from one of its cells.
    struct SideState {
        double temperature;   ///< [K]
        double suction;       ///< [Pa]
        double humidity;      ///< relative humidity [-]
        double vaporPressure; ///< [Pa]
    };
    std::span<const CellState> cellStates() const { return m_cells; }
    std::span<const FaceFlux> faceFluxes() const { return m_faceFluxes; }
    /// Where the state of the face is solved for it is that, anew; in one material that on the line between the centres.
    /// \param isSeenFromB whether from cell b; that matters where a resistance lies in the face
    SideState sideState(std::size_t face, bool isSeenFromB) const;
    /// Long-wave radiation from a to b across each of the cavity's pairs of walls [W/m2].
    std::span<const double> radiationFluxes() const { return m_radiation; }
    std::span<const SurfaceState> surfaceStates() const { return m_surfaceStates; }
    /// What comes in: through each surface, then from all cell loads together. Its sum is what the balances gain.
    std::span<const Exchange> exchangeRates() const { return m_exchange; }
    /// What comes in by each of the cell loads.
    std::span<const Exchange> loadRates() const { return m_loadRates; }
    std::span<SurfaceLoad> surfaceLoads() { return m_loads; }
    std::span<CellLoad> cellLoads() { return m_cellLoads; }

private:
    /// \return whether all temperatures are possible ones
    bool evaluateCells(std::span<const double> state);
    void evaluateFaces();
    void evaluateSurfaces();
    void evaluateRadiation();
    bool freezeCell(std::size_t cell, const MaterialTable & table, double energy);
    void evaluateTransport(std::size_t cell, const MaterialTable & table);
    CellState initialCell(const ModelInput::Cell & cell) const;
    /// What a load of the inside brings to its cell, per volume.
    Exchange loadRate(const CellLoad & load, const CellState & cell) const;
    /// The cell's state with its conductivities along an axis of the grid. \param buffer for a state that is not stored
    const CellState & along(std::uint32_t cell, int axis, CellState & buffer) const;
    int materialDirection(std::uint32_t cell, int axis) const {
        return m_input.cells[cell].direction[static_cast<std::size_t>(axis)];
    }
    FaceFlux homogeneousFlux(const ModelInput::Face & face, const MaterialTable & table, const CellState & a,
                             const CellState & b) const;
    bool isHomogeneous(const ModelInput::Face & face) const;
    /// \param nodes if given, the states on both sides of the face
    FaceFlux solveFace(const ModelInput::Face & face, FaceNodes * nodes) const;

    ModelInput m_input;
    std::size_t m_unknowns;
    bool m_hasHeat, m_hasMoisture;
    std::vector<CellState> m_cells;
    std::vector<std::uint32_t> m_intervals; ///< where each cell's moisture was found last; a hint, never a result
    std::vector<FaceFlux> m_faceFluxes;
    std::vector<SurfaceState> m_surfaceStates;
    std::vector<SurfaceLoad> m_loads;
    std::vector<CellLoad> m_cellLoads;
    std::vector<Exchange> m_exchange, m_loadRates;
    std::vector<double> m_radiation;
    /// Conductivities of each cell along its material's directions v and w; empty where all are as along u.
    struct Transport {
        double potential, vapor, lambda;
    };
    std::vector<std::array<Transport, 2>> m_otherTransport;
    std::vector<std::vector<std::uint32_t>> m_neighbours;
};

} // namespace SOLVER
