#include "VectorItem.h"

#include "../NumberText.h"

#include <QPainter>
#include <QPainterPath>

#include <qwt_graphic.h>
#include <qwt_legend_data.h>
#include <qwt_text.h>

#include <cmath>
#include <unordered_map>

namespace SCI {

namespace {

constexpr double HEAD = 6;       ///< length of an arrow's head [px]
constexpr double SHORTEST = 1.5; ///< arrows shorter than this are no more than a dot [px]

void drawArrow(QPainter & painter, const QPointF & from, const QPointF & to) {
    const QLineF shaft(from, to);
    const double head = std::min(HEAD, shaft.length() * 0.6);
    const QPointF along = (to - from) / shaft.length();
    const QPointF across(-along.y(), along.x());
    const QPointF neck = to - along * head;
    painter.drawLine(from, neck);
    painter.drawPolygon(QVector<QPointF>{to, neck + across * head * 0.45, neck - across * head * 0.45});
}

} // namespace

VectorItem::VectorItem(std::shared_ptr<const VectorModel> model, const VectorStyle & style, int number)
    : SeriesItem(style, number), m_model(std::move(model)), m_style(style) {
    setLegendIconSize(QSize(26, 12));
    setZ(25);
}

void VectorItem::forgetBounds() {
    SeriesItem::forgetBounds();
    m_longest.reset();
}

Bounds VectorItem::allBounds() const {
    Bounds bounds;
    eachPoint([&](double x, double y) {
        if (std::isfinite(x) && std::isfinite(y))
            bounds.include(x, y);
    });
    return bounds;
}

void VectorItem::eachPoint(const Visit & visit) const {
    for (std::size_t i = 0; i < m_model->count(); ++i)
        visit(m_model->x(i), m_model->y(i));
}

double VectorItem::longest() const {
    if (!m_longest) {
        double size = 0;
        for (std::size_t i = 0; i < m_model->count(); ++i)
            if (const double s = std::hypot(m_model->xPart(i), m_model->yPart(i)); std::isfinite(s))
                size = std::max(size, s);
        m_longest = size;
    }
    return *m_longest;
}

void VectorItem::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
                      const QRectF & canvas) const {
    if (!(longest() > 0))
        return;
    const PixelScale x{chartPlot().state(xId()).unit, xMap};
    const PixelScale y{chartPlot().state(yId()).unit, yMap};
    const double perUnit = m_style.length / longest();
    // One arrow in a square of this size.
    const double square = std::max(8.0, m_style.length * 0.7);
    const auto columns = static_cast<long>(canvas.width() / square) + 2;
    struct Arrow {
        QPointF from, to;
        double size;
    };
    std::unordered_map<long, Arrow> arrows;
    for (std::size_t i = 0; i < m_model->count(); ++i) {
        const QPointF from(x.pixel(m_model->x(i)), y.pixel(m_model->y(i)));
        const double u = m_model->xPart(i);
        const double v = m_model->yPart(i);
        const double size = std::hypot(u, v);
        if (!canvas.contains(from) || !std::isfinite(size) || !(size > 0))
            continue;
        const long key = static_cast<long>((from.x() - canvas.left()) / square) +
                         columns * static_cast<long>((from.y() - canvas.top()) / square);
        const auto [place, isNew] = arrows.try_emplace(key, Arrow{from, {}, -1});
        if (isNew || size > place->second.size)
            place->second = {from, from + QPointF(u * perUnit, -v * perUnit), size};
    }
    // A rim in the ground's colour, so that arrows are seen on every colour of a grid.
    for (const bool isRim : {true, false}) {
        const QColor ink = isRim ? chartPlot().theme().ground : color();
        painter->setPen(QPen(ink, isRim ? 3.6 : 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(ink);
        for (const auto & [key, arrow] : arrows) {
            if (QLineF(arrow.from, arrow.to).length() < SHORTEST)
                painter->drawPoint(arrow.from);
            else
                drawArrow(*painter, arrow.from, arrow.to);
        }
    }
}

QwtGraphic VectorItem::legendIcon(int, const QSizeF & size) const {
    QwtGraphic icon;
    icon.setDefaultSize(size);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(), 1.4));
    painter.setBrush(color());
    drawArrow(painter, {0, size.height() / 2}, {size.width(), size.height() / 2});
    return icon;
}

QList<QwtLegendData> VectorItem::legendData() const {
    QList<QwtLegendData> all = SeriesItem::legendData();
    for (QwtLegendData & data : all) {
        QwtText text = data.value(QwtLegendData::TitleRole).value<QwtText>();
        if (plot() != nullptr)
            text.setText(QStringLiteral("%1: %2 %3")
                             .arg(text.text(), numberText(longest(), 3, chartPlot().locale()),
                                  UnitScale::printed(m_style.unit)));
        data.setValue(QwtLegendData::TitleRole, QVariant::fromValue(text));
    }
    return all;
}

} // namespace SCI
