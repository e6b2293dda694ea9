#include <SOLVER/CvodeIntegrator.h>

#include "LinearSystem.h"

#include <KOR/Exception.h>

#include <cvode/cvode.h>

namespace SOLVER {

namespace {

constexpr int RECOVERABLE = 1; ///< the integrator tries again with a smaller step

constexpr const char * LOOK_AT_LOADS = "Look at the loads and the material near this cell; a smaller MaxTimeStep helps "
                                       "where a load jumps.";
constexpr FailureReason REASONS[] = {
    {CV_TOO_MUCH_WORK,     "Too many steps were needed.",
     "Loosen the tolerances or look for a load that changes too fast."                                                                                               },
    {CV_TOO_MUCH_ACC,      "The tolerances are tighter than the numbers of this machine allow.",
     "Raise RelTol or the absolute tolerances."                                                                                                                      },
    {CV_ERR_FAILURE,       "The error test failed with the smallest step.",
     "Loosen the tolerances or allow a smaller MinTimeStep."                                                                                                         },
    {CV_CONV_FAILURE,      "The nonlinear equations did not converge with the smallest step.",                      LOOK_AT_LOADS                                    },
    {CV_LSETUP_FAIL,       "The linear system is singular.",                                                        LOOK_AT_LOADS                                    },
    {CV_LSOLVE_FAIL,       "The linear system cannot be solved.",                                                   "Choose another linear solver or preconditioner."},
    {CV_RHSFUNC_FAIL,      "The balances gave values that are not finite or impossible temperatures.",              LOOK_AT_LOADS                                    },
    {CV_FIRST_RHSFUNC_ERR, "The balances give values that are not finite or impossible temperatures at the start.",
     "Look at the initial conditions and at the loads of the first moment."                                                                                          },
    {CV_REPTD_RHSFUNC_ERR,
     "The balances gave values that are not finite or impossible temperatures, also with the smallest step.",       LOOK_AT_LOADS                                    },
    {CV_UNREC_RHSFUNC_ERR, "The balances gave values that are not finite or impossible temperatures.",              LOOK_AT_LOADS                                    },
    {CV_TOO_CLOSE,         "The end time is too close to the start time.",                                          "Choose a later end."                            },
};

} // namespace

struct CvodeIntegrator::Work {
    Work(Model & model, const IntegratorSettings & settings, double startTime, const std::vector<double> & state)
        : base(model, settings, startTime, state, "[CvodeIntegrator::CvodeIntegrator]") {}
    ~Work() { CVodeFree(&cvode); }

    static int rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept {
        return SundialsState::rightHandSide(*static_cast<CallbackData *>(data)->model, t, vectorValues(y),
                                            vectorValues(ydot))
                   ? 0
                   : RECOVERABLE;
    }
    void check(int flag, const char * where) {
        if (flag >= 0)
            return;
        const bool isLinear = flag == CV_CONV_FAILURE || flag == CV_LSETUP_FAIL || flag == CV_LSOLVE_FAIL;
        failedUnknown = isLinear && linear ? linear->matrix().worstUnknown() : limitingUnknown();
        SundialsState::fail(flag, REASONS, where);
    }
    std::size_t limitingUnknown() const {
        return base.worstUnknown([this](N_Vector errors, N_Vector weights) {
            return CVodeGetEstLocalErrors(cvode, errors) == CV_SUCCESS &&
                   CVodeGetErrWeights(cvode, weights) == CV_SUCCESS;
        });
    }

