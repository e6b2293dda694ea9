#include <CCM/ClimateStatistics.h>
#include <CCM/ReferenceYear.h>
#include <CCM/SolarRadiationModel.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <numeric>

namespace CCM {

namespace {

constexpr double PI = std::numbers::pi;
constexpr double STEFAN_BOLTZMANN = 5.670374e-8; // W/m2K4
constexpr double CELSIUS = 273.15;
constexpr std::uint64_t SEED = 6100;
constexpr const char * WHERE = "[CCM::referenceYear]";

using Hours = std::vector<double>; // HOURS_OF_YEAR long
using Months = std::array<double, 12>;

/// Pseudo-random numbers that are the same on every platform (splitmix64).
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    /// In (0, 1).
    double uniform() {
        m_state += 0x9E3779B97F4A7C15;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        z ^= z >> 31;
        return (static_cast<double>(z >> 11) + 0.5) * 0x1p-53;
    }
    /// With mean 0 and variance 1.
    double normal() { return std::sqrt(-2 * std::log(uniform())) * std::cos(2 * PI * uniform()); }

    /// Hours with mean 0 and variance 1 whose correlation fades with the time scale [h].
    Hours correlated(double timeScale) {
        const double kept = std::exp(-1 / timeScale);
        const double added = std::sqrt(1 - kept * kept);
        double value = normal();
        Hours hours(HOURS_OF_YEAR);
        for (double & hour : hours)
            hour = value = kept * value + added * normal();
        return hours;
    }

private:
    std::uint64_t m_state;
};

std::uint64_t seedOf(std::string_view name) {
    std::uint64_t hash = 0xCBF29CE484222325 ^ SEED;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

const std::vector<std::size_t> & monthOfHour() {
    static const std::vector<std::size_t> months = [] {
        std::vector<std::size_t> result;
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
            result.push_back(static_cast<std::size_t>(monthOfYear(3600.0 * static_cast<double>(i))));
        return result;
    }();
    return months;
}

Months monthlyMeans(const Hours & hours) {
    Months sums{};
    Months counts{};
    for (std::size_t i = 0; i < hours.size(); ++i) {
        sums[monthOfHour()[i]] += hours[i];
        counts[monthOfHour()[i]] += 1;
    }
    for (std::size_t month = 0; month < 12; ++month)
        sums[month] /= counts[month];
    return sums;
}

/// Straight lines between values at the middles of the months, round the year.
Hours smoothCurve(const Months & nodes) {
    static const Months middles = [] {
        Months result{};
        Months counts{};
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
            result[monthOfHour()[i]] += static_cast<double>(i) + 0.5;
            counts[monthOfHour()[i]] += 1;
        }
        for (std::size_t month = 0; month < 12; ++month)
            result[month] /= counts[month];
        return result;
    }();
    Hours hours(HOURS_OF_YEAR);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const double at = static_cast<double>(i) + 0.5;
        const std::size_t month = monthOfHour()[i];
        const std::size_t next = at < middles[month] ? month : (month + 1) % 12;
        const std::size_t before = (next + 11) % 12;
        const auto year = static_cast<double>(HOURS_OF_YEAR);
        const double distance = std::fmod(middles[next] - middles[before] + year, year);
        const double weight = std::fmod(at - middles[before] + year, year) / distance;
        hours[i] = (1 - weight) * nodes[before] + weight * nodes[next];
    }
    return hours;
}

/// Finds the smooth curve with which a series gets the wanted monthly means.
/// \param series makes the hours from the curve; must rise with it
/// \param gain change of the curve for a unit of deviation
/// \return the series. Throws when the means stay away from what is wanted by more than \p tolerance.
Hours fitted(const Months & wanted, Months nodes, double gain, double tolerance, const char * what,
             const std::function<Hours(const Hours & curve)> & series) {
    constexpr int MAX_STEPS = 400;
    Hours hours;
    Months means{};
    double worst = 0;
    for (int step = 0; step < MAX_STEPS; ++step) {
        hours = series(smoothCurve(nodes));
        means = monthlyMeans(hours);
        worst = 0;
        for (std::size_t month = 0; month < 12; ++month) {
            worst = std::max(worst, std::abs(wanted[month] - means[month]));
            nodes[month] += gain * (wanted[month] - means[month]);
        }
        if (worst < 0.05 * tolerance)
            return hours;
    }
    for (std::size_t month = 0; month < 12; ++month)
        if (std::abs(wanted[month] - means[month]) > tolerance)
            throw KOR::Exception(KOR::text("%1: no weather has a mean of %2 in month %3, the nearest is %4.", what,
                                           wanted[month], month + 1, KOR::toString(means[month], 4)),
                                 WHERE);
    return hours;
}

