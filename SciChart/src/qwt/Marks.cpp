#include "Marks.h"

#include "Isolines.h"

#include <QPainter>

#include <qwt_text.h>

#include <algorithm>
#include <cmath>

namespace SCI {

namespace {
constexpr double DISTANCE = 4; ///< of the text from line and edge [px]
}

Mark::Mark(axis_t axis, double from, double to, const QString & text, bool isFilled)
    : QwtPlotItem(QwtText(text, QwtText::PlainText)), m_axis(axis), m_from(std::min(from, to)),
      m_to(std::max(from, to)), m_isFilled(isFilled) {
    const bool isLine = m_from == m_to;
    setItemAttribute(QwtPlotItem::Legend, false);
    setItemAttribute(QwtPlotItem::AutoScale, false);
    if (axis == X_BOTTOM || axis == X_TOP)
        setXAxis(axis);
    else
        setYAxis(axis);
    setZ(isLine ? 30 : 2);
}

void Mark::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap, const QRectF & canvas) const {
    const auto & chart = static_cast<const Plot &>(*plot());
    const Theme & theme = chart.theme();
    const bool isAcross = m_axis == Y_LEFT || m_axis == Y_RIGHT;
    const PixelScale scale{chart.state(m_axis).unit, isAcross ? yMap : xMap};
    const double first = isAcross ? canvas.top() : canvas.left();
    const double last = isAcross ? canvas.bottom() : canvas.right();
    const auto place = [&](double value, double otherwise) {
        const double pixel = std::isfinite(value) ? scale.pixel(value) : otherwise;
        return std::isfinite(pixel) ? pixel : otherwise;
    };
    // Rising values go up, and to the right.
    const double from = place(m_from, isAcross ? last : first);
    const double to = place(m_to, isAcross ? first : last);
    const auto [low, high] = std::minmax({from, to});
    if (high < first || low > last)
        return;
    const bool isLine = m_from == m_to;
    if (isLine) {
        painter->setPen(QPen(theme.threshold, 1.4, Qt::DashLine));
        painter->drawLine(isAcross ? QLineF(canvas.left(), low, canvas.right(), low)
                                   : QLineF(low, canvas.top(), low, canvas.bottom()));
    } else {
        const QRectF band = isAcross ? QRectF(canvas.left(), low, canvas.width(), high - low)
                                     : QRectF(low, canvas.top(), high - low, canvas.height());
        if (m_isFilled)
            painter->fillRect(band & canvas, theme.band);
        if (!isAcross) {
            painter->setFont(pixelFont(chart));
            drawBandText(*painter, band & canvas, theme.text, theme.ground);
            return;
        }
    }
    if (title().text().isEmpty())
        return;
    painter->setFont(pixelFont(chart));
    const QFontMetricsF metrics(painter->font());
    QPointF baseline;
    if (isAcross) {
        // Above a line, at the top within a band; below a line that has no room above it.
        double top = isLine ? low - metrics.height() - DISTANCE / 2 : std::max(low, canvas.top()) + DISTANCE / 2;
        if (top < canvas.top())
            top = low + DISTANCE / 2;
        baseline =
            QPointF(canvas.right() - metrics.horizontalAdvance(title().text()) - DISTANCE, top + metrics.ascent());
    } else {
        // Right of a line, left of one that has no room there.
        const double width = metrics.horizontalAdvance(title().text());
        const double left = low + DISTANCE + width > canvas.right() ? low - DISTANCE - width : low + DISTANCE;
        baseline = QPointF(left, canvas.top() + DISTANCE + metrics.ascent());
    }
    drawRimmedText(*painter, baseline, title().text(), isLine ? theme.threshold : theme.text, theme.ground);
}

/// In the middle of the band, turned where it is narrow.
void Mark::drawBandText(QPainter & painter, const QRectF & band, const QColor & color, const QColor & rim) const {
    const QFontMetricsF metrics(painter.font());
    const double room = band.width() - 2 * DISTANCE;
    if (metrics.horizontalAdvance(title().text()) <= room) {
        const double width = metrics.horizontalAdvance(title().text());
        drawRimmedText(painter, {band.center().x() - width / 2, band.top() + DISTANCE + metrics.ascent()},
                       title().text(), color, rim);
        return;
    }
    const QString text = metrics.elidedText(title().text(), Qt::ElideRight, band.height() - 2 * DISTANCE);
    if (room < metrics.height() - 2 * DISTANCE)
        return;
    painter.save();
    painter.translate(band.center().x(), band.top() + DISTANCE + metrics.horizontalAdvance(text));
    painter.rotate(-90);
    drawRimmedText(painter, {0, (metrics.ascent() - metrics.descent()) / 2}, text, color, rim);
    painter.restore();
}

} // namespace SCI
