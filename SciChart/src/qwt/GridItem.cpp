#include "GridItem.h"

#include "Isolines.h"

#include <QPainter>

#include <qwt_color_map.h>
#include <qwt_graphic.h>
#include <qwt_interval.h>
#include <qwt_legend_data.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <cmath>
#include <cstring>

namespace SCI {

namespace {

constexpr int MAX_PIXELS = 20000;    ///< in one direction of a picture
constexpr double HATCH_DISTANCE = 8; ///< along an axis [px]
constexpr int HATCHED = 1;           ///< entry of the legend

/// Our colours for the bar beside the axis, by the axis's own scale.
class BarColors : public QwtColorMap {
public:
    BarColors(ColorMap::map_t map, const QwtScaleMap & scale) : m_map(map), m_scale(scale) {}
    QRgb rgb(const QwtInterval &, double value) const override { return m_map.rgb(m_scale.transform(value)); }
    unsigned char colorIndex(const QwtInterval &, double value) const override {
        return static_cast<unsigned char>(std::clamp(m_scale.transform(value), 0.0, 1.0) * 255);
    }

private:
    ColorMap m_map;
    QwtScaleMap m_scale;
};

} // namespace

std::pair<double, double> GridModel::valueRange(double lowest) const {
    std::pair<double, double> range(std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity());
    for (std::size_t j = 0; j < rows(); ++j)
        for (std::size_t i = 0; i < columns(); ++i)
            if (const double v = value(i, j); v > lowest && std::isfinite(v)) {
                range.first = std::min(range.first, v);
                range.second = std::max(range.second, v);
            }
    return range;
}

GridItem::GridItem(std::shared_ptr<const GridModel> model, const GridStyle & style, int number)
    : SeriesItem(style, number), m_model(std::move(model)), m_style(style) {
    setRenderHint(QwtPlotItem::RenderAntialiased, false);
    setLegendIconSize(QSize(26, 12));
    setItemAttribute(QwtPlotItem::Legend, true); // of cells without a value, whether it has a title or not
    setZ(12);                                    // the colours hide the lines of the ticks
}

void GridItem::forgetBounds() {
    SeriesItem::forgetBounds();
    m_values.reset();
    const std::optional<bool> before = std::exchange(m_hasHatching, std::nullopt);
    if (before && *before != hasHatching())
        legendChanged();
}

bool GridItem::hasHatching() const {
    if (!m_hasHatching) {
        m_hasHatching = false;
        for (std::size_t j = 0; j < m_model->rows() && !*m_hasHatching; ++j)
            for (std::size_t i = 0; i < m_model->columns() && !*m_hasHatching; ++i)
                m_hasHatching = m_model->isWithoutValue(i, j);
    }
    return *m_hasHatching;
}

Bounds GridItem::allBounds() const {
    Bounds bounds;
    if (m_model->columns() > 0 && m_model->rows() > 0) {
        bounds.include(m_model->xEdge(0), m_model->yEdge(0));
        bounds.include(m_model->xEdge(m_model->columns()), m_model->yEdge(m_model->rows()));
    }
    return bounds;
}

void GridItem::eachPoint(const Visit & visit) const {
    for (std::size_t i = 0; i <= m_model->columns(); ++i)
        visit(m_model->xEdge(i), m_model->yEdge(m_model->rows()));
    for (std::size_t j = 0; j <= m_model->rows(); ++j)
        visit(m_model->xEdge(m_model->columns()), m_model->yEdge(j));
}

std::pair<double, double> GridItem::covered(axis_t id) const {
    if (id != m_style.colorAxis)
        return SeriesItem::covered(id);
    if (!m_values)
        m_values = m_model->valueRange(chartPlot().lowestOn(id));
    return *m_values;
}

/// From the shown unit to the share of the range.
QwtScaleMap GridItem::colorMap() const {
    const AxisState & state = chartPlot().state(m_style.colorAxis);
    QwtScaleMap map;
    map.setTransformation(chartPlot().axisScaleEngine(m_style.colorAxis)->transformation());
    map.setScaleInterval(state.range.from, state.range.to);
    map.setPaintInterval(0, 1);
    return map;
}

void GridItem::showColorBar(Plot & plot) const {
    QwtScaleWidget * bar = plot.axisWidget(m_style.colorAxis);
    const Range & range = plot.state(m_style.colorAxis).range;
    bar->setColorBarEnabled(true);
    bar->setColorBarWidth(14);
    bar->setColorMap(QwtInterval(range.from, range.to), new BarColors(m_style.map, colorMap()));
}

std::optional<std::pair<std::size_t, std::size_t>> GridItem::cellAt(double x, double y) const {
    const auto cell = [](double v, std::size_t n, const auto & edge) {
        std::size_t first = 0;
        std::size_t last = n;
        if (n == 0 || !(v >= edge(0) && v <= edge(n)))
            return n;
        while (last - first > 1) {
            const std::size_t middle = (first + last) / 2;
            (edge(middle) <= v ? first : last) = middle;
        }
        return first;
    };
    const std::size_t i = cell(x, m_model->columns(), [this](std::size_t k) { return m_model->xEdge(k); });
    const std::size_t j = cell(y, m_model->rows(), [this](std::size_t k) { return m_model->yEdge(k); });
    if (i >= m_model->columns() || j >= m_model->rows())
        return std::nullopt;
    return std::pair(i, j);
}

template <typename Edge>
GridItem::Sampling GridItem::sampling(const PixelScale & scale, const Edge & edge, std::size_t cells, double from,
                                      double to, double resolution) const {
    Sampling result;
    const double a = scale.pixel(edge(0));
    const double b = scale.pixel(edge(cells));
    // An end that cannot be placed (0 on a logarithmic axis) lies beyond the canvas.
    const auto [low, high] = std::minmax({std::isfinite(a) ? a : from, std::isfinite(b) ? b : to});
    const double begin = std::max(low, from);
    const double end = std::min(high, to);
    result.first = static_cast<int>(std::floor(begin * resolution));
    const int count = std::min(static_cast<int>(std::ceil(end * resolution)) - result.first, MAX_PIXELS);
    if (!(end > begin) || count <= 0)
        return result;
    result.cell.resize(static_cast<std::size_t>(count));
    if (m_style.isSmooth) {
        result.share.resize(static_cast<std::size_t>(count));
        result.isNext.resize(static_cast<std::size_t>(count));
    }
    const auto centre = [&edge](std::size_t i) { return (edge(i) + edge(i + 1)) / 2; };
    // Pixels are walked along rising values.
    const bool isRising = b >= a;
    std::size_t cell = 0;
    for (int k = 0; k < count; ++k) {
        const int pixel = isRising ? k : count - 1 - k;
        const double value = scale.value((result.first + pixel + 0.5) / resolution);
        while (cell + 1 < cells && edge(cell + 1) <= value)
            ++cell;
        const auto at = static_cast<std::size_t>(pixel);
        result.cell[at] = cell;
        if (!m_style.isSmooth)
            continue;
        const std::size_t lower = cell > 0 && value < centre(cell) ? cell - 1 : cell;
        result.cell[at] = lower;
        result.isNext[at] = lower < cell;
        result.share[at] =
            lower + 1 < cells ? std::clamp((value - centre(lower)) / (centre(lower + 1) - centre(lower)), 0.0, 1.0) : 0;
    }
    return result;
}

double GridItem::sample(const Sampling & x, std::size_t i, const Sampling & y, std::size_t j) const {
    if (!m_style.isSmooth)
        return m_model->value(x.cell[i], y.cell[j]);
    // Of four cells; those without a value leave the others their weight, but a hole keeps its shape.
    const double right = x.share[i];
    const double up = y.share[j];
    double sum = 0;
    double weight = 0;
    for (int k = 0; k < 4; ++k) {
        const bool isRight = (k & 1) != 0;
        const bool isUp = (k & 2) != 0;
        const double w = (isRight ? right : 1 - right) * (isUp ? up : 1 - up);
        const bool isOwn = isRight == x.isNext[i] && isUp == y.isNext[j];
        if (w == 0 && !isOwn)
            continue;
        const double v = m_model->value(x.cell[i] + (isRight ? 1 : 0), y.cell[j] + (isUp ? 1 : 0));
        if (!std::isnan(v)) {
            sum += w * v;
            weight += w;
        } else if (isOwn) {
            return v;
        }
    }
    return sum / weight;
}

QImage GridItem::picture(const Sampling & x, const Sampling & y) const {
    const auto width = static_cast<int>(x.cell.size());
    const auto height = static_cast<int>(y.cell.size());
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    const ColorMap colors(m_style.map);
    const UnitScale & unit = chartPlot().state(m_style.colorAxis).unit;
    const QwtScaleMap map = colorMap();
    const double lowest = chartPlot().lowestOn(m_style.colorAxis);
    const bool isLinear = unit.isLinear() && map.transformation() == nullptr;
    const double factor = (map.transform(1) - map.transform(0)) * unit.factor();
    const double offset = isLinear ? map.transform(unit.shown(0)) : 0;
    for (int j = 0; j < height; ++j) {
        auto * line = reinterpret_cast<QRgb *>(image.scanLine(j));
        const auto row = static_cast<std::size_t>(j);
        if (!m_style.isSmooth && j > 0 && y.cell[row] == y.cell[row - 1]) {
            std::memcpy(line, image.constScanLine(j - 1), sizeof(QRgb) * x.cell.size());
            continue;
        }
        for (std::size_t i = 0; i < x.cell.size(); ++i) {
            if (!m_style.isSmooth && i > 0 && x.cell[i] == x.cell[i - 1]) {
                line[i] = line[i - 1];
                continue;
            }
            const double value = sample(x, i, y, row);
            const QRgb color = isLinear         ? colors.rgb(value * factor + offset)
                               : value > lowest ? colors.rgb(map.transform(unit.shown(value)))
                                                : 0;
            line[i] = color == 0 ? 0 : color | 0xFF000000;
        }
    }
    return image;
}

void GridItem::draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
                    const QRectF & canvas) const {
    m_labels.clear();
    if (m_model->columns() == 0 || m_model->rows() == 0)
        return;
    const PixelScale x{chartPlot().state(xId()).unit, xMap};
    const PixelScale y{chartPlot().state(yId()).unit, yMap};
    const double resolution = std::max(1.0, std::round(painter->transform().m11()));
    const Sampling across = sampling(
        x, [this](std::size_t i) { return m_model->xEdge(i); }, m_model->columns(), canvas.left(), canvas.right() + 1,
        resolution);
    const Sampling down = sampling(
        y, [this](std::size_t j) { return m_model->yEdge(j); }, m_model->rows(), canvas.top(), canvas.bottom() + 1,
        resolution);
    if (across.cell.empty() || down.cell.empty())
        return;
    const QImage image = picture(across, down);
    painter->drawImage(QRectF(across.first / resolution, down.first / resolution, image.width() / resolution,
                              image.height() / resolution),
                       image);
    if (hasHatching())
        drawHatching(*painter, x, y, canvas, resolution);
    if (m_style.hasIsolines)
        drawIsolines(*painter, x, y, canvas);
}

