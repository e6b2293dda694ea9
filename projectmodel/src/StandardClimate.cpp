#include <HYGRION/StandardClimate.h>

#include <algorithm>
#include <cmath>

namespace HYGRION {

namespace {

constexpr double SECONDS_PER_DAY = 86400;
constexpr double MID_WINTER = 15;  ///< [d] 15 January, the middle of December to February
constexpr double MID_SUMMER = 196; ///< [d] 16 July, the middle of June to August

/// From low at x0 to high at x1 in a straight line, constant beyond.
double ramp(double x, double x0, double low, double x1, double high) {
    return low + (high - low) * std::clamp((x - x0) / (x1 - x0), 0.0, 1.0);
}

/// The evaporation period of DIN 4108-3:2014 in a wall: vapour pressure of the air and saturation pressure [Pa].
constexpr double EVAPORATION_PRESSURE = 1200;
constexpr double EVAPORATION_SATURATION = 1700;
const double EVAPORATION_TEMPERATURE = saturationTemperatureISO13788(EVAPORATION_SATURATION);
constexpr double EVAPORATION_HUMIDITY = 100 * EVAPORATION_PRESSURE / EVAPORATION_SATURATION;

} // namespace

double saturationPressureISO13788(double T) {
    return T >= 0 ? 610.5 * std::exp(17.269 * T / (237.3 + T)) : 610.5 * std::exp(21.875 * T / (265.5 + T));
}

double saturationTemperatureISO13788(double p) {
    const double x = std::log(p / 610.5);
    return x >= 0 ? 237.3 * x / (17.269 - x) : 265.5 * x / (21.875 - x);
}

double AdaptiveIndoorClimate::temperature(double outdoor) const {
    return ramp(outdoor, 10, m_lowTemperature, 20, m_highTemperature);
}

double AdaptiveIndoorClimate::relativeHumidity(double outdoor) const {
    return ramp(outdoor, -10, m_lowHumidity, 20, m_highHumidity);
}

std::vector<double> dailyMeans(const std::vector<double> & time, const std::vector<double> & values) {
    const std::size_t n = values.size();
    const bool isCyclic = n > 0 && time.back() <= CCM::SECONDS_OF_YEAR;
    std::vector<double> means(n);
    // A window of the points within (t - 1 d, t]; 'oldest' counts from one year before the data when they are cyclic.
    const auto timeAt = [&](std::size_t i) { return i < n ? time[i] - CCM::SECONDS_OF_YEAR : time[i - n]; };
    const auto valueAt = [&](std::size_t i) { return i < n ? values[i] : values[i - n]; };
    std::size_t oldest = isCyclic ? 0 : n;
    double sum = 0;
    for (std::size_t i = oldest; i < n; ++i)
        sum += valueAt(i);
    for (std::size_t i = 0; i < n; ++i) {
        sum += values[i];
        while (timeAt(oldest) <= time[i] - SECONDS_PER_DAY)
            sum -= valueAt(oldest++);
        means[i] = sum / static_cast<double>(n + i + 1 - oldest);
    }
    return means;
}

std::pair<CCM::CCDFile, CCM::CCDFile> PeriodClimate::year() const {
    const double winterEnd = (MID_WINTER + m_condensationDays / 2) * SECONDS_PER_DAY;
    const double summerStart = (MID_SUMMER - m_evaporationDays / 2) * SECONDS_PER_DAY;
    const double summerEnd = (MID_SUMMER + m_evaporationDays / 2) * SECONDS_PER_DAY;
    const double winterStart = (MID_WINTER - m_condensationDays / 2) * SECONDS_PER_DAY + CCM::SECONDS_OF_YEAR;
    const auto series = [&](const char * quantity, const char * unit, double winter, double summer) {
        return CCM::CCDFile{
            quantity,
            unit,
            "DIN 4108-3",
            {0,      winterEnd, summerStart, summerEnd, winterStart},
            {winter, winter,    summer,      summer,    winter     }
        };
    };
    return {series("Temperature", "C", m_winterTemperature, m_summerTemperature),
            series("RelativeHumidity", "%", m_winterHumidity, m_summerHumidity)};
}

const PeriodClimate DIN4108_2001_INDOOR{60, 90, 20, 50, 12, 70};
const PeriodClimate DIN4108_2014_INDOOR{90, 90, 20, 50, EVAPORATION_TEMPERATURE, EVAPORATION_HUMIDITY};
const PeriodClimate DIN4108_2014_OUTDOOR{90, 90, -5, 80, EVAPORATION_TEMPERATURE, EVAPORATION_HUMIDITY};

} // namespace HYGRION
