#pragma once

#include <QString>

namespace SCI {

/// The axes of a chart.
enum axis_t { Y_LEFT, Y_RIGHT, X_BOTTOM, X_TOP, NUM_AXES };

/// How values lie along an axis.
enum scale_t {
    LINEAR,
    LOGARITHMIC, ///< values up to 0 are gaps
    DATE         ///< durations shown as dates of a calendar without leap days
};

/// What an axis shows.
struct Axis {
    QString title;
    QString dataUnit = QStringLiteral("-"); ///< KOR unit in which the models give their values
    QString shownUnit;                      ///< KOR unit of the same base; empty: the data unit
    scale_t scale = LINEAR;
    int startYear = 0; ///< DATE: time 0 is 1 January, 00:00 of this year; 0: dates without a year

    /// The unit of the numbers at the axis.
    const QString & unit() const { return shownUnit.isEmpty() ? dataUnit : shownUnit; }
};

/// The name of a KOR unit as readers know it: "C" is "°C", "m2" is "m²"; empty for numbers without one.
QString printedUnit(const QString & unit);

/// From one number to another, in the shown unit of an axis.
struct Range {
    double from = 0;
    double to = 1;
    friend bool operator==(const Range & a, const Range & b) { return a.from == b.from && a.to == b.to; }
};

} // namespace SCI
