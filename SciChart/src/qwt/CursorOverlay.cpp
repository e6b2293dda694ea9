#include "CursorOverlay.h"

#include "Navigator.h"

#include <QPainter>

#include <algorithm>

namespace SCI {

namespace {
constexpr double PADDING = 6;   ///< in the box of values [px]
constexpr double DISTANCE = 12; ///< of the box from the cursor [px]
} // namespace

CursorOverlay::CursorOverlay(const Plot & plot, QWidget * canvas) : QwtWidgetOverlay(canvas), m_plot(plot) {
    setMaskMode(QwtWidgetOverlay::NoMask);
    setObjectName(QStringLiteral("cursor"));
}

void CursorOverlay::show(const QPointF & pixel) {
    m_place = pixel;
    updateOverlay();
}

void CursorOverlay::hide() {
    if (!m_place)
        return;
    m_place.reset();
    updateOverlay();
}

void CursorOverlay::drawOverlay(QPainter * painter) const {
    if (!m_place)
        return;
    const Theme & theme = m_plot.theme();
    painter->setPen(QPen(theme.mutedText, 1, Qt::DashLine));
    painter->drawLine(QLineF(m_place->x(), 0, m_place->x(), height()));
    const QString text = valuesAtPixel(m_plot, *m_place).join(QLatin1Char('\n'));
    const QFontMetricsF metrics(m_plot.font(), this);
    QRectF box = metrics.boundingRect(QRectF(rect()), Qt::AlignLeft | Qt::AlignTop, text)
                     .adjusted(-PADDING, -PADDING, PADDING, PADDING);
    // Beside the cursor, on the side with room.
    const bool isLeft = m_place->x() + DISTANCE + box.width() > width();
    box.moveTo(isLeft ? m_place->x() - DISTANCE - box.width() : m_place->x() + DISTANCE,
               std::clamp(m_place->y() - box.height() - DISTANCE, 0.0, std::max(0.0, height() - box.height())));
    box.moveLeft(std::max(box.left(), 0.0));
    QColor ground = theme.ground;
    ground.setAlpha(235);
    painter->setPen(QPen(theme.mutedText, 1));
    painter->setBrush(ground);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->drawRoundedRect(box, 3, 3);
    painter->setFont(m_plot.font());
    painter->setPen(theme.text);
    painter->drawText(box.adjusted(PADDING, PADDING, -PADDING, -PADDING), Qt::AlignLeft | Qt::AlignTop, text);
}

} // namespace SCI