double logistic(double x) {
    return 1 / (1 + std::exp(-x));
}

double rounded(double value, double step) {
    return std::round(value / step) * step;
}

/// Removes the digits that multiplication by a step leaves behind, so that 0.1 is the number that is written 0.1.
double roundedToTenths(double value) {
    return std::round(value * 10) / 10;
}

/// Makes the quantities of one place, each from those before it.
class YearMaker {
public:
    explicit YearMaker(const MonthlyNormals & normals)
        : m_normals(normals), m_random(seedOf(normals.city + normals.country)) {}

    ClimateDataLoader make();

private:
    Months wanted(double MonthlyNormals::Month::*member) const {
        Months result{};
        for (std::size_t month = 0; month < 12; ++month)
            result[month] = m_normals.months[month].*member;
        return result;
    }
    void makeRadiation();
    void makeTemperature();
    void makeRain();
    void makeHumidity();
    void makeWind();
    void makePressure();
    void makeLongWave();

    const MonthlyNormals & m_normals;
    Random m_random;
    ClimateDataLoader m_data;
    Hours m_cloudiness; ///< mean 0, variance about 1, large where the sky is covered
    Hours m_clearness;  ///< share of the clear sky's radiation, also at night
    Hours m_global;     ///< [W/m2]
};

constexpr double DARKEST = 0.12; ///< clearness under the thickest clouds

void YearMaker::makeRadiation() {
    const Hours slow = m_random.correlated(40);
    const Hours fast = m_random.correlated(3);
    m_cloudiness.resize(HOURS_OF_YEAR);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
        m_cloudiness[i] = 0.87 * slow[i] + 0.5 * fast[i];

    // Clear sky: direct light after Meinel, not above the model's own limit; of what the air takes away from it, four
    // tenths reach the ground as diffuse light. Meinel's 0.7 is right for clear mountain air, near the sea it is hazier.
    SolarRadiationModel model;
    model.m_climate.m_latitude = m_data.m_latitude;
    model.m_climate.m_longitude = m_data.m_longitude;
    model.m_climate.setUtcOffset(m_data.utcOffset());
    const double pressure = 101325 * std::pow(1 - 2.25577e-5 * m_data.m_elevation, 5.25588);
    const double transmittance = 0.65 + 0.05 * std::clamp(m_data.m_elevation / 1800, 0.0, 1.0);
    Hours sine(HOURS_OF_YEAR);
    Hours clearDirect(HOURS_OF_YEAR);
    Hours clearGlobal(HOURS_OF_YEAR);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const double t = annualTime(Q_DIRECT_RADIATION, i);
        const SunPosition sun = model.sunAt(t);
        if (sun.altitude <= 0)
            continue;
        sine[i] = sun.sinAltitude;
        const double outside = 1367 * (1 + 0.033 * std::cos(2 * PI * t / SECONDS_OF_YEAR));
        const double airMass = relativeAirMass(PI / 2 - sun.altitude, pressure);
        clearDirect[i] = std::min(outside * std::pow(transmittance, std::pow(airMass, 0.678)),
                                  model.clearSkyNormalRadiation(t, sun.sinAltitude));
        clearGlobal[i] = sine[i] * (clearDirect[i] + 0.4 * (outside - clearDirect[i]));
    }
    const Months clear = monthlyMeans(clearGlobal);
    Months nodes{};
    const Months global = wanted(&MonthlyNormals::Month::globalRadiation);
    double brightest = 0;
    for (std::size_t month = 0; month < 12; ++month) {
        const double share = (global[month] / clear[month] - DARKEST) / (1 - DARKEST);
        nodes[month] = std::log(std::clamp(share, 0.02, 0.98) / (1 - std::clamp(share, 0.02, 0.98)));
        brightest = std::max(brightest, clear[month]);
    }
    m_global = fitted(global, nodes, 3 / brightest, 0.5, "Global radiation", [&](const Hours & curve) {
        m_clearness.resize(HOURS_OF_YEAR);
        Hours hours(HOURS_OF_YEAR);
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
            m_clearness[i] = DARKEST + (1 - DARKEST) * logistic(curve[i] - 1.7 * m_cloudiness[i]);
            hours[i] = m_clearness[i] * clearGlobal[i];
        }
        return hours;
    });
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const double sunshine = std::pow(std::max(0.0, (m_clearness[i] - 0.25) / 0.75), 1.5);
        const double direct = std::floor(clearDirect[i] * sunshine);
        m_data.m_data[Q_DIRECT_RADIATION][i] = direct;
        m_data.m_data[Q_DIFFUSE_RADIATION][i] = roundedToTenths(std::max(0.0, m_global[i] - direct * sine[i]));
    }
}

