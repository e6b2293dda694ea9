#pragma once

#include <SOLVER/Model.h>

#include <memory>
#include <span>
#include <vector>

namespace SOLVER {

enum class integrator_t { cvode, implicitEuler, explicitEuler, rungeKutta, adi, automatic };
/// How the linear systems of an implicit step are solved.
enum class linearSolver_t { blockTridiagonal, band, dense, sparse, gmres, bicgstab, automatic };
/// What makes the iterative solvers converge.
enum class preconditioner_t { blockTridiagonal, band, ilu, adi, none, noneWithJacobian, automatic };

struct IntegratorSettings {
    integrator_t integrator = integrator_t::automatic;
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
    int preconditionerBandWidth = 20; ///< to either side of the diagonal, of the band preconditioner
    int preconditionerFill = 1;       ///< levels of fill-in of the incomplete factors
    int maxKrylovDimension = 30;
    double iterativeCoefficient = 0.01; ///< of the linear residual, relative to the nonlinear tolerance
    bool useStabilityLimitDetection = false;
};

/// Counters of the work done since the start.
struct IntegratorStatistics {
    long steps = 0, rightHandSides = 0, jacobians = 0, nonlinearIterations = 0, errorTestFailures = 0,
         nonlinearFailures = 0, linearIterations = 0, linearFailures = 0;
    double lastStep = 0; ///< [s]
};

/// Carries a model's state through time.
class Integrator {
public:
    virtual ~Integrator() = default;
    virtual double time() const = 0;
    virtual std::span<const double> state() const = 0;
    /// One internal step that does not pass \p limit [s]; \return the time reached [s].
    /// Throws with the reason and what can be changed; limitingUnknown() tells then what held it up.
    virtual double step(double limit) = 0;
    /// Starts anew at the current state, after the loads jumped.
    virtual void restart() = 0;
    virtual IntegratorStatistics statistics() const = 0;
    /// The unknown whose error limited the last step (index into the state), or the size of the state if unknown.
    virtual std::size_t limitingUnknown() const = 0;
    /// Heat [J] and water [kg] that came in since the start, in the order of Model::exchangeRates. The method itself
    /// integrates them, so that the balances close to round-off whatever the tolerance.
    virtual std::vector<Exchange> exchanged() const = 0;

    /// Integrates to \p time exactly; no step passes it.
    void advance(double time);
    /// The state at a time [s] within the last step, to the integrator's order: outputs need no steps of their own.
    virtual void interpolate(double time, std::span<double> state) const = 0;
};

/// The integrator that the settings ask for. \param startTime [s] \param state size() of the model
std::unique_ptr<Integrator> makeIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                                           const std::vector<double> & state);

} // namespace SOLVER
