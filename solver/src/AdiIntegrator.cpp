#include <SOLVER/AdiIntegrator.h>

#include "Preconditioner.h"
#include "SundialsState.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace SOLVER {

namespace {

/// With it products of up to four parts with negative real eigenvalues are stable (computed), one alone strongly.
constexpr double GAMMA = 1 - 1 / std::numbers::sqrt2;
constexpr double SAFETY = 0.9;
constexpr double SHRINK_MOST = 0.2, GROW_MOST = 4;
constexpr double KEPT_GROWTH = 1.2;  ///< a step that could grow by less keeps its factors
constexpr double AFTER_FAULT = 0.25; ///< of the step, after values that are not finite
constexpr int MAX_JACOBIAN_AGE = 20; ///< [steps]

enum failure_t { SHORT_STEP, NOT_FINITE, NOT_FINITE_AT_START };
constexpr const char * LOOK_AT_LOADS = "Look at the loads and the material near this cell; a smaller MaxTimeStep helps "
                                       "where a load jumps, and CVODE copes with more.";
constexpr FailureReason REASONS[] = {
    {SHORT_STEP,          "The error test failed with the smallest step.",
     "Loosen the tolerances, allow a smaller MinTimeStep or choose CVODE."                                                      },
    {NOT_FINITE,
     "The balances gave values that are not finite or impossible temperatures, also with the smallest step.",      LOOK_AT_LOADS},
    {NOT_FINITE_AT_START, "The balances give values that are not finite or impossible temperatures at the start.",
     "Look at the initial conditions and at the loads of the first moment."                                                     },
};

} // namespace

struct AdiIntegrator::Work {
    Work(Model & model, const IntegratorSettings & given, double startTime, const std::vector<double> & state)
        : base(model, given, startTime, state, "[AdiIntegrator::AdiIntegrator]"), settings(given), builder(model),
          jacobian(model.neighbours(), model.unknowns()), exchange(model), parts(model), limiting(model.size()),
          smallest(given.minStep > 0 ? given.minStep : 1e-8),
          longest(given.maxStep > 0 ? given.maxStep : std::numeric_limits<double>::infinity()) {
        for (std::vector<double> * v : {&rate, &slope1, &slope2, &trial, &error})
            v->resize(values().size());
    }

    std::span<double> values() const { return vectorValues(base.vector()); }
    bool rightHandSide(double t, std::span<const double> y, std::span<double> ydot) {
        ++statistics.rightHandSides;
        return SundialsState::rightHandSide(base.model(), t, y, ydot);
    }
    /// The mean of \p v in units of the tolerances at the present state; sets limiting to the largest.
    double norm(std::span<const double> v) {
        const std::span<const double> tolerance = vectorValues(base.tolerances());
        double sum = 0;
        double largest = -1;
        for (std::size_t i = 0; i < base.model().size(); ++i) {
            const double one = std::fabs(v[i]) / (base.relativeTolerance() * std::fabs(values()[i]) + tolerance[i]);
            sum += one * one;
            if (one > largest) {
                largest = one;
                limiting = i;
            }
        }
        return std::sqrt(sum / static_cast<double>(base.model().size()));
    }
    /// The right-hand side of the present state, its Jacobian if that is too old. \return false if not finite
    bool prepare() {
        if (!isRateKnown && !rightHandSide(base.time, values(), rate))
            return false;
        isRateKnown = true;
        if (jacobianAge < MAX_JACOBIAN_AGE)
            return true;
        const std::size_t size = base.model().size();
        ++statistics.jacobians;
        statistics.rightHandSides += static_cast<long>(builder.cost());
        jacobianAge = 0;
        factorisedStep = 0;
        return builder.build(base.time, values().first(size), std::span(rate).first(size), jacobian, exchange);
    }
    void proposeFirstStep() {
        const double speed = norm(rate);
        proposed = settings.initialStep > 0 ? settings.initialStep
                   : speed > 0              ? 0.5 / speed // half a tolerance
                                            : longest;
        proposed = std::clamp(proposed, smallest, longest);
    }
    bool stages(double h);
    double splittingError(double h);
    [[noreturn]] void fail(failure_t reason) const { SundialsState::fail(reason, REASONS, "[AdiIntegrator::step]"); }

    SundialsState base;
    IntegratorSettings settings;
    JacobianBuilder builder;
    BlockMatrix jacobian;
    ExchangeRows exchange;
    AdiPreconditioner parts;
    IntegratorStatistics statistics;
    std::size_t limiting;
    double smallest, longest; ///< step [s]
    double proposed = 0;      ///< next step [s], 0 before the first
    double factorisedStep = 0;
    int jacobianAge = MAX_JACOBIAN_AGE;
    bool isRateKnown = false;
    double timeBefore = 0;
    std::vector<double> before; ///< the state at the start of the last step
    std::vector<double> rate, slope1, slope2, trial, error;
};