void YearMaker::makeTemperature() {
    const Hours anomaly = m_random.correlated(72);
    // The daily swing grows with the day's radiation; it changes from noon to noon.
    std::array<double, 365> swing{};
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
        swing[i / 24] += m_global[i] / 24;
    for (double & day : swing)
        day = 1 + 0.018 * day;
    const double season = m_data.m_latitude < 0 ? PI : 0;
    Hours weather(HOURS_OF_YEAR);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const auto time = static_cast<double>(i) + 1; // readings stand at the end of the hour
        const double days = time / 24 - 0.5;
        const auto noon = static_cast<std::size_t>(std::floor(days) + 365) % 365;
        const double weight = days - std::floor(days);
        const double amplitude = (1 - weight) * swing[noon] + weight * swing[(noon + 1) % 365];
        const double deviation = 3.4 + 0.9 * std::cos(2 * PI * time / HOURS_OF_YEAR + season); // K
        weather[i] = deviation * anomaly[i] + amplitude * std::cos(2 * PI * (time - 15) / 24);
    }
    const Months normals = wanted(&MonthlyNormals::Month::temperature);
    const Hours hours = fitted(normals, normals, 1, 0.05, "Temperature", [&weather](const Hours & curve) {
        Hours sum(HOURS_OF_YEAR);
        std::transform(curve.begin(), curve.end(), weather.begin(), sum.begin(), std::plus<>());
        return sum;
    });
    std::transform(hours.begin(), hours.end(), m_data.m_data[Q_TEMPERATURE].begin(), roundedToTenths);
}

void YearMaker::makeRain() {
    const Hours chance = m_random.correlated(4);
    std::vector<double> & rain = m_data.m_data[Q_RAIN];
    for (std::size_t month = 0; month < 12; ++month) {
        const MonthlyNormals::Month & normals = m_normals.months[month];
        std::vector<std::size_t> hours;
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
            if (monthOfHour()[i] == month)
                hours.push_back(i);
        // Warm air brings heavier rain; it falls out of the thickest clouds.
        const double intensity = 0.7 + 0.05 * std::max(0.0, normals.temperature); // mm/h
        const auto wetHours = std::min(static_cast<std::size_t>(std::ceil(normals.rain / intensity)), hours.size() / 3);
        std::stable_sort(hours.begin(), hours.end(), [&](std::size_t a, std::size_t b) {
            return m_cloudiness[a] + 0.3 * chance[a] > m_cloudiness[b] + 0.3 * chance[b];
        });
        hours.resize(wetHours);
        double sum = 0;
        for (const std::size_t i : hours)
            sum += rain[i] = std::pow(-std::log(m_random.uniform()), 1.3) + 0.05;
        double rest = normals.rain;
        for (const std::size_t i : hours)
            rest -= rain[i] = std::max(0.1, roundedToTenths(rain[i] * normals.rain / sum));
        // What rounding has left over falls in the hours of most rain.
        std::stable_sort(hours.begin(), hours.end(), [&](std::size_t a, std::size_t b) { return rain[a] > rain[b]; });
        for (const std::size_t i : hours) {
            const double before = rain[i];
            rain[i] = std::max(0.1, roundedToTenths(before + std::clamp(rest, -0.2, 0.2)));
            rest -= rain[i] - before;
        }
    }
}

