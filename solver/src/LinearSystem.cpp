#include "LinearSystem.h"

#include <KOR/Exception.h>

#include <cvode/cvode.h>
#include <sunlinsol/sunlinsol_band.h>
#include <sunlinsol/sunlinsol_dense.h>
#include <sunlinsol/sunlinsol_klu.h>
#include <sunlinsol/sunlinsol_spbcgs.h>
#include <sunlinsol/sunlinsol_spgmr.h>
#include <sunmatrix/sunmatrix_band.h>
#include <sunmatrix/sunmatrix_dense.h>
#include <sunmatrix/sunmatrix_sparse.h>

#include <algorithm>

namespace SOLVER {

using KOR::Exception;

namespace {

constexpr int RECOVERABLE = 1;
/// Up to this many unknowns a sparse direct solve beats the iterative ones in two dimensions (measured).
constexpr std::size_t SPARSE_DIRECT_LIMIT = 2000;

/// Hands every entry of the block matrix to \p put(row, column, value).
template <typename Put> void forEachEntry(const BlockMatrix & matrix, Put && put) {
    const std::size_t b = matrix.blockSize();
    for (std::size_t r = 0; r < matrix.rows(); ++r)
        for (std::size_t e = matrix.rowStart(r); e < matrix.rowStart(r + 1); ++e)
            for (std::size_t i = 0; i < b; ++i)
                for (std::size_t j = 0; j < b; ++j)
                    put(static_cast<sunindextype>(b * r + i), static_cast<sunindextype>(b * matrix.column(e) + j),
                        matrix.block(e)[i * b + j]);
}

/// The pattern is symmetric, so that the rows of the block matrix are read as the columns of the sparse one.
void fillSparse(const BlockMatrix & matrix, SUNMatrix sparse) {
    const std::size_t b = matrix.blockSize();
    sunindextype at = 0;
    for (std::size_t c = 0; c < matrix.rows(); ++c)
        for (std::size_t j = 0; j < b; ++j) {
            SM_INDEXPTRS_S(sparse)[b * c + j] = at;
            for (std::size_t e = matrix.rowStart(c); e < matrix.rowStart(c + 1); ++e) {
                const std::uint32_t r = matrix.column(e);
                const double * const block = matrix.block(matrix.find(r, static_cast<std::uint32_t>(c)));
                for (std::size_t i = 0; i < b; ++i) {
                    SM_INDEXVALS_S(sparse)[at] = static_cast<sunindextype>(b * r + i);
                    SM_DATA_S(sparse)[at++] = block[i * b + j];
                }
            }
        }
    SM_INDEXPTRS_S(sparse)[b * matrix.rows()] = at;
}

void attached(int flag) {
    if (flag != CVLS_SUCCESS)
        throw Exception("The linear solver cannot be attached to the integrator.", "[LinearSystem::LinearSystem]");
}

} // namespace

struct LinearCallbacks {
    static LinearSystem & system(void * data) { return *static_cast<CallbackData *>(data)->linear; }

    static int jacobian(realtype t, N_Vector y, N_Vector fy, SUNMatrix j, void * data, N_Vector, N_Vector,
                        N_Vector) noexcept {
        LinearSystem & s = system(data);
        if (!s.build(t, y, fy))
            return RECOVERABLE;
        SUNMatZero(j);
        if (s.m_kind == linearSolver_t::sparse)
            fillSparse(s.m_jacobian, j);
        else if (s.m_kind == linearSolver_t::dense)
            forEachEntry(s.m_jacobian, [j](auto r, auto c, double v) { SM_ELEMENT_D(j, r, c) = v; });
        else
            forEachEntry(s.m_jacobian, [j](auto r, auto c, double v) { SM_ELEMENT_B(j, r, c) = v; });
        return 0;
    }

