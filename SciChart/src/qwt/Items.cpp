#include "Items.h"

#include <SCI/Decimation.h>

#include <QPaintEngine>
#include <QPainter>

#include <qwt_clipper.h>
#include <qwt_graphic.h>
#include <qwt_legend_data.h>
#include <qwt_text.h>

#include <cmath>

namespace SCI {

namespace {

/// Above so many points in a picture lines are thin and their edges are no longer smoothed, which nobody would see.
constexpr std::size_t MAX_SMOOTH = 3000;
/// Points of a line that are drawn at once.
constexpr int PIECE = 24;
/// Points are marked only while so many pixels are between them.
constexpr double MARK_DISTANCE = 8;
constexpr double MARK_RADIUS = 3;

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
    : QwtPlotItem(QwtText(style.title, QwtText::PlainText)), m_number(number), m_column(style.column),
      m_color(style.color) {
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
        Bounds bounds = allBounds();
        const double xLowest = chartPlot().lowestOn(xId());
        const double yLowest = chartPlot().lowestOn(yId());
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

std::pair<double, double> SeriesItem::covered(axis_t id) const {
    const Bounds & all = bounds();
    if (all.isEmpty() || !uses(id))
        return {1, 0};
    return id == xId() ? std::pair(all.xMin, all.xMax) : std::pair(all.yMin, all.yMax);
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
    const double lowest = chartPlot().lowestOn(yId());
    if (!m_model->isSorted()) {
        return Decimation::unsorted(*m_model, lowest,
                                    [&](double value) { return std::floor(x.pixel(value) * resolution); });
    }
    // A point beyond each edge, so that lines leave the picture.
    const auto [left, right] = std::minmax({x.value(canvas.left()), x.value(canvas.right())});
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
    const bool isDense = points.size() >= MAX_SMOOTH;
    QPen linePen = pen();
    if (isDense)
        linePen.setWidthF(std::min(1.0, linePen.widthF()));
    painter->setPen(linePen);
    painter->setRenderHint(QPainter::Antialiasing, !isDense);
    const QRectF clip = canvas.adjusted(-100, -100, 100, 100);
    QPolygonF line;
    std::vector<QPointF> lonely; // between two gaps
    // Filling the outline of a line that goes to and fro takes time with the square of its points.
    const bool isInPieces = !isDense && linePen.style() == Qt::SolidLine && painter->paintEngine() != nullptr &&
                            painter->paintEngine()->type() == QPaintEngine::Raster;
    const auto drawLine = [&] {
        if (line.size() == 1) {
            lonely.push_back(line.first());
        } else if (line.size() > 1) {
            const QPolygonF clipped = QwtClipper::clipPolygonF(clip, line, false);
            const int piece = isInPieces ? PIECE : std::max(PIECE, clipped.size());
            // A piece begins with the last stretch of the one before, so that no joint is missing.
            for (int first = 0; first + 1 < clipped.size(); first += piece - 2)
                painter->drawPolyline(clipped.constData() + first, std::min(piece, clipped.size() - first));
        }
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
    painter->setPen(Qt::NoPen);
    painter->setBrush(color());
    for (const QPointF & point : lonely)
        painter->drawEllipse(point, linePen.widthF(), linePen.widthF());
    // Points without a line are all there is to see.
    if (m_style.pen != Qt::NoPen && static_cast<double>(marks.size()) * MARK_DISTANCE > canvas.width())
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
    if (m_style.hasPoints) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color());
        painter.drawEllipse(QPointF(size.width() / 2, size.height() / 2), MARK_RADIUS, MARK_RADIUS);
    }
    return icon;
}

QwtGraphic colorIcon(const QBrush & brush, const QSizeF & size) {
    QwtGraphic icon;
    icon.setDefaultSize(size);
    QPainter painter(&icon);
    painter.fillRect(QRectF(QPointF(0, 0), size), brush);
    return icon;
}

BarItem::BarItem(std::shared_ptr<const PointModel> model, const BarStyle & style, int number)
    : SeriesItem(style, number), m_model(std::move(model)), m_style(style) {
    m_style.groupCount = std::max(m_style.groupCount, 1);
    setRenderHint(QwtPlotItem::RenderAntialiased, false);
    setLegendIconSize(QSize(14, 12));
    setZ(15);
}

void BarItem::forgetBounds() {
    SeriesItem::forgetBounds();
    m_width.reset();
}

double BarItem::width() const {
    if (m_style.width > 0)
        return m_style.width;
    if (!m_width) {
        double smallest = std::numeric_limits<double>::infinity();
        const std::size_t n = m_model->count();
        for (std::size_t i = 1; i < n; ++i)
            if (const double distance = std::abs(m_model->x(i) - m_model->x(i - 1)); distance > 0)
                smallest = std::min(smallest, distance);
        m_width = std::isfinite(smallest) ? smallest : 1;
    }
    return *m_width;
}

void BarItem::eachPoint(const Visit & visit) const {
    const std::size_t n = m_model->count();
    const double half = width() / 2;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = m_model->x(i);
        visit(x - half, m_model->y(i));
        visit(x + half, m_model->y(i));
    }
}

Bounds BarItem::allBounds() const {
    Bounds bounds = m_model->bounds();
    if (bounds.isEmpty())
        return bounds;
    bounds.xMin -= width() / 2;
    bounds.xMax += width() / 2;
    bounds.include(bounds.xMin, m_style.baseline);
    return bounds;
}

void BarItem::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
                   const QRectF & canvas) const {
    const PixelScale x{chartPlot().state(xId()).unit, xMap};
    const PixelScale y{chartPlot().state(yId()).unit, yMap};
    const double lowest = chartPlot().lowestOn(yId());
    const double place = width() * m_style.share / m_style.groupCount;
    const double start = -width() * m_style.share / 2 + place * m_style.group;
    const double base = m_style.baseline > lowest ? y.pixel(m_style.baseline) : canvas.bottom();
    const bool isSorted = m_model->isSorted();
    const auto [from, to] = std::minmax({x.value(canvas.left()), x.value(canvas.right())});
    const std::size_t count = m_model->count();
    painter->setPen(Qt::NoPen);
    painter->setBrush(color());
    // Bars in one column of pixels become one from the lowest to the highest of them.
    QRectF column;
    const auto drawColumn = [&] {
        if (!column.isNull())
            painter->drawRect(column & canvas.adjusted(-1, -1, 1, 1));
        column = QRectF();
    };
    for (std::size_t i = isSorted ? lowerIndex(*m_model, from - width()) : 0; i < count; ++i) {
        const double xi = m_model->x(i);
        if (isSorted && xi > to + width())
            break;
        const double yi = m_model->y(i);
        if (!std::isfinite(yi) || !std::isfinite(xi) || !(yi > lowest))
            continue;
        const double left = std::round(x.pixel(xi + start));
        const double right = std::max(std::round(x.pixel(xi + start + place)), left + 1);
        const QRectF bar = QRectF(QPointF(left, base), QPointF(right, y.pixel(yi))).normalized();
        if (right - left > 1 || left != column.left())
            drawColumn();
        column |= bar;
    }
    drawColumn();
}

QwtGraphic BarItem::legendIcon(int, const QSizeF & size) const {
    return colorIcon(color(), size);
}

} // namespace SCI
