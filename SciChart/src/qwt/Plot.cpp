#include "Plot.h"

#include "../Calendar.h"
#include "../NumberText.h"
#include "GridItem.h"
#include "Items.h"
#include "Scales.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

#include <algorithm>
#include <cmath>

namespace SCI {

namespace {

constexpr double PIXELS_PER_DATE = 80;
constexpr double PIXELS_PER_NUMBER = 70;
constexpr double PIXELS_PER_ROW = 38;
/// Left and right, above and below the canvas, roughly [px].
constexpr int MARGIN = 8; ///< around the plot [px]
constexpr double SIDES = 120;
constexpr double ENDS = 100;
/// Above and below the title of a vertical axis, roughly [px].
constexpr double TITLE_ENDS = 70;
/// A range narrower than this part of its values cannot be told apart in doubles.
constexpr double NARROWEST = 1e-12;

/// Of the largest value on a logarithmic axis that chooses its own range; smaller ones say "nothing".
constexpr double SMALLEST_SHARE = 1e-16;
/// Longer ranges of dates tell no seconds [s].
constexpr double SECONDS_UNTIL = 6 * 3600;
/// Share of a range of dates that it may be widened by at each end.
constexpr double DATE_ROOM = 0.01;

bool isHorizontal(axis_t id) {
    return id == X_BOTTOM || id == X_TOP;
}

} // namespace

QFont pixelFont(const Plot & plot) {
    QFont font = plot.font();
    if (font.pixelSize() < 0)
        font.setPixelSize(std::max(1, qRound(font.pointSizeF() * plot.logicalDpiY() / 72)));
    return font;
}

Plot::Plot(QWidget * parent) : QwtPlot(parent), m_theme(Theme::of(palette())), m_grid(new QwtPlotGrid) {
    setAutoReplot(false);
    setAutoDelete(false);
    auto * ground = new QwtPlotCanvas(this);
    ground->setObjectName(QStringLiteral("canvas"));
    ground->setFrameStyle(QFrame::NoFrame);
    ground->setPaintAttribute(QwtPlotCanvas::BackingStore, true);
    setCanvas(ground);
    plotLayout()->setAlignCanvasToScales(true);
    plotLayout()->setSpacing(6);
    setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    m_grid->attach(this);
    for (int i = 0; i < NUM_AXES; ++i) {
        const auto id = static_cast<axis_t>(i);
        axisWidget(i)->setMargin(0);
        install(id);
    }
    setTheme(m_theme);
    setFonts(font());
}

Plot::~Plot() {
    m_grid->detach();
}

void Plot::install(axis_t id) {
    const AxisState & state = m_axes[id];
    switch (state.axis.scale) {
    case LINEAR:
        setAxisScaleEngine(id, new QwtLinearScaleEngine);
        break;
    case LOGARITHMIC:
        setAxisScaleEngine(id, new QwtLogScaleEngine);
        break;
    case DATE:
        setAxisScaleEngine(id, new DateScaleEngine(secondsPerUnit(state)));
        break;
    }
    setAxisScaleDraw(id, new ScaleDraw(*this, id));
    fitTitle(id);
}

QString Plot::unitText(axis_t id) const {
    const SCI::Axis & axis = m_axes[id].axis;
    return axis.scale == DATE ? QString() : UnitScale::withUnit({}, axis.unit());
}

void Plot::fitTitle(axis_t id) {
    const QString unit = unitText(id);
    const QFontMetricsF metrics(pixelFont(*this));
    const double room = isHorizontal(id) ? m_size.width() - SIDES : m_size.height() - TITLE_ENDS;
    QString text = metrics.elidedText(m_axes[id].axis.title, Qt::ElideRight,
                                      std::max(0.0, room - metrics.horizontalAdvance(' ' + unit)));
    if (!text.isEmpty() && !unit.isEmpty())
        text += ' ';
    QwtText title(text + unit, QwtText::PlainText);
    title.setFont(font());
    if (title != axisTitle(id))
        setAxisTitle(id, title);
}

bool Plot::hasData() const {
    for (const QwtPlotItem * item : itemList())
        if (const auto * series = dynamic_cast<const SeriesItem *>(item))
            if (const auto [from, to] = series->covered(series->xId()); from <= to)
                return true;
    return false;
}

void Plot::setIndent(double left, double right) {
    m_indent[0] = std::round(left);
    m_indent[1] = std::round(right);
    setContentsMargins(MARGIN + static_cast<int>(m_indent[0]), MARGIN, MARGIN + static_cast<int>(m_indent[1]), MARGIN);
}

std::pair<double, double> Plot::sides(const QSizeF & size) {
    fit(size);
    plotLayout()->activate(this, QRectF(QPointF(0, 0), m_size).marginsRemoved(contentsMargins()));
    const QRectF room = plotLayout()->canvasRect();
    return {room.left(), m_size.width() - room.right()};
}

void Plot::setAxis(axis_t id, const SCI::Axis & axis) {
    AxisState state;
    state.axis = axis;
    state.unit = UnitScale(axis.dataUnit, axis.unit());
    if (axis.scale == DATE)
        secondsPerUnit(state); // throws for units that are no times
    // A wanted range stays where it is when only the unit changes.
    const AxisState & before = m_axes[id];
    if (before.wanted && before.axis.dataUnit == axis.dataUnit)
        state.wanted = Range{state.unit.shown(before.unit.data(before.wanted->from)),
                             state.unit.shown(before.unit.data(before.wanted->to))};
    if (axis.scale == LOGARITHMIC && state.wanted && !(state.wanted->from > 0))
        state.wanted.reset();
    m_axes[id] = state;
    install(id);
    for (QwtPlotItem * item : itemList())
        if (auto * series = dynamic_cast<SeriesItem *>(item))
            series->forgetBounds();
}

void Plot::setWanted(axis_t id, std::optional<Range> wanted) {
    if (wanted) {
        if (!std::isfinite(wanted->from) || !std::isfinite(wanted->to) || wanted->from == wanted->to)
            return;
        if (wanted->from > wanted->to)
            std::swap(wanted->from, wanted->to);
        if (m_axes[id].axis.scale == LOGARITHMIC && wanted->from <= 0)
            return;
        const double size = std::max(std::abs(wanted->from), std::abs(wanted->to));
        if (wanted->to - wanted->from < NARROWEST * size)
            return;
    }
    m_axes[id].wanted = wanted;
}

QString Plot::header(axis_t id) const {
    const AxisState & state = m_axes[id];
    QString title = state.axis.title;
    if (title.isEmpty())
        title = state.axis.scale == DATE ? tr("Time") : isHorizontal(id) ? QStringLiteral("x") : QStringLiteral("y");
    return UnitScale::withUnit(title, state.axis.unit());
}

bool Plot::isUsed(axis_t id) const {
    if (id == X_BOTTOM || id == Y_LEFT)
        return true;
    for (const QwtPlotItem * item : itemList())
        if (const auto * series = dynamic_cast<const SeriesItem *>(item))
            if (series->uses(id))
                return true;
    return false;
}

bool Plot::isColorBar(axis_t id) const {
    return axisWidget(id)->isColorBarEnabled();
}

bool Plot::isFilled(axis_t id) const {
    for (const QwtPlotItem * item : itemList())
        if (const auto * grid = dynamic_cast<const GridItem *>(item); grid != nullptr && grid->isVisible())
            if (grid->yId() == id)
                return true;
    return false;
}

double Plot::lowestOn(axis_t id) const {
    const AxisState & state = m_axes[id];
    return state.axis.scale == LOGARITHMIC ? state.unit.data(0) : -std::numeric_limits<double>::infinity();
}

Range Plot::coveredRange(axis_t id) const {
    Range range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    const auto cover = [&](bool withHidden) {
        for (const QwtPlotItem * item : itemList()) {
            const auto * series = dynamic_cast<const SeriesItem *>(item);
            if (series == nullptr || !(series->isVisible() || withHidden))
                continue;
            const auto [from, to] = series->covered(id);
            if (from > to)
                continue;
            const UnitScale & unit = m_axes[id].unit;
            range.from = std::min({range.from, unit.shown(from), unit.shown(to)});
            range.to = std::max({range.to, unit.shown(from), unit.shown(to)});
        }
    };
    cover(false);
    if (range.from > range.to)
        cover(true);
    if (range.from > range.to)
        return m_axes[id].axis.scale == LOGARITHMIC ? Range{1, 10} : Range{0, 1};
    if (m_axes[id].axis.scale == LOGARITHMIC && !isHorizontal(id))
        range.from = std::max(range.from, range.to * SMALLEST_SHARE);
    return range;
}

int Plot::maxMajorTicks(axis_t id) const {
    const double pixels = isHorizontal(id) ? m_size.width() - SIDES : m_size.height() - ENDS;
    const double each = !isHorizontal(id)               ? PIXELS_PER_ROW
                        : m_axes[id].axis.scale == DATE ? PIXELS_PER_DATE
                                                        : PIXELS_PER_NUMBER;
    return std::clamp(static_cast<int>(pixels / each), 2, 20);
}

/// Ends that nearly reach a tick reach it: a year of hourly means begins with the year.
Range Plot::wholeDates(axis_t id, Range range) const {
    const double seconds = secondsPerUnit(m_axes[id]);
    const double room = (range.to - range.from) * DATE_ROOM;
    for (const double tick :
         Calendar::ticks((range.from - room) * seconds, (range.to + room) * seconds, maxMajorTicks(id)).major) {
        if (tick / seconds < range.from)
            range.from = tick / seconds;
        if (tick / seconds > range.to)
            range.to = tick / seconds;
    }
    return range;
}

Range Plot::niceRange(axis_t id, Range range) const {
    const scale_t scale = m_axes[id].axis.scale;
    double from = range.from;
    double to = range.to;
    const double size = std::max(std::abs(from), std::abs(to));
    if (to - from <= NARROWEST * size) { // one value: it stands in the middle
        const double half = scale == DATE ? 43200 / secondsPerUnit(m_axes[id]) : size == 0 ? 0.5 : 0.1 * size;
        return scale == LOGARITHMIC ? Range{from / 2, to * 2} : Range{from - half, to + half};
    }
    if (scale == DATE)
        return wholeDates(id, range);
    if (isHorizontal(id) || isFilled(id))
        return range;
    double step = 0;
    axisScaleEngine(id)->autoScale(maxMajorTicks(id), from, to, step);
    return {from, to};
}

void Plot::updateScale(axis_t id) {
    AxisState & state = m_axes[id];
    state.range = state.wanted ? *state.wanted : niceRange(id, coveredRange(id));
    divide(id);
    enableAxis(id, isUsed(id) && (m_placeholder.isEmpty() || hasData()));
    fitTitle(id);
}

void Plot::divide(axis_t id) {
    const AxisState & state = m_axes[id];
    const int major = maxMajorTicks(id);
    setAxisMaxMajor(id, major);
    setAxisScaleDiv(id, axisScaleEngine(id)->divideScale(state.range.from, state.range.to, major,
                                                         state.axis.scale == LOGARITHMIC ? 9 : 5));
    static_cast<ScaleDraw *>(axisScaleDraw(id))->update();
}

bool Plot::canBeEqual() const {
    const SCI::Axis & x = m_axes[X_BOTTOM].axis;
    const SCI::Axis & y = m_axes[Y_LEFT].axis;
    return isFilled(Y_LEFT) && x.scale == LINEAR && y.scale == LINEAR && m_axes[X_BOTTOM].unit.isLinear() &&
           m_axes[Y_LEFT].unit.isLinear() && UnitScale::alternatives(x.dataUnit).contains(y.dataUnit);
}

void Plot::equalize() {
    const Range ranges[] = {m_axes[X_BOTTOM].range, m_axes[Y_LEFT].range};
    // One unit of y in that of x.
    const double factor = UnitScale(m_axes[Y_LEFT].axis.unit(), m_axes[X_BOTTOM].axis.unit()).factor();
    const auto widen = [this](axis_t id, const Range & range, double width) {
        const double more = std::max(0.0, (width - (range.to - range.from)) / 2);
        m_axes[id].range = {range.from - more, range.to + more};
        divide(id);
    };
    // Other ranges have other texts at their ticks, which leave the picture another room.
    for (int pass = 0; pass < 2; ++pass) {
        plotLayout()->activate(this, QRectF(QPointF(0, 0), m_size).marginsRemoved(contentsMargins()));
        const QSizeF room = plotLayout()->canvasRect().size();
        if (!(room.width() > 1 && room.height() > 1))
            return;
        const double perPixel = std::max((ranges[0].to - ranges[0].from) / room.width(),
                                         (ranges[1].to - ranges[1].from) * factor / room.height());
        widen(X_BOTTOM, ranges[0], perPixel * room.width());
        widen(Y_LEFT, ranges[1], perPixel * room.height() / factor);
        updateAxes();
    }
}

void Plot::drawItems(QPainter * painter, const QRectF & canvas, const QwtScaleMap maps[axisCnt]) const {
    if (!m_placeholder.isEmpty() && !hasData()) {
        painter->save();
        painter->setFont(pixelFont(*this));
        painter->setPen(m_theme.text);
        painter->drawText(canvas, Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
        painter->restore();
        return;
    }
    QwtPlot::drawItems(painter, canvas, maps);
    // Values of isolines stay readable under lines and arrows.
    for (const QwtPlotItem * item : itemList())
        if (const auto * grid = dynamic_cast<const GridItem *>(item); grid != nullptr && grid->isVisible()) {
            painter->save();
            painter->setFont(pixelFont(*this));
            drawLabels(*painter, grid->labels());
            painter->restore();
        }
}

void Plot::fit(const QSizeF & size) {
    m_size = size;
    for (int i = 0; i < NUM_AXES; ++i) {
        axisWidget(i)->setColorBarEnabled(false);
        updateScale(static_cast<axis_t>(i));
    }
    for (const QwtPlotItem * item : itemList())
        if (const auto * grid = dynamic_cast<const GridItem *>(item); grid != nullptr && grid->isVisible())
            grid->showColorBar(*this);
    updateAxes(); // tells the lines of the ticks
    if (m_isEqual && canBeEqual())
        equalize();
}

void Plot::refresh() {
    fit(m_size);
    replot();
    if (m_onRefresh)
        m_onRefresh();
}

QString Plot::valueText(axis_t id, double shown) const {
    const AxisState & state = m_axes[id];
    if (state.axis.scale == DATE) {
        const double seconds = secondsPerUnit(state);
        const bool isLong = (state.range.to - state.range.from) * seconds > SECONDS_UNTIL;
        const double time = shown * seconds;
        return Calendar::text(isLong ? std::round(time / 60) * 60 : time, state.axis.startYear, locale());
    }
    if (state.axis.scale == LOGARITHMIC)
        return numberText(shown, 4, locale());
    // A thousandth of what is seen.
    return numberText(shown, digitsFor(shown, (state.range.to - state.range.from) / 1000), locale());
}

void Plot::setTheme(const Theme & theme) {
    m_theme = theme;
    QPalette colors = palette();
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Light})
        colors.setColor(role, theme.ground);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::Dark})
        colors.setColor(role, theme.text);
    setPalette(colors);
    setAutoFillBackground(true);
    setCanvasBackground(theme.ground);
    m_grid->setMajorPen(theme.grid, 1);
    for (int i = 0; i < NUM_AXES; ++i) {
        axisWidget(i)->setPalette(colors);
    }
    for (QwtPlotItem * item : itemList())
        item->legendChanged();
}

void Plot::setFonts(const QFont & font) {
    setFont(font);
    for (int i = 0; i < NUM_AXES; ++i) {
        setAxisFont(i, font);
        QwtText text = axisTitle(i);
        text.setFont(font);
        setAxisTitle(i, text);
    }
    QwtText text = title();
    QFont bold = font;
    bold.setBold(true);
    text.setFont(bold);
    titleLabel()->setFont(bold);
    setTitle(text);
}

} // namespace SCI
