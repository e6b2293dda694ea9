#pragma once

#include "../Theme.h"
#include "../UnitScale.h"

#include <SCI/Axis.h>

#include <QCoreApplication>

#include <qwt_plot.h>
#include <qwt_plot_grid.h>
#include <qwt_scale_map.h>

#include <functional>
#include <memory>
#include <optional>

namespace SCI {

/// One axis of the plot and how values of models are placed along it.
struct AxisState {
    Axis axis;
    UnitScale unit;
    std::optional<Range> wanted; ///< in the shown unit; nothing: what the series cover
    Range range;                 ///< in force, in the shown unit
};

/// From values of a model to pixels and back, for one axis while something is drawn.
struct PixelScale {
    const UnitScale & unit;
    const QwtScaleMap & map;

    double pixel(double value) const { return map.transform(unit.shown(value)); }
    double value(double pixel) const { return unit.data(map.invTransform(pixel)); }
};

class Plot;
/// The font of a plot by pixels of the screen. The painter of a finer picture is scaled; a font by points would be scaled
/// once more.
QFont pixelFont(const Plot & plot);

/// The plot in a chart: axes with units, ranges and colours. Series are items attached to it.
class Plot : public QwtPlot {
    Q_DECLARE_TR_FUNCTIONS(SCI::Plot)
public:
    explicit Plot(QWidget * parent);
    ~Plot() override;

    /// Throws KOR::Exception for units that do not belong together; the axis stays as it was.
    void setAxis(axis_t id, const SCI::Axis & axis);
    const AxisState & state(axis_t id) const { return m_axes[id]; }
    void setWanted(axis_t id, std::optional<Range> wanted);

    void setTheme(const Theme & theme);
    const Theme & theme() const { return m_theme; }
    void setFonts(const QFont & font);

    /// The size [px] of plot or picture for which the ticks are chosen.
    void fit(const QSizeF & size);
    /// Computes ranges and ticks anew and draws.
    void refresh();
    /// What happens after each refresh().
    std::function<void()> m_onRefresh;
    /// Room left free at both sides [px], so that the plot fits to another.
    void setIndent(double left, double right);
    double indentLeft() const { return m_indent[0]; }
    double indentRight() const { return m_indent[1]; }
    /// What lies left and right of the canvas in a plot of this size [px].
    std::pair<double, double> sides(const QSizeF & size);
    void setPlaceholder(const QString & text) { m_placeholder = text; }
    const QString & placeholder() const { return m_placeholder; }
    /// Whether there is a series with values.
    bool hasData() const;
    /// A number of an axis as text: a date, or with so many digits as the range needs and two more.
    QString valueText(axis_t id, double shown) const;
    /// The unit of an axis in brackets; empty for numbers and dates.
    QString unitText(axis_t id) const;
    /// Title and unit of an axis; "x" or "y" where it has none.
    QString header(axis_t id) const;
    bool isUsed(axis_t id) const;
    /// Whether the axis is a colour bar, which zooming and moving leave alone.
    bool isColorBar(axis_t id) const;
    /// A length takes as much room along y as along x: the range that would be shown larger is widened. Only of fields.
    void setEqual(bool isEqual) { m_isEqual = isEqual; }
    bool isEqual() const { return m_isEqual; }
    /// Whether there is a field over two linear axes whose units are of the same kind.
    bool canBeEqual() const;
    /// Where a value above zero is needed: no values up to this one on a logarithmic axis; in the data unit.
    double lowestOn(axis_t id) const;

protected:
    void drawItems(QPainter * painter, const QRectF & canvas, const QwtScaleMap maps[axisCnt]) const override;

private:
    void updateScale(axis_t id);
    /// Ticks for the range in force.
    void divide(axis_t id);
    void equalize();
    /// Whether colours lie along the vertical axis, which then ends where they end.
    bool isFilled(axis_t id) const;
    Range coveredRange(axis_t id) const;
    Range niceRange(axis_t id, Range range) const;
    Range wholeDates(axis_t id, Range range) const;
    int maxMajorTicks(axis_t id) const;
    /// Titles of axes as long as there is room: a unit is not cut off.
    void fitTitle(axis_t id);
    void install(axis_t id);

    AxisState m_axes[NUM_AXES];
    QSizeF m_size{640, 400};
    Theme m_theme;
    bool m_isEqual = false;
    QString m_placeholder;
    double m_indent[2] = {0, 0};
    std::unique_ptr<QwtPlotGrid> m_grid;
};

} // namespace SCI
