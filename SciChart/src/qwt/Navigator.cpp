#include "Navigator.h"

#include "CursorOverlay.h"
#include "GridItem.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWheelEvent>

#include <qwt_scale_widget.h>

#include <cmath>

namespace SCI {

namespace {

constexpr double WHEEL_STEP = 0.8; ///< of the range that is left after one click of the wheel
constexpr double KEY_STEP = 0.1;   ///< of the canvas that an arrow key moves
constexpr int SMALLEST_DRAG = 8;   ///< less in one direction zooms along the other only [px]
constexpr std::size_t MAX_HISTORY = 100;
constexpr double GAP = std::numeric_limits<double>::quiet_NaN();
constexpr qint64 BURST_MS = 800; ///< longer pauses begin another step of the history

bool isHorizontal(axis_t id) {
    return id == X_BOTTOM || id == X_TOP;
}

/// The y pixel of the drawn line at an x pixel; nothing beside the series, NaN in gaps.
std::optional<double> lineAt(const PointModel & points, const PixelScale & x, const PixelScale & y, double pixel) {
    if (!points.isSorted() || points.count() == 0)
        return std::nullopt;
    const auto known = [](double place, bool isGap) -> std::optional<double> {
        if (isGap)
            return GAP;
        return std::isfinite(place) ? std::optional(place) : std::nullopt; // a 0 lies nowhere on a logarithmic axis
    };
    const std::size_t i = lowerIndex(points, x.value(pixel));
    if (i == points.count())
        return std::nullopt;
    const QPointF right(x.pixel(points.x(i)), y.pixel(points.y(i)));
    if (std::abs(right.x() - pixel) < 1e-6)
        return known(right.y(), std::isnan(points.y(i)));
    if (i == 0)
        return std::nullopt;
    const QPointF left(x.pixel(points.x(i - 1)), y.pixel(points.y(i - 1)));
    const double share = (pixel - left.x()) / (right.x() - left.x());
    const double place = left.y() + share * (right.y() - left.y());
    return known(place, std::isnan(points.y(i)) || std::isnan(points.y(i - 1)));
}

QString withUnit(const Plot & plot, axis_t axis, double shown) {
    const QString number = plot.valueText(axis, shown);
    const AxisState & state = plot.state(axis);
    const QString unit = state.axis.scale == DATE ? QString() : UnitScale::printed(state.axis.unit());
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace

QStringList valuesAtPixel(const Plot & plot, const QPointF & pixel) {
    const auto line = [&](const QString & name, axis_t axis, double shown) {
        return name.isEmpty() ? withUnit(plot, axis, shown)
                              : QStringLiteral("%1: %2").arg(name, withUnit(plot, axis, shown));
    };
    const auto noValue = [](const QString & name) {
        return name.isEmpty() ? Plot::tr("no value") : QStringLiteral("%1: %2").arg(name, Plot::tr("no value"));
    };
    QStringList lines;
    lines << line(plot.state(X_BOTTOM).axis.title, X_BOTTOM, plot.canvasMap(X_BOTTOM).invTransform(pixel.x()));
    for (const QwtPlotItem * item : plot.itemList()) {
        const auto * series = dynamic_cast<const SeriesItem *>(item);
        if (series == nullptr || !series->isVisible())
            continue;
        const QwtScaleMap xMap = plot.canvasMap(series->xAxis());
        const QwtScaleMap yMap = plot.canvasMap(series->yAxis());
        const PixelScale x{plot.state(series->xId()).unit, xMap};
        const PixelScale y{plot.state(series->yId()).unit, yMap};
        QString name = series->title().text();
        if (const auto * grid = dynamic_cast<const GridItem *>(series)) {
            const axis_t axis = grid->colorAxis();
            lines << line(plot.state(series->yId()).axis.title, series->yId(), yMap.invTransform(pixel.y()));
            const auto cell = grid->cellAt(x.value(pixel.x()), y.value(pixel.y()));
            if (!cell)
                continue;
            if (name.isEmpty())
                name = plot.state(axis).axis.title;
            const double value = grid->grid().value(cell->first, cell->second);
            if (std::isfinite(value))
                lines << line(name, axis, plot.state(axis).unit.shown(value));
            else if (grid->grid().isWithoutValue(cell->first, cell->second))
                lines << noValue(name);
        } else if (const PointModel * points = series->points()) {
            if (name.isEmpty())
                name = plot.state(series->yId()).axis.title;
            if (const auto at = lineAt(*points, x, y, pixel.x()))
                lines << (std::isfinite(*at) ? line(name, series->yId(), yMap.invTransform(*at)) : noValue(name));
        }
    }
    return lines;
}

Navigator::Navigator(Plot & plot)
    : QObject(&plot), m_plot(plot), m_cursor(new CursorOverlay(plot, plot.canvas())),
      m_band(new QRubberBand(QRubberBand::Rectangle, plot.canvas())) {
    plot.canvas()->setMouseTracking(true);
    plot.canvas()->setCursor(Qt::CrossCursor);
    plot.canvas()->installEventFilter(this);
    for (int i = 0; i < NUM_AXES; ++i)
        plot.axisWidget(i)->installEventFilter(this);
}

Navigator::~Navigator() = default;

Navigator::View Navigator::view() const {
    View view;
    for (std::size_t i = 0; i < NUM_AXES; ++i)
        view[i] = m_plot.state(static_cast<axis_t>(i)).wanted;
    return view;
}

void Navigator::apply(const View & view) {
    for (std::size_t i = 0; i < NUM_AXES; ++i)
        m_plot.setWanted(static_cast<axis_t>(i), view[i]);
    m_plot.refresh();
}

void Navigator::remember() {
    m_burst.invalidate();
    m_history.push_back(view());
    if (m_history.size() > MAX_HISTORY)
        m_history.erase(m_history.begin());
}

void Navigator::rememberBurst() {
    if (!m_burst.isValid() || m_burst.elapsed() > BURST_MS)
        remember();
    m_burst.start();
}

bool Navigator::canGoBack() const {
    const View shown = view();
    return std::any_of(m_history.begin(), m_history.end(), [&](const View & earlier) { return earlier != shown; });
}

void Navigator::back() {
    m_burst.invalidate();
    const View shown = view();
    while (!m_history.empty() && m_history.back() == shown)
        m_history.pop_back();
    if (m_history.empty())
        return;
    const View earlier = m_history.back();
    m_history.pop_back();
    apply(earlier);
}

void Navigator::showAll() {
    remember();
    apply({});
}

void Navigator::reset() {
    m_history.clear();
    m_burst.invalidate();
    apply({});
}

void Navigator::hideCursor() {
    m_cursor->hide();
}

QRectF Navigator::area() const {
    const QwtScaleMap x = m_plot.canvasMap(X_BOTTOM);
    const QwtScaleMap y = m_plot.canvasMap(Y_LEFT);
    return {QPointF(x.p1(), y.p2()), QPointF(x.p2(), y.p1())};
}

void Navigator::showPixels(const QRectF & pixels, int directions) {
    for (int i = 0; i < NUM_AXES; ++i) {
        const auto id = static_cast<axis_t>(i);
        if ((directions & (isHorizontal(id) ? ALONG_X : ALONG_Y)) == 0 || !m_plot.isUsed(id) || m_plot.isColorBar(id))
            continue;
        const QwtScaleMap map = m_plot.canvasMap(i);
        m_plot.setWanted(id, isHorizontal(id)
                                 ? Range{map.invTransform(pixels.left()), map.invTransform(pixels.right())}
                                 : Range{map.invTransform(pixels.bottom()), map.invTransform(pixels.top())});
    }
    m_plot.refresh();
}

void Navigator::zoom(double factor, const QPointF & centre, int directions) {
    const QRectF all = area();
    const auto scaled = [factor](double middle, double edge) { return middle + (edge - middle) * factor; };
    showPixels(QRectF(QPointF(scaled(centre.x(), all.left()), scaled(centre.y(), all.top())),
                      QPointF(scaled(centre.x(), all.right()), scaled(centre.y(), all.bottom()))),
               directions);
}

void Navigator::pan(const QPointF & pixels) {
    showPixels(area().translated(-pixels), BOTH);
}

bool Navigator::handleWheel(QObject * object, QWheelEvent & event) {
    const double clicks = event.angleDelta().y() / 120.0;
    if (clicks == 0)
        return false;
    int directions = BOTH;
    if (event.modifiers() & Qt::ControlModifier)
        directions = ALONG_X;
    else if (event.modifiers() & Qt::ShiftModifier)
        directions = ALONG_Y;
    QPointF place = event.position();
    for (int i = 0; i < NUM_AXES; ++i)
        if (object == m_plot.axisWidget(i)) {
            directions = isHorizontal(static_cast<axis_t>(i)) ? ALONG_X : ALONG_Y;
            place = m_plot.canvas()->mapFrom(&m_plot, m_plot.axisWidget(i)->mapTo(&m_plot, place.toPoint()));
        }
    rememberBurst();
    zoom(std::pow(WHEEL_STEP, clicks), place, directions);
    return true;
}

void Navigator::startDrag(drag_t drag, const QPoint & place) {
    m_drag = drag;
    m_dragStart = place;
    m_dragView = view();
    hideCursor();
    if (drag == ZOOM) {
        m_band->setGeometry(QRect(place, QSize()));
        m_band->show();
    } else {
        m_plot.canvas()->setCursor(Qt::ClosedHandCursor);
    }
}

void Navigator::finishZoom(const QPoint & place) {
    m_band->hide();
    const QRectF all = area();
    const auto inside = [&all](const QPointF & p) {
        return QPointF(std::clamp(p.x(), all.left(), all.right()), std::clamp(p.y(), all.top(), all.bottom()));
    };
    const QRectF box = QRectF(inside(m_dragStart), inside(place)).normalized();
    const int directions = (box.width() >= SMALLEST_DRAG ? ALONG_X : 0) | (box.height() >= SMALLEST_DRAG ? ALONG_Y : 0);
    if (directions == 0)
        return;
    remember();
    showPixels(box, directions);
}

bool Navigator::handleMouse(QMouseEvent & event) {
    const QPoint place = event.pos();
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton) {
            const bool isPan = event.button() == Qt::MiddleButton || (event.modifiers() & Qt::ShiftModifier);
            if (isPan)
                remember();
            startDrag(isPan ? PAN : ZOOM, place);
            return false; // the chart takes the focus
        }
        return false;
    case QEvent::MouseMove:
        if (m_drag == ZOOM) {
            m_band->setGeometry(QRect(m_dragStart, place).normalized());
        } else if (m_drag == PAN) {
            pan(place - m_dragStart);
            m_dragStart = place;
        } else {
            m_cursor->show(place);
            if (m_onCursor)
                m_onCursor({m_plot.invTransform(X_BOTTOM, place.x()), m_plot.invTransform(Y_LEFT, place.y())});
        }
        return false;
    case QEvent::MouseButtonRelease: {
        const drag_t drag = std::exchange(m_drag, NO_DRAG);
        if (drag == ZOOM)
            finishZoom(place);
        m_plot.canvas()->setCursor(Qt::CrossCursor);
        return false;
    }
    case QEvent::MouseButtonDblClick:
        if (event.button() == Qt::LeftButton) {
            m_drag = NO_DRAG;
            showAll();
        }
        return true;
    default:
        return false;
    }
}

bool Navigator::eventFilter(QObject * object, QEvent * event) {
    switch (event->type()) {
    case QEvent::Wheel:
        return handleWheel(object, static_cast<QWheelEvent &>(*event));
    case QEvent::Leave:
        if (object == m_plot.canvas())
            hideCursor();
        return false;
    case QEvent::MouseButtonDblClick:
        for (int i = 0; i < NUM_AXES; ++i)
            if (object == m_plot.axisWidget(i) && m_onAxis) {
                m_onAxis(static_cast<axis_t>(i));
                return true;
            }
        [[fallthrough]];
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return object == m_plot.canvas() && handleMouse(static_cast<QMouseEvent &>(*event));
    default:
        return false;
    }
}

void Navigator::moveCursor(double pixels) {
    const QRectF all = area();
    QPointF place = m_cursor->place().value_or(all.center());
    place.setX(std::clamp(place.x() + pixels, all.left(), all.right()));
    m_cursor->show(place);
    if (m_onCursor)
        m_onCursor(
            {m_plot.canvasMap(X_BOTTOM).invTransform(place.x()), m_plot.canvasMap(Y_LEFT).invTransform(place.y())});
}

bool Navigator::handleKey(QKeyEvent & event) {
    const QRectF all = area();
    const bool isCursor = event.modifiers() & Qt::ControlModifier;
    const double step = event.modifiers() & Qt::ShiftModifier ? 10 : 1;
    const auto move = [&](double x, double y) {
        rememberBurst();
        pan({x * KEY_STEP * all.width(), y * KEY_STEP * all.height()});
    };
    const auto scale = [&](double factor) {
        rememberBurst();
        zoom(factor, all.center(), BOTH);
    };
    switch (event.key()) {
    case Qt::Key_Left:
        isCursor ? moveCursor(-step) : move(1, 0);
        return true;
    case Qt::Key_Right:
        isCursor ? moveCursor(step) : move(-1, 0);
        return true;
    case Qt::Key_Up:
        move(0, 1);
        return true;
    case Qt::Key_Down:
        move(0, -1);
        return true;
    case Qt::Key_Plus:
        scale(WHEEL_STEP);
        return true;
    case Qt::Key_Minus:
        scale(1 / WHEEL_STEP);
        return true;
    case Qt::Key_Home:
        showAll();
        return true;
    case Qt::Key_Backspace:
        back();
        return true;
    case Qt::Key_Escape:
        if (m_drag != NO_DRAG) {
            m_drag = NO_DRAG;
            m_band->hide();
            m_plot.canvas()->setCursor(Qt::CrossCursor);
            apply(m_dragView);
            return true;
        }
        if (m_cursor->place()) {
            hideCursor();
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace SCI
