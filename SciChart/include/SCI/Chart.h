#pragma once

#include <SCI/Axis.h>
#include <SCI/GridModel.h>
#include <SCI/PointModel.h>
#include <SCI/Styles.h>
#include <SCI/VectorModel.h>

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMenu;
class QPainter;
class QPrinter;

namespace SCI {

struct Table;

/// A chart: series over up to four axes. Draws itself on the screen, or without a window into pictures.
///
/// The wheel zooms (Ctrl: along x, Shift: along y, over an axis: along it), dragging zooms to a rectangle, dragging with
/// Shift or the middle button moves; a double click shows all, on an axis it opens ranges and units. Keys: arrows move,
/// + and - zoom, Home shows all, Backspace goes back, Ctrl with left and right moves the cursor (and Shift faster).
/// A click in the legend hides a series.
class Chart : public QWidget {
    Q_OBJECT
public:
    /// Names a series, threshold or band until it is removed.
    using id_t = int;
    static constexpr id_t ALL = -1;

    explicit Chart(QWidget * parent = nullptr);
    ~Chart() override;

    void setTitle(const QString & title);
    QString title() const;
    /// What stands in the middle, in place of axes, while there is nothing to draw; empty: the axes stay.
    void setPlaceholder(const QString & text);
    /// The text that stands there now; empty when something is drawn.
    QString placeholder() const;
    /// A first column of tables that holds the same value in all rows, as the time of a profile; an empty title: none.
    void setConstantColumn(const QString & title, double value = 0);

    /// Throws KOR::Exception as UnitList::relate_units when the units do not belong together, or are no times for dates.
    void setAxis(axis_t axis, const Axis & settings);
    const Axis & axis(axis_t axis) const;
    /// A range in the shown unit; one that cannot be shown (empty, below 0 on a logarithmic axis) is ignored.
    void setRange(axis_t axis, Range range);
    /// The range that the visible series cover.
    void setAutoRange(axis_t axis);
    bool isAutoRange(axis_t axis) const;
    /// Whether anything is drawn along it; bottom and left always are.
    bool isUsed(axis_t axis) const;
    /// The range in force, in the shown unit.
    Range range(axis_t axis) const;
    /// All series on all axes.
    void showAll();
    /// Shows all as well, and forgets the earlier views: for other content.
    void resetView();
    /// Takes back zooming and showing all.
    void showPrevious();
    bool hasPrevious() const;
    /// Fields only: a length is as long along y as along x, whatever ranges are wanted; the other is widened.
    void setEqualScales(bool areEqual);
    bool hasEqualScales() const;
    /// Whether there is a field over two linear axes of lengths (or others of one kind of unit).
    bool canHaveEqualScales() const;
    /// Has two charts, one above the other, begin and end at the same places when they are drawn in these sizes. To be
    /// called anew when something has changed.
    static void align(Chart & upper, Chart & lower, const QSize & upperSize, const QSize & lowerSize);
    /// What the cursor tells at a place, in the shown units of bottom and left: x, then a line a series that has a value
    /// there.
    QStringList valuesAt(double x, double y = 0) const;
    /// Texts of the major ticks, as they stand at the axis.
    QStringList tickLabels(axis_t axis) const;
    /// Title and unit as they stand there, the title cut to the room it has.
    QString axisText(axis_t axis) const;

    id_t addLine(std::shared_ptr<const PointModel> model, const LineStyle & style = {});
    id_t addBars(std::shared_ptr<const PointModel> model, const BarStyle & style = {});
    id_t addGrid(std::shared_ptr<const GridModel> model, const GridStyle & style = {});
    id_t addVectors(std::shared_ptr<const VectorModel> model, const VectorStyle & style = {});
    /// A line at a value, in the data unit of the axis.
    id_t addThreshold(axis_t axis, double value, const QString & text = {});
    /// The ground between two values, in the data unit of the axis; either may be infinite. A text that has no room in it is
    /// turned or left out. \param isFilled false: only the text is drawn
    id_t addBand(axis_t axis, double from, double to, const QString & text = {}, bool isFilled = true);
    /// Takes away a series, threshold or band, or ALL.
    void remove(id_t id);
    /// The data of a series (or ALL) have changed.
    void dataChanged(id_t id = ALL);
    void setSeriesVisible(id_t id, bool isVisible);
    bool isSeriesVisible(id_t id) const;

    /// Dark or light, whatever the palette says; without a value as the palette.
    void setDark(bool isDark);
    void followPalette();

    /// Draws the chart into a rectangle of a device.
    void render(QPainter & painter, const QRectF & rectangle) const;
    /// \param size [px], \param scale device pixels of a pixel: 2 for twice as fine
    QImage image(const QSize & size, double scale = 1) const;

    enum format_t { PNG, SVG, PDF };
    /// The content of a picture file. Throws KOR::Exception ("[Chart::picture]") for sizes that cannot be drawn.
    QByteArray picture(format_t format, const QSize & size, double scale = 1) const;
    /// Writes png, svg or pdf, by the name's extension, atomically. Throws KOR::Exception ("[Chart::writePicture]").
    void writePicture(const QString & path, const QSize & size, double scale = 1) const;
    /// Draws several charts into one picture. The painter's device is as large as the rectangle.
    using Drawing = std::function<void(QPainter & painter, const QRectF & rectangle)>;
    static QByteArray picture(format_t format, const QSize & size, double scale, const QString & title,
                              const Drawing & draw);
    static void writePicture(const QString & path, const QSize & size, double scale, const QString & title,
                             const Drawing & draw);
    /// The visible series as a table in the shown units, with points as decimal marks. Throws KOR::Exception beyond
    /// 1 GiB ("[Chart::csv]").
    std::string csv(char separator = ',') const;
    /// Throws KOR::Exception ("[Chart::writeCsv]").
    void writeCsv(const QString & path) const;
    void copyPicture() const;
    void copySvg() const;
    void copyCsv() const;
    /// Prints on light ground, as large as the page allows.
    void print(QPrinter & printer) const;

    /// The actions of the context menu, for a menu or tool bar of the user's.
    void fillMenu(QMenu & menu);
    /// Asks for ranges and units.
    void editAxes(axis_t focused);
    /// Ask where to, and tell what failed.
    void savePicture();
    void saveCsv();
    void print();

    /// The area in which the series are drawn; for event filters.
    QWidget & canvas() const;
    /// Where values, in the data units of two axes, lie on the canvas [px], and back.
    QPointF toCanvas(QPointF values, axis_t xAxis = X_BOTTOM, axis_t yAxis = Y_LEFT) const;
    QPointF fromCanvas(QPointF place, axis_t xAxis = X_BOTTOM, axis_t yAxis = Y_LEFT) const;

    QSize sizeHint() const override;

signals:
    void seriesVisibilityChanged(int id, bool isVisible);
    /// The cursor is at a place, in the shown units of bottom and left.
    void cursorMoved(double x, double y);
    /// Ranges, ticks or data have changed and are drawn anew.
    void refreshed();

protected:
    void changeEvent(QEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void contextMenuEvent(QContextMenuEvent * event) override;

private:
    std::vector<Table> tables() const;
    const std::optional<std::pair<QString, double>> & constantColumn() const;
    void renderLight(QPainter & painter, const QRectF & rectangle) const;
    void guarded(const std::function<void()> & action);

    struct Private;
    std::unique_ptr<Private> m;
};

} // namespace SCI
