#pragma once

#include "Plot.h"

#include <SCI/Bounds.h>
#include <SCI/PointModel.h>
#include <SCI/Styles.h>

#include <qwt_plot_item.h>

#include <functional>
#include <memory>
#include <utility>

namespace SCI {

/// One series in the plot: what all kinds have.
class SeriesItem : public QwtPlotItem {
public:
    /// \param number position among the series, which chooses the colour when the style has none
    SeriesItem(const SeriesStyle & style, int number);

    /// What the series covers, in the data units of its axes; only values above 0 where an axis is logarithmic.
    const Bounds & bounds() const;
    const QString & column() const { return m_column; }
    /// The data have changed, or the kind of an axis.
    virtual void forgetBounds() { m_bounds.reset(); }

    axis_t xId() const { return static_cast<axis_t>(xAxis()); }
    axis_t yId() const { return static_cast<axis_t>(yAxis()); }
    const Plot & chartPlot() const { return static_cast<const Plot &>(*plot()); }
    virtual QColor color() const;

    /// Points of a series that the cursor and tables can use; nullptr for others.
    virtual const PointModel * points() const { return nullptr; }
    /// What the axis of the colours covers, in its data unit; the first is larger when it has none of these.
    virtual std::pair<double, double> covered(axis_t id) const;
    virtual bool uses(axis_t id) const { return id == xId() || id == yId(); }

    QList<QwtLegendData> legendData() const override;

protected:
    virtual Bounds allBounds() const = 0;
    using Visit = std::function<void(double x, double y)>;
    virtual void eachPoint(const Visit & visit) const = 0;

    int m_number;

private:
    QString m_column;
    QColor m_color;
    mutable std::optional<Bounds> m_bounds;
};

/// Points joined by lines.
class LineItem : public SeriesItem {
public:
    LineItem(std::shared_ptr<const PointModel> model, const LineStyle & style, int number);

    void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
              const QRectF & canvas) const override;
    QwtGraphic legendIcon(int index, const QSizeF & size) const override;
    const PointModel * points() const override { return m_model.get(); }

protected:
    Bounds allBounds() const override { return m_model->bounds(); }
    void eachPoint(const Visit & visit) const override;

private:
    QPen pen() const;
    std::vector<std::size_t> visiblePoints(const PixelScale & x, double resolution, const QRectF & canvas) const;

    std::shared_ptr<const PointModel> m_model;
    LineStyle m_style;
};

/// Bars that stand on a value.
class BarItem : public SeriesItem {
public:
    BarItem(std::shared_ptr<const PointModel> model, const BarStyle & style, int number);

    void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
              const QRectF & canvas) const override;
    QwtGraphic legendIcon(int index, const QSizeF & size) const override;
    const PointModel * points() const override { return m_model.get(); }
    void forgetBounds() override;

protected:
    Bounds allBounds() const override;
    void eachPoint(const Visit & visit) const override;

private:
    /// Of one place, in the data unit.
    double width() const;

    std::shared_ptr<const PointModel> m_model;
    BarStyle m_style;
    mutable std::optional<double> m_width;
};

/// A square in the legend.
QwtGraphic colorIcon(const QBrush & brush, const QSizeF & size);

/// The index of the first point of a sorted model whose x is not less.
std::size_t lowerIndex(const PointModel & model, double x);

} // namespace SCI
