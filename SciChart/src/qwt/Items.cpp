#include "Items.h"

#include <SCI/Decimation.h>

#include <QPainter>

#include <qwt_clipper.h>
#include <qwt_graphic.h>
#include <qwt_legend_data.h>
#include <qwt_text.h>

#include <cmath>

namespace SCI {

namespace {

/// Above so many points in a picture edges are no longer smoothed, which nobody would see.
constexpr std::size_t MAX_SMOOTH = 3000;
/// Points are marked only while so many pixels are between them.
constexpr double MARK_DISTANCE = 8;
constexpr double MARK_RADIUS = 3;

double lowestOn(const AxisState & state) {
    return state.axis.scale == LOGARITHMIC ? state.unit.data(0) : -std::numeric_limits<double>::infinity();
}

} // namespace

std::size_t lowerIndex(const PointModel & model, double x) {
    std::size_t first = 0;
    std::size_t length = model.count();
    while (length > 0) {
        const std::size_t half = length / 2;
        if (model.x(first + half) < x) {
            first += half + 1;
            length -= half + 1;
        } else {
            length = half;
        }
    }
    return first;
}

SeriesItem::SeriesItem(const SeriesStyle & style, int number)
    : QwtPlotItem(QwtText(style.title, QwtText::PlainText)), m_number(number), m_color(style.color) {
    setAxes(style.xAxis, style.yAxis);
    setItemAttribute(QwtPlotItem::Legend, !style.title.isEmpty());
    setItemAttribute(QwtPlotItem::AutoScale, false);
    setRenderHint(QwtPlotItem::RenderAntialiased, true);
    setZ(20);
}

QColor SeriesItem::color() const {
    return m_color.isValid() ? m_color : chartPlot().theme().series(m_number);
}

const Bounds & SeriesItem::bounds() const {
    if (!m_bounds) {
        const AxisState & x = chartPlot().state(xId());
        const AxisState & y = chartPlot().state(yId());
        Bounds bounds = allBounds();
        const double xLowest = lowestOn(x);
        const double yLowest = lowestOn(y);
        if (!bounds.isEmpty() && (!(bounds.xMin > xLowest) || !(bounds.yMin > yLowest))) {
            bounds = Bounds();
            eachPoint([&](double xi, double yi) {
                if (xi > xLowest && yi > yLowest && std::isfinite(xi) && std::isfinite(yi))
                    bounds.include(xi, yi);
            });
        }
        m_bounds = bounds;
    }
    return *m_bounds;
}

QList<QwtLegendData> SeriesItem::legendData() const {
    QList<QwtLegendData> all = QwtPlotItem::legendData();
    if (plot() == nullptr)
        return all;
    for (QwtLegendData & data : all) {
        QwtText text(title().text(), QwtText::PlainText);
        QFont font = chartPlot().font();
        font.setStrikeOut(!isVisible());
        text.setFont(font);
        text.setColor(isVisible() ? chartPlot().theme().text : chartPlot().theme().mutedText);
        data.setValue(QwtLegendData::TitleRole, QVariant::fromValue(text));
    }
    return all;
}

LineItem::LineItem(std::shared_ptr<const PointModel> model, const LineStyle & style, int number)
    : SeriesItem(style, number), m_model(std::move(model)), m_style(style) {
    setLegendIconSize(QSize(26, 12));
}

void LineItem::eachPoint(const Visit & visit) const {
    const std::size_t n = m_model->count();
    for (std::size_t i = 0; i < n; ++i)
        visit(m_model->x(i), m_model->y(i));
}

QPen LineItem::pen() const {
    QPen pen(color(), m_style.width, Theme::pen(m_number, m_style.pen));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

std::vector<std::size_t> LineItem::visiblePoints(const PixelScale & x, double resolution, const QRectF & canvas) const {
    const double lowest = lowestOn(chartPlot().state(yId()));
    if (!m_model->isSorted()) {
        return Decimation::unsorted(*m_model, lowest,
                                    [&](double value) { return std::floor(x.pixel(value) * resolution); });
    }
    // A point beyond each edge, so that lines leave the picture.
    const auto [left, right] = std::minmax(x.value(canvas.left()), x.value(canvas.right()));
    std::size_t first = lowerIndex(*m_model, left);
    first -= first > 0 ? 1 : 0;
    std::size_t last = lowerIndex(*m_model, right);
    last = std::min(last + 2, m_model->count());
    const auto columns = static_cast<std::size_t>(std::max(1.0, std::ceil(canvas.width() * resolution)));
    std::vector<double> ends(columns);
    for (std::size_t i = 0; i < columns; ++i)
        ends[i] = x.value(canvas.left() + static_cast<double>(i + 1) / resolution);
    return Decimation::sorted(*m_model, first, last, ends, lowest);
}

void LineItem::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
                    const QRectF & canvas) const {
    const PixelScale x{chartPlot().state(xId()).unit, xMap};
    const PixelScale y{chartPlot().state(yId()).unit, yMap};
    const double resolution = std::max(1.0, painter->transform().m11());
    const std::vector<std::size_t> points = visiblePoints(x, resolution, canvas);
    painter->setPen(pen());
    painter->setRenderHint(QPainter::Antialiasing, points.size() < MAX_SMOOTH);
    const QRectF clip = canvas.adjusted(-100, -100, 100, 100);
    QPolygonF line;
    const auto drawLine = [&] {
        if (line.size() == 1)
            painter->drawPoint(line.first());
        else if (line.size() > 1)
            painter->drawPolyline(QwtClipper::clipPolygonF(clip, line, false));
        line.clear();
    };
    std::vector<QPointF> marks;
    for (const std::size_t i : points) {
        if (i == Decimation::GAP) {
            drawLine();
            continue;
        }
        const QPointF point(x.pixel(m_model->x(i)), y.pixel(m_model->y(i)));
        if (!std::isfinite(point.x()) || !std::isfinite(point.y())) {
            drawLine();
            continue;
        }
        if (m_style.hasSteps && !line.isEmpty())
            line << QPointF(point.x(), line.last().y());
        line << point;
        if (m_style.hasPoints)
            marks.push_back(point);
    }
    drawLine();
    if (static_cast<double>(marks.size()) * MARK_DISTANCE > canvas.width())
        return;
    painter->setPen(QPen(chartPlot().theme().ground, 1));
    painter->setBrush(color());
    for (const QPointF & mark : marks)
        painter->drawEllipse(mark, MARK_RADIUS, MARK_RADIUS);
}

QwtGraphic LineItem::legendIcon(int, const QSizeF & size) const {
    QwtGraphic icon;
    icon.setDefaultSize(size);
    QPainter painter(&icon);
    QPen pen = this->pen();
    pen.setWidthF(std::max(2.0, pen.widthF()));
    painter.setPen(pen);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawLine(QPointF(0, size.height() / 2), QPointF(size.width(), size.height() / 2));
    return icon;
}

} // namespace SCI
