#pragma once

#include <SCI/Axis.h>
#include <SCI/GridModel.h>

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QSize>
#include <QString>

#include <algorithm>
#include <limits>
#include <vector>

class QPainter;

namespace SCI {

/// Lines of equal value between the centres of cells (marching squares). Of a grid finer than the pixels only every so
/// manieth cell is looked at.
class Isolines {
public:
    /// \param x, \param y what is seen, in data units, on \p pixels
    Isolines(const GridModel & model, Range x, Range y, const QSize & pixels);

    /// Calls line(level, x1, y1, x2, y2) in data units for each piece of the lines of values; \p level is an index.
    /// \param levels rising
    template <typename Line> void eachLine(const std::vector<double> & levels, const Line & line) const;

private:
    template <typename Line>
    static void crossCell(const double * corners, const double * xs, const double * ys, double level,
                          const Line & line);

    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_values; ///< m_x.size() times m_y.size(), row by row
};

/// A text with a rim, which is seen on any ground.
void drawRimmedText(QPainter & painter, const QPointF & baseline, const QString & text, const QColor & color,
                    const QColor & rim);

/// A text on a line of equal value.
struct IsolineLabel {
    QPointF centre; ///< [px]
    QString text;
};
/// Adds the text of a line where it is far enough from the edges and from the texts that are there; else nothing.
void placeLabel(std::vector<IsolineLabel> & labels, const std::vector<QLineF> & lines, const QString & text,
                const QRectF & canvas);
void drawLabels(QPainter & painter, const std::vector<IsolineLabel> & labels);

template <typename Line> void Isolines::eachLine(const std::vector<double> & levels, const Line & line) const {
    const std::size_t n = m_x.size();
    for (std::size_t j = 0; j + 1 < m_y.size(); ++j) {
        const double * low = &m_values[j * n];
        const double * high = low + n;
        for (std::size_t i = 0; i + 1 < n; ++i) {
            const double corners[] = {low[i], low[i + 1], high[i + 1], high[i]};
            const double smallest = std::min(std::min(corners[0], corners[1]), std::min(corners[2], corners[3]));
            const double largest = std::max(std::max(corners[0], corners[1]), std::max(corners[2], corners[3]));
            // Most cells lie between two levels. NaN gets through here and is looked for then.
            auto level = std::upper_bound(levels.begin(), levels.end(), smallest);
            if (level == levels.end() || *level > largest)
                continue;
            if (!(corners[0] + corners[1] + corners[2] + corners[3] < std::numeric_limits<double>::infinity()))
                continue;
            const double xs[] = {m_x[i], m_x[i + 1], m_x[i + 1], m_x[i]};
            const double ys[] = {m_y[j], m_y[j], m_y[j + 1], m_y[j + 1]};
            for (; level != levels.end() && *level <= largest; ++level)
                crossCell(corners, xs, ys, *level, [&](double x1, double y1, double x2, double y2) {
                    line(static_cast<std::size_t>(level - levels.begin()), x1, y1, x2, y2);
                });
        }
    }
}

template <typename Line>
void Isolines::crossCell(const double * corners, const double * xs, const double * ys, double level,
                         const Line & line) {
    double cx[4];
    double cy[4];
    int count = 0;
    for (int k = 0; k < 4; ++k) { // sides between corner k and the next one
        const int next = (k + 1) % 4;
        if ((corners[k] >= level) == (corners[next] >= level))
            continue;
        const double t = (level - corners[k]) / (corners[next] - corners[k]);
        cx[count] = xs[k] + t * (xs[next] - xs[k]);
        cy[count] = ys[k] + t * (ys[next] - ys[k]);
        ++count;
    }
    if (count == 2)
        line(cx[0], cy[0], cx[1], cy[1]);
    if (count < 4)
        return;
    // A saddle: its middle says which corners belong together.
    const bool isMiddleAbove = (corners[0] + corners[1] + corners[2] + corners[3]) / 4 >= level;
    const int first = isMiddleAbove == (corners[0] >= level) ? 0 : 3;
    const int second = (first + 1) % 4;
    const int third = (first + 2) % 4;
    const int fourth = (first + 3) % 4;
    line(cx[first], cy[first], cx[second], cy[second]);
    line(cx[third], cy[third], cx[fourth], cy[fourth]);
}

} // namespace SCI
