#pragma once

#include "Preconditioner.h"

#include <SOLVER/Integrator.h>

#include <nvector/nvector_serial.h>
#include <sundials/sundials_linearsolver.h>
#include <sundials/sundials_matrix.h>

#include <memory>

namespace SOLVER {

/// The exact inverse by one of the direct solvers of SUNDIALS: band, dense or sparse (KLU).
class DirectSolver : public Preconditioner {
public:
    /// \param halfBandWidth of the band solver, in unknowns; couplings beyond it are left out
    /// Throws "Not enough memory for the linear solver." ("[DirectSolver::DirectSolver]").
    DirectSolver(const BlockMatrix & pattern, linearSolver_t kind, std::size_t halfBandWidth, SUNContext context);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;
    bool isExact() const override { return m_isExact; }

private:
    struct FreeMatrix {
        void operator()(SUNMatrix m) const { SUNMatDestroy(m); }
    };
    struct FreeSolver {
        void operator()(SUNLinearSolver s) const { SUNLinSolFree(s); }
    };
    struct FreeVector {
        void operator()(N_Vector v) const { N_VDestroy(v); }
    };
    linearSolver_t m_kind;
    bool m_isExact;
    long m_halfBandWidth;
    std::unique_ptr<std::remove_pointer_t<N_Vector>, FreeVector> m_right, m_solution;
    std::unique_ptr<std::remove_pointer_t<SUNMatrix>, FreeMatrix> m_matrix;
    std::unique_ptr<std::remove_pointer_t<SUNLinearSolver>, FreeSolver> m_solver;
};

/// The distance of coupled unknowns in their numbering.
std::size_t halfBandWidth(const BlockMatrix & pattern);

} // namespace SOLVER
