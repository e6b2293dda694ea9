#pragma once

#include "Isolines.h"
#include "Items.h"

#include <SCI/GridModel.h>

namespace SCI {

/// The values of a grid as colours, with isolines.
class GridItem : public SeriesItem {
public:
    GridItem(std::shared_ptr<const GridModel> model, const GridStyle & style, int number);

    void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
              const QRectF & canvas) const override;
    QwtGraphic legendIcon(int index, const QSizeF & size) const override;
    bool uses(axis_t id) const override { return id == m_style.colorAxis || SeriesItem::uses(id); }
    std::pair<double, double> covered(axis_t id) const override;
    void forgetBounds() override;

    const GridModel & grid() const { return *m_model; }
    axis_t colorAxis() const { return m_style.colorAxis; }
    /// Puts the colours beside the colour axis; call when its range has changed.
    void showColorBar(Plot & plot) const;
    /// The values on the isolines that were drawn last, for above all series.
    const std::vector<IsolineLabel> & labels() const { return m_labels; }
    /// The cell at a place in data units, as column and row; nothing outside.
    std::optional<std::pair<std::size_t, std::size_t>> cellAt(double x, double y) const;
    /// Whether there are cells without a value, which the legend explains.
    bool hasHatching() const;
    QList<QwtLegendData> legendData() const override;

protected:
    Bounds allBounds() const override;
    void eachPoint(const Visit & visit) const override;

private:
    /// Where one direction of pixels lies in the grid.
    struct Sampling {
        std::vector<std::size_t> cell; ///< a pixel's cell; with interpolation the lower of two
        std::vector<double> share;     ///< of the next cell; empty without interpolation
        std::vector<bool> isNext;      ///< whether the pixel lies in the next cell; empty without interpolation
        int first = 0;                 ///< pixel of entry 0
    };
    template <typename Edge>
    Sampling sampling(const PixelScale & scale, const Edge & edge, std::size_t cells, double from, double to,
                      double resolution) const;
    QwtScaleMap colorMap() const;
    double sample(const Sampling & x, std::size_t i, const Sampling & y, std::size_t j) const;
    QImage picture(const Sampling & x, const Sampling & y) const;
    void drawHatching(QPainter & painter, const PixelScale & x, const PixelScale & y, const QRectF & canvas,
                      double resolution) const;
    std::vector<double> levels() const;
    void drawIsolines(QPainter & painter, const PixelScale & x, const PixelScale & y, const QRectF & canvas) const;

    std::shared_ptr<const GridModel> m_model;
    GridStyle m_style;
    mutable std::optional<std::pair<double, double>> m_values;
    mutable std::optional<bool> m_hasHatching;
    mutable std::vector<IsolineLabel> m_labels;
};

} // namespace SCI
