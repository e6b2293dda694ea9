#pragma once

#include <SOLVER/Integrator.h>
#include <SOLVER/Model.h>

#include <DATAIO/GeoFile.h>

#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace HYGRION {
class Project;
}

namespace SOLVER {

/// A project made ready to calculate: the model's arrays, and where in the construction each of their entries lies.
struct Construction {
    ModelInput input;

    /// Side of a grid cell; the numbers of GeoFile::location_t.
    using location_t = DATAIO::GeoFile::location_t;
    struct CellPlace {
        std::array<std::uint32_t, 3> index{}; ///< column, row, plane
        std::uint32_t material = 0;           ///< index into the materials of the geometry
    };
    struct SurfacePlace {
        std::array<std::uint32_t, 3> index{}; ///< of the cell
        location_t location = DATAIO::GeoFile::LEFT;
        std::string interface;   ///< name of the project's interface
        double orientation = 0;  ///< [Deg] from north, clockwise
        double inclination = 90; ///< [Deg] 0 is a roof, 90 a wall
        /// Index into input.faces of what leads to another interface, or -1.
        std::int64_t coupling = -1;
    };
    std::vector<CellPlace> cellPlaces;       ///< one for each of input.cells
    std::vector<SurfacePlace> surfacePlaces; ///< one for each of input.surfaces
    std::vector<std::int64_t> cellOfGrid;    ///< nz x ny x nx, columns fastest; -1 where there is no cell
    DATAIO::GeoFile geometry;                ///< all elements of the grid and their materials
    /// What outputs need to know beyond the balances, for each of input.materials: density, and what expands, [1/K] and [m/m per m3/m3] in directions u, v and w.
    struct Expansion {
        std::array<double, 3> thermal{}, hygric{};
        double density = 0; ///< of the dry material [kg/m3]
        /// Fibre saturation of wood: water beyond it fills its pores without swelling it [m3/m3].
        double fiberSaturation = std::numeric_limits<double>::infinity();
    };
    std::vector<Expansion> expansion;

    double startTime = 0; ///< [s] since the start of startYear
    double endTime = 0;   ///< [s]
    int startYear = 0;
    IntegratorSettings integrator;

    /// The flow in the pipe behind a surface at a time [s]; nothing where there is none, or more than one.
    std::function<std::optional<PipeFlow>(double time, std::size_t surface)> pipeFlow;

    /// The next moment after a time [s] at which a load jumps (schedule, steps of climate data, start and end of rain),
    /// infinity if there is none. No step of an integrator passes it.
    std::function<double(double)> nextJump;
    /// Of every jump, whether all loads stay continuous at a time that nextJump gave; then no restart is needed there.
    std::function<bool(double)> isContinuousAt;
};

/// Makes a project ready to calculate: reads materials and climate files, makes the loads out of the conditions.
/// Whatever the project uses and the solver cannot do is refused before anything is calculated.
/// \param project read from its file, whose directory "${Project Directory}" stands for
/// Throws KOR::Exception ("[SOLVER::buildConstruction]") with the names of definition and reason, above the cause.
Construction buildConstruction(const HYGRION::Project & project);

} // namespace SOLVER
