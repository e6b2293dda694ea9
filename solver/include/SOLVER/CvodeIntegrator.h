#pragma once

#include <SOLVER/Model.h>

#include <memory>

namespace SOLVER {

/// How the linear systems of an implicit step are solved.
enum class linearSolver_t { blockTridiagonal, band, dense, sparse, gmres, bicgstab, automatic };
/// What makes the iterative solvers converge.
enum class preconditioner_t { blockTridiagonal, band, ilu, adi, none, noneWithJacobian, automatic };

struct IntegratorSettings {
    double relativeTolerance = 1e-5;
    double absoluteToleranceHeat = 1e-6;     ///< times the model's scale of energy (1 K)
    double absoluteToleranceMoisture = 1e-6; ///< times the model's scale of moisture
    double maxStep = 0;                      ///< [s], 0 for none
    double minStep = 1e-8;                   ///< [s]; smaller ones are a failure
    double initialStep = 0;                  ///< [s], 0 for the integrator's choice
    int maxOrder = 5;
    int maxNonlinearIterations = 3;
    double nonlinearCoefficient = 0.1;
    long maxStepsPerCall = 1'000'000;
    linearSolver_t linearSolver = linearSolver_t::automatic;
    preconditioner_t preconditioner = preconditioner_t::automatic;
    int maxKrylovDimension = 30;
    double iterativeCoefficient = 0.01; ///< of the linear residual, relative to the nonlinear tolerance
};

/// Counters of the work done since the start.
struct IntegratorStatistics {
    long steps = 0, rightHandSides = 0, jacobians = 0, nonlinearIterations = 0, errorTestFailures = 0,
         nonlinearFailures = 0, linearIterations = 0, linearFailures = 0;
    double lastStep = 0; ///< [s]
};

/// Variable-order BDF with adaptive steps (CVODE) on a model. The Jacobian comes from differences over a colouring of
/// its true sparsity.
class CvodeIntegrator {
public:
    /// Throws ("[CvodeIntegrator::CvodeIntegrator]") when the integrator cannot be set up.
    CvodeIntegrator(Model & model, const IntegratorSettings & settings, double startTime, std::vector<double> state);
    ~CvodeIntegrator();
    CvodeIntegrator(const CvodeIntegrator &) = delete;
    CvodeIntegrator & operator=(const CvodeIntegrator &) = delete;

    double time() const;
    std::span<const double> state() const;
    /// Integrates to \p time exactly; no step passes it. Throws ("[CvodeIntegrator::advance]") with the reason.
    void advance(double time);
    /// One internal step that does not pass \p limit; \return the time reached.
    double step(double limit);
    /// Starts anew at the current state, after the loads jumped.
    void restart();
    IntegratorStatistics statistics() const;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

} // namespace SOLVER
