#include "DirectSolver.h"

#include <KOR/Exception.h>

#include <sunlinsol/sunlinsol_band.h>
#include <sunlinsol/sunlinsol_dense.h>
#include <sunlinsol/sunlinsol_klu.h>
#include <sunmatrix/sunmatrix_band.h>
#include <sunmatrix/sunmatrix_dense.h>
#include <sunmatrix/sunmatrix_sparse.h>

#include <algorithm>
#include <cstdlib>

namespace SOLVER {

namespace {

constexpr int AMD_ORDERING = 0; ///< of KLU; half the fill of its default on grids (measured)

/// Hands every entry of I - gamma J to \p put(row, column, value).
template <typename Put> void forEachEntry(const BlockMatrix & jacobian, double gamma, Put && put) {
    const std::size_t b = jacobian.blockSize();
    for (std::size_t r = 0; r < jacobian.rows(); ++r)
        for (std::size_t e = jacobian.rowStart(r); e < jacobian.rowStart(r + 1); ++e)
            for (std::size_t i = 0; i < b; ++i)
                for (std::size_t j = 0; j < b; ++j) {
                    const std::size_t row = b * r + i;
                    const std::size_t column = b * jacobian.column(e) + j;
                    put(static_cast<sunindextype>(row), static_cast<sunindextype>(column),
                        (row == column ? 1.0 : 0.0) - gamma * jacobian.block(e)[i * b + j]);
                }
}

/// The same in the order of compressed columns. The pattern is symmetric, so that the rows of the blocks are read as
/// columns.
void fillSparse(const BlockMatrix & jacobian, double gamma, SUNMatrix sparse) {
    const std::size_t b = jacobian.blockSize();
    sunindextype at = 0;
    for (std::size_t c = 0; c < jacobian.rows(); ++c)
        for (std::size_t j = 0; j < b; ++j) {
            SM_INDEXPTRS_S(sparse)[b * c + j] = at;
            for (std::size_t e = jacobian.rowStart(c); e < jacobian.rowStart(c + 1); ++e) {
                const std::uint32_t r = jacobian.column(e);
                const double * const block = jacobian.block(jacobian.find(r, static_cast<std::uint32_t>(c)));
                for (std::size_t i = 0; i < b; ++i) {
                    SM_INDEXVALS_S(sparse)[at] = static_cast<sunindextype>(b * r + i);
                    SM_DATA_S(sparse)[at++] = (r == c && i == j ? 1.0 : 0.0) - gamma * block[i * b + j];
                }
            }
        }
    SM_INDEXPTRS_S(sparse)[b * jacobian.rows()] = at;
}

} // namespace

std::size_t halfBandWidth(const BlockMatrix & pattern) {
    std::size_t width = 0;
    for (std::size_t r = 0; r < pattern.rows(); ++r) {
        const std::size_t first = pattern.column(pattern.rowStart(r));
        const std::size_t last = pattern.column(pattern.rowStart(r + 1) - 1);
        width = std::max({width, r - first, last - r});
    }
    return pattern.blockSize() * (width + 1) - 1;
}

DirectSolver::DirectSolver(const BlockMatrix & pattern, linearSolver_t kind, std::size_t bandWidth, SUNContext context)
    : m_kind(kind), m_isExact(kind != linearSolver_t::band || bandWidth >= halfBandWidth(pattern)),
      m_halfBandWidth(static_cast<long>(bandWidth)) {
    const auto n = static_cast<sunindextype>(pattern.rows() * pattern.blockSize());
    m_right.reset(N_VNewEmpty_Serial(n, context));
    m_solution.reset(N_VNewEmpty_Serial(n, context));
    if (m_right && m_solution) {
        switch (kind) {
        case linearSolver_t::dense:
            m_matrix.reset(SUNDenseMatrix(n, n, context));
            break;
        case linearSolver_t::band:
            m_matrix.reset(SUNBandMatrix(n, m_halfBandWidth, m_halfBandWidth, context));
            break;
        default:
            m_matrix.reset(SUNSparseMatrix(
                n, n, static_cast<sunindextype>(pattern.entryCount() * pattern.blockSize() * pattern.blockSize()),
                CSC_MAT, context));
        }
    }
    if (m_matrix)
        m_solver.reset(kind == linearSolver_t::dense  ? SUNLinSol_Dense(m_right.get(), m_matrix.get(), context)
                       : kind == linearSolver_t::band ? SUNLinSol_Band(m_right.get(), m_matrix.get(), context)
                                                      : SUNLinSol_KLU(m_right.get(), m_matrix.get(), context));
    if (!m_solver)
        throw KOR::Exception("Not enough memory for the linear solver.", "[DirectSolver::DirectSolver]");
    if (kind != linearSolver_t::dense && kind != linearSolver_t::band)
        SUNLinSol_KLUSetOrdering(m_solver.get(), AMD_ORDERING);
    SUNLinSolInitialize(m_solver.get());
}

bool DirectSolver::factorise(const BlockMatrix & jacobian, double gamma) {
    SUNMatrix matrix = m_matrix.get();
    SUNMatZero(matrix);
    switch (m_kind) {
    case linearSolver_t::dense:
        forEachEntry(jacobian, gamma, [matrix](auto r, auto c, double v) { SM_ELEMENT_D(matrix, r, c) = v; });
        break;
    case linearSolver_t::band:
        forEachEntry(jacobian, gamma, [matrix, this](auto r, auto c, double v) {
            if (std::labs(r - c) <= m_halfBandWidth)
                SM_ELEMENT_B(matrix, r, c) = v;
        });
        break;
    default:
        fillSparse(jacobian, gamma, matrix);
    }
    return SUNLinSolSetup(m_solver.get(), matrix) == SUNLS_SUCCESS;
}

void DirectSolver::solve(std::span<const double> r, std::span<double> z) const {
    std::vector<double> copy; // the solvers want two vectors
    if (r.data() == z.data()) {
        copy.assign(r.begin(), r.end());
        r = copy;
    }
    N_VSetArrayPointer(const_cast<double *>(r.data()), m_right.get()); // read only
    N_VSetArrayPointer(z.data(), m_solution.get());
    SUNLinSolSolve(m_solver.get(), m_matrix.get(), m_solution.get(), m_right.get(), 0);
}

} // namespace SOLVER