/// trial becomes the state a step later, error the difference to that of the method of first order within it.
bool AdiIntegrator::Work::stages(double h) {
    if (h != factorisedStep && !parts.factorise(jacobian, GAMMA * h, exchange))
        return false;
    factorisedStep = h;
    statistics.linearIterations += 2;
    parts.solveExtended(rate, slope1, exchange);
    for (std::size_t i = 0; i < trial.size(); ++i)
        trial[i] = values()[i] + h * slope1[i];
    if (!rightHandSide(base.time + h, trial, slope2))
        return false;
    for (std::size_t i = 0; i < trial.size(); ++i)
        slope2[i] -= 2 * slope1[i];
    parts.solveExtended(slope2, slope2, exchange);
    for (std::size_t i = 0; i < trial.size(); ++i) {
        error[i] = h / 2 * (slope1[i] + slope2[i]);
        trial[i] += error[i];
    }
    return true;
}

/// What the product of the parts leaves of the equations of the first stage. Parts that are stiffer than the step allows
/// show in it only: the stages hardly move them.
double AdiIntegrator::Work::splittingError(double h) {
    if (parts.partCount() == 1)
        return 0;
    const std::size_t size = base.model().size();
    jacobian.multiply(std::span(slope1).first(size), std::span(slope2).first(size));
    for (std::size_t i = 0; i < size; ++i)
        slope2[i] = h * (rate[i] - slope1[i] + GAMMA * h * slope2[i]);
    return norm(slope2);
}

AdiIntegrator::AdiIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                             const std::vector<double> & state)
    : m_work(std::make_unique<Work>(model, settings, startTime, state)) {
    m_work->before.assign(m_work->values().begin(), m_work->values().end());
    m_work->timeBefore = startTime;
}

AdiIntegrator::~AdiIntegrator() = default;

double AdiIntegrator::step(double limit) {
    Work & work = *m_work;
    if (!work.prepare())
        work.fail(work.statistics.steps == 0 ? NOT_FINITE_AT_START : NOT_FINITE);
    if (work.proposed == 0)
        work.proposeFirstStep();
    for (;;) {
        const double left = limit - work.base.time;
        // The last two steps before the limit share what is left, so that none becomes tiny.
        const double h = work.proposed >= left ? left : std::min(work.proposed, std::max(left / 2, work.smallest));
        const bool isFinite = work.stages(h);
        double error = 0;
        if (isFinite) {
            error = work.norm(work.error);
            const std::size_t ofMethod = work.limiting;
            if (const double splitting = work.splittingError(h); splitting > error)
                error = splitting;
            else
                work.limiting = ofMethod;
        }
        const bool isAccepted = isFinite && error <= 1;
        const double factor =
            isFinite ? std::clamp(SAFETY / std::sqrt(std::max(error, 1e-10)), SHRINK_MOST, GROW_MOST) : AFTER_FAULT;
        if (isAccepted) {
            // A step that the limit cut short says little about the next.
            const double next = factor < KEPT_GROWTH && factor > 1 ? h : factor * h;
            work.proposed =
                std::clamp(h < work.proposed ? std::max(work.proposed, next) : next, work.smallest, work.longest);
            work.before.assign(work.values().begin(), work.values().end());
            std::copy(work.trial.begin(), work.trial.end(), work.values().begin());
            work.timeBefore = work.base.time;
            work.base.time = h == left ? limit : work.base.time + h;
            work.isRateKnown = false;
            ++work.jacobianAge;
            ++work.statistics.steps;
            work.statistics.lastStep = h;
            return work.base.time;
        }
        ++work.statistics.errorTestFailures;
        if (h <= work.smallest || !(h > 0))
            work.fail(isFinite ? SHORT_STEP : NOT_FINITE);
        work.proposed = std::max(std::min(factor, 0.9) * h, work.smallest);
        if (work.jacobianAge > 0) {
            work.jacobianAge = MAX_JACOBIAN_AGE;
            if (!work.prepare())
                work.fail(NOT_FINITE);
        }
    }
}

double AdiIntegrator::time() const {
    return m_work->base.time;
}

std::span<const double> AdiIntegrator::state() const {
    return m_work->base.unknowns();
}

std::vector<Exchange> AdiIntegrator::exchanged() const {
    return m_work->base.exchanged();
}

void AdiIntegrator::interpolate(double time, std::span<double> state) const {
    const Work & work = *m_work;
    const double length = work.base.time - work.timeBefore;
    const double share = length > 0 ? (time - work.timeBefore) / length : 1;
    // The continuous form of the method: its slope at the start is that of the first stage, which the step's end and
    // start determine together with the error that was kept below the tolerance.
    for (std::size_t i = 0; i < state.size(); ++i)
        state[i] = work.before[i] + share * (work.values()[i] - work.before[i] + (share - 1) * work.error[i]);
}

void AdiIntegrator::restart() {
    m_work->isRateKnown = false;
    m_work->jacobianAge = MAX_JACOBIAN_AGE;
    m_work->proposed = 0;
}

IntegratorStatistics AdiIntegrator::statistics() const {
    return m_work->statistics;
}

std::size_t AdiIntegrator::limitingUnknown() const {
    return m_work->limiting;
}

} // namespace SOLVER
