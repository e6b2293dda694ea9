#pragma once

namespace CCM {

/// Where the sun stands at a place and time.
struct SunPosition {
    double altitude = 0;    ///< [rad] above the horizon, without refraction
    double azimuth = 0;     ///< [rad] from north, clockwise, 0 to 2 pi
    double sinAltitude = 0; ///< upward component of the unit vector to the sun
    double north = 0;       ///< its northward component
    double east = 0;        ///< its eastward component
};

/// The time wrapped into 0 .. 31,536,000 s.
double wrappedIntoYear(double t);

/// Local mean solar time [s of the year] at a local standard time.
/// \param t local standard time [s of the year]
/// \param longitude [rad], east positive
/// \param timeZone [h] relative to UTC
double meanSolarTime(double t, double longitude, double timeZone);

/// Apparent solar time [s of the year] at a local mean solar time.
double apparentSolarTime(double t);

/// Declination of the sun [rad], Spencer 1971. \param t [s of the year], UTC
double solarDeclination(double t);

/// Position of the sun at a local standard time.
/// \param latitude [rad], north positive
SunPosition sunPosition(double t, double latitude, double longitude, double timeZone);

} // namespace CCM