void YearMaker::makeHumidity() {
    constexpr double DAMPEST = 99; // %, so that the dew point stays below the temperature
    constexpr double WET = 90;     // %, while it rains
    const Hours noise = m_random.correlated(30);
    const std::vector<double> & temperature = m_data.m_data[Q_TEMPERATURE];
    // Vapour changes slowly: when the air is warmer than over the day, it is drier.
    Hours weather(HOURS_OF_YEAR);
    double sum = std::accumulate(temperature.end() - 12, temperature.end(), 0.0) +
                 std::accumulate(temperature.begin(), temperature.begin() + 12, 0.0);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        sum += temperature[(i + 12) % HOURS_OF_YEAR] - temperature[(i + HOURS_OF_YEAR - 12) % HOURS_OF_YEAR];
        weather[i] = 0.6 * noise[i] + 0.5 * m_cloudiness[i] - 0.18 * (temperature[i] - sum / 24);
    }
    const Months normals = wanted(&MonthlyNormals::Month::relativeHumidity);
    Months nodes{};
    for (std::size_t month = 0; month < 12; ++month)
        nodes[month] = std::log(normals[month] / (100 - normals[month]));
    const Hours hours = fitted(normals, nodes, 0.03, 0.5, "Relative humidity", [&](const Hours & curve) {
        Hours humidity(HOURS_OF_YEAR);
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
            humidity[i] = std::min(DAMPEST, 100 * logistic(curve[i] + weather[i]));
            if (m_data.m_data[Q_RAIN][i] > 0)
                humidity[i] = std::max(humidity[i], WET);
        }
        return humidity;
    });
    std::transform(hours.begin(), hours.end(), m_data.m_data[Q_RELATIVE_HUMIDITY].begin(), roundedToTenths);
}

void YearMaker::makeWind() {
    constexpr double PREVAILING = 250; // degrees: westerly winds
    const Hours gusts = m_random.correlated(12);
    const Hours turns = m_random.correlated(30);
    const Months normals = wanted(&MonthlyNormals::Month::windVelocity);
    const Hours hours = fitted(normals, normals, 0.9, 0.02, "Wind velocity", [&](const Hours & curve) {
        Hours velocity(HOURS_OF_YEAR);
        for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
            const double dayAndNight = 1 + 0.2 * std::cos(2 * PI * (static_cast<double>(i) + 1 - 15) / 24);
            velocity[i] = std::min(40.0, std::max(0.0, curve[i]) * dayAndNight * std::exp(0.5 * gusts[i] - 0.125));
        }
        return velocity;
    });
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        m_data.m_data[Q_WIND_VELOCITY][i] = roundedToTenths(hours[i]);
        m_data.m_data[Q_WIND_DIRECTION][i] = std::fmod(std::round(PREVAILING + 70 * turns[i]) + 720, 360);
    }
}

void YearMaker::makePressure() {
    const Hours anomaly = m_random.correlated(60);
    const double mean = 101325 * std::pow(1 - 2.25577e-5 * m_data.m_elevation, 5.25588);
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i)
        m_data.m_data[Q_AIR_PRESSURE][i] = rounded(mean + 750 * anomaly[i], 10);
}

/// Clear sky after Clark and Allen, clouds after Walton.
void YearMaker::makeLongWave() {
    for (std::size_t i = 0; i < HOURS_OF_YEAR; ++i) {
        const double temperature = m_data.m_data[Q_TEMPERATURE][i];
        const double dew = dewPoint(temperature, m_data.m_data[Q_RELATIVE_HUMIDITY][i]) + CELSIUS;
        const double N = 10 * (1 - (m_clearness[i] - DARKEST) / (1 - DARKEST)); // tenths of cloud
        const double emissivity =
            (0.787 + 0.764 * std::log(dew / 273)) * (1 + 0.0224 * N - 0.0035 * N * N + 0.00028 * N * N * N);
        m_data.m_data[Q_LONG_WAVE_RADIATION][i] =
            std::round(std::min(1.0, emissivity) * STEFAN_BOLTZMANN * std::pow(temperature + CELSIUS, 4));
    }
}

