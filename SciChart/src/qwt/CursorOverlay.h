#pragma once

#include "Plot.h"

#include <qwt_widget_overlay.h>

namespace SCI {

/// A line through the plot and the values on it, over the canvas, so that nothing is drawn anew.
class CursorOverlay : public QwtWidgetOverlay {
public:
    CursorOverlay(const Plot & plot, QWidget * canvas);

    void show(const QPointF & pixel);
    void hide();
    std::optional<QPointF> place() const { return m_place; }

protected:
    void drawOverlay(QPainter * painter) const override;

private:
    const Plot & m_plot;
    std::optional<QPointF> m_place; ///< [px] in the canvas
};

} // namespace SCI
