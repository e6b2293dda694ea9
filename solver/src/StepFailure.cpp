#include "StepFailure.h"

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

namespace {

enum mechanism_t { CONDUCTION, ENTHALPY, VAPOR, LIQUID, RAIN, RADIATION, SOURCE, NUM_MECHANISMS };

struct Mechanism {
    const char * name;
    const char * advice;
};
constexpr Mechanism MECHANISMS[NUM_MECHANISMS] = {
    {"heat conduction",              "finer cells where the temperature changes fast, a smaller MaxTimeStep or a looser RelTol" },
    {"heat carried by moisture",     "finer cells, or a look at the moisture functions of the material near saturation"         },
    {"vapour diffusion",             "finer cells at the surface, a look at the vapour permeability and the surface coefficient"},
    {"liquid transport",             "finer cells at the wet front, a look at the material's liquid conductivity and moisture "
                         "storage near saturation, or a looser AbsTolMoisture"                          },
    {"rain or water at the surface",
     "finer cells at the surface, a look at rain and exposure, or a smaller MaxTimeStep"                                        },
    {"radiation",                    "a look at radiation and absorption of the surface, or finer cells there"                  },
    {"a source",                     "a smaller source, or one that is spread over more cells"                                  },
};

} // namespace

StepFailure::StepFailure(Simulation & simulation, const Integrator & integrator) {
    Model & model = simulation.model();
    const std::vector<double> state(integrator.state().begin(), integrator.state().end());
    std::vector<double> derivative(model.size());
    const bool isFinite = model.rightHandSide(integrator.time(), state, derivative);
    const std::vector<double> scales = model.scales();
    std::size_t unknown = integrator.limitingUnknown();
    if (unknown >= model.size() || !isFinite) {
        unknown = 0; // the first that is not finite, else the fastest
        double fastest = -1;
        for (std::size_t i = 0; i < model.size(); ++i) {
            const double speed = std::fabs(derivative[i]) / scales[i];
            if (!std::isfinite(speed) || speed > fastest) {
                fastest = speed;
                unknown = i;
            }
            if (!std::isfinite(speed))
                break;
        }
    }
    const std::size_t n = model.unknowns();
    const std::size_t cell = unknown / n;
    const bool isHeatOnly = model.input().module == module_t::heat;
    const double heatScale = model.input().module == module_t::moisture ? 1 : scales[n * cell];
    const double waterScale = isHeatOnly ? 1 : scales[n * cell + n - 1];

    double rates[NUM_MECHANISMS] = {};
    const auto add = [&rates](mechanism_t mechanism, double rate) {
        rates[mechanism] = std::max(rates[mechanism], std::isfinite(rate) ? std::fabs(rate) : HUGE_VAL);
    };
    const ModelInput & input = model.input();
    for (std::size_t f = 0; f < input.faces.size(); ++f) {
        if (input.faces[f].a != cell && input.faces[f].b != cell)
            continue;
        const Model::FaceFlux & flux = model.faceFluxes()[f];
        const double area = input.faces[f].area;
        add(CONDUCTION, area * flux.conduction / heatScale);
        add(ENTHALPY, area * flux.enthalpy / heatScale);
        add(VAPOR, area * flux.vapor / waterScale);
        add(LIQUID, area * flux.liquid / waterScale);
    }
    for (std::size_t s = 0; s < input.surfaces.size(); ++s) {
        if (input.surfaces[s].cell != cell)
            continue;
        const SurfaceState & flux = model.surfaceStates()[s];
        const double area = input.surfaces[s].area;
        add(CONDUCTION, area * flux.convection / heatScale);
        add(VAPOR, area * flux.vaporArrival / waterScale);
        add(RAIN, area * flux.liquidArrival / waterScale);
        add(RADIATION, area * (flux.longWave + model.surfaceLoads()[s].shortWave) / heatScale);
    }
    for (std::size_t l = 0; l < input.loadedCells.size(); ++l) {
        if (input.loadedCells[l] != cell)
            continue;
        const CellLoad & load = model.cellLoads()[l];
        add(SOURCE, input.cells[cell].volume * load.heat / heatScale);
        add(SOURCE, input.cells[cell].volume * load.water / waterScale);
    }
    const auto & strongest = MECHANISMS[std::max_element(std::begin(rates), std::end(rates)) - std::begin(rates)];

    const Model::CellState & at = model.cellStates()[cell];
    m_text =
        KOR::text("The simulation cannot go on at %1 h in %2. What changes most there is %3. The state is %4 C, "
                  "%5 % relative humidity, %6 kg/m3 of water; the last step was %7 s long. "
                  "What may help: %8.",
                  KOR::toString(integrator.time() / 3600, 10), simulation.placeOf(cell), strongest.name,
                  KOR::toString(at.temperature - T_ZERO, 5), KOR::toString(100 * at.humidity, 5),
                  KOR::toString(at.moisture, 5), KOR::toString(integrator.statistics().lastStep, 3), strongest.advice);
}

} // namespace SOLVER
