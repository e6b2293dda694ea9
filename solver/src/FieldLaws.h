#pragma once

#include "BoundaryLaws.h"

#include <SOLVER/SurfaceLoad.h>

#include <HYGRION/FieldCond.h>

#include <array>
#include <optional>
#include <vector>

namespace SOLVER {

/// One field condition in numbers: what it adds to the load of a cell at a moment, before it is scaled to the cell.
struct FieldLaw {
    using Apply = void (*)(const FieldLaw &, const ClimateMoment &, CellLoad &);
    /// What the law gives, and so by what it is scaled to become a density.
    enum share_t {
        DENSITY, ///< by nothing
        TOTAL,   ///< by the volume of all cells of the assignment
        LAYER,   ///< of an area; by the thickness of the assigned layer
        FLOW,    ///< of the flow through a cell; by its volume
    };

    Apply apply = nullptr;
    share_t share = DENSITY;
    QuantitySignals signals;
    ActiveTimes active;
    std::int32_t ambient = QuantitySignals::NONE; ///< signal of the ambient temperature
    double coefficient = 0;                       ///< of the law: permeance [m3/m2sPa], share of the rain [-], [W/K]
    double height = 0;                            ///< of an air space [m]
    double pressure = 0;                          ///< of a fan [Pa]
    CellLoad limits;                              ///< the load to which the law adds
    std::vector<BoundaryLaw> rain;                ///< of the interface whose rain is the source

    /// The law of a condition, whose signals and rain have yet to be set. What has no effect is warned of.
    /// Throws ("[FieldLaw::fromCondition]") for what is missing and for conditions that the solver cannot calculate.
    /// \param hasMoisture moisture is balanced
    static FieldLaw fromCondition(const HYGRION::FieldCond & condition, bool hasMoisture);
    /// Water flows from cell to cell.
    bool isFlow() const { return share == FLOW; }
};

/// The emission coefficients of the lower and the upper walls of a cavity, for each direction in which they exchange
/// long-wave radiation. Throws as above.
std::array<std::optional<std::array<double, 2>>, 3> cavityEmissions(const HYGRION::FieldCond & condition);

/// Multiplies all that is a density.
void scale(CellLoad & load, double factor);

} // namespace SOLVER
