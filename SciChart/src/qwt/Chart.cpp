#include <SCI/Chart.h>

#include "../Table.h"
#include "GridItem.h"
#include "Items.h"
#include "Marks.h"
#include "Navigator.h"
#include "Plot.h"
#include "VectorItem.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_renderer.h>
#include <qwt_scale_draw.h>

#include <map>

namespace SCI {

namespace {
constexpr double MARGIN = 8; ///< of pictures [px]
} // namespace

struct Chart::Private {
    Plot * plot = nullptr;
    Navigator * navigator = nullptr;
    std::map<id_t, std::unique_ptr<QwtPlotItem>> items;
    id_t nextId = 0;
    int nextSeries = 0;
    std::optional<bool> isDark;
    std::optional<std::pair<QString, double>> constantColumn;

    id_t add(std::unique_ptr<QwtPlotItem> item) {
        item->attach(plot);
        const id_t id = nextId++;
        items.emplace(id, std::move(item));
        plot->refresh();
        return id;
    }
    SeriesItem * series(id_t id) const {
        const auto found = items.find(id);
        return found == items.end() ? nullptr : dynamic_cast<SeriesItem *>(found->second.get());
    }
    Theme theme(const QPalette & palette) const { return isDark ? Theme::of(*isDark) : Theme::of(palette); }
};

Chart::Chart(QWidget * parent) : QWidget(parent), m(new Private) {
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m->plot = new Plot(this);
    layout->addWidget(m->plot);
    m->plot->m_onRefresh = [this] { emit refreshed(); };
    m->navigator = new Navigator(*m->plot);
    m->navigator->m_onAxis = [this](axis_t axis) { editAxes(axis); };
    m->navigator->m_onCursor = [this](const QPointF & place) { emit cursorMoved(place.x(), place.y()); };
    setFocusPolicy(Qt::StrongFocus);
    resize(sizeHint());
    m->plot->setTheme(m->theme(palette()));
    auto * legend = new QwtLegend;
    legend->setDefaultItemMode(QwtLegendData::Clickable);
    legend->setObjectName(QStringLiteral("legend"));
    m->plot->insertLegend(legend, QwtPlot::BottomLegend);
    connect(legend, &QwtLegend::clicked, this, [this](const QVariant & info) {
        const QwtPlotItem * clicked = m->plot->infoToItem(info);
        for (const auto & [id, item] : m->items)
            if (item.get() == clicked)
                setSeriesVisible(id, !item->isVisible());
    });
}

Chart::~Chart() {
    for (const auto & [id, item] : m->items)
        item->detach();
}

void Chart::setTitle(const QString & title) {
    m->plot->setTitle(QwtText(title, QwtText::PlainText));
    m->plot->setFonts(font());
    setAccessibleName(title);
}

QString Chart::title() const {
    return m->plot->title().text();
}

void Chart::setPlaceholder(const QString & text) {
    if (text == m->plot->placeholder())
        return;
    m->plot->setPlaceholder(text);
    m->plot->refresh();
}

QString Chart::placeholder() const {
    return m->plot->hasData() ? QString() : m->plot->placeholder();
}

void Chart::setConstantColumn(const QString & title, double value) {
    m->constantColumn.reset();
    if (!title.isEmpty())
        m->constantColumn.emplace(title, value);
}

const std::optional<std::pair<QString, double>> & Chart::constantColumn() const {
    return m->constantColumn;
}

void Chart::align(Chart & upper, Chart & lower, const QSize & upperSize, const QSize & lowerSize) {
    Plot & first = *upper.m->plot;
    Plot & second = *lower.m->plot;
    first.setIndent(0, 0);
    second.setIndent(0, 0);
    for (int pass = 0; pass < 2; ++pass) { // whole pixels: the second pass takes what the first left
        const auto [firstLeft, firstRight] = first.sides(upperSize);
        const auto [secondLeft, secondRight] = second.sides(lowerSize);
        const double left = std::max(firstLeft, secondLeft), right = std::max(firstRight, secondRight);
        first.setIndent(first.indentLeft() + left - firstLeft, first.indentRight() + right - firstRight);
        second.setIndent(second.indentLeft() + left - secondLeft, second.indentRight() + right - secondRight);
    }
    for (Chart * chart : {&upper, &lower}) {
        chart->m->plot->fit(chart->size());
        chart->m->plot->replot();
    }
}

void Chart::setAxis(axis_t axis, const Axis & settings) {
    m->plot->setAxis(axis, settings);
    m->plot->refresh();
}

const Axis & Chart::axis(axis_t axis) const {
    return m->plot->state(axis).axis;
}

void Chart::setRange(axis_t axis, Range range) {
    m->plot->setWanted(axis, range);
    m->plot->refresh();
}

void Chart::setAutoRange(axis_t axis) {
    m->plot->setWanted(axis, std::nullopt);
    m->plot->refresh();
}

bool Chart::isAutoRange(axis_t axis) const {
    return !m->plot->state(axis).wanted;
}

bool Chart::isUsed(axis_t axis) const {
    return m->plot->isUsed(axis);
}

void Chart::showPrevious() {
    m->navigator->back();
}

bool Chart::hasPrevious() const {
    return m->navigator->canGoBack();
}

void Chart::setEqualScales(bool areEqual) {
    m->plot->setEqual(areEqual);
    m->plot->refresh();
}

bool Chart::hasEqualScales() const {
    return m->plot->isEqual();
}

bool Chart::canHaveEqualScales() const {
    return m->plot->canBeEqual();
}

QStringList Chart::valuesAt(double x, double y) const {
    return valuesAtPixel(*m->plot,
                         {m->plot->canvasMap(X_BOTTOM).transform(x), m->plot->canvasMap(Y_LEFT).transform(y)});
}

Range Chart::range(axis_t axis) const {
    return m->plot->state(axis).range;
}

void Chart::showAll() {
    m->navigator->showAll();
}

void Chart::resetView() {
    m->navigator->reset();
}

QStringList Chart::tickLabels(axis_t axis) const {
    const QwtAbstractScaleDraw & draw = *m->plot->axisScaleDraw(axis);
    QStringList labels;
    for (const double tick : draw.scaleDiv().ticks(QwtScaleDiv::MajorTick))
        labels << draw.label(tick).text();
    return labels;
}

QString Chart::axisText(axis_t axis) const {
    return m->plot->axisTitle(axis).text();
}

Chart::id_t Chart::addLine(std::shared_ptr<const PointModel> model, const LineStyle & style) {
    return m->add(std::make_unique<LineItem>(std::move(model), style, m->nextSeries++));
}

Chart::id_t Chart::addBars(std::shared_ptr<const PointModel> model, const BarStyle & style) {
    return m->add(std::make_unique<BarItem>(std::move(model), style, m->nextSeries++));
}

Chart::id_t Chart::addGrid(std::shared_ptr<const GridModel> model, const GridStyle & style) {
    return m->add(std::make_unique<GridItem>(std::move(model), style, m->nextSeries++));
}

Chart::id_t Chart::addVectors(std::shared_ptr<const VectorModel> model, const VectorStyle & style) {
    return m->add(std::make_unique<VectorItem>(std::move(model), style, m->nextSeries++));
}

Chart::id_t Chart::addThreshold(axis_t axis, double value, const QString & text) {
    return m->add(std::make_unique<Mark>(axis, value, value, text));
}

Chart::id_t Chart::addBand(axis_t axis, double from, double to, const QString & text, bool isFilled) {
    return m->add(std::make_unique<Mark>(axis, from, to, text, isFilled));
}

void Chart::remove(id_t id) {
    for (auto it = m->items.begin(); it != m->items.end();) {
        if (id == ALL || it->first == id) {
            it->second->detach();
            it = m->items.erase(it);
        } else {
            ++it;
        }
    }
    if (m->items.empty())
        m->nextSeries = 0;
    m->plot->refresh();
}

void Chart::dataChanged(id_t id) {
    for (const auto & [itemId, item] : m->items)
        if (auto * series = dynamic_cast<SeriesItem *>(item.get()))
            if (id == ALL || id == itemId)
                series->forgetBounds();
    m->plot->refresh();
}

void Chart::setSeriesVisible(id_t id, bool isVisible) {
    SeriesItem * series = m->series(id);
    if (series == nullptr || series->isVisible() == isVisible)
        return;
    series->setVisible(isVisible);
    series->legendChanged();
    m->plot->refresh();
    emit seriesVisibilityChanged(id, isVisible);
}

bool Chart::isSeriesVisible(id_t id) const {
    const SeriesItem * series = m->series(id);
    return series != nullptr && series->isVisible();
}

void Chart::setDark(bool isDark) {
    m->isDark = isDark;
    m->plot->setTheme(m->theme(palette()));
    m->plot->refresh();
}

void Chart::followPalette() {
    m->isDark.reset();
    m->plot->setTheme(m->theme(palette()));
    m->plot->refresh();
}

void Chart::render(QPainter & painter, const QRectF & rectangle) const {
    QwtPlotRenderer renderer;
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardBackground);
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardCanvasBackground);
    painter.setRenderHint(QPainter::LosslessImageRendering); // no blurred colours in documents
    painter.fillRect(rectangle, m->plot->theme().ground);
    const double scale = painter.device()->logicalDpiX() / double(m->plot->logicalDpiX());
    m->plot->fit(rectangle.size() / scale);
    const double margin = MARGIN * scale;
    renderer.render(m->plot, &painter,
                    rectangle.adjusted(margin + m->plot->indentLeft() * scale, margin,
                                       -margin - m->plot->indentRight() * scale, -margin));
    m->plot->fit(size());
}

