#pragma once

#include "Plot.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>

#include <array>
#include <vector>

class QKeyEvent;
class QMouseEvent;
class QRubberBand;
class QWheelEvent;

namespace SCI {

class CursorOverlay;

/// Zooming, moving and the cursor of a plot, by mouse and keys.
class Navigator : public QObject {
public:
    explicit Navigator(Plot & plot);
    ~Navigator() override;

    /// Wanted ranges of all axes.
    using View = std::array<std::optional<Range>, NUM_AXES>;
    void showAll();
    /// Shows all and forgets the history.
    void reset();
    void back();
    /// Whether an earlier view is another one than what is shown.
    bool canGoBack() const;
    /// True if the key meant something to the plot.
    bool handleKey(QKeyEvent & event);
    void hideCursor();

    bool eventFilter(QObject * object, QEvent * event) override;

    /// Called for a double click on an axis.
    std::function<void(axis_t)> m_onAxis;
    /// Called when the cursor stands on a place, in the shown units of the lower and the left axis.
    std::function<void(const QPointF &)> m_onCursor;

private:
    enum drag_t { NO_DRAG, ZOOM, PAN };
    enum direction_t { ALONG_X = 1, ALONG_Y = 2, BOTH = 3 };

    bool handleMouse(QMouseEvent & event);
    bool handleWheel(QObject * object, QWheelEvent & event);
    void startDrag(drag_t drag, const QPoint & place);
    void finishZoom(const QPoint & place);
    /// From end to end of the axes [px].
    QRectF area() const;
    /// Fits the axes along a direction to pixels of the canvas.
    void showPixels(const QRectF & pixels, int directions);
    void pan(const QPointF & pixels);
    void zoom(double factor, const QPointF & centre, int directions);
    void moveCursor(double pixels);
    void remember();
    /// Clicks of the wheel and keys that follow one another closely are one step of the history.
    void rememberBurst();
    View view() const;
    void apply(const View & view);

    Plot & m_plot;
    CursorOverlay * m_cursor;
    QRubberBand * m_band;
    drag_t m_drag = NO_DRAG;
    QPoint m_dragStart;
    View m_dragView;
    std::array<Range, NUM_AXES> m_dragRanges;
    std::vector<View> m_history;
    QElapsedTimer m_burst; ///< since the last step of a burst; not valid outside of one
};

/// What the visible series have at a place in the canvas: x first, then a line a series.
QStringList valuesAtPixel(const Plot & plot, const QPointF & pixel);

} // namespace SCI
