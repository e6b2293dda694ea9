#pragma once

#include <cmath>

/// Constants of the material model. Relative humidity and capillary pressure are converted at T_REF unless a
/// temperature is named.
namespace MM {

inline constexpr double RHO_WATER = 1000;     ///< density of liquid water [kg/m3]
inline constexpr double R_VAPOR = 461.89;     ///< gas constant of water vapour [J/kgK]
inline constexpr double T_REF = 293.15;       ///< reference temperature [K]
inline constexpr double T_ZERO = 273.15;      ///< 0 C [K]
inline constexpr double D_VAPOR = 2.662e-5;   ///< diffusivity of vapour in still air [m2/s]
inline constexpr double T_DIFFUSION = 296.15; ///< temperature of D_VAPOR [K]

/// Vapour permeability of still air [s], 1.946e-10.
inline constexpr double KV_AIR = D_VAPOR / (R_VAPOR * T_DIFFUSION);
/// Content of saturated vapour in air at T_REF as liquid [m3/m3]: 2336.95 Pa after ISO 13788.
inline constexpr double THETA_AIR = 2336.95 / (R_VAPOR * T_REF * RHO_WATER);

/// Pressure scale of the Kelvin law [Pa].
constexpr double kelvinPressure(double temperature = T_REF) {
    return RHO_WATER * R_VAPOR * temperature;
}
/// Relative humidity over a liquid pressure [Pa] (negative below saturation), Kelvin law.
inline double relativeHumidity(double liquidPressure, double temperature = T_REF) {
    return std::exp(liquidPressure / kelvinPressure(temperature));
}
/// Liquid pressure [Pa] at a relative humidity, at least that of the driest state (capillary pressure 1e12 Pa).
inline double liquidPressure(double relativeHumidity, double temperature = T_REF) {
    return relativeHumidity > 0 ? std::fmax(-1e12, kelvinPressure(temperature) * std::log(relativeHumidity)) : -1e12;
}

} // namespace MM
