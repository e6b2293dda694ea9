#pragma once

#include "Plot.h"

#include <qwt_plot_item.h>

namespace SCI {

/// A line at one value of an axis, or a band between two, with a text.
class Mark : public QwtPlotItem {
public:
    /// \param from, \param to in the data unit of the axis; equal for a line, infinite for a band without an end
    Mark(axis_t axis, double from, double to, const QString & text, bool isFilled = true);

    void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
              const QRectF & canvas) const override;

private:
    void drawBandText(QPainter & painter, const QRectF & band, const QColor & color, const QColor & rim) const;

    axis_t m_axis;
    double m_from;
    double m_to;
    bool m_isFilled;
};

} // namespace SCI
