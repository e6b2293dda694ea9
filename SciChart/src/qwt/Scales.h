#pragma once

#include "Plot.h"

#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

namespace SCI {

/// Ticks at round times of the calendar without leap days.
class DateScaleEngine : public QwtLinearScaleEngine {
public:
    explicit DateScaleEngine(double secondsPerUnit) : m_secondsPerUnit(secondsPerUnit) {}
    QwtScaleDiv divideScale(double x1, double x2, int maxMajor, int maxMinor, double stepSize) const override;

private:
    double m_secondsPerUnit;
};

/// Numbers or dates at an axis, in the language of the plot.
class ScaleDraw : public QwtScaleDraw {
public:
    ScaleDraw(const Plot & plot, axis_t axis);
    QwtText label(double value) const override;
    /// After the scale has changed.
    void update();

private:
    const Plot & m_plot;
    axis_t m_axis;
};

/// Seconds in the unit that an axis with dates shows.
double secondsPerUnit(const AxisState & state);

} // namespace SCI
