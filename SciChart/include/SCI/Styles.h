#pragma once

#include <SCI/Axis.h>
#include <SCI/ColorMap.h>

#include <QColor>
#include <QString>

#include <vector>

namespace SCI {

/// What all series have.
struct SeriesStyle {
    QString title;  ///< in the legend; empty: not there
    QString column; ///< what its values are called in tables, the unit is added; empty: title and axis
    QColor color;   ///< invalid: the next one of the chart's own
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
    int group = 0;       ///< place among bars side by side, from 0
    int groupCount = 1;
};

/// The colours follow the range, unit and scale of an axis that stands beside the chart as colour bar.
struct GridStyle : SeriesStyle {
    axis_t colorAxis = Y_RIGHT;
    ColorMap::map_t map = ColorMap::SEQUENCE;
    bool isSmooth = false;        ///< values between the centres of cells are interpolated
    bool hasIsolines = false;     ///< at the major ticks of the colour axis, or at:
    std::vector<double> isolines; ///< in the data unit of the colour axis
};

struct VectorStyle : SeriesStyle {
    QString unit;       ///< KOR unit of the arrows, for the legend
    double length = 28; ///< of the longest arrow [px]
};

} // namespace SCI