namespace {

/// Grey with lines to the upper right, which go on from one rectangle to the next. Line by line, since not every format
/// of pictures has patterns.
void hatch(QPainter & painter, const QRectF & box, const Theme & theme) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(box, theme.hatching);
    std::vector<QLineF> lines;
    const double first = std::ceil((box.left() + box.top()) / HATCH_DISTANCE) * HATCH_DISTANCE;
    for (double sum = first; sum < box.right() + box.bottom(); sum += HATCH_DISTANCE) { // where x + y is the same
        const double left = std::max(box.left(), sum - box.bottom()), right = std::min(box.right(), sum - box.top());
        lines.emplace_back(left, sum - left, right, sum - right);
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(theme.mutedText, 1));
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
}

} // namespace

void GridItem::drawHatching(QPainter & painter, const PixelScale & x, const PixelScale & y, const QRectF & canvas,
                            double resolution) const {
    // Cells on the canvas that are seen, with the pixels of their edges.
    struct Span {
        std::size_t cell;
        double from, to;
    };
    const auto spans = [resolution](std::size_t cells, const auto & pixelOf, double low, double high) {
        std::vector<Span> all;
        for (std::size_t i = 0; i < cells; ++i) {
            const double a = std::round(std::clamp(pixelOf(i), low, high) * resolution) / resolution;
            const double b = std::round(std::clamp(pixelOf(i + 1), low, high) * resolution) / resolution;
            if (a != b)
                all.push_back({i, std::min(a, b), std::max(a, b)});
        }
        return all;
    };
    const auto across = spans(
        m_model->columns(), [&](std::size_t i) { return x.pixel(m_model->xEdge(i)); }, canvas.left(),
        canvas.right() + 1);
    const auto down = spans(
        m_model->rows(), [&](std::size_t j) { return y.pixel(m_model->yEdge(j)); }, canvas.top(), canvas.bottom() + 1);
    painter.save();
    for (const Span & row : down)
        for (std::size_t i = 0; i < across.size();) {
            if (!m_model->isWithoutValue(across[i].cell, row.cell)) {
                ++i;
                continue;
            }
            const std::size_t first = i;
            while (i < across.size() && m_model->isWithoutValue(across[i].cell, row.cell))
                ++i;
            const double left = std::min(across[first].from, across[i - 1].from);
            const double right = std::max(across[first].to, across[i - 1].to);
            hatch(painter, QRectF(left, row.from, right - left, row.to - row.from), chartPlot().theme());
        }
    painter.restore();
}

