#pragma once

#include <SCI/Axis.h>
#include <SCI/GridModel.h>

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QSize>

#include <vector>

class QPainter;

namespace SCI {

/// Lines of equal value between the centres of cells (marching squares). Of a grid finer than the pixels only every so
/// manieth cell is looked at.
class Isolines {
public:
    /// \param x, \param y what is seen, in data units, on \p pixels
    Isolines(const GridModel & model, Range x, Range y, const QSize & pixels);

    /// Calls line(x1, y1, x2, y2) in data units for each piece of the line of a value.
    template <typename Line> void eachLine(double level, const Line & line) const;

private:
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_values; ///< m_x.size() times m_y.size(), row by row
};

/// A text with a rim, which is seen on any ground.
void drawRimmedText(QPainter & painter, const QPointF & baseline, const QString & text, const QColor & color,
                    const QColor & rim);

/// Writes a value beside its line, where it is far enough from the edges and from the texts in \p others.
void drawLabel(QPainter & painter, const std::vector<QLineF> & lines, const QString & text, const QRectF & canvas,
               std::vector<QPointF> & others);

template <typename Line> void Isolines::eachLine(double level, const Line & line) const {
    const std::size_t n = m_x.size();
    for (std::size_t j = 0; j + 1 < m_y.size(); ++j) {
        const double * low = &m_values[j * n];
        const double * high = low + n;
        for (std::size_t i = 0; i + 1 < n; ++i) {
            const double corner[] = {low[i], low[i + 1], high[i + 1], high[i]};
            int above = 0;
            bool isWhole = true;
            for (int k = 0; k < 4; ++k) {
                above |= corner[k] >= level ? 1 << k : 0;
                isWhole &= corner[k] == corner[k]; // not NaN
            }
            if (above == 0 || above == 15 || !isWhole)
                continue;
            const double xs[] = {m_x[i], m_x[i + 1], m_x[i + 1], m_x[i]};
            const double ys[] = {m_y[j], m_y[j], m_y[j + 1], m_y[j + 1]};
            double cx[4];
            double cy[4];
            int count = 0;
            for (int k = 0; k < 4; ++k) { // sides between corner k and the next one
                const int next = (k + 1) % 4;
                if (((above >> k) & 1) == ((above >> next) & 1))
                    continue;
                const double t = (level - corner[k]) / (corner[next] - corner[k]);
                cx[count] = xs[k] + t * (xs[next] - xs[k]);
                cy[count] = ys[k] + t * (ys[next] - ys[k]);
                ++count;
            }
            if (count == 2) {
                line(cx[0], cy[0], cx[1], cy[1]);
                continue;
            }
            // A saddle: its middle says which corners belong together.
            const bool isMiddleAbove = (corner[0] + corner[1] + corner[2] + corner[3]) / 4 >= level;
            const bool isFirstAbove = (above & 1) != 0;
            if (isMiddleAbove == isFirstAbove) {
                line(cx[0], cy[0], cx[1], cy[1]);
                line(cx[2], cy[2], cx[3], cy[3]);
            } else {
                line(cx[3], cy[3], cx[0], cy[0]);
                line(cx[1], cy[1], cx[2], cy[2]);
            }
        }
    }
}

} // namespace SCI
