#pragma once

#include <SOLVER/Construction.h>
#include <SOLVER/Model.h>

#include <cstddef>
#include <span>
#include <string_view>

namespace SOLVER {

/// What the evaluators of output quantities see: the model after a right-hand side, and the references of the outputs.
struct Snapshot {
    Model & model; ///< after its right-hand side
    const Construction & construction;
    double time = 0;               ///< [s]
    std::span<const double> state; ///< of the model
    /// Of each cell the indices of its loads; empty where there are no loads at all.
    std::span<const std::vector<std::uint32_t>> loadsOfCell;
    double maxHygroscopicHumidity = 0.98; ///< [-] above it moisture counts as overhygroscopic
    double expansionTemperature = 293.15; ///< [K] at which nothing has expanded
    double expansionHumidity = 0;         ///< [-] at which nothing has expanded
};

/// A quantity that result files can hold. Every one of them is a row of the table; an evaluator that is missing says
/// that the quantity does not exist there.
struct OutputQuantity {
    /// Where the values live.
    enum kind_t {
        FIELD, ///< in cells; at sides, if there are evaluators for them
        FLUX,  ///< at sides only
        STATE  ///< one value for each assigned block of cells: the sum over its cells
    };
    std::string_view keyword;
    std::string_view description;
    std::string_view unit;         ///< in which values are written unless the project asks for another one
    std::string_view integralUnit; ///< of the integral over volume or area; "---" if none has a name
    kind_t kind;
    bool isAmount; ///< belongs to the cell as a whole [kg], not to each of its points: sums instead of integrals
    double (*ofCell)(const Snapshot &, std::size_t cell);
    /// At a face: fluxes from its cell a to its cell b, states as seen from one of both.
    double (*ofFace)(const Snapshot &, std::size_t face, bool isSeenFromB);
    /// At a surface, towards the construction.
    double (*ofSurface)(const Snapshot &, std::size_t surface);
    bool needsHeat, needsMoisture; ///< balances without which the quantity does not change
    bool needsPipe = false;        ///< exists at the surfaces of one pipe only
};

/// All quantities, in the order of the manual.
std::span<const OutputQuantity> outputQuantities();

/// The quantity of a keyword. Throws "Unknown output quantity '%1'. Did you mean '%2'?" ("[SOLVER::outputQuantity]").
const OutputQuantity & outputQuantity(std::string_view keyword);

} // namespace SOLVER
