#pragma once

#include "BlockMatrix.h"
#include "Preconditioner.h"

#include <SOLVER/CvodeIntegrator.h>

#include <nvector/nvector_serial.h>
#include <sundials/sundials_linearsolver.h>
#include <sundials/sundials_matrix.h>

#include <memory>

namespace SOLVER {

/// The values of a serial vector.
inline std::span<double> vectorValues(N_Vector v) {
    return {N_VGetArrayPointer(v), static_cast<std::size_t>(N_VGetLength(v))};
}

class LinearSystem;

/// What CVODE hands to every callback.
struct CallbackData {
    Model * model = nullptr;
    LinearSystem * linear = nullptr;
};

/// Jacobian, linear solver and preconditioner of one integrator, attached to its CVODE memory,
/// whose user data are CallbackData.
class LinearSystem {
public:
    /// Throws "Not enough memory for the linear solver." ("[LinearSystem::LinearSystem]").
    LinearSystem(Model & model, const IntegratorSettings & settings, SUNContext context, void * cvode, N_Vector vector);

    long jacobianCount() const { return m_jacobianCount; }
    /// Right-hand sides that one Jacobian takes.
    std::size_t jacobianCost() const { return m_builder.cost(); }

private:
    struct FreeMatrix {
        void operator()(SUNMatrix m) const { SUNMatDestroy(m); }
    };
    struct FreeSolver {
        void operator()(SUNLinearSolver s) const { SUNLinSolFree(s); }
    };

    void attachDirect(linearSolver_t kind, SUNContext context, void * cvode, N_Vector vector);
    void attachIterative(const IntegratorSettings & settings, linearSolver_t kind, SUNContext context, void * cvode,
                         N_Vector vector);
    SUNLinearSolver blockTridiagonalSolver(SUNContext context);
    bool build(double time, N_Vector y, N_Vector derivative);
    std::size_t bandWidth() const; ///< distance of coupled cells in their numbering

    Model & m_model;
    JacobianBuilder m_builder;
    BlockMatrix m_jacobian; ///< of the right-hand side
    BlockMatrix m_shifted;  ///< I - gamma J
    std::unique_ptr<Preconditioner> m_preconditioner;
    long m_jacobianCount = 0;
    linearSolver_t m_kind = linearSolver_t::automatic;
    std::unique_ptr<std::remove_pointer_t<SUNMatrix>, FreeMatrix> m_matrix;
    std::unique_ptr<std::remove_pointer_t<SUNLinearSolver>, FreeSolver> m_solver;

    // What CVODE and the linear solvers call.
    friend struct LinearCallbacks;
};

} // namespace SOLVER
