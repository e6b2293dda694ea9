#pragma once

#include <CCM/ClimateDataLoader.h>

namespace CCM {

/// The month, 0 to 11, of a time [s] since the start of any year.
int monthOfYear(double t);

/// What one month of climate data amounts to; missing values do not count.
struct MonthStatistics {
    struct Quantity {
        double mean = MISSING;
        double minimum = MISSING;
        double maximum = MISSING;
        std::size_t count = 0;   ///< of values that are not missing
        std::size_t missing = 0; ///< of missing values
    };
    std::array<Quantity, NUM_QUANTITIES> quantities;
    double globalRadiation = MISSING; ///< mean, on the horizontal [W/m2]
    double rainSum = MISSING;         ///< [mm] a year's month; missing hours count as dry
};

/// One entry a month, January first. Several years are taken together.
std::array<MonthStatistics, 12> monthlyStatistics(const ClimateDataLoader & data);

} // namespace CCM
