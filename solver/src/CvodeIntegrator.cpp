#include <SOLVER/CvodeIntegrator.h>

#include "BlockMatrix.h"
#include "LinearSystem.h"

#include <KOR/Exception.h>

#include <cvode/cvode.h>
#include <nvector/nvector_serial.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr int RECOVERABLE = 1; ///< the integrator tries again with a smaller step

struct FreeVector {
    void operator()(N_Vector v) const { N_VDestroy(v); }
};
using Vector = std::unique_ptr<std::remove_pointer_t<N_Vector>, FreeVector>;
struct FreeContext {
    void operator()(SUNContext c) const { SUNContext_Free(&c); }
};

/// What a failed call means to the user.
struct Reason {
    int flag;
    const char * text;
};
constexpr Reason REASONS[] = {
    {CV_TOO_MUCH_WORK,     "Too many steps were needed; loosen the tolerances or look for a load that changes too fast."},
    {CV_TOO_MUCH_ACC,      "The tolerances are tighter than the numbers of this machine allow."                         },
    {CV_ERR_FAILURE,       "The error test failed too often; the step became as small as allowed."                      },
    {CV_CONV_FAILURE,      "The nonlinear equations did not converge with the smallest step."                           },
    {CV_LSETUP_FAIL,       "The linear system is singular."                                                             },
    {CV_RHSFUNC_FAIL,      "The balances gave values that are not finite."                                              },
    {CV_FIRST_RHSFUNC_ERR, "The balances give values that are not finite at the start."                                 },
    {CV_REPTD_RHSFUNC_ERR, "The balances gave values that are not finite, also with the smallest step."                 },
    {CV_UNREC_RHSFUNC_ERR, "The balances gave values that are not finite."                                              },
    {CV_TOO_CLOSE,         "The end time is too close to the start time."                                               },
};

std::string reason(int flag) {
    for (const Reason & known : REASONS)
        if (known.flag == flag)
            return known.text;
    return text("The integrator stopped with code %1.", flag);
}

} // namespace

struct CvodeIntegrator::Work {
    Work(Model & m, const IntegratorSettings & s) : model(m), settings(s) {}
    ~Work() { CVodeFree(&cvode); }

    void integrate(double step);
    static int rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept;
    void check(int flag, const char * where) const {
        if (flag < 0)
            throw Exception(reason(flag), where);
    }

    CallbackData callbackData;
    Model & model;
    IntegratorSettings settings;

    // In this order: what is made first goes last.
    std::unique_ptr<std::remove_pointer_t<SUNContext>, FreeContext> context;
    Vector state, tolerances;
    std::unique_ptr<LinearSystem> linear;
    void * cvode = nullptr;
    double time = 0;
    std::vector<Exchange> exchanged;
    IntegratorStatistics before; ///< counters of the runs before the last restart
};

void CvodeIntegrator::Work::integrate(double step) {
    std::vector<double> derivative(model.size());
    model.rightHandSide(time, vectorValues(state.get()), derivative);
    exchanged.resize(model.exchangeRates().size());
    for (std::size_t i = 0; i < exchanged.size(); ++i) {
        exchanged[i].heat += step * model.exchangeRates()[i].heat;
        exchanged[i].water += step * model.exchangeRates()[i].water;
    }
}

int CvodeIntegrator::Work::rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept {
    return static_cast<CallbackData *>(data)->model->rightHandSide(t, vectorValues(y), vectorValues(ydot))
               ? 0
               : RECOVERABLE;
}

