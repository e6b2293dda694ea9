#include "HygResultStatistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();

/// Sums that become the figures.
struct Sums {
    HygResultStatistics result;
    double first = 0, second = 0; ///< weighted sums of values and squares
    double plain = 0;             ///< sum of the values

    Sums() {
        result.minimum = INFINITE;
        result.maximum = -INFINITE;
    }
    void see(double value, double place) {
        ++result.count;
        plain += value;
        if (value < result.minimum) {
            result.minimum = value;
            result.atMinimum = place;
        }
        if (value > result.maximum) {
            result.maximum = value;
            result.atMaximum = place;
        }
    }
    HygResultStatistics finish() {
        if (result.count == 0) {
            HygResultStatistics none;
            none.missing = result.missing;
            return none;
        }
        result.mean = result.weight > 0 ? first / result.weight : plain / static_cast<double>(result.count);
        const double variance = result.weight > 0 ? second / result.weight - result.mean * result.mean : 0;
        result.deviation = std::sqrt(std::max(0.0, variance));
        return result;
    }
};

} // namespace

HygResultStatistics HygResultStatistics::ofPlaces(std::span<const double> values, std::span<const double> weights,
                                                  std::span<const double> places, std::optional<double> threshold) {
    Sums sums;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double weight = i < weights.size() ? weights[i] : 1;
        if (std::isnan(values[i])) {
            sums.result.missing += weight;
            continue;
        }
        sums.see(values[i], i < places.size() ? places[i] : 0);
        sums.result.weight += weight;
        sums.first += weight * values[i];
        sums.second += weight * values[i] * values[i];
        if (threshold && values[i] > *threshold)
            sums.result.above += weight;
    }
    return sums.finish();
}

HygResultStatistics HygResultStatistics::ofCourse(std::span<const double> times, std::span<const double> values,
                                                  std::optional<double> threshold) {
    Sums sums;
    for (std::size_t i = 0; i < std::min(times.size(), values.size()); ++i) {
        const double step = i == 0 ? 0 : times[i] - times[i - 1];
        if (std::isnan(values[i])) {
            sums.result.missing += step;
            continue;
        }
        sums.see(values[i], times[i]);
        if (i == 0)
            continue;
        const double a = values[i - 1], b = values[i];
        if (std::isnan(a)) {
            sums.result.missing += step;
            continue;
        }
        sums.result.weight += step;
        sums.first += step * (a + b) / 2;
        sums.second += step * (a * a + a * b + b * b) / 3;
        if (!threshold)
            continue;
        const double low = std::min(a, b), high = std::max(a, b);
        if (low > *threshold)
            sums.result.above += step;
        else if (high > *threshold)
            sums.result.above += step * (high - *threshold) / (high - low);
    }
    return sums.finish();
}
