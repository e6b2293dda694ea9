#include "Isolines.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace SCI {

namespace {

constexpr double LABEL_DISTANCE = 60; ///< between texts [px]
constexpr double EDGE_DISTANCE = 24;  ///< from the canvas's edges [px]

/// Centres of the cells that are seen and their indices, not many more than there are pixels.
template <typename Edge>
std::vector<std::size_t> visibleCells(const Edge & edge, std::size_t count, Range range, int pixels,
                                      std::vector<double> & centres) {
    std::size_t first = 0;
    std::size_t last = count;
    while (first + 1 < count && edge(first + 1) < range.from)
        ++first;
    while (last > first + 1 && edge(last - 1) > range.to)
        --last;
    first -= first > 0 ? 1 : 0;
    last += last < count ? 1 : 0;
    const std::size_t stride = std::max<std::size_t>(1, (last - first) / static_cast<std::size_t>(std::max(pixels, 1)));
    std::vector<std::size_t> cells;
    for (std::size_t i = first; i < last; i += stride)
        cells.push_back(i);
    if (!cells.empty() && cells.back() != last - 1)
        cells.push_back(last - 1);
    for (const std::size_t i : cells)
        centres.push_back((edge(i) + edge(i + 1)) / 2);
    // From the outer centres to the grid's edges values stay as they are.
    if (!cells.empty() && cells.front() == 0) {
        cells.insert(cells.begin(), 0);
        centres.insert(centres.begin(), edge(0));
    }
    if (!cells.empty() && cells.back() == count - 1) {
        cells.push_back(count - 1);
        centres.push_back(edge(count));
    }
    return cells;
}

} // namespace

Isolines::Isolines(const GridModel & model, Range x, Range y, const QSize & pixels) {
    const auto columns =
        visibleCells([&](std::size_t i) { return model.xEdge(i); }, model.columns(), x, pixels.width(), m_x);
    const auto rows =
        visibleCells([&](std::size_t j) { return model.yEdge(j); }, model.rows(), y, pixels.height(), m_y);
    m_values.reserve(columns.size() * rows.size());
    for (const std::size_t j : rows)
        for (const std::size_t i : columns)
            m_values.push_back(model.value(i, j));
}

void drawRimmedText(QPainter & painter, const QPointF & baseline, const QString & text, const QColor & color,
                    const QColor & rim) {
    QPainterPath path;
    path.addText(baseline, painter.font(), text);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(rim, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPath(path);
}

void placeLabel(std::vector<IsolineLabel> & labels, const std::vector<QLineF> & lines, const QString & text,
                const QRectF & canvas) {
    const QRectF inside = canvas.adjusted(EDGE_DISTANCE, EDGE_DISTANCE, -EDGE_DISTANCE, -EDGE_DISTANCE);
    const auto isFree = [&](const QPointF & point) {
        return inside.contains(point) && std::all_of(labels.begin(), labels.end(), [&](const IsolineLabel & other) {
                   return QLineF(point, other.centre).length() > LABEL_DISTANCE;
               });
    };
    // Near the canvas's middle, where the eye begins.
    const QLineF * best = nullptr;
    double distance = 0;
    for (const QLineF & line : lines)
        if (isFree(line.center())) {
            const double d = QLineF(line.center(), canvas.center()).length();
            if (best == nullptr || d < distance) {
                best = &line;
                distance = d;
            }
        }
    if (best != nullptr)
        labels.push_back({best->center(), text});
}

void drawLabels(QPainter & painter, const std::vector<IsolineLabel> & labels) {
    const QFontMetricsF metrics(painter.font());
    for (const IsolineLabel & label : labels)
        drawRimmedText(painter, label.centre - metrics.boundingRect(label.text).center(), label.text, Qt::black,
                       QColor(255, 255, 255, 220));
}

} // namespace SCI
