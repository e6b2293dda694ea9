#pragma once

#include <limits>

namespace SCI {

/// The rectangle of values that a series covers; empty until the first value.
struct Bounds {
    double xMin = std::numeric_limits<double>::infinity();
    double xMax = -std::numeric_limits<double>::infinity();
    double yMin = std::numeric_limits<double>::infinity();
    double yMax = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return !(xMin <= xMax && yMin <= yMax); }
    void include(double x, double y) {
        xMin = x < xMin ? x : xMin;
        xMax = x > xMax ? x : xMax;
        yMin = y < yMin ? y : yMin;
        yMax = y > yMax ? y : yMax;
    }
};

} // namespace SCI
