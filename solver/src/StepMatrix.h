#pragma once

#include "BlockMatrix.h"
#include "Multilevel.h"
#include "Preconditioner.h"

#include <SOLVER/Integrator.h>

#include <sundials/sundials_context.h>

#include <memory>
#include <span>

namespace SOLVER {

/// I - gamma J of the extended state: the model's unknowns, and behind them heat and water that came in through each of
/// Model::exchangeRates. These depend on the unknowns and nothing depends on them; their rows of J are kept with the same
/// care, so that a Newton step changes what the cells hold by exactly what it says came in.
class StepMatrix {
public:
    /// The linear solver that the settings ask for. Throws ("[StepMatrix::StepMatrix]") if it does not fit the model.
    StepMatrix(Model & model, const IntegratorSettings & settings, SUNContext context);

    /// The kind that was chosen; gmres or bicgstab need iterations around this, the others are exact.
    linearSolver_t kind() const { return m_kind; }
    bool usesJacobian() const { return m_usesJacobian; }

    /// Builds J. \param state and \param derivative extended. \return false when a right-hand side is not finite
    bool build(double time, std::span<const double> state, std::span<const double> derivative);
    /// \return false if I - gamma J is singular
    bool factorise(double gamma);
    /// z becomes the (approximate) solution of (I - gamma J) z = r; extended.
    void solve(std::span<const double> r, std::span<double> z, double gamma) const;
    /// Iterations end before \p z is exact: what came in is made to agree with the cells' change, and what they then gain
    /// beside it is taken from them again, from each in proportion to its part in \p z.
    void keepSums(std::span<const double> r, std::span<double> z) const;
    /// jv = J v; extended.
    void multiply(std::span<const double> v, std::span<double> jv) const;

    /// By how much smaller residuals must be than errors at step size \p gamma: incomplete factors leave smooth errors in
    /// the solution that hardly show in the residual, the more the further a step reaches beyond a cell. Such noise would
    /// keep the steps short.
    double residualShare(double gamma) const;

    long jacobianCount() const { return m_jacobianCount; }
    long jacobianCost() const { return static_cast<long>(m_builder.cost()); } ///< right-hand sides of one build
    /// The unknown with the largest residual, relative to its scale, of the last solve.
    std::size_t worstUnknown() const;

private:
    std::unique_ptr<Preconditioner> makePreconditioner(const IntegratorSettings & settings, SUNContext context);

    Model & m_model;
    JacobianBuilder m_builder;
    BlockMatrix m_jacobian;
    ExchangeRows m_exchange;
    linearSolver_t m_kind;
    bool m_usesJacobian = true;
    Multilevel * m_multilevel = nullptr;              ///< the preconditioner if it is one
    std::unique_ptr<Preconditioner> m_preconditioner; ///< null for none
    double m_gamma = 0;                               ///< of the last factorisation
    mutable double m_solveGamma = 0;                  ///< of the step that is being solved
    long m_jacobianCount = 0;
    double m_cellRate = 0;                      ///< fastest rate in a cell, which a tenth of the cells exceed [1/s]
    mutable std::vector<double> m_lastResidual; ///< for the story of a failure
};

} // namespace SOLVER
