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

    Sums() {
        result.minimum = INFINITE;
        result.maximum = -INFINITE;
    }
    void see(double value, double place) {
        ++result.count;
        if (value < result.minimum) {
            result.minimum = value;
            result.atMinimum = place;
        }
        if (value > result.maximum) {
            result.maximum = value;
            result.atMaximum = place;
        }
    }
    HygResultStatistics finish(double fallback) {
        if (result.count == 0)
            return {};
        result.mean = result.weight > 0 ? first / result.weight : fallback;
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
        if (std::isnan(values[i]))
            continue;
        const double weight = i < weights.size() ? weights[i] : 1;
        sums.see(values[i], i < places.size() ? places[i] : 0);
        sums.result.weight += weight;
        sums.first += weight * values[i];
        sums.second += weight * values[i] * values[i];
        if (threshold && values[i] > *threshold)
            sums.result.above += weight;
    }
    return sums.finish(0);
}

HygResultStatistics HygResultStatistics::ofCourse(std::span<const double> times, std::span<const double> values,
                                                  std::optional<double> threshold) {
    Sums sums;
    for (std::size_t i = 0; i < std::min(times.size(), values.size()); ++i) {
        if (std::isnan(values[i]))
            continue;
        sums.see(values[i], times[i]);
        if (i == 0 || std::isnan(values[i - 1]))
            continue;
        const double a = values[i - 1], b = values[i];
        const double step = times[i] - times[i - 1];
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
    return sums.finish(values.empty() ? 0 : values[0]);
}
