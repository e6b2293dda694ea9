#pragma once

#include <cmath>
#include <cstddef>

/// Arithmetic of B x B blocks stored row by row, B being 1 or 2.
namespace SOLVER {

/// a -= b c
template <std::size_t B> inline void subtractProduct(double * a, const double * b, const double * c) {
    for (std::size_t i = 0; i < B; ++i)
        for (std::size_t k = 0; k < B; ++k)
            for (std::size_t j = 0; j < B; ++j)
                a[i * B + j] -= b[i * B + k] * c[k * B + j];
}

/// c = a b
template <std::size_t B> inline void product(const double * a, const double * b, double * c) {
    for (std::size_t i = 0; i < B; ++i)
        for (std::size_t j = 0; j < B; ++j) {
            c[i * B + j] = 0;
            for (std::size_t k = 0; k < B; ++k)
                c[i * B + j] += a[i * B + k] * b[k * B + j];
        }
}

/// x -= a y
template <std::size_t B, typename Number> inline void subtractTimes(double * x, const Number * a, const double * y) {
    for (std::size_t i = 0; i < B; ++i)
        for (std::size_t j = 0; j < B; ++j)
            x[i] -= static_cast<double>(a[i * B + j]) * y[j];
}

/// x = a x
template <std::size_t B, typename Number> inline void apply(const Number * a, double * x) {
    double result[B] = {};
    for (std::size_t i = 0; i < B; ++i)
        for (std::size_t j = 0; j < B; ++j)
            result[i] += static_cast<double>(a[i * B + j]) * x[j];
    for (std::size_t i = 0; i < B; ++i)
        x[i] = result[i];
}

/// Inverts in place; false if the block is singular.
template <std::size_t B> inline bool invert(double * a) {
    static_assert(B == 1 || B == 2);
    if constexpr (B == 1) {
        if (!(std::fabs(a[0]) > 0))
            return false;
        a[0] = 1 / a[0];
    } else {
        const double determinant = a[0] * a[3] - a[1] * a[2];
        if (!(std::fabs(determinant) > 0))
            return false;
        const double d = 1 / determinant;
        const double first = a[0];
        a[0] = a[3] * d;
        a[1] *= -d;
        a[2] *= -d;
        a[3] = first * d;
    }
    return true;
}

} // namespace SOLVER
