#include "VectorKernels.h"

#include <cmath>

namespace SOLVER {

namespace {

/// Calls \p kernel(i) for each entry. Results may be one of the operands: entry by entry that does no harm.
template <typename Kernel> void forEach(N_Vector v, Kernel && kernel) {
    const sunindextype n = NV_LENGTH_S(v);
#pragma omp simd
    for (sunindextype i = 0; i < n; ++i)
        kernel(i);
}

template <typename Kernel> double sum(N_Vector v, Kernel && kernel) {
    const sunindextype n = NV_LENGTH_S(v);
    double result = 0;
#pragma omp simd reduction(+ : result)
    for (sunindextype i = 0; i < n; ++i)
        result += kernel(i);
    return result;
}

double dotProduct(N_Vector x, N_Vector y) {
    const double * const a = NV_DATA_S(x);
    const double * const b = NV_DATA_S(y);
    return sum(x, [=](sunindextype i) { return a[i] * b[i]; });
}

double weightedSquares(N_Vector x, N_Vector weights) {
    const double * const a = NV_DATA_S(x);
    const double * const w = NV_DATA_S(weights);
    return sum(x, [=](sunindextype i) { return a[i] * w[i] * (a[i] * w[i]); });
}

double weightedNorm(N_Vector x, N_Vector weights) {
    return std::sqrt(weightedSquares(x, weights) / static_cast<double>(NV_LENGTH_S(x)));
}

void linearSum(double a, N_Vector x, double b, N_Vector y, N_Vector z) {
    const double * const from = NV_DATA_S(x);
    const double * const other = NV_DATA_S(y);
    double * const to = NV_DATA_S(z);
    forEach(x, [=](sunindextype i) { to[i] = a * from[i] + b * other[i]; });
}

void product(N_Vector x, N_Vector y, N_Vector z) {
    const double * const a = NV_DATA_S(x);
    const double * const b = NV_DATA_S(y);
    double * const to = NV_DATA_S(z);
    forEach(x, [=](sunindextype i) { to[i] = a[i] * b[i]; });
}

void quotient(N_Vector x, N_Vector y, N_Vector z) {
    const double * const a = NV_DATA_S(x);
    const double * const b = NV_DATA_S(y);
    double * const to = NV_DATA_S(z);
    forEach(x, [=](sunindextype i) { to[i] = a[i] / b[i]; });
}

void scale(double factor, N_Vector x, N_Vector z) {
    const double * const from = NV_DATA_S(x);
    double * const to = NV_DATA_S(z);
    forEach(x, [=](sunindextype i) { to[i] = factor * from[i]; });
}

} // namespace

N_Vector newVector(std::size_t size, SUNContext context) {
    N_Vector v = N_VNew_Serial(static_cast<sunindextype>(size), context);
    if (v != nullptr) { // clones take them over
        v->ops->nvdotprod = dotProduct;
        v->ops->nvwrmsnorm = weightedNorm;
        v->ops->nvwsqrsumlocal = weightedSquares;
        v->ops->nvlinearsum = linearSum;
        v->ops->nvprod = product;
        v->ops->nvdiv = quotient;
        v->ops->nvscale = scale;
    }
    return v;
}

} // namespace SOLVER
