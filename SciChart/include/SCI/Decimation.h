#pragma once

#include <SCI/PointModel.h>

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace SCI {

/// Picks the points that draw the same picture as all of them: of those that share a column of pixels the first, the
/// lowest, the highest and the last. No peak is lost, however many points there are.
class Decimation {
public:
    /// Between two points that are not joined.
    static constexpr std::size_t GAP = std::numeric_limits<std::size_t>::max();

    /// \param columnEnds ascending ends of the pixel columns, in the model's x; points from the last on share a column
    /// \param lowest values up to this one are gaps, as are NaN and infinity
    /// \return indices of points from \p first to before \p last, in their order
    static std::vector<std::size_t> sorted(const PointModel & model, std::size_t first, std::size_t last,
                                           const std::vector<double> & columnEnds,
                                           double lowest = -std::numeric_limits<double>::infinity()) {
        std::size_t column = 0;
        return pick(model, first, last, lowest, [&](std::size_t i) {
            const double x = model.x(i);
            while (column < columnEnds.size() && x >= columnEnds[column])
                ++column;
            return static_cast<double>(column);
        });
    }

    /// The same for points in any order. \param columnOf gives the column of an x; what is no number is a gap
    template <typename ColumnOf>
    static std::vector<std::size_t> unsorted(const PointModel & model, double lowest, const ColumnOf & columnOf) {
        return pick(model, 0, model.count(), lowest, [&](std::size_t i) { return columnOf(model.x(i)); });
    }

private:
    /// Of the points in one column, while they follow each other.
    struct Run {
        std::size_t first = GAP, lowest = GAP, highest = GAP, last = GAP;
        double minimum = 0, maximum = 0;
        double column = 0;

        void start(std::size_t i, double y, double newColumn) {
            first = lowest = highest = last = i;
            minimum = maximum = y;
            column = newColumn;
        }
        void add(std::size_t i, double y) {
            last = i;
            if (y < minimum) {
                minimum = y;
                lowest = i;
            } else if (y > maximum) {
                maximum = y;
                highest = i;
            }
        }
        void flush(std::vector<std::size_t> & picked) {
            if (first == GAP)
                return;
            std::array<std::size_t, 4> points{first, std::min(lowest, highest), std::max(lowest, highest), last};
            picked.insert(picked.end(), points.begin(), std::unique(points.begin(), points.end()));
            first = GAP;
        }
    };

    template <typename Column>
    static std::vector<std::size_t> pick(const PointModel & model, std::size_t first, std::size_t last, double lowest,
                                         const Column & columnAt) {
        std::vector<std::size_t> picked;
        Run run;
        for (std::size_t i = first; i < last; ++i) {
            const double y = model.y(i);
            const double column = columnAt(i);
            // NaN fails every comparison.
            if (!(y > lowest && y < std::numeric_limits<double>::infinity() &&
                  column < std::numeric_limits<double>::infinity())) {
                run.flush(picked);
                if (!picked.empty() && picked.back() != GAP)
                    picked.push_back(GAP);
                continue;
            }
            if (run.first != GAP && column == run.column) {
                run.add(i, y);
                continue;
            }
            run.flush(picked);
            run.start(i, y, column);
        }
        run.flush(picked);
        if (!picked.empty() && picked.back() == GAP)
            picked.pop_back();
        return picked;
    }
};

} // namespace SCI
