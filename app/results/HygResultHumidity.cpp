#include "HygResultHumidity.h"

#include "HygResultFile.h"

#include <CCM/ReferenceYear.h>

#include <algorithm>
#include <cmath>

using DATAIO::DataHeader;

namespace {

constexpr const char * TEMPERATURE = "Temperature";
constexpr const char * HUMIDITY = "RelativeHumidity";
constexpr double DRIEST = 1;            ///< [%] of less water no dew point is told
constexpr double TIME_TOLERANCE = 1e-6; ///< of a time

/// A mean of one place is what is there; an extreme of several is now here, now there.
bool areSamePlaces(const DataHeader & a, const DataHeader & b) {
    if (a.type != b.type || a.geoFileHash != b.geoFileHash || a.indices.size() != b.indices.size())
        return false;
    const auto isSum = [](const DataHeader & h) { return h.spaceType == DataHeader::SPACE_INTEGRAL; };
    if (a.valueCount() == 1 && b.valueCount() == 1) {
        const bool isOne = a.indices.size() == 1 && !isSum(a) && !isSum(b);
        const bool isMean = a.spaceType == DataHeader::SPACE_MEAN && b.spaceType == DataHeader::SPACE_MEAN;
        return (isOne || isMean) && std::is_permutation(a.indices.begin(), a.indices.end(), b.indices.begin());
    }
    return a.valueCount() == b.valueCount() && a.indices == b.indices;
}

} // namespace

bool HygResultHumidity::isTemperature(const HygResultFile & file) {
    return file.header().quantityKeyword == TEMPERATURE;
}

bool HygResultHumidity::isHumidity(const HygResultFile & file) {
    return file.header().quantityKeyword == HUMIDITY;
}

bool HygResultHumidity::belongs(DATAIO::DataIO & humidity, DATAIO::DataIO & temperature) {
    const DataHeader & a = humidity.header();
    const DataHeader & b = temperature.header();
    if (a.quantityKeyword != HUMIDITY || !areSamePlaces(a, b) || a.timeType != b.timeType || a.timeUnit != b.timeUnit ||
        (a.timeType != DataHeader::TIME_NONE && a.timeType != DataHeader::TIME_MEAN))
        return false;
    const std::size_t common = std::min(humidity.timeCount(), temperature.timeCount());
    if (common == 0)
        return humidity.timeCount() == temperature.timeCount();
    const auto isSame = [](double s, double t) {
        return std::abs(s - t) <= TIME_TOLERANCE * std::max(1.0, std::abs(t));
    };
    return isSame(humidity.timePoint(0), temperature.timePoint(0)) &&
           isSame(humidity.timePoint(common - 1), temperature.timePoint(common - 1));
}

double HygResultHumidity::dewPoint(double temperature, double humidity) {
    return humidity >= DRIEST ? CCM::dewPoint(temperature, humidity) : std::numeric_limits<double>::quiet_NaN();
}
