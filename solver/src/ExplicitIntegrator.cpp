#include <SOLVER/ExplicitIntegrator.h>

#include "SundialsState.h"

#include <KOR/Exception.h>

#include <arkode/arkode_erkstep.h>

namespace SOLVER {

namespace {

constexpr int RECOVERABLE = 1; ///< the integrator tries again with a smaller step

constexpr const char * USE_IMPLICIT =
    "Explicit integrators need steps in proportion to the square of the cells: choose "
    "CVODE, or larger cells.";
constexpr FailureReason REASONS[] = {
    {ARK_TOO_MUCH_WORK,     "Too many steps were needed.",                                                           USE_IMPLICIT},
    {ARK_TOO_MUCH_ACC,      "The tolerances are tighter than the numbers of this machine allow.",
     "Raise RelTol or the absolute tolerances."                                                                                  },
    {ARK_ERR_FAILURE,       "The error test failed with the smallest step.",                                         USE_IMPLICIT},
    {ARK_RHSFUNC_FAIL,      "The balances gave values that are not finite or impossible temperatures.",              USE_IMPLICIT},
    {ARK_FIRST_RHSFUNC_ERR, "The balances give values that are not finite or impossible temperatures at the start.",
     "Look at the initial conditions and at the loads of the first moment."                                                      },
    {ARK_REPTD_RHSFUNC_ERR,
     "The balances gave values that are not finite or impossible temperatures, also with the smallest step.",        USE_IMPLICIT},
    {ARK_UNREC_RHSFUNC_ERR, "The balances gave values that are not finite or impossible temperatures.",              USE_IMPLICIT},
};

/// Euler's method, with Heun's for the error.
ARKodeButcherTable eulerTable() {
    ARKodeButcherTable table = ARKodeButcherTable_Alloc(2, SUNTRUE);
    if (table == nullptr)
        return nullptr;
    table->q = table->p = 1;
    table->A[1][0] = table->c[1] = 1;
    table->b[0] = 1;
    table->d[0] = table->d[1] = 0.5;
    return table;
}

int rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept {
    return SundialsState::rightHandSide(*static_cast<Model *>(data), t, vectorValues(y), vectorValues(ydot))
               ? 0
               : RECOVERABLE;
}

} // namespace

struct ExplicitIntegrator::Work {
    Work(Model & model, const IntegratorSettings & settings, double startTime, const std::vector<double> & state)
        : base(model, settings, startTime, state, "[ExplicitIntegrator::ExplicitIntegrator]") {}
    ~Work() { ERKStepFree(&arkode); }

    static void check(int flag, const char * where) {
        if (flag < 0)
            SundialsState::fail(flag, REASONS, where);
    }
    std::size_t limitingUnknown() const {
        return base.worstUnknown([this](N_Vector errors, N_Vector weights) {
            return ERKStepGetEstLocalErrors(arkode, errors) == ARK_SUCCESS &&
                   ERKStepGetErrWeights(arkode, weights) == ARK_SUCCESS;
        });
    }

    SundialsState base;
    void * arkode = nullptr;
};

ExplicitIntegrator::ExplicitIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                                       const std::vector<double> & state)
    : m_work(std::make_unique<Work>(model, settings, startTime, state)) {
    constexpr const char * WHERE = "[ExplicitIntegrator::ExplicitIntegrator]";
    Work & work = *m_work;
    work.arkode = ERKStepCreate(rightHandSide, startTime, work.base.vector(), work.base.context());
    if (work.arkode == nullptr)
        throw KOR::Exception("Not enough memory for the integrator.", WHERE);
    void * const arkode = work.arkode;
    if (settings.integrator == integrator_t::explicitEuler) {
        ARKodeButcherTable table = eulerTable();
        const int flag = table == nullptr ? ARK_MEM_FAIL : ERKStepSetTable(arkode, table);
        ARKodeButcherTable_Free(table);
        work.check(flag, WHERE);
    } else {
        work.check(ERKStepSetTableNum(arkode, ARKODE_DORMAND_PRINCE_7_4_5), WHERE);
    }
    work.check(ERKStepSVtolerances(arkode, work.base.relativeTolerance(), work.base.tolerances()), WHERE);
    work.check(ERKStepSetUserData(arkode, &model), WHERE);
    work.check(ERKStepSetMaxNumSteps(arkode, settings.maxStepsPerCall), WHERE);
    if (settings.maxStep > 0)
        work.check(ERKStepSetMaxStep(arkode, settings.maxStep), WHERE);
    if (settings.minStep > 0)
        work.check(ERKStepSetMinStep(arkode, settings.minStep), WHERE);
    if (settings.initialStep > 0)
        work.check(ERKStepSetInitStep(arkode, settings.initialStep), WHERE);
    work.check(ERKStepSetErrHandlerFn(
                   arkode, [](int, const char *, const char *, char *, void *) {}, nullptr),
               WHERE);
}

ExplicitIntegrator::~ExplicitIntegrator() = default;

double ExplicitIntegrator::time() const {
    return m_work->base.time;
}

std::span<const double> ExplicitIntegrator::state() const {
    return m_work->base.unknowns();
}

std::vector<Exchange> ExplicitIntegrator::exchanged() const {
    return m_work->base.exchanged();
}

double ExplicitIntegrator::step(double limit) {
    constexpr const char * WHERE = "[ExplicitIntegrator::step]";
    Work & work = *m_work;
    work.check(ERKStepSetStopTime(work.arkode, limit), WHERE);
    work.check(ERKStepEvolve(work.arkode, limit, work.base.vector(), &work.base.time, ARK_ONE_STEP), WHERE);
    return work.base.time;
}

void ExplicitIntegrator::interpolate(double time, std::span<double> state) const {
    const Vector values(N_VNew_Serial(N_VGetLength(m_work->base.vector()), m_work->base.context()));
    m_work->check(ERKStepGetDky(m_work->arkode, time, 0, values.get()), "[ExplicitIntegrator::interpolate]");
    std::copy_n(vectorValues(values.get()).begin(), state.size(), state.begin());
}

std::size_t ExplicitIntegrator::limitingUnknown() const {
    return m_work->limitingUnknown();
}

void ExplicitIntegrator::restart() {
    m_work->check(ERKStepReset(m_work->arkode, m_work->base.time, m_work->base.vector()),
                  "[ExplicitIntegrator::restart]");
}

IntegratorStatistics ExplicitIntegrator::statistics() const {
    IntegratorStatistics s;
    double unused = 0;
    long expansions = 0;
    long limited = 0;
    long attempts = 0;
    ERKStepGetTimestepperStats(m_work->arkode, &expansions, &limited, &attempts, &s.rightHandSides,
                               &s.errorTestFailures);
    ERKStepGetStepStats(m_work->arkode, &s.steps, &unused, &s.lastStep, &unused, &unused);
    return s;
}

} // namespace SOLVER