    static int setupPreconditioner(realtype t, N_Vector y, N_Vector fy, booleantype jok, booleantype * jcur,
                                   realtype gamma, void * data) noexcept {
        LinearSystem & s = system(data);
        *jcur = SUNFALSE;
        if (jok == SUNFALSE) {
            if (!s.build(t, y, fy))
                return RECOVERABLE;
            *jcur = SUNTRUE;
        }
        if (!s.m_preconditioner)
            return 0;
        s.m_shifted.setShifted(s.m_jacobian, gamma);
        return s.m_preconditioner->factorise(s.m_shifted) ? 0 : RECOVERABLE;
    }

    static int solvePreconditioner(realtype, N_Vector, N_Vector, N_Vector r, N_Vector z, realtype, realtype, int,
                                   void * data) noexcept {
        LinearSystem & s = system(data);
        if (s.m_preconditioner)
            s.m_preconditioner->solve(vectorValues(r), vectorValues(z));
        else
            N_VScale(1.0, r, z);
        return 0;
    }

    static int multiply(N_Vector v, N_Vector jv, realtype, N_Vector, N_Vector, void * data, N_Vector) noexcept {
        system(data).m_jacobian.multiply(vectorValues(v), vectorValues(jv));
        return 0;
    }

    // The block-tridiagonal solver: CVODE keeps the matrix as a band, the blocks are picked from it.
    static int setupBlocks(SUNLinearSolver solver, SUNMatrix a) noexcept {
        LinearSystem & s = *static_cast<LinearSystem *>(solver->content);
        BlockMatrix & m = s.m_shifted;
        const std::size_t b = m.blockSize();
        for (std::size_t r = 0; r < m.rows(); ++r)
            for (std::size_t e = m.rowStart(r); e < m.rowStart(r + 1); ++e)
                for (std::size_t i = 0; i < b; ++i)
                    for (std::size_t j = 0; j < b; ++j)
                        m.block(e)[i * b + j] = SM_ELEMENT_B(a, static_cast<sunindextype>(b * r + i),
                                                             static_cast<sunindextype>(b * m.column(e) + j));
        return s.m_preconditioner->factorise(m) ? SUNLS_SUCCESS : SUNLS_LUFACT_FAIL;
    }
    static int solveBlocks(SUNLinearSolver solver, SUNMatrix, N_Vector x, N_Vector b, realtype) noexcept {
        static_cast<LinearSystem *>(solver->content)->m_preconditioner->solve(vectorValues(b), vectorValues(x));
        return SUNLS_SUCCESS;
    }
};

LinearSystem::LinearSystem(Model & model, const IntegratorSettings & settings, SUNContext context, void * cvode,
                           N_Vector vector)
    : m_model(model), m_builder(model), m_jacobian(model.neighbours(), model.unknowns()), m_shifted(m_jacobian),
      m_kind(settings.linearSolver) {
    const bool isOneDimensional = LineSolver(model, 0).isComplete() && bandWidth() <= 1;
    if (m_kind == linearSolver_t::automatic)
        m_kind = isOneDimensional                      ? linearSolver_t::blockTridiagonal
                 : model.size() <= SPARSE_DIRECT_LIMIT ? linearSolver_t::sparse
                                                       : linearSolver_t::gmres;
    if (m_kind == linearSolver_t::blockTridiagonal && !isOneDimensional)
        throw Exception("The block-tridiagonal solver is for one-dimensional constructions; choose another one.",
                        "[LinearSystem::LinearSystem]");
    if (m_kind == linearSolver_t::gmres || m_kind == linearSolver_t::bicgstab)
        attachIterative(settings, m_kind, context, cvode, vector);
    else
        attachDirect(m_kind, context, cvode, vector);
}

std::size_t LinearSystem::bandWidth() const {
    std::size_t width = 0;
    for (std::uint32_t c = 0; c < m_model.cellCount(); ++c) {
        const auto & list = m_model.neighbours()[c];
        width = std::max<std::size_t>(width, std::max(c - list.front(), list.back() - c));
    }
    return width;
}

void LinearSystem::attachDirect(linearSolver_t kind, SUNContext context, void * cvode, N_Vector vector) {
    const auto n = static_cast<sunindextype>(m_model.size());
    if (kind == linearSolver_t::dense) {
        m_matrix.reset(SUNDenseMatrix(n, n, context));
    } else if (kind == linearSolver_t::sparse) {
        const std::size_t entries = m_jacobian.entryCount() * m_model.unknowns() * m_model.unknowns();
        m_matrix.reset(SUNSparseMatrix(n, n, static_cast<sunindextype>(entries), CSC_MAT, context));
    } else {
        const auto band = static_cast<sunindextype>(m_model.unknowns() * (bandWidth() + 1) - 1);
        m_matrix.reset(SUNBandMatrix(n, band, band, context));
    }
    if (m_matrix)
        m_solver.reset(kind == linearSolver_t::dense    ? SUNLinSol_Dense(vector, m_matrix.get(), context)
                       : kind == linearSolver_t::sparse ? SUNLinSol_KLU(vector, m_matrix.get(), context)
                       : kind == linearSolver_t::band   ? SUNLinSol_Band(vector, m_matrix.get(), context)
                                                        : blockTridiagonalSolver(context));
    if (!m_matrix || !m_solver)
        throw Exception("Not enough memory for the linear solver.", "[LinearSystem::LinearSystem]");
    attached(CVodeSetLinearSolver(cvode, m_solver.get(), m_matrix.get()));
    attached(CVodeSetJacFn(cvode, LinearCallbacks::jacobian));
}

SUNLinearSolver LinearSystem::blockTridiagonalSolver(SUNContext context) {
    m_preconditioner = std::make_unique<LineSolver>(m_model, 0);
    SUNLinearSolver solver = SUNLinSolNewEmpty(context);
    if (solver == nullptr)
        return nullptr;
    solver->content = this;
    solver->ops->gettype = [](SUNLinearSolver) { return SUNLINEARSOLVER_DIRECT; };
    solver->ops->setup = LinearCallbacks::setupBlocks;
    solver->ops->solve = LinearCallbacks::solveBlocks;
    solver->ops->free = [](SUNLinearSolver s) {
        s->content = nullptr; // is ours
        SUNLinSolFreeEmpty(s);
        return SUNLS_SUCCESS;
    };
    return solver;
}

void LinearSystem::attachIterative(const IntegratorSettings & settings, linearSolver_t kind, SUNContext context,
                                   void * cvode, N_Vector vector) {
    switch (settings.preconditioner) {
    case preconditioner_t::blockTridiagonal:
        m_preconditioner = std::make_unique<LineSolver>(m_model, 0);
        break;
    case preconditioner_t::adi:
        m_preconditioner = std::make_unique<AdiPreconditioner>(m_model);
        break;
    case preconditioner_t::none:
    case preconditioner_t::noneWithJacobian:
        break;
    default:
        m_preconditioner = std::make_unique<BlockIlu>(m_jacobian);
    }
    const bool usesJacobian = settings.preconditioner != preconditioner_t::none;
    const int side = usesJacobian ? PREC_LEFT : PREC_NONE;
    m_solver.reset(kind == linearSolver_t::gmres
                       ? SUNLinSol_SPGMR(vector, side, settings.maxKrylovDimension, context)
                       : SUNLinSol_SPBCGS(vector, side, settings.maxKrylovDimension, context));
    if (!m_solver)
        throw Exception("Not enough memory for the linear solver.", "[LinearSystem::LinearSystem]");
    attached(CVodeSetLinearSolver(cvode, m_solver.get(), nullptr));
    attached(CVodeSetEpsLin(cvode, settings.iterativeCoefficient));
    if (usesJacobian) {
        attached(
            CVodeSetPreconditioner(cvode, LinearCallbacks::setupPreconditioner, LinearCallbacks::solvePreconditioner));
        attached(CVodeSetJacTimes(cvode, nullptr, LinearCallbacks::multiply));
    }
}

bool LinearSystem::build(double time, N_Vector y, N_Vector derivative) {
    ++m_jacobianCount;
    return m_builder.build(time, vectorValues(y), vectorValues(derivative), m_jacobian);
}

} // namespace SOLVER
