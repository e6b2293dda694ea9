#pragma once

#include <SCI/Axis.h>

#include <QColor>
#include <QString>

namespace SCI {

/// What all series have.
struct SeriesStyle {
    QString title; ///< in the legend; empty: not there
    QColor color;  ///< invalid: the next one of the chart's own
    axis_t xAxis = X_BOTTOM;
    axis_t yAxis = Y_LEFT;
};

struct LineStyle : SeriesStyle {
    double width = 1.8; ///< [px]
    Qt::PenStyle pen = Qt::SolidLine;
    bool hasSteps = false;  ///< a value holds until the next point
    bool hasPoints = false; ///< points are marked, while they are not too many
};

struct BarStyle : SeriesStyle {
    double width = 0;    ///< in the data unit of the x axis; 0: of the smallest distance
    double share = 0.8;  ///< of that width that is drawn
    double baseline = 0; ///< value where the bars stand
};

} // namespace SCI