std::vector<double> GridItem::levels() const {
    std::vector<double> levels = m_style.isolines;
    if (levels.empty()) {
        const UnitScale & unit = chartPlot().state(m_style.colorAxis).unit;
        for (const double tick : chartPlot().axisScaleDraw(m_style.colorAxis)->scaleDiv().ticks(QwtScaleDiv::MajorTick))
            levels.push_back(unit.data(tick));
    }
    std::sort(levels.begin(), levels.end());
    return levels;
}

void GridItem::drawIsolines(QPainter & painter, const PixelScale & x, const PixelScale & y,
                            const QRectF & canvas) const {
    const auto place = [&](double xi, double yi) { return QPointF(x.pixel(xi), y.pixel(yi)); };
    const auto visible = [](const PixelScale & scale, double from, double to) {
        return std::minmax({scale.value(from), scale.value(to)});
    };
    const auto [left, right] = visible(x, canvas.left(), canvas.right());
    const auto [bottom, top] = visible(y, canvas.bottom(), canvas.top());
    const Isolines isolines(*m_model, {left, right}, {bottom, top}, canvas.size().toSize());
    painter.setRenderHint(QPainter::Antialiasing, true);
    const std::vector<double> all = levels();
    std::vector<std::vector<QLineF>> perLevel(all.size());
    isolines.eachLine(all, [&](std::size_t level, double x1, double y1, double x2, double y2) {
        perLevel[level].emplace_back(place(x1, y1), place(x2, y2));
    });
    for (std::size_t i = 0; i < all.size(); ++i) {
        const std::vector<QLineF> & lines = perLevel[i];
        if (lines.empty())
            continue;
        // A light line under a dark one is seen on every colour.
        painter.setPen(QPen(QColor(255, 255, 255, 130), 2.2));
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
        painter.setPen(QPen(QColor(0, 0, 0, 210), 1));
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
        placeLabel(m_labels, lines,
                   chartPlot().valueText(m_style.colorAxis, chartPlot().state(m_style.colorAxis).unit.shown(all[i])),
                   canvas);
    }
}

