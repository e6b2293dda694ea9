#pragma once

#include "StepMatrix.h"
#include "SundialsState.h"

#include <sundials/sundials_linearsolver.h>

#include <memory>

namespace SOLVER {

class LinearSystem;

/// What CVODE hands to every callback.
struct CallbackData {
    Model * model = nullptr;
    LinearSystem * linear = nullptr;
};

/// Step matrix and Krylov iterations of one integrator, attached to its CVODE memory, whose user data are CallbackData.
class LinearSystem {
public:
    /// Throws "Not enough memory for the linear solver." ("[LinearSystem::LinearSystem]").
    LinearSystem(const SundialsState & state, const IntegratorSettings & settings, void * cvode);

    const StepMatrix & matrix() const { return m_matrix; }

private:
    struct FreeSolver {
        void operator()(SUNLinearSolver s) const { SUNLinSolFree(s); }
    };
    SUNLinearSolver makeSolver(const SundialsState & state, const IntegratorSettings & settings);

    StepMatrix m_matrix;
    void * m_cvode;
    double m_coefficient; ///< of the linear residual, see IntegratorSettings
    std::unique_ptr<std::remove_pointer_t<SUNLinearSolver>, FreeSolver> m_solver;

    // What CVODE and the linear solvers call.
    friend struct LinearCallbacks;
};

} // namespace SOLVER
