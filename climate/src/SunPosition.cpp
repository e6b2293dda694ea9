#include <CCM/SunPosition.h>

#include <CCM/ClimateQuantity.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CCM {

namespace {
constexpr double PI = std::numbers::pi;
constexpr double RADIANS_PER_DEGREE = 0.01745329252;
} // namespace

double wrappedIntoYear(double t) {
    if (t >= 0 && t < SECONDS_OF_YEAR)
        return t;
    t = std::fmod(t, SECONDS_OF_YEAR);
    if (t < 0)
        t += SECONDS_OF_YEAR;
    return t < SECONDS_OF_YEAR ? t : 0; // a tiny negative time is rounded up to the end of the year
}

double meanSolarTime(double t, double longitude, double timeZone) {
    double difference = timeZone * 15 - longitude / RADIANS_PER_DEGREE;
    // Beside the date line zone and longitude may stand on opposite sides of 180 degrees.
    if (std::abs(timeZone) == 12) {
        if (difference >= 345)
            difference -= 360;
        else if (difference <= -345)
            difference += 360;
    }
    return wrappedIntoYear(t - 240 * difference);
}

double apparentSolarTime(double t) {
    const double x = (t / 86400 - 81) * 2 * PI / 365;
    const double sinX = std::sin(x);
    const double cosX = std::cos(x);
    const double minutes = 9.87 * 2 * sinX * cosX - 7.53 * cosX - 1.5 * sinX;
    return wrappedIntoYear(t + 60 * minutes);
}

double solarDeclination(double t) {
    const double dayAngle = t / SECONDS_OF_YEAR * 2 * PI;
    const double c = std::cos(dayAngle);
    const double s = std::sin(dayAngle);
    const double c2 = c * c - s * s;
    const double s2 = 2 * s * c;
    return 0.006918 - 0.399912 * c + 0.070257 * s - 0.006758 * c2 + 0.000907 * s2 - 0.002697 * (c2 * c - s2 * s) +
           0.00148 * (s2 * c + c2 * s);
}

SunPosition sunPosition(double t, double latitude, double longitude, double timeZone) {
    const double solarTime = apparentSolarTime(meanSolarTime(t, longitude, timeZone));
    const double declination = solarDeclination(t - 3600 * timeZone);
    const double hourAngle = (solarTime / 86400 - std::floor(solarTime / 86400) - 0.5) * 2 * PI;
    const double sinLatitude = std::sin(latitude);
    const double cosLatitude = std::cos(latitude);
    const double sinDeclination = std::sin(declination);
    const double cosDeclination = std::cos(declination);
    const double cosHourAngle = std::cos(hourAngle);
    SunPosition sun;
    sun.sinAltitude = std::clamp(sinLatitude * sinDeclination + cosLatitude * cosDeclination * cosHourAngle, -1.0, 1.0);
    sun.north = cosLatitude * sinDeclination - sinLatitude * cosDeclination * cosHourAngle;
    sun.east = -cosDeclination * std::sin(hourAngle);
    sun.altitude = std::asin(sun.sinAltitude);
    sun.azimuth = std::atan2(sun.east, sun.north);
    if (sun.azimuth < 0)
        sun.azimuth += 2 * PI;
    return sun;
}

} // namespace CCM
