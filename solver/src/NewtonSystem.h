#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace SOLVER {

/// Solves the N x N system in place by elimination with partial pivoting; false if it is singular.
/// \param a row by row \param b right-hand side, then the solution
template <std::size_t N> bool solveDense(std::array<std::array<double, N>, N> & a, std::array<double, N> & b) {
    for (std::size_t column = 0; column < N; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column + 1; row < N; ++row)
            if (std::fabs(a[row][column]) > std::fabs(a[pivot][column]))
                pivot = row;
        if (!(std::fabs(a[pivot][column]) > 0))
            return false;
        std::swap(a[pivot], a[column]);
        std::swap(b[pivot], b[column]);
        for (std::size_t row = column + 1; row < N; ++row) {
            const double factor = a[row][column] / a[column][column];
            for (std::size_t k = column; k < N; ++k)
                a[row][k] -= factor * a[column][k];
            b[row] -= factor * b[column];
        }
    }
    for (std::size_t row = N; row-- > 0;) {
        for (std::size_t k = row + 1; k < N; ++k)
            b[row] -= a[row][k] * b[k];
        b[row] /= a[row][row];
    }
    return true;
}

} // namespace SOLVER
