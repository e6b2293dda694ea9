#include <SOLVER/CvodeIntegrator.h>

#include "Colouring.h"

#include <KOR/Exception.h>

#include <cvode/cvode.h>
#include <nvector/nvector_serial.h>
#include <sunlinsol/sunlinsol_band.h>
#include <sunlinsol/sunlinsol_klu.h>
#include <sunmatrix/sunmatrix_band.h>
#include <sunmatrix/sunmatrix_sparse.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr int RECOVERABLE = 1; ///< the integrator tries again with a smaller step

std::span<double> values(N_Vector v) {
    return {N_VGetArrayPointer(v), static_cast<std::size_t>(N_VGetLength(v))};
}

struct FreeVector {
    void operator()(N_Vector v) const { N_VDestroy(v); }
};
using Vector = std::unique_ptr<std::remove_pointer_t<N_Vector>, FreeVector>;
struct FreeMatrix {
    void operator()(SUNMatrix m) const { SUNMatDestroy(m); }
};
struct FreeSolver {
    void operator()(SUNLinearSolver s) const { SUNLinSolFree(s); }
};
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

    static int rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept;
    static int jacobian(realtype t, N_Vector y, N_Vector fy, SUNMatrix j, void * data, N_Vector, N_Vector,
                        N_Vector) noexcept;
    void check(int flag, const char * where) const {
        if (flag < 0)
            throw Exception(reason(flag), where);
    }

    Model & model;
    IntegratorSettings settings;
    std::vector<double> scales;
    std::vector<std::vector<std::uint32_t>> colours;
    std::vector<double> shifted, difference; ///< state and derivative beside the Jacobian's point
    bool isBand = true;

    // In this order: what is made first goes last.
    std::unique_ptr<std::remove_pointer_t<SUNContext>, FreeContext> context;
    Vector state, tolerances;
    std::unique_ptr<std::remove_pointer_t<SUNMatrix>, FreeMatrix> matrix;
    std::unique_ptr<std::remove_pointer_t<SUNLinearSolver>, FreeSolver> solver;
    void * cvode = nullptr;
    double time = 0;
    IntegratorStatistics before; ///< counters of the runs before the last restart
};

int CvodeIntegrator::Work::rightHandSide(realtype t, N_Vector y, N_Vector ydot, void * data) noexcept {
    return static_cast<Work *>(data)->model.rightHandSide(t, values(y), values(ydot)) ? 0 : RECOVERABLE;
}