void Chart::renderLight(QPainter & painter, const QRectF & rectangle) const {
    const Theme theme = m->plot->theme();
    m->plot->setTheme(Theme::of(false));
    render(painter, rectangle);
    m->plot->setTheme(theme);
}

QImage Chart::image(const QSize & size, double scale) const {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    const int dots = qRound(m->plot->logicalDpiX() * scale / 0.0254);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    image.fill(m->plot->theme().ground);
    QPainter painter(&image);
    render(painter, QRectF(QPointF(0, 0), QSizeF(image.size())));
    return image;
}

std::vector<Table> Chart::tables() const {
    std::vector<Table> tables;
    for (const auto & [id, item] : m->items) {
        const auto * series = dynamic_cast<const SeriesItem *>(item.get());
        if (series == nullptr || !series->isVisible())
            continue;
        const auto header = [this](axis_t axis) { return m->plot->header(axis); };
        Table table;
        table.title = series->title().text();
        table.column = series->column();
        table.points = series->points();
        table.xUnit = m->plot->state(series->xId()).unit;
        table.yUnit = m->plot->state(series->yId()).unit;
        table.xHeader = header(series->xId());
        table.yHeader = header(series->yId());
        table.unit = m->plot->unitText(series->yId());
        if (const auto * grid = dynamic_cast<const GridItem *>(series)) {
            table.grid = &grid->grid();
            table.valueUnit = m->plot->state(grid->colorAxis()).unit;
            table.valueHeader = header(grid->colorAxis());
            table.unit = m->plot->unitText(grid->colorAxis());
        } else if (const auto * vectors = dynamic_cast<const VectorItem *>(series)) {
            table.vectors = &vectors->vectors();
            table.valueHeader = table.unit = UnitScale::withUnit(QString(), vectors->unit());
        }
        tables.push_back(table);
    }
    return tables;
}