    // In this order: what is made first goes last.
    SundialsState base;
    CallbackData callbackData;
    std::unique_ptr<LinearSystem> linear;
    void * cvode = nullptr;
    std::optional<std::size_t> failedUnknown;
    IntegratorStatistics before; ///< counters of the runs before the last restart, without Jacobians
};

CvodeIntegrator::CvodeIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                                 const std::vector<double> & state)
    : m_work(std::make_unique<Work>(model, settings, startTime, state)) {
    constexpr const char * WHERE = "[CvodeIntegrator::CvodeIntegrator]";
    Work & work = *m_work;
    work.cvode = CVodeCreate(CV_BDF, work.base.context());
    if (work.cvode == nullptr)
        throw KOR::Exception("Not enough memory for the integrator.", WHERE);
    void * const cvode = work.cvode;
    work.check(CVodeInit(cvode, Work::rightHandSide, startTime, work.base.vector()), WHERE);
    work.check(CVodeSVtolerances(cvode, work.base.relativeTolerance(), work.base.tolerances()), WHERE);
    work.check(CVodeSetUserData(cvode, &work.callbackData), WHERE);
    work.check(CVodeSetMaxNumSteps(cvode, settings.maxStepsPerCall), WHERE);
    work.check(CVodeSetMaxOrd(cvode, settings.integrator == integrator_t::implicitEuler ? 1 : settings.maxOrder),
               WHERE);
    work.check(CVodeSetMaxNonlinIters(cvode, settings.maxNonlinearIterations), WHERE);
    work.check(CVodeSetNonlinConvCoef(cvode, settings.nonlinearCoefficient), WHERE);
    if (settings.maxStep > 0)
        work.check(CVodeSetMaxStep(cvode, settings.maxStep), WHERE);
    if (settings.minStep > 0)
        work.check(CVodeSetMinStep(cvode, settings.minStep), WHERE);
    if (settings.initialStep > 0)
        work.check(CVodeSetInitStep(cvode, settings.initialStep), WHERE);
    if (settings.useStabilityLimitDetection)
        work.check(CVodeSetStabLimDet(cvode, SUNTRUE), WHERE);
    work.check(CVodeSetErrHandlerFn(
                   cvode, [](int, const char *, const char *, char *, void *) {}, nullptr),
               WHERE);
    work.linear = std::make_unique<LinearSystem>(work.base, settings, cvode);
    work.callbackData = {&model, work.linear.get()};
}

CvodeIntegrator::~CvodeIntegrator() = default;

double CvodeIntegrator::time() const {
    return m_work->base.time;
}

std::span<const double> CvodeIntegrator::state() const {
    return m_work->base.unknowns();
}

std::vector<Exchange> CvodeIntegrator::exchanged() const {
    return m_work->base.exchanged();
}

double CvodeIntegrator::step(double limit) {
    constexpr const char * WHERE = "[CvodeIntegrator::step]";
    Work & work = *m_work;
    work.check(CVodeSetStopTime(work.cvode, limit), WHERE);
    work.check(CVode(work.cvode, limit, work.base.vector(), &work.base.time, CV_ONE_STEP), WHERE);
    return work.base.time;
}

void CvodeIntegrator::interpolate(double time, std::span<double> state) const {
    const Vector values(N_VNew_Serial(N_VGetLength(m_work->base.vector()), m_work->base.context()));
    m_work->check(CVodeGetDky(m_work->cvode, time, 0, values.get()), "[CvodeIntegrator::interpolate]");
    std::copy_n(vectorValues(values.get()).begin(), state.size(), state.begin());
}

std::size_t CvodeIntegrator::limitingUnknown() const {
    return m_work->failedUnknown.value_or(m_work->limitingUnknown());
}

void CvodeIntegrator::restart() {
    m_work->before = statistics();
    m_work->check(CVodeReInit(m_work->cvode, m_work->base.time, m_work->base.vector()), "[CvodeIntegrator::restart]");
}

IntegratorStatistics CvodeIntegrator::statistics() const {
    void * const cvode = m_work->cvode;
    IntegratorStatistics s;
    double unused = 0;
    long setups = 0;
    int order = 0;
    CVodeGetIntegratorStats(cvode, &s.steps, &s.rightHandSides, &setups, &s.errorTestFailures, &order, &order, &unused,
                            &s.lastStep, &unused, &unused);
    CVodeGetNonlinSolvStats(cvode, &s.nonlinearIterations, &s.nonlinearFailures);
    long difference = 0; // right-hand sides of Jacobian products by differences
    CVodeGetNumLinRhsEvals(cvode, &difference);
    CVodeGetNumLinIters(cvode, &s.linearIterations);
    CVodeGetNumLinConvFails(cvode, &s.linearFailures);
    const long jacobiansBefore = m_work->before.jacobians;
    s.jacobians = m_work->linear->matrix().jacobianCount();
    s.rightHandSides += difference + (s.jacobians - jacobiansBefore) * m_work->linear->matrix().jacobianCost();
    const IntegratorStatistics & b = m_work->before;
    s.steps += b.steps;
    s.rightHandSides += b.rightHandSides;
    s.nonlinearIterations += b.nonlinearIterations;
    s.errorTestFailures += b.errorTestFailures;
    s.nonlinearFailures += b.nonlinearFailures;
    s.linearIterations += b.linearIterations;
    s.linearFailures += b.linearFailures;
    return s;
}

} // namespace SOLVER
