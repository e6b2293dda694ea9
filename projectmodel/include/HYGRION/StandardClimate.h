#pragma once

#include <CCM/ClimateDataLoader.h>

#include <utility>
#include <vector>

/// The climates that standards define instead of measuring them.
namespace HYGRION {

/// Saturation pressure of water vapour [Pa] at \p T [C], over ice below 0 C (ISO 13788:2012, Annex E).
double saturationPressureISO13788(double T);
/// The temperature [C] of a saturation pressure [Pa], the inverse of the above.
double saturationTemperatureISO13788(double p);

/// Indoor climate that follows the daily mean of the outdoor temperature (ISO 13788 Annex A, EN 15026 Annex C,
/// WTA 6-2): constant up to a lower outdoor temperature, linear up to 20 C, constant above.
/// Temperature: 20 C up to 10 C outside, 25 C from 20 C. Relative humidity: low up to -10 C outside, high from 20 C.
struct AdaptiveIndoorClimate {
    double m_lowTemperature = 20;  ///< [C]
    double m_highTemperature = 25; ///< [C]
    double m_lowHumidity = 30;     ///< [%]
    double m_highHumidity = 60;    ///< [%]

    /// [C], \p outdoor the mean temperature of the last 24 hours [C]
    double temperature(double outdoor) const;
    /// [%], \p outdoor the mean temperature of the last 24 hours [C]
    double relativeHumidity(double outdoor) const;
};

/// The mean of the values of the last 24 hours at every time point. Data of at most one year are taken as cyclic.
/// \param timePoints [s], increasing
std::vector<double> dailyMeans(const std::vector<double> & timePoints, const std::vector<double> & values);

/// A climate of the period method of DIN 4108-3: a condensation period in winter, an evaporation period in summer.
/// Each holds for its length, centred on 15 January and 16 July; between them values go in a straight line.
struct PeriodClimate {
    double m_condensationDays;                    ///< [d] length of the condensation period
    double m_evaporationDays;                     ///< [d]
    double m_winterTemperature, m_winterHumidity; ///< [C], [%]
    double m_summerTemperature, m_summerHumidity; ///< [C], [%]

    /// One cyclic year of temperature [C] and relative humidity [%].
    std::pair<CCM::CCDFile, CCM::CCDFile> year() const;
};

/// DIN 4108-3:2001: 60 d at 20 C, 50 % inside and -10 C, 80 % outside; 90 d at 12 C, 70 % on both sides.
extern const PeriodClimate DIN4108_2001_INDOOR;
/// DIN 4108-3:2014 and 2018: 90 d at 20 C, 50 % inside and -5 C, 80 % outside; 90 d of 1200 Pa on both sides with
/// 1700 Pa saturation pressure in the wall, which is 15.0 C and 70.6 %.
extern const PeriodClimate DIN4108_2014_INDOOR;
extern const PeriodClimate DIN4108_2014_OUTDOOR;

} // namespace HYGRION
