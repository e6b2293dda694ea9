#include "Scales.h"

#include "../Calendar.h"
#include "../NumberText.h"

#include <algorithm>
#include <cmath>

namespace SCI {

double secondsPerUnit(const AxisState & state) {
    const UnitScale toSeconds(state.axis.unit(), QStringLiteral("s"));
    return toSeconds.factor();
}

QwtScaleDiv DateScaleEngine::divideScale(double x1, double x2, int maxMajor, int, double) const {
    const Calendar::Ticks ticks = Calendar::ticks(x1 * m_secondsPerUnit, x2 * m_secondsPerUnit, maxMajor);
    const auto list = [this](const std::vector<double> & seconds) {
        QList<double> values;
        for (const double second : seconds)
            values << second / m_secondsPerUnit;
        return values;
    };
    return QwtScaleDiv(x1, x2, list(ticks.minor), {}, list(ticks.major));
}

ScaleDraw::ScaleDraw(const Plot & plot, axis_t axis) : m_plot(plot), m_axis(axis) {
    setTickLength(QwtScaleDiv::MajorTick, 6);
    setTickLength(QwtScaleDiv::MediumTick, 3);
    setTickLength(QwtScaleDiv::MinorTick, 3);
}

void ScaleDraw::update() {
    invalidateCache();
}

QwtText ScaleDraw::label(double value) const {
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double step = ticks.size() > 1 ? std::abs(ticks.at(1) - ticks.at(0)) : scaleDiv().range();
    const AxisState & state = m_plot.state(m_axis);
    if (state.axis.scale == DATE) {
        const double seconds = secondsPerUnit(state);
        const double length = Calendar::ticks(scaleDiv().lowerBound() * seconds, scaleDiv().upperBound() * seconds,
                                              m_plot.axisMaxMajor(m_axis))
                                  .step;
        QwtText text(Calendar::label(value * seconds, length, state.axis.startYear, m_plot.locale()),
                     QwtText::PlainText);
        text.setRenderFlags(Qt::AlignHCenter | Qt::AlignTop);
        return text;
    }
    if (state.axis.scale == LOGARITHMIC)
        return numberText(value, 3, m_plot.locale());
    if (std::abs(value) < 1e-6 * step)
        value = 0;
    const double largest = std::max(std::abs(scaleDiv().lowerBound()), std::abs(scaleDiv().upperBound()));
    int digits = digitsFor(value, step);
    // All labels of a small or large scale have the same form.
    if (value != 0 && (largest >= 1e6 || largest < 1e-3))
        digits = std::max(digits, 2);
    return numberText(value, digits, m_plot.locale());
}

} // namespace SCI
