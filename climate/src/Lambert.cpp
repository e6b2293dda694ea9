#include "Lambert.h"

#include <cmath>
#include <numbers>

namespace CCM {

namespace {

constexpr double PI = std::numbers::pi;
constexpr double DEGREE = PI / 180;
constexpr double SEMI_MAJOR_AXIS = 6378137; // m
constexpr double FLATTENING = 1 / 298.257222101;
const double ECCENTRICITY = std::sqrt(FLATTENING * (2 - FLATTENING));

double m(double latitude) {
    const double s = ECCENTRICITY * std::sin(latitude);
    return std::cos(latitude) / std::sqrt(1 - s * s);
}

double t(double latitude) {
    const double s = ECCENTRICITY * std::sin(latitude);
    return std::tan(PI / 4 - latitude / 2) / std::pow((1 - s) / (1 + s), ECCENTRICITY / 2);
}

} // namespace

GeographicPosition fromLambertEurope(double easting, double northing) {
    constexpr double PARALLEL_1 = 35 * DEGREE;
    constexpr double PARALLEL_2 = 65 * DEGREE;
    const double n =
        (std::log(m(PARALLEL_1)) - std::log(m(PARALLEL_2))) / (std::log(t(PARALLEL_1)) - std::log(t(PARALLEL_2)));
    const double scale = SEMI_MAJOR_AXIS * m(PARALLEL_1) / (n * std::pow(t(PARALLEL_1), n));
    const double x = easting - 4000000;
    const double y = scale * std::pow(t(52 * DEGREE), n) - (northing - 2800000);
    const double target = std::pow(std::hypot(x, y) / scale, 1 / n);
    double latitude = PI / 2 - 2 * std::atan(target);
    for (int i = 0; i < 10; ++i) { // each step gains more than two digits
        const double s = ECCENTRICITY * std::sin(latitude);
        latitude = PI / 2 - 2 * std::atan(target * std::pow((1 - s) / (1 + s), ECCENTRICITY / 2));
    }
    return {latitude / DEGREE, std::atan2(x, y) / n / DEGREE + 10};
}

} // namespace CCM
