#pragma once

#include "construction/HygConstructionScene.h"

#include <QImage>
#include <QPalette>

class QPainter;

/// Draws a scene. The cells become one image of the size of the screen, pixel by pixel, so that the time for a frame
/// depends on the pixels and not on the number of cells.
class HygGridPainter {
public:
    /// \param size logical pixels \param ratio device pixels for each
    void paint(QPainter & painter, const HygConstructionScene & scene, const QSize & size, double ratio,
               const QPalette & palette, bool hasFocus);

private:
    void render(const HygConstructionScene & scene, const QSize & size, double ratio, const QPalette & palette);
    void prepareTiles(const HygConstructionScene & scene, double ratio, const QPalette & palette);
    void drawGridLines(QPainter & painter, const HygConstructionScene & scene) const;
    void drawNames(QPainter & painter, const HygConstructionScene & scene) const;
    void drawSides(QPainter & painter, const HygConstructionScene & scene) const;
    void drawAreas(QPainter & painter, const HygConstructionScene & scene) const;
    void drawPoints(QPainter & painter, const HygConstructionScene & scene) const;
    void drawSelection(QPainter & painter, const HygConstructionScene & scene, bool hasFocus) const;
    void drawMarks(QPainter & painter, const HygConstructionScene & scene) const;

    /// Where the image of the cells comes from; drawn anew when it differs.
    struct Key {
        std::uint64_t version = 0;
        QSize size;
        double ratio = 0;
        double scaleX = 0, scaleY = 0, originX = 0, originY = 0;
        QRgb ground = 0;
        bool operator==(const Key &) const = default;
    };
    Key m_key;
    QImage m_image;
    std::vector<QImage> m_tiles; ///< of the materials, then of unknown ones and of cells without
    QRectF m_viewport;
};
