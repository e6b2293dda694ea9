#include <MM/MrcVG.h>

#include <KOR/Exception.h>

#include <cmath>

namespace MM {

namespace {

double f_pow(double base, double exponent) {
    if (base < 0)
        throw KOR::Exception(KOR::text("Negative base in power function, base = %1", base), "[KOR::f_pow]");
    if (exponent > 50)
        throw KOR::Exception(KOR::text("Exponent too large in power function, exponent = %1", exponent),
                             "[KOR::f_pow]");
    return std::pow(base, exponent);
}

} // namespace

double MrcVG::value(double liquidPressure) const {
    double sum = 0;
    for (const Mode & mode : m_modes)
        sum += mode.weight * f_pow(1 + f_pow(-mode.alpha * liquidPressure, mode.n), (1 - mode.n) / mode.n);
    return sum;
}

} // namespace MM