ClimateDataLoader YearMaker::make() {
    m_data.m_city = m_normals.city;
    m_data.m_country = m_normals.country;
    m_data.m_latitude = m_normals.latitude;
    m_data.m_longitude = m_normals.longitude;
    m_data.m_elevation = m_normals.elevation;
    m_data.setUtcOffset(m_normals.timeZone);
    m_data.m_wmoCode = "synthetic";
    m_data.m_source = "Hygrion synthetic reference year";
    m_data.m_comment = "Synthetic hours, not measured; made from published monthly normals by hygrion-cli climate "
                       "generate, seed " +
                       std::to_string(SEED) + ".";
    if (!m_normals.origin.empty())
        m_data.m_comment += " Normals: " + m_normals.origin + ".";
    m_data.m_comment += " Assumed: wind from the west" +
                        (m_normals.assumptions.empty() ? std::string() : ", " + m_normals.assumptions) + ".";
    for (std::vector<double> & values : m_data.m_data)
        values.assign(HOURS_OF_YEAR, 0);
    makeRadiation();
    makeTemperature();
    makeRain();
    makeHumidity();
    makeWind();
    makePressure();
    makeLongWave();
    m_data.checkValues();
    return std::move(m_data);
}

} // namespace

double dewPoint(double temperature, double relativeHumidity) {
    const double x = std::log(relativeHumidity / 100) + 17.62 * temperature / (243.12 + temperature);
    return 243.12 * x / (17.62 - x);
}

ClimateDataLoader referenceYear(const MonthlyNormals & normals) {
    for (std::size_t month = 0; month < 12; ++month) {
        const MonthlyNormals::Month & m = normals.months[month];
        if (!(m.temperature > -60 && m.temperature < 50) || !(m.relativeHumidity > 5 && m.relativeHumidity < 97) ||
            !(m.globalRadiation >= 0) || !(m.windVelocity >= 0 && m.windVelocity < 20) ||
            !(m.rain >= 0 && m.rain < 2000))
            throw KOR::Exception(
                KOR::text("The normals of month %1 of '%2' are not plausible.", month + 1, normals.city), WHERE);
    }
    try {
        return YearMaker(normals).make();
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Cannot make a year for '%1'.", normals.city), WHERE);
    }
}

ClimateDataLoader sineClimate(const SineClimate & climate) {
    ClimateDataLoader data;
    data.m_city = climate.name;
    data.m_source = "Hygrion synthetic standard climate";
    data.m_wmoCode = "synthetic";
    data.m_comment =
        "Synthetic, not measured. No sun, wind and rain; the sky radiates like the air. " + climate.comment;
    data.m_startYear = 2001;
    const bool isConstant = climate.temperatureAmplitude == 0 && climate.humidityAmplitude == 0;
    const int days = isConstant ? 1 : 365;
    for (int day = 0; day < days; ++day)
        data.m_timePoints.push_back(day * 86400.0);
    data.m_timePoints.push_back(SECONDS_OF_YEAR - 1); // both ends of the year would forbid cyclic use
    for (const double t : data.m_timePoints) {
        const auto wave = [t](double mean, double amplitude, double day) {
            return mean + amplitude * std::cos(2 * PI * (t / 86400 - day) / 365);
        };
        const double temperature = wave(climate.temperature, climate.temperatureAmplitude, climate.warmestDay);
        for (std::vector<double> & values : data.m_data)
            values.push_back(0);
        data.m_data[Q_TEMPERATURE].back() = temperature;
        data.m_data[Q_RELATIVE_HUMIDITY].back() =
            wave(climate.relativeHumidity, climate.humidityAmplitude, climate.dampestDay);
        data.m_data[Q_LONG_WAVE_RADIATION].back() = STEFAN_BOLTZMANN * std::pow(temperature + CELSIUS, 4);
        data.m_data[Q_AIR_PRESSURE].back() = 101325;
    }
    data.checkValues();
    return data;
}

} // namespace CCM