int CvodeIntegrator::Work::jacobian(realtype t, N_Vector y, N_Vector fy, SUNMatrix j, void * data, N_Vector, N_Vector,
                                    N_Vector) noexcept {
    Work & work = *static_cast<Work *>(data);
    const std::size_t unknowns = work.model.unknowns();
    const auto & neighbours = work.model.neighbours();
    const std::span<const double> point = values(y);
    const std::span<const double> derivative = values(fy);
    const double root = std::sqrt(std::numeric_limits<double>::epsilon());
    SUNMatZero(j);
    if (!work.isBand) { // the pattern is constant: block columns of neighbours, each column with all unknowns
        sunindextype at = 0;
        for (std::size_t c = 0; c < neighbours.size(); ++c)
            for (std::size_t u = 0; u < unknowns; ++u) {
                SM_INDEXPTRS_S(j)[unknowns * c + u] = at;
                for (const std::uint32_t n : neighbours[c])
                    for (std::size_t v = 0; v < unknowns; ++v)
                        SM_INDEXVALS_S(j)[at++] = static_cast<sunindextype>(unknowns * n + v);
            }
        SM_INDEXPTRS_S(j)[unknowns * neighbours.size()] = at;
    }
    for (const std::vector<std::uint32_t> & cells : work.colours)
        for (std::size_t u = 0; u < unknowns; ++u) {
            std::copy(point.begin(), point.end(), work.shifted.begin());
            for (const std::uint32_t c : cells) {
                const std::size_t column = unknowns * c + u;
                work.shifted[column] += root * std::max(std::fabs(point[column]), work.scales[column]);
            }
            if (!work.model.rightHandSide(t, work.shifted, work.difference))
                return RECOVERABLE;
            for (const std::uint32_t c : cells) {
                const std::size_t column = unknowns * c + u;
                const double perShift = 1 / (work.shifted[column] - point[column]);
                std::size_t k = work.isBand ? 0 : static_cast<std::size_t>(SM_INDEXPTRS_S(j)[column]);
                for (const std::uint32_t n : neighbours[c])
                    for (std::size_t v = 0; v < unknowns; ++v) {
                        const std::size_t row = unknowns * n + v;
                        const double entry = (work.difference[row] - derivative[row]) * perShift;
                        if (work.isBand)
                            SM_ELEMENT_B(j, static_cast<sunindextype>(row), static_cast<sunindextype>(column)) = entry;
                        else
                            SM_DATA_S(j)[k++] = entry;
                    }
            }
        }
    return 0;
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
    std::copy(state.begin(), state.end(), values(work.state.get()).begin());
    work.time = startTime;
    work.scales = model.scales();
    work.shifted.resize(size);
    work.difference.resize(size);
    const bool hasHeat = model.input().module != module_t::moisture;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isHeat = hasHeat && i % model.unknowns() == 0;
        values(work.tolerances.get())[i] =
            work.scales[i] * (isHeat ? settings.absoluteToleranceHeat : settings.absoluteToleranceMoisture);
    }

    work.check(CVodeInit(work.cvode, Work::rightHandSide, startTime, work.state.get()), WHERE);
    work.check(CVodeSVtolerances(work.cvode, settings.relativeTolerance, work.tolerances.get()), WHERE);
    work.check(CVodeSetUserData(work.cvode, &work), WHERE);
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

    // Band width and entries of the pattern.
    const std::size_t unknowns = model.unknowns();
    std::size_t width = 0;
    std::size_t entries = 0;
    for (std::uint32_t c = 0; c < model.cellCount(); ++c) {
        const auto & list = model.neighbours()[c];
        width = std::max<std::size_t>(width, std::max(c - list.front(), list.back() - c));
        entries += list.size() * unknowns * unknowns;
    }
    const auto band = static_cast<sunindextype>(unknowns * (width + 1) - 1);
    work.isBand = settings.linearSolver == linearSolver_t::band ||
                  (settings.linearSolver == linearSolver_t::automatic && width <= 4);
    if (work.isBand) {
        work.matrix.reset(SUNBandMatrix(n, band, band, context));
        if (work.matrix)
            work.solver.reset(SUNLinSol_Band(work.state.get(), work.matrix.get(), context));
    } else {
        work.matrix.reset(SUNSparseMatrix(n, n, static_cast<sunindextype>(entries), CSC_MAT, context));
        if (work.matrix)
            work.solver.reset(SUNLinSol_KLU(work.state.get(), work.matrix.get(), context));
    }
    if (!work.matrix || !work.solver)
        throw Exception("Not enough memory for the linear solver.", WHERE);
    work.check(CVodeSetLinearSolver(work.cvode, work.solver.get(), work.matrix.get()), WHERE);
    work.check(CVodeSetJacFn(work.cvode, Work::jacobian), WHERE);
    work.colours = colourCells(model.neighbours());
}

CvodeIntegrator::~CvodeIntegrator() = default;

double CvodeIntegrator::time() const {
    return m_work->time;
}

std::span<const double> CvodeIntegrator::state() const {
    return values(m_work->state.get());
}

void CvodeIntegrator::advance(double time) {
    constexpr const char * WHERE = "[CvodeIntegrator::advance]";
    m_work->check(CVodeSetStopTime(m_work->cvode, time), WHERE);
    m_work->check(CVode(m_work->cvode, time, m_work->state.get(), &m_work->time, CV_NORMAL), WHERE);
}

double CvodeIntegrator::step(double limit) {
    constexpr const char * WHERE = "[CvodeIntegrator::advance]";
    m_work->check(CVodeSetStopTime(m_work->cvode, limit), WHERE);
    m_work->check(CVode(m_work->cvode, limit, m_work->state.get(), &m_work->time, CV_ONE_STEP), WHERE);
    return m_work->time;
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
    CVodeGetNumJacEvals(m_work->cvode, &s.jacobians);
    s.rightHandSides += s.jacobians * static_cast<long>(m_work->colours.size() * m_work->model.unknowns());
    const IntegratorStatistics & b = m_work->before;
    s.steps += b.steps;
    s.rightHandSides += b.rightHandSides;
    s.jacobians += b.jacobians;
    s.nonlinearIterations += b.nonlinearIterations;
    s.errorTestFailures += b.errorTestFailures;
    s.nonlinearFailures += b.nonlinearFailures;
    return s;
}

} // namespace SOLVER
