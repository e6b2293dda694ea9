#pragma once

#include <optional>
#include <span>

/// Figures of values with weights: of a course the weights are times, of a profile or field widths or areas.
struct HygResultStatistics {
    double minimum = 0, maximum = 0, mean = 0, deviation = 0;
    double atMinimum = 0, atMaximum = 0; ///< where or when
    double above = 0;                    ///< weight of what lies above the threshold
    double weight = 0;                   ///< of all values
    double missing = 0;                  ///< weight of where there is no value, NaN
    std::size_t count = 0;               ///< 0: no value, all other members but "missing" are 0

    /// Values at places, each with its weight. NaN is left out. \param places may be empty
    static HygResultStatistics ofPlaces(std::span<const double> values, std::span<const double> weights,
                                        std::span<const double> places, std::optional<double> threshold);
    /// Values over time, straight between their times. NaN ends a piece; what lies beside it has no value.
    static HygResultStatistics ofCourse(std::span<const double> times, std::span<const double> values,
                                        std::optional<double> threshold);
};