QWidget & Chart::canvas() const {
    return *m->plot->canvas();
}

QPointF Chart::toCanvas(QPointF values, axis_t xAxis, axis_t yAxis) const {
    const QwtScaleMap x = m->plot->canvasMap(xAxis);
    const QwtScaleMap y = m->plot->canvasMap(yAxis);
    return {
        PixelScale{m->plot->state(xAxis).unit, x}
        .pixel(values.x()),
        PixelScale{m->plot->state(yAxis).unit, y}
        .pixel(values.y())
    };
}

QPointF Chart::fromCanvas(QPointF place, axis_t xAxis, axis_t yAxis) const {
    const QwtScaleMap x = m->plot->canvasMap(xAxis);
    const QwtScaleMap y = m->plot->canvasMap(yAxis);
    return {
        PixelScale{m->plot->state(xAxis).unit, x}
        .value(place.x()),
        PixelScale{m->plot->state(yAxis).unit, y}
        .value(place.y())
    };
}

QSize Chart::sizeHint() const {
    return {640, 400};
}

void Chart::resizeEvent(QResizeEvent * event) {
    QWidget::resizeEvent(event);
    m->plot->fit(size());
    m->plot->refresh();
}

void Chart::keyPressEvent(QKeyEvent * event) {
    if (m->navigator->handleKey(*event))
        return;
    // The menu's keys hold while the chart has the focus.
    QMenu menu;
    fillMenu(menu);
    const QKeySequence pressed(static_cast<int>(event->key() | static_cast<int>(event->modifiers())));
    for (QAction * action : menu.actions())
        if (action->isEnabled() && !action->shortcut().isEmpty() && action->shortcut() == pressed)
            return action->trigger();
    QWidget::keyPressEvent(event);
}

void Chart::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        if (!m->isDark)
            m->plot->setTheme(m->theme(palette()));
        break;
    case QEvent::FontChange:
        m->plot->setFonts(font());
        break;
    case QEvent::LocaleChange:
    case QEvent::LanguageChange:
        break;
    default:
        return;
    }
    m->plot->refresh();
}

} // namespace SCI
