#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>

namespace CCM {

/// Length of the climate year [s]: 365 days, never a leap day.
inline constexpr double SECONDS_OF_YEAR = 31536000;
/// Number of values of annual hourly data.
inline constexpr std::size_t HOURS_OF_YEAR = 8760;
/// Marks a missing value in every format.
inline constexpr double MISSING = -9999;

/// Tested after truncation to an integer; false for NaN.
inline constexpr bool isMissing(double value) {
    return value > MISSING - 1 && value <= MISSING;
}

/// The quantities of a climate data set, in the order of all files.
enum quantity_t : unsigned int {
    Q_TEMPERATURE,
    Q_RELATIVE_HUMIDITY,
    Q_DIRECT_RADIATION,
    Q_DIFFUSE_RADIATION,
    Q_WIND_DIRECTION,
    Q_WIND_VELOCITY,
    Q_LONG_WAVE_RADIATION,
    Q_AIR_PRESSURE,
    Q_RAIN,
    NUM_QUANTITIES
};

struct ClimateQuantity {
    std::string_view keyword;
    std::string_view caption; ///< column header in tables and exports
    std::string_view unit;
    double minimum;     ///< lower end of the plausible range
    double maximum;     ///< upper end of the plausible range
    double whenMissing; ///< stands in for a missing value
    bool middleOfHour;  ///< a mean over the hour, standing at its middle; else a reading at its end
};

//   keyword                       caption                                unit     min   max     missing  middle
inline constexpr ClimateQuantity CLIMATE_QUANTITIES[] = {
    {"Temperature",                "Temperature [C]",                   "C",     -100, 100,    20,     false},
    {"RelativeHumidity",           "RelativeHumidity [%]",              "%",     0,    100,    80,     false},
    {"DirectRadiationNormal",      "DirectRadiationNormal [W/m2]",      "W/m2",  0,    1500,   0,      true },
    {"DiffuseRadiationHorizontal", "DiffuseRadiationHorizontal [W/m2]", "W/m2",  0,    1500,   0,      true },
    {"WindDirection",              "WindDirection [Deg]",               "Deg",   0,    360,    0,      false},
    {"WindVelocity",               "WindVelocity [m/s]",                "m/s",   0,    120,    0,      false},
    {"LongWaveCounterRadiation",   "LongWaveCounterRadiation [W/m2]",   "W/m2",  0,    1500,   0,      false},
    {"AirPressure",                "AirPressure [Pa]",                  "Pa",    0,    200000, 101325, false},
    {"Rain",                       "Rain [l/m2h]",                      "l/m2h", 0,    100,    0,      true },
};
static_assert(std::size(CLIMATE_QUANTITIES) == NUM_QUANTITIES, "quantity table and enumeration disagree");

/// Caption of the time column in tables and exports.
inline constexpr std::string_view TIME_CAPTION = "Date/Time";

/// Letter case does not count.
std::optional<quantity_t> quantityByKeyword(std::string_view keyword);

/// The time [s] at which a value of annual hourly data stands.
inline constexpr double annualTime(quantity_t quantity, std::size_t hour) {
    return 3600.0 * static_cast<double>(hour) + (CLIMATE_QUANTITIES[quantity].middleOfHour ? 1800.0 : 3600.0);
}

} // namespace CCM
