#include "PipeCollector.h"

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace SOLVER {

using HYGRION::BoundaryCond;

namespace {

using Para = BoundaryCond::para_t;

struct Term {
    double factor, power;
};
//  IAPWS 2011, supplementary release on liquid water at 0.1 MPa: sums of factor (T / 300 K)^power.
constexpr Term VISCOSITY[] = {
    {280.68,  -1.9 },
    {511.45,  -7.7 },
    {61.131,  -19.6},
    {0.45903, -40  },
}; ///< [1e-6 Pas]
constexpr Term CONDUCTIVITY[] = {
    {0.80201,   -0.32},
    {-0.25992,  -5.7 },
    {0.10024,   -12  },
    {-0.032005, -15  },
}; ///< [W/mK]

template <std::size_t N> double sum(const Term (&terms)[N], double T) {
    double result = 0;
    for (const Term & term : terms)
        result += term.factor * std::pow(T / 300, term.power);
    return result;
}

constexpr double LAMINAR = 3.66; ///< Nusselt number of developed laminar flow, wall of constant temperature

double gnielinski(double reynolds, double prandtl) {
    const double f = std::pow(0.79 * std::log(reynolds) - 1.64, -2) / 8;
    return f * (reynolds - 1000) * prandtl / (1 + 12.7 * std::sqrt(f) * (std::pow(prandtl, 2.0 / 3) - 1));
}

} // namespace

PipeCollector PipeCollector::fromCondition(const BoundaryCond & condition) {
    constexpr const char * WHERE = "[PipeCollector::fromCondition]";
    const auto value = [&](Para key, std::string_view unit) { return condition.m_para.value(key, unit).value_or(0); };
    PipeCollector pipe;
    pipe.diameter = value(Para::PipeCollectorDiameter, "m");
    pipe.wall = value(Para::PipeCollectorThickness, "m");
    pipe.length = value(Para::PipeCollectorLength, "m");
    pipe.conductivity = value(Para::PipeCollectorThermalConductivity, "W/mK");
    pipe.heatCapacity = value(Para::PipeCollectorFluidHeatCapacity, "J/kgK");
    pipe.followsTemperature = condition.m_flag.isEnabled(BoundaryCond::flag_t::FluidSettingsHeatPipe);
    if (2 * pipe.wall >= pipe.diameter)
        throw KOR::Exception("Parameter 'PipeCollectorThickness' leaves no opening in the pipe.", WHERE);
    using Quantity = HYGRION::ClimateCond::condition_t;
    const bool hasGlycol = condition.m_intPara.value(BoundaryCond::intpara_t::HP_GlycolKind).value_or(0) != 0 ||
                           value(Para::PipeCollectorGlycolContent, "---") > 0;
    if (hasGlycol && !(pipe.heatCapacity > 0 && condition.m_ccReferences.contains(Quantity::MassFlowRate) &&
                       condition.m_ccReferences.contains(Quantity::HeatTransferCoefficient)))
        throw KOR::Exception("The properties of glycol are not known to the solver; give parameter "
                             "'PipeCollectorFluidHeatCapacity' and the climate quantities 'MassFlowRate' and "
                             "'HeatTransferCoefficient'.",
                             WHERE);
    return pipe;
}

double PipeCollector::innerArea() const {
    const double inner = diameter - 2 * wall;
    return std::numbers::pi / 4 * inner * inner;
}

double PipeCollector::density(double T) const {
    // Kell 1975 in its short form: 4 C is the densest.
    const double theta = (followsTemperature ? T : T_REF) - T_ZERO;
    return 999.97 * (1 - (theta + 288.9414) / (508929.2 * (theta + 68.12963)) * (theta - 3.9863) * (theta - 3.9863));
}

double PipeCollector::specificHeat() const {
    return heatCapacity > 0 ? heatCapacity : C_WATER;
}

double PipeCollector::innerCoefficient(double T, double massFlow) const {
    const double at = followsTemperature ? T : T_REF;
    const double viscosity = 1e-6 * sum(VISCOSITY, at);
    const double lambda = sum(CONDUCTIVITY, at);
    const double inner = diameter - 2 * wall;
    const double reynolds = 4 * massFlow / (std::numbers::pi * inner * viscosity);
    const double prandtl = specificHeat() * viscosity / lambda;
    constexpr double LAST_LAMINAR = 2300;
    constexpr double FIRST_TURBULENT = 4000;
    const double share = std::clamp((reynolds - LAST_LAMINAR) / (FIRST_TURBULENT - LAST_LAMINAR), 0.0, 1.0);
    const double nusselt = (1 - share) * LAMINAR + share * gnielinski(std::max(reynolds, FIRST_TURBULENT), prandtl);
    return nusselt * lambda / inner;
}

double PipeCollector::conductance(double massFlow, double inner) const {
    if (!(massFlow > 0) || !(inner > 0))
        return 0;
    const double innerDiameter = diameter - 2 * wall;
    const double resistance = 1 / (inner * std::numbers::pi * innerDiameter) +
                              std::log(diameter / innerDiameter) / (2 * std::numbers::pi * conductivity); // [mK/W]
    const double capacity = massFlow * specificHeat();
    return -capacity * std::expm1(-length / (resistance * capacity));
}

} // namespace SOLVER
