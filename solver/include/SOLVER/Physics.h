#pragma once

#include <cmath>

/// Constants and relations that the balances use. Temperatures in K, capillary pressures (suctions, positive in
/// unsaturated material) in Pa.
namespace SOLVER {

inline constexpr double RHO_WATER = 1000;               ///< density of liquid water [kg/m3]
inline constexpr double R_VAPOR = 461.89;               ///< gas constant of water vapour [J/kgK]
inline constexpr double T_REF = 293.15;                 ///< reference temperature of material functions [K]
inline constexpr double T_ZERO = 273.15;                ///< zero of enthalpy [K]
inline constexpr double C_WATER = 4187;                 ///< specific heat of liquid water [J/kgK]
inline constexpr double C_VAPOR = 2050;                 ///< specific heat of water vapour [J/kgK]
inline constexpr double H_EVAPORATION = 2.5e6;          ///< heat of evaporation at T_ZERO [J/kg]
inline constexpr double GRAVITY = 9.81;                 ///< [m/s2]
inline constexpr double STEFAN_BOLTZMANN = 5.670374e-8; ///< [W/m2K4]

/// No construction is colder or hotter [K]: a cell that is, is a fault of its loads or of a step.
inline constexpr double LOWEST_TEMPERATURE = 100, HIGHEST_TEMPERATURE = 1000;

inline constexpr double H_FUSION = 3.3343e5;   ///< heat of fusion at T_ZERO [J/kg], IAPWS R10-06
inline constexpr double C_ICE = 2097;          ///< specific heat of ice at T_ZERO [J/kgK], IAPWS R10-06
inline constexpr double RHO_ICE = 916.7;       ///< density of ice at T_ZERO [kg/m3], IAPWS R10-06
inline constexpr double P_ATMOSPHERE = 101325; ///< [Pa]
inline constexpr double R_AIR = 287.06;        ///< gas constant of dry air [J/kgK]
inline constexpr double C_AIR = 1006;          ///< specific heat of dry air [J/kgK]

/// Logarithm of the saturation pressure over liquid water [Pa], ISO 13788; the water branch is continued below 0 C,
/// where pores hold supercooled water and meteorological files refer to it.
inline double logSaturationPressure(double T) {
    const double theta = T - T_ZERO;
    return 6.414278311 + 17.269 * theta / (237.3 + theta); // ln 610.5
}

/// Its derivative [1/K].
inline double logSaturationPressureSlope(double T) {
    const double denominator = 237.3 + T - T_ZERO;
    return 17.269 * 237.3 / (denominator * denominator);
}

inline double saturationPressure(double T) {
    return std::exp(logSaturationPressure(T));
}

/// The pressure scale of the Kelvin relation, phi = exp(-suction / scale) [Pa].
inline constexpr double kelvinPressure(double T) {
    return RHO_WATER * R_VAPOR * T;
}

/// The suction [Pa] of liquid water in equilibrium with ice under the pressure of the atmosphere, 0 at T_ZERO: the
/// relation of Clausius and Clapeyron, d suction / dT = -RHO_WATER L(T) / T with L = H_FUSION + (C_WATER - C_ICE) (T -
/// T_ZERO), integrated; e.g. Hansson et al., Vadose Zone Journal 3 (2004) 693, eq. 11, there with a constant L.
inline double freezingSuction(double T) {
    constexpr double C = C_WATER - C_ICE;
    return RHO_WATER * ((H_FUSION - C * T_ZERO) * std::log(T_ZERO / T) + C * (T_ZERO - T));
}
/// Its derivative [Pa/K].
inline double freezingSuctionSlope(double T) {
    return -RHO_WATER * (H_FUSION + (C_WATER - C_ICE) * (T - T_ZERO)) / T;
}

/// Specific enthalpies relative to liquid water at T_ZERO [J/kg].
inline constexpr double enthalpyOfLiquid(double T) {
    return C_WATER * (T - T_ZERO);
}
inline constexpr double enthalpyOfVapor(double T) {
    return H_EVAPORATION + C_VAPOR * (T - T_ZERO);
}
inline constexpr double enthalpyOfIce(double T) {
    return C_ICE * (T - T_ZERO) - H_FUSION;
}

} // namespace SOLVER