QList<QwtLegendData> GridItem::legendData() const {
    QList<QwtLegendData> all;
    if (!title().text().isEmpty())
        all = SeriesItem::legendData();
    if (plot() != nullptr && hasHatching()) {
        QwtText text(Plot::tr("no value"), QwtText::PlainText);
        text.setFont(chartPlot().font());
        text.setColor(chartPlot().theme().text);
        QwtLegendData hatched;
        hatched.setValue(QwtLegendData::TitleRole, QVariant::fromValue(text));
        hatched.setValue(QwtLegendData::ModeRole, QwtLegendData::ReadOnly);
        hatched.setValue(QwtLegendData::IconRole, QVariant::fromValue(legendIcon(HATCHED, legendIconSize())));
        all << hatched;
    }
    return all;
}

QwtGraphic GridItem::legendIcon(int index, const QSizeF & size) const {
    if (index == HATCHED) {
        QwtGraphic icon;
        icon.setDefaultSize(size);
        QPainter painter(&icon);
        hatch(painter, QRectF(QPointF(0, 0), size), chartPlot().theme());
        return icon;
    }
    QLinearGradient gradient(0, 0, size.width(), 0);
    const ColorMap colors(m_style.map);
    for (int i = 0; i <= 8; ++i)
        gradient.setColorAt(i / 8.0, QColor(colors.rgb(i / 8.0)));
    return colorIcon(gradient, size);
}

} // namespace SCI
