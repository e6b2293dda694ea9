#pragma once

#include "Items.h"

#include <SCI/VectorModel.h>

namespace SCI {

/// Arrows whose length tells the size; where they would cover each other only the longest is drawn.
class VectorItem : public SeriesItem {
public:
    VectorItem(std::shared_ptr<const VectorModel> model, const VectorStyle & style, int number);

    void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
              const QRectF & canvas) const override;
    QwtGraphic legendIcon(int index, const QSizeF & size) const override;
    /// The title with the size of the longest arrow.
    QList<QwtLegendData> legendData() const override;
    void forgetBounds() override;

    const VectorModel & vectors() const { return *m_model; }
    const QString & unit() const { return m_style.unit; }

protected:
    Bounds allBounds() const override;
    void eachPoint(const Visit & visit) const override;

private:
    double longest() const;

    std::shared_ptr<const VectorModel> m_model;
    VectorStyle m_style;
    mutable std::optional<double> m_longest;
};

} // namespace SCI