CvodeIntegrator::CvodeIntegrator(Model & model, const IntegratorSettings & settings, double startTime,
                                 std::vector<double> state)
    : m_work(std::make_unique<Work>(model, settings)) {
    constexpr const char * WHERE = "[CvodeIntegrator::CvodeIntegrator]";
    Work & work = *m_work;
    const std::size_t size = model.size();
    if (state.size() != size || size == 0)
        throw Exception(text("The state has %1 values, the model %2.", state.size(), size), WHERE);
    SUNContext context = nullptr;
    if (SUNContext_Create(nullptr, &context) != 0)
        throw Exception("Cannot create the integrator's context.", WHERE);
    work.context.reset(context);
    const auto n = static_cast<sunindextype>(size);
    work.state.reset(N_VNew_Serial(n, context));
    work.tolerances.reset(N_VNew_Serial(n, context));
    work.cvode = CVodeCreate(CV_BDF, context);
    if (!work.state || !work.tolerances || work.cvode == nullptr)
        throw Exception("Not enough memory for the integrator.", WHERE);
    std::copy(state.begin(), state.end(), vectorValues(work.state.get()).begin());
    work.time = startTime;
    const std::vector<double> scales = model.scales();
    const bool hasHeat = model.input().module != module_t::moisture;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isHeat = hasHeat && i % model.unknowns() == 0;
        vectorValues(work.tolerances.get())[i] =
            scales[i] * (isHeat ? settings.absoluteToleranceHeat : settings.absoluteToleranceMoisture);
    }

    work.check(CVodeInit(work.cvode, Work::rightHandSide, startTime, work.state.get()), WHERE);
    work.check(CVodeSVtolerances(work.cvode, settings.relativeTolerance, work.tolerances.get()), WHERE);
    work.check(CVodeSetUserData(work.cvode, &work.callbackData), WHERE);
    work.check(CVodeSetMaxNumSteps(work.cvode, settings.maxStepsPerCall), WHERE);
    work.check(CVodeSetMaxOrd(work.cvode, settings.maxOrder), WHERE);
    work.check(CVodeSetMaxNonlinIters(work.cvode, settings.maxNonlinearIterations), WHERE);
    work.check(CVodeSetNonlinConvCoef(work.cvode, settings.nonlinearCoefficient), WHERE);
    if (settings.maxStep > 0)
        work.check(CVodeSetMaxStep(work.cvode, settings.maxStep), WHERE);
    if (settings.minStep > 0)
        work.check(CVodeSetMinStep(work.cvode, settings.minStep), WHERE);
    if (settings.initialStep > 0)
        work.check(CVodeSetInitStep(work.cvode, settings.initialStep), WHERE);
    work.check(CVodeSetErrHandlerFn(
                   work.cvode, [](int, const char *, const char *, char *, void *) {}, nullptr),
               WHERE);

    work.linear = std::make_unique<LinearSystem>(model, settings, context, work.cvode, work.state.get());
    work.callbackData = {&model, work.linear.get()};
}

CvodeIntegrator::~CvodeIntegrator() = default;

double CvodeIntegrator::time() const {
    return m_work->time;
}

std::span<const double> CvodeIntegrator::state() const {
    return vectorValues(m_work->state.get());
}

double CvodeIntegrator::step(double limit) {
    constexpr const char * WHERE = "[CvodeIntegrator::step]";
    const double before = m_work->time;
    m_work->check(CVodeSetStopTime(m_work->cvode, limit), WHERE);
    m_work->check(CVode(m_work->cvode, limit, m_work->state.get(), &m_work->time, CV_ONE_STEP), WHERE);
    m_work->integrate(m_work->time - before);
    return m_work->time;
}

std::vector<Exchange> CvodeIntegrator::exchanged() const {
    return m_work->exchanged;
}

void CvodeIntegrator::interpolate(double time, std::span<double> state) const {
    N_Vector values = N_VNew_Serial(static_cast<sunindextype>(state.size()), m_work->context.get());
    const int flag = CVodeGetDky(m_work->cvode, time, 0, values);
    std::copy_n(vectorValues(values).begin(), state.size(), state.begin());
    N_VDestroy(values);
    m_work->check(flag, "[CvodeIntegrator::interpolate]");
}

std::size_t CvodeIntegrator::limitingUnknown() const {
    std::vector<double> errors(state().size());
    const auto n = static_cast<sunindextype>(errors.size());
    N_Vector local = N_VMake_Serial(n, errors.data(), m_work->context.get());
    N_Vector weights = N_VNew_Serial(n, m_work->context.get());
    std::size_t worst = errors.size();
    if (CVodeGetEstLocalErrors(m_work->cvode, local) == CV_SUCCESS &&
        CVodeGetErrWeights(m_work->cvode, weights) == CV_SUCCESS) {
        double largest = 0;
        for (std::size_t i = 0; i < errors.size(); ++i) {
            const double error = std::fabs(errors[i] * vectorValues(weights)[i]);
            if (error > largest) {
                largest = error;
                worst = i;
            }
        }
    }
    N_VDestroy(local);
    N_VDestroy(weights);
    return worst;
}

void CvodeIntegrator::restart() {
    m_work->before = statistics();
    m_work->check(CVodeReInit(m_work->cvode, m_work->time, m_work->state.get()), "[CvodeIntegrator::restart]");
}

IntegratorStatistics CvodeIntegrator::statistics() const {
    IntegratorStatistics s;
    double unused = 0;
    long setups = 0;
    int order = 0;
    CVodeGetIntegratorStats(m_work->cvode, &s.steps, &s.rightHandSides, &setups, &s.errorTestFailures, &order, &order,
                            &unused, &s.lastStep, &unused, &unused);
    CVodeGetNonlinSolvStats(m_work->cvode, &s.nonlinearIterations, &s.nonlinearFailures);
    s.jacobians = m_work->linear->jacobianCount();
    s.rightHandSides += s.jacobians * static_cast<long>(m_work->linear->jacobianCost());
    CVodeGetNumLinIters(m_work->cvode, &s.linearIterations);
    CVodeGetNumLinConvFails(m_work->cvode, &s.linearFailures);
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
