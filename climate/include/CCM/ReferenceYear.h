#pragma once

#include <CCM/ClimateDataLoader.h>

#include <optional>

namespace CCM {

/// Published monthly normals of one place.
struct MonthlyNormals {
    struct Month {
        double temperature = 0;      ///< mean [C]
        double relativeHumidity = 0; ///< mean [%]
        double globalRadiation = 0;  ///< mean over day and night, on the horizontal [W/m2]
        double windVelocity = 0;     ///< mean [m/s]
        double rain = 0;             ///< sum [mm]
    };
    std::string city;
    std::string country;
    std::string origin;      ///< where the normals come from
    std::string assumptions; ///< what stands in for normals that are not known
    double latitude = 0;     ///< [Deg]
    double longitude = 0;    ///< [Deg]
    double elevation = 0;    ///< [m]
    double timeZone = 0;     ///< [h]
    std::array<Month, 12> months;
};

/// A climate that repeats a cosine over the year, or stands still where the amplitudes are 0.
struct SineClimate {
    std::string name;
    std::string comment;
    double temperature = 20;         ///< mean [C]
    double temperatureAmplitude = 0; ///< [K]
    double warmestDay = 0;           ///< day of the year, from 0
    double relativeHumidity = 50;    ///< mean [%]
    double humidityAmplitude = 0;    ///< [%]
    double dampestDay = 0;           ///< day of the year, from 0
};

/// What a table for generated climates holds: places with normals, or climates of standards.
struct ClimateTable {
    std::vector<MonthlyNormals> places;
    std::vector<SineClimate> sines;
};

/// Reads a table of comma-separated values with a line of captions. Places have one line a month, January first:
/// city, country, lat_deg_N, lon_deg_E, elevation_m, timezone_h (optional), month, T_mean_C, RH_mean_pct,
/// GHI_mean_W_m2, wind_mean_m_s, rain_mm_month, and per column the source, T_source and so on (optional).
/// An empty cell of rain counts as ASSUMED_RAIN, which is noted as an assumption.
/// Standard climates have one line each: name, T_mean_C, T_amplitude_K, warmest_day, RH_mean_pct, RH_amplitude_pct,
/// dampest_day, comment. Throws ("[CCM::parseClimateTable]") with the line.
ClimateTable parseClimateTable(std::string_view text);
ClimateTable readClimateTable(const std::string & path);

/// Stands in where no monthly sum of rain is known [mm].
inline constexpr double ASSUMED_RAIN = 60;

/// A year of hours that looks like weather and has the normals as its monthly means. The same place gives the same
/// year. How it is made: docs/climate-files.md. Throws ("[CCM::referenceYear]") when normals contradict each other.
ClimateDataLoader referenceYear(const MonthlyNormals & normals);

/// No sun, no wind, no rain; the sky radiates like the air.
ClimateDataLoader sineClimate(const SineClimate & climate);

/// Temperature [C] at which the vapour in the air would condense, Magnus formula over water.
double dewPoint(double temperature, double relativeHumidity);

} // namespace CCM
