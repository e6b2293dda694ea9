#include <CCM/ClimateStatistics.h>
#include <CCM/SolarRadiationModel.h>

#include <KOR/Time.h>

#include <algorithm>
#include <cmath>

namespace CCM {

namespace {

void take(MonthStatistics::Quantity & statistics, double value) {
    if (isMissing(value)) {
        ++statistics.missing;
        return;
    }
    if (statistics.count++ == 0)
        statistics = {0, value, value, 1, statistics.missing};
    statistics.minimum = std::min(statistics.minimum, value);
    statistics.maximum = std::max(statistics.maximum, value);
    statistics.mean += value; // the sum, until all are taken
}

} // namespace

int monthOfYear(double t) {
    const double inYear = wrappedIntoYear(t);
    int month = 11;
    for (KOR::Time start; month > 0; --month) {
        start.set(0, month, 0, 0);
        if (inYear >= start.m_seconds)
            break;
    }
    return month;
}

std::array<MonthStatistics, 12> monthlyStatistics(const ClimateDataLoader & data) {
    std::array<MonthStatistics, 12> result;
    std::array<MonthStatistics::Quantity, 12> global;
    std::array<double, 12> rain{};
    SolarRadiationModel sun;
    sun.m_climate.m_latitude = data.m_latitude;
    sun.m_climate.m_longitude = data.m_longitude;
    sun.m_climate.setUtcOffset(data.utcOffset());
    for (std::size_t i = 0; i < data.size(); ++i) {
        // A value at the very end of a month belongs to it.
        const double end = data.timeOf(Q_TEMPERATURE, i);
        const double length = std::min(i == 0 ? 3600 : end - data.timeOf(Q_TEMPERATURE, i - 1), 3600.0);
        const double middle = end - length / 2;
        const auto month = static_cast<std::size_t>(monthOfYear(middle));
        for (unsigned int q = 0; q < NUM_QUANTITIES; ++q)
            take(result[month].quantities[q], data.m_data[q][i]);
        const double direct = data.m_data[Q_DIRECT_RADIATION][i];
        const double diffuse = data.m_data[Q_DIFFUSE_RADIATION][i];
        take(global[month], isMissing(direct) || isMissing(diffuse)
                                ? MISSING
                                : diffuse + direct * std::max(0.0, sun.sunAt(middle).sinAltitude));
        if (!isMissing(data.m_data[Q_RAIN][i]))
            rain[month] += data.m_data[Q_RAIN][i] * length / 3600;
    }
    const double years =
        data.isAnnual() || data.size() == 0
            ? 1
            : std::max(1.0, std::round((data.m_timePoints.back() - data.m_timePoints.front()) / SECONDS_OF_YEAR));
    for (std::size_t month = 0; month < 12; ++month) {
        for (MonthStatistics::Quantity & quantity : result[month].quantities)
            if (quantity.count > 0)
                quantity.mean /= static_cast<double>(quantity.count);
        if (global[month].count > 0)
            result[month].globalRadiation = global[month].mean / static_cast<double>(global[month].count);
        if (result[month].quantities[Q_RAIN].count > 0)
            result[month].rainSum = rain[month] / years;
    }
    return result;
}

} // namespace CCM
