#include <MM/FunctionTable.h>

#include <KOR/Exception.h>

#include <cmath>
#include <limits>

namespace MM {

namespace {

/// Slopes at the points for a monotone cubic: the weighted harmonic mean of the neighbouring slopes, 0 at an extremum
/// (Fritsch and Butland, SIAM J. Sci. Stat. Comput. 5, 1984).
std::vector<double> monotoneSlopes(const std::vector<double> & x, const std::vector<double> & y) {
    const std::size_t intervals = x.size() - 1;
    const auto width = [&](std::size_t i) { return x[i + 1] - x[i]; };
    const auto slope = [&](std::size_t i) { return (y[i + 1] - y[i]) / width(i); };
    std::vector<double> slopes(x.size());
    slopes.front() = slope(0);
    slopes.back() = slope(intervals - 1);
    for (std::size_t i = 1; i < intervals; ++i) {
        const double before = slope(i - 1);
        const double after = slope(i);
        if (before * after <= 0) // also where the product is too small for a number
            continue;
        const double a = 2 * width(i) + width(i - 1);
        const double b = width(i) + 2 * width(i - 1);
        slopes[i] = (a + b) / (a / before + b / after);
    }
    return slopes;
}

} // namespace

FunctionTable::FunctionTable(const std::vector<double> & x, const std::vector<double> & y,
                             Interpolation interpolation) {
    if (x.empty() || x.size() != y.size())
        throw KOR::Exception("Expected as many x as y values.", "[FunctionTable::FunctionTable]");
    m_first = x.front();
    m_last = x.back();
    m_firstValue = y.front();
    m_lastValue = y.back();
    m_pieces.resize(x.size());
    const bool isCubic = interpolation == Interpolation::MONOTONE_CUBIC && x.size() > 2;
    const std::vector<double> slopes = isCubic ? monotoneSlopes(x, y) : std::vector<double>();
    for (std::size_t i = 0; i + 1 < x.size(); ++i) {
        const double width = x[i + 1] - x[i];
        const double slope = (y[i + 1] - y[i]) / width;
        Piece & piece = m_pieces[i] = {x[i], y[i], slope, 0, 0};
        if (isCubic) {
            piece.c1 = slopes[i];
            piece.c2 = (3 * slope - 2 * slopes[i] - slopes[i + 1]) / width;
            piece.c3 = (slopes[i] + slopes[i + 1] - 2 * slope) / (width * width);
        }
    }
    m_pieces.back() = {std::numeric_limits<double>::infinity(), y.back(), 0, 0, 0};
    makeBuckets();
}

void FunctionTable::makeBuckets() {
    const std::size_t count = 4 * m_pieces.size();
    m_bucketsPerX = m_last > m_first ? static_cast<double>(count) / (m_last - m_first) : 0;
    m_buckets.resize(count + 2);
    std::size_t piece = 0;
    for (std::size_t bucket = 0; bucket < m_buckets.size(); ++bucket) {
        // A little early, so that rounding of a bucket's number does no harm: the search runs to the piece at the begin
        // of the next bucket.
        const double begin = (static_cast<double>(bucket) - 1e-6) / m_bucketsPerX + m_first;
        while (piece + 1 < m_pieces.size() && m_pieces[piece + 1].x <= begin)
            ++piece;
        m_buckets[bucket] = static_cast<std::uint32_t>(piece);
    }
}

} // namespace MM
