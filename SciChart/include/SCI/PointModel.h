#pragma once

#include <SCI/Bounds.h>

#include <cstddef>

namespace SCI {

/// Points of a line or of bars, read where they are: in a spline, a climate loader, a result file. The chart keeps no
/// copy; tell it by Chart::dataChanged when the points have changed. Called from the GUI thread only.
class PointModel {
public:
    virtual ~PointModel() = default;

    virtual std::size_t count() const = 0;
    /// In the data unit of the x axis.
    virtual double x(std::size_t i) const = 0;
    /// In the data unit of the y axis; NaN and infinity are gaps.
    virtual double y(std::size_t i) const = 0;
    /// x is a number everywhere and never falls: many points are drawn faster, and the cursor finds values.
    virtual bool isSorted() const { return false; }
    /// What the points cover, gaps left out. The chart keeps it until dataChanged.
    virtual Bounds bounds() const;
};

} // namespace SCI
