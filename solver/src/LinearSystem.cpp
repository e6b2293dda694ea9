#include "LinearSystem.h"

#include <KOR/Exception.h>

#include <cvode/cvode.h>
#include <sunlinsol/sunlinsol_spbcgs.h>
#include <sunlinsol/sunlinsol_spgmr.h>

namespace SOLVER {

using KOR::Exception;

namespace {

constexpr int RECOVERABLE = 1;

void attached(int flag) {
    if (flag != CVLS_SUCCESS)
        throw Exception("The linear solver cannot be attached to the integrator.", "[LinearSystem::LinearSystem]");
}

/// The content of a solver that applies the preconditioner once, because it is exact: CVODE decides by the same rules as
/// for its own solvers when to build and to factorise.
struct ExactSolver {
    void * data = nullptr;
    SUNPSetupFn setup = nullptr;
    SUNPSolveFn solve = nullptr;
};
ExactSolver & exact(SUNLinearSolver solver) {
    return *static_cast<ExactSolver *>(solver->content);
}

SUNLinearSolver exactSolver(SUNContext context) {
    SUNLinearSolver solver = SUNLinSolNewEmpty(context);
    if (solver == nullptr)
        return nullptr;
    solver->content = new ExactSolver;
    solver->ops->gettype = [](SUNLinearSolver) { return SUNLINEARSOLVER_ITERATIVE; };
    solver->ops->setatimes = [](SUNLinearSolver, void *, SUNATimesFn) { return int{SUNLS_SUCCESS}; };
    solver->ops->setpreconditioner = [](SUNLinearSolver s, void * data, SUNPSetupFn setup, SUNPSolveFn solve) {
        exact(s) = {data, setup, solve};
        return int{SUNLS_SUCCESS};
    };
    solver->ops->setup = [](SUNLinearSolver s, SUNMatrix) {
        const int flag = exact(s).setup(exact(s).data);
        return flag == 0 ? int{SUNLS_SUCCESS} : flag > 0 ? int{SUNLS_PSET_FAIL_REC} : int{SUNLS_PSET_FAIL_UNREC};
    };
    solver->ops->solve = [](SUNLinearSolver s, SUNMatrix, N_Vector x, N_Vector b, realtype tolerance) {
        return exact(s).solve(exact(s).data, b, x, tolerance, PREC_LEFT) == 0 ? int{SUNLS_SUCCESS}
                                                                              : int{SUNLS_PSOLVE_FAIL_REC};
    };
    solver->ops->free = [](SUNLinearSolver s) {
        delete static_cast<ExactSolver *>(s->content);
        s->content = nullptr;
        SUNLinSolFreeEmpty(s);
        return int{SUNLS_SUCCESS};
    };
    return solver;
}

/// The content of a Krylov solver whose solutions keep the sums of heat and water. All but that the inner one does.
struct ConservativeSolver {
    SUNLinearSolver inner;
    const StepMatrix & matrix;
};
ConservativeSolver & conservative(SUNLinearSolver solver) {
    return *static_cast<ConservativeSolver *>(solver->content);
}

SUNLinearSolver conservativeSolver(SUNLinearSolver inner, const StepMatrix & matrix, SUNContext context) {
    if (inner == nullptr)
        return nullptr;
    SUNLinearSolver solver = SUNLinSolNewEmpty(context);
    if (solver == nullptr) {
        SUNLinSolFree(inner);
        return nullptr;
    }
    solver->content = new ConservativeSolver{inner, matrix};
    solver->ops->gettype = [](SUNLinearSolver) { return SUNLINEARSOLVER_ITERATIVE; };
    solver->ops->setatimes = [](SUNLinearSolver s, void * data, SUNATimesFn product) {
        return SUNLinSolSetATimes(conservative(s).inner, data, product);
    };
    solver->ops->setpreconditioner = [](SUNLinearSolver s, void * data, SUNPSetupFn setup, SUNPSolveFn solve) {
        return SUNLinSolSetPreconditioner(conservative(s).inner, data, setup, solve);
    };
    solver->ops->setscalingvectors = [](SUNLinearSolver s, N_Vector left, N_Vector right) {
        return SUNLinSolSetScalingVectors(conservative(s).inner, left, right);
    };
    solver->ops->setzeroguess = [](SUNLinearSolver s, booleantype isZero) {
        return SUNLinSolSetZeroGuess(conservative(s).inner, isZero);
    };
    solver->ops->initialize = [](SUNLinearSolver s) { return SUNLinSolInitialize(conservative(s).inner); };
    solver->ops->setup = [](SUNLinearSolver s, SUNMatrix none) { return SUNLinSolSetup(conservative(s).inner, none); };
    solver->ops->solve = [](SUNLinearSolver s, SUNMatrix none, N_Vector x, N_Vector b, realtype tolerance) {
        const int flag = SUNLinSolSolve(conservative(s).inner, none, x, b, tolerance);
        conservative(s).matrix.keepSums(vectorValues(b), vectorValues(x));
        return flag;
    };
    solver->ops->numiters = [](SUNLinearSolver s) { return SUNLinSolNumIters(conservative(s).inner); };
    solver->ops->resnorm = [](SUNLinearSolver s) { return SUNLinSolResNorm(conservative(s).inner); };
    solver->ops->resid = [](SUNLinearSolver s) { return SUNLinSolResid(conservative(s).inner); };
    solver->ops->lastflag = [](SUNLinearSolver s) { return SUNLinSolLastFlag(conservative(s).inner); };
    solver->ops->free = [](SUNLinearSolver s) {
        SUNLinSolFree(conservative(s).inner);
        delete &conservative(s);
        s->content = nullptr;
        SUNLinSolFreeEmpty(s);
        return int{SUNLS_SUCCESS};
    };
    return solver;
}

} // namespace

struct LinearCallbacks {
    static LinearSystem & system(void * data) { return *static_cast<CallbackData *>(data)->linear; }

