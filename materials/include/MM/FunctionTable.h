#pragma once

#include <KOR/LinearSpline.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace MM {

/// A tabulated function made for many evaluations with derivative: a polynomial for each interval, found through
/// buckets of equal width. Constant beyond the ends.
class FunctionTable {
public:
    enum class Interpolation {
        LINEAR,        ///< straight lines, as KOR::LinearSpline
        MONOTONE_CUBIC ///< smooth and without overshoot, after Fritsch and Butland (SIAM J. Sci. Stat. Comput. 5, 1984)
    };

    FunctionTable() = default;
    FunctionTable(const std::vector<double> & x, const std::vector<double> & y, Interpolation interpolation);
    FunctionTable(const KOR::LinearSpline & spline, Interpolation interpolation)
        : FunctionTable(spline.x(), spline.y(), interpolation) {}

    bool empty() const { return m_pieces.empty(); }
    double first() const { return m_first; }
    double last() const { return m_last; }

    /// Value at \p x and, in \p derivative, the slope there.
    double value(double x, double & derivative) const {
        if (!(x > m_first)) {
            derivative = 0;
            return m_firstValue;
        }
        if (x >= m_last) {
            derivative = 0;
            return m_lastValue;
        }
        const auto bucket = static_cast<std::size_t>((x - m_first) * m_bucketsPerX);
        std::size_t i = m_buckets[bucket];
        std::size_t end = m_buckets[bucket + 1] + std::size_t{1};
        while (end - i > 1) {
            const std::size_t middle = (i + end) / 2;
            (m_pieces[middle].x <= x ? i : end) = middle;
        }
        const Piece & piece = m_pieces[i];
        const double t = x - piece.x;
        derivative = piece.c1 + t * (2 * piece.c2 + 3 * t * piece.c3);
        return piece.c0 + t * (piece.c1 + t * (piece.c2 + t * piece.c3));
    }
    double value(double x) const {
        double derivative;
        return value(x, derivative);
    }

private:
    struct Piece {
        double x = 0, c0 = 0, c1 = 0, c2 = 0, c3 = 0;
    };
    void makeBuckets();

    std::vector<Piece> m_pieces;          ///< one for each point; the last one ends the search
    std::vector<std::uint32_t> m_buckets; ///< the piece at the begin of each bucket, one more at the end
    double m_bucketsPerX = 0;
    double m_first = 0, m_last = 0;
    double m_firstValue = 0, m_lastValue = 0;
};

} // namespace MM
