#include <CCM/ClimateDataLoader.h>
#include <CCM/SunPosition.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>

namespace CCM {

namespace {

constexpr const char * SET_TIME = "[ClimateDataLoader::setTime]";

/// Two neighbours and the share of the upper one.
struct Bracket {
    std::size_t lower;
    std::size_t upper;
    double weight;
};

/// \param t [s] not below 0, within the year
Bracket endOfHour(double t) {
    const double hours = t / 3600;
    if (t < 3600)
        return {HOURS_OF_YEAR - 1, 0, hours};
    const auto i = std::min(static_cast<std::size_t>(hours), HOURS_OF_YEAR - 1);
    return {i - 1, i, hours - std::floor(hours)};
}

Bracket middleOfHour(double t) {
    if (t >= SECONDS_OF_YEAR - 1800)
        t -= SECONDS_OF_YEAR;
    if (t < 1800)
        return {HOURS_OF_YEAR - 1, 0, (t + 1800) / 3600};
    const double hours = (t - 1800) / 3600;
    const auto i = static_cast<std::size_t>(hours);
    return {i, std::min(i + 1, HOURS_OF_YEAR - 1), hours - std::floor(hours)};
}

/// Missing neighbours count as the value that stands in for them, so that the result stays continuous in time.
double interpolated(const std::vector<double> & values, const Bracket & at, double whenMissing) {
    const double lower = isMissing(values[at.lower]) ? whenMissing : values[at.lower];
    const double upper = isMissing(values[at.upper]) ? whenMissing : values[at.upper];
    return (1 - at.weight) * lower + at.weight * upper;
}

double splineValue(const KOR::LinearSpline & spline, double t, double whenMissing) {
    const double value = spline.value(t);
    return isMissing(value) ? whenMissing : value;
}

/// Why data at these time points cannot be repeated every year; nullptr if they can.
const char * reasonAgainstCyclicUse(const std::vector<double> & timePoints) {
    if (timePoints.size() < 2)
        return "Missing data, at least two time points are required.";
    if (timePoints.back() > SECONDS_OF_YEAR)
        return "Time points must not exceed 365 d for cyclic use.";
    if (timePoints.front() == 0 && timePoints.back() == SECONDS_OF_YEAR)
        return "Must not have time point 0 d and 365 d for cyclic use.";
    return nullptr;
}

} // namespace

std::optional<quantity_t> quantityByKeyword(std::string_view keyword) {
    const std::string wanted = KOR::lowered(keyword);
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
        if (KOR::lowered(CLIMATE_QUANTITIES[q].keyword) == wanted)
            return static_cast<quantity_t>(q);
    return std::nullopt;
}

void ClimateDataLoader::readClimateData(const std::string & path, bool headerOnly) {
    constexpr const char * WHERE = "[ClimateDataLoader::readClimateData]";
    const std::string extension = KOR::lowered(std::filesystem::path(path).extension().string());
    bool isKnown = true;
    try {
        if (extension == ".epw") {
            readClimateDataEPW(path, headerOnly);
        } else if (extension == ".c6b") {
            std::error_code error;
            std::ifstream in(path, std::ios::binary);
            if (!in || std::filesystem::is_directory(path, error))
                throw KOR::Exception(KOR::text("Climate data file '%1' does not exist or is not accessible.", path),
                                     WHERE);
            readClimateDataKOR(in, headerOnly);
        } else if (extension == ".wac") {
            readClimateDataWAC(path, headerOnly);
        } else if (extension == ".dat") {
            readClimateDataBBSRDat(path, headerOnly);
        } else {
            isKnown = false;
        }
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error reading climate data file.", WHERE);
    }
    if (!isKnown)
        throw KOR::Exception("Unknown/unsupported climate data file format.", WHERE);
}

void ClimateDataLoader::checkValues() {
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const ClimateQuantity & range = CLIMATE_QUANTITIES[q];
        const std::vector<double> & values = m_data[q];
        FirstBadValues first;
        bool isPresent = false;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double value = values[i];
            const auto index = static_cast<std::uint32_t>(i);
            if (isMissing(value)) {
                first.missing = std::min(first.missing, index);
                continue;
            }
            isPresent = isPresent || !(std::abs(value) <= 0.001);
            if (!(value >= range.minimum && value <= range.maximum))
                first.implausible = std::min(first.implausible, index);
        }
        m_firstBad[q] = first;
        m_valueStatus[q] = (isPresent ? 0U : ST_NOT_PRESENT) | (first.missing != NO_INDEX ? ST_MISSING : 0U) |
                           (first.implausible != NO_INDEX ? ST_IMPLAUSIBLE : 0U);
    }
}