    static int setup(realtype t, N_Vector y, N_Vector fy, booleantype jok, booleantype * jcur, realtype gamma,
                     void * data) noexcept {
        StepMatrix & matrix = system(data).m_matrix;
        *jcur = SUNFALSE;
        if (jok == SUNFALSE) {
            if (!matrix.build(t, vectorValues(y), vectorValues(fy)))
                return RECOVERABLE;
            *jcur = SUNTRUE;
        }
        CVodeSetEpsLin(system(data).m_cvode, system(data).m_coefficient * matrix.residualShare(gamma));
        return matrix.factorise(gamma) ? 0 : RECOVERABLE;
    }

    static int solve(realtype, N_Vector, N_Vector, N_Vector r, N_Vector z, realtype gamma, realtype, int,
                     void * data) noexcept {
        system(data).m_matrix.solve(vectorValues(r), vectorValues(z), gamma);
        return 0;
    }

    static int multiply(N_Vector v, N_Vector jv, realtype, N_Vector, N_Vector, void * data, N_Vector) noexcept {
        system(data).m_matrix.multiply(vectorValues(v), vectorValues(jv));
        return 0;
    }
};

LinearSystem::LinearSystem(const SundialsState & state, const IntegratorSettings & settings, void * cvode)
    : m_matrix(state.model(), settings, state.context()), m_cvode(cvode), m_coefficient(settings.iterativeCoefficient),
      m_solver(makeSolver(state, settings)) {
    if (!m_solver)
        throw Exception("Not enough memory for the linear solver.", "[LinearSystem::LinearSystem]");
    attached(CVodeSetLinearSolver(cvode, m_solver.get(), nullptr));
    attached(CVodeSetEpsLin(cvode, settings.iterativeCoefficient));
    if (m_matrix.usesJacobian()) {
        attached(CVodeSetPreconditioner(cvode, LinearCallbacks::setup, LinearCallbacks::solve));
        attached(CVodeSetJacTimes(cvode, nullptr, LinearCallbacks::multiply));
    }
}

SUNLinearSolver LinearSystem::makeSolver(const SundialsState & state, const IntegratorSettings & settings) {
    const int side = m_matrix.usesJacobian() ? PREC_LEFT : PREC_NONE;
    const auto keepingSums = [&](SUNLinearSolver inner) {
        return conservativeSolver(inner, m_matrix, state.context());
    };
    switch (m_matrix.kind()) {
    case linearSolver_t::gmres:
        return keepingSums(SUNLinSol_SPGMR(state.vector(), side, settings.maxKrylovDimension, state.context()));
    case linearSolver_t::bicgstab:
        return keepingSums(SUNLinSol_SPBCGS(state.vector(), side, settings.maxKrylovDimension, state.context()));
    default:
        return exactSolver(state.context());
    }
}

} // namespace SOLVER
