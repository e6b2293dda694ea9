#pragma once

#include "HalfCell.h"

#include <SOLVER/SurfaceLoad.h>

namespace SOLVER {

/// A contact with its foil.
struct Contact {
    const ContactResistance & resistance;
    const ModelInput::Foil * foil; ///< or null
};

/// The states on both sides of a face; one and the same without a resistance.
struct FaceNodes {
    FaceNode a, b;
};

/// Finds the state of a face between two materials, or on both sides of a resistance, at which as much heat and water
/// arrives as leaves, and returns the fluxes from a to b. Averages of conductivities would converge slowly there.
/// \param module what is not balanced keeps its cell values and has no flux \param nodes if given, the states found
Model::FaceFlux eliminateContact(const HalfCell & a, const HalfCell & b, const Contact & contact,
                                 const Thermodynamics & thermodynamics, module_t module, FaceNodes * nodes = nullptr);

/// Finds the state of a surface under its load.
SurfaceState eliminateSurface(const HalfCell & inside, const SurfaceLoad & load, const Thermodynamics & thermodynamics,
                              module_t module);

} // namespace SOLVER