void ClimateDataLoader::checkForValidCyclicData(const std::vector<double> & timePoints) {
    if (const char * reason = reasonAgainstCyclicUse(timePoints))
        throw KOR::Exception(reason, "[ClimateDataLoader::checkForValidCyclicData]");
}

void ClimateDataLoader::setUtcOffset(double hours) {
    m_timeZone = static_cast<std::int32_t>(std::clamp(hours, -24.0, 24.0));
    m_timeZoneRest = std::clamp(hours, -24.0, 24.0) - m_timeZone;
}

/// Vectors that are not overridden hold one value for each time point, or none at all.
void ClimateDataLoader::checkLengths(const char * where) const {
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const std::size_t size = m_data[q].size();
        if (size == 0 || !m_splines[q].empty())
            continue;
        if (isAnnual() && size != HOURS_OF_YEAR)
            throw KOR::Exception(
                KOR::text("Annual climate data must have 8760 hourly values, but data vector #%1 has length %2.", q,
                          size),
                where);
        if (!isAnnual() && size != m_timePoints.size())
            throw KOR::Exception("Mismatching sizes of time points vector and data vectors.", where);
    }
}

void ClimateDataLoader::setTime(int year, double secondsOfYear) {
    if (!std::isfinite(secondsOfYear))
        throw KOR::Exception(KOR::text("Invalid time %1 s.", secondsOfYear), SET_TIME);
    checkLengths(SET_TIME);
    if (isAnnual())
        setAnnualTime(wrappedIntoYear(secondsOfYear));
    else
        setTimePoint(year, secondsOfYear);
}

void ClimateDataLoader::setAnnualTime(double t) {
    const Bracket brackets[2] = {endOfHour(t), middleOfHour(t)};
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const ClimateQuantity & quantity = CLIMATE_QUANTITIES[q];
        if (!m_splines[q].empty())
            m_currentValues[q] = splineValue(m_splines[q], t, quantity.whenMissing);
        else if (m_data[q].empty())
            m_currentValues[q] = quantity.whenMissing;
        else
            m_currentValues[q] = interpolated(m_data[q], brackets[quantity.middleOfHour ? 1 : 0], quantity.whenMissing);
    }
}

void ClimateDataLoader::setTimePoint(int year, double t) {
    const std::vector<double> & points = m_timePoints;
    double time = wrappedIntoYear(t);
    if (reasonAgainstCyclicUse(points)) {
        time = (static_cast<double>(year) - m_startYear) * SECONDS_OF_YEAR + t;
        if (time < points.front() || time > points.back())
            throw KOR::Exception(
                KOR::text("Time point out of range of time points vector (%1;%2), data available for interval %3 - "
                          "%4, start year of simulation %5, start year of climate data %6.",
                          t, time, points.front(), points.back(), year, m_startYear),
                SET_TIME);
    }
    const auto above = static_cast<std::size_t>(std::lower_bound(points.begin(), points.end(), time) - points.begin());
    Bracket at{above, above, 0};
    if (above == points.size())
        at = {above - 1, above - 1, 0};
    else if (above > 0)
        at = {above - 1, above, (time - points[above - 1]) / (points[above] - points[above - 1])};
    for (unsigned int q = 0; q < NUM_QUANTITIES; ++q) {
        const ClimateQuantity & quantity = CLIMATE_QUANTITIES[q];
        if (!m_splines[q].empty())
            m_currentValues[q] = splineValue(m_splines[q], time, quantity.whenMissing);
        else if (m_data[q].empty())
            m_currentValues[q] = quantity.whenMissing;
        else
            m_currentValues[q] = interpolated(m_data[q], at, quantity.whenMissing);
    }
}

} // namespace CCM
