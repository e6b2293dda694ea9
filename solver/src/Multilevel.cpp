#include "Multilevel.h"

#include <algorithm>
#include <cmath>
#include <queue>

namespace SOLVER {

namespace {

constexpr std::size_t SMALL = 60; ///< cells of a level that is solved directly
constexpr std::size_t MAX_LEVELS = 30;
constexpr double ALIKE = 0.01;    ///< change of a Jacobian, in parts of its diagonal, for which the levels are kept
constexpr double STRONG = 0.25;   ///< conductances that count, in parts of a cell's largest one
constexpr double TRUNCATED = 0.2; ///< weights that are left out, in parts of the largest one

} // namespace

void Multilevel::setJacobian(const BlockMatrix & jacobian, std::span<const double> capacities) {
    m_capacities.assign(capacities.begin(), capacities.end());
    if (m_levels.empty() || !takeOver(jacobian))
        makeLevels(jacobian);
}

/// Whether the levels that there are fit a Jacobian whose first level becomes that of them: heat is nearly linear, and most
/// Jacobians are as the one before.
bool Multilevel::takeOver(const BlockMatrix & jacobian) {
    Level & fine = m_levels.front();
    bool fits = true;
    for (std::size_t r = 0; r < fine.rows(); ++r) {
        const double before = fine.conductance[fine.diagonal[r]];
        const std::uint32_t cell = m_cells[r];
        for (std::size_t e = fine.start[r]; e < fine.start[r + 1]; ++e) {
            const double conductance =
                -m_volumes[cell] * *jacobian.block(m_sources[e]) * m_capacities[m_cells[fine.column[e]]];
            fits = fits && std::fabs(conductance - fine.conductance[e]) <= ALIKE * before;
            fine.conductance[e] = conductance;
        }
        const double capacity = m_volumes[cell] * m_capacities[cell];
        fits = fits && std::fabs(capacity - fine.capacity[fine.diagonal[r]]) <= ALIKE * capacity;
        fine.capacity[fine.diagonal[r]] = capacity;
    }
    return fits;
}

void Multilevel::makeLevels(const BlockMatrix & jacobian) {
    m_levels.clear();
    Level fine;
    fine.start.push_back(0);
    for (std::size_t r = 0; r < jacobian.rows(); ++r) {
        for (std::size_t e = jacobian.rowStart(r); e < jacobian.rowStart(r + 1); ++e) {
            const std::uint32_t c = jacobian.column(e);
            if (c == r)
                fine.diagonal.push_back(static_cast<std::uint32_t>(e));
            fine.column.push_back(c);
            fine.conductance.push_back(static_cast<double>(e)); // its number, until it is in its place
            fine.capacity.push_back(0);
        }
        fine.start.push_back(static_cast<std::uint32_t>(fine.column.size()));
    }
    m_cells = orderByColour(fine);
    m_levels.push_back(inOrder(fine, m_cells));
    std::vector<std::uint32_t> order = m_cells;
    m_sources.clear();
    for (const double source : m_levels.front().conductance)
        m_sources.push_back(static_cast<std::uint32_t>(source));
    takeOver(jacobian);
    while (m_levels.size() < MAX_LEVELS && m_levels.back().rows() > SMALL) {
        std::uint32_t count = 0;
        const std::vector<std::int32_t> coarse = chooseCoarse(m_levels.back(), order, count);
        if (count == 0 || count == m_levels.back().rows())
            break;
        Rows & interpolation = m_levels.back().interpolation;
        interpolation = interpolate(m_levels.back(), coarse);
        const Level next = project(m_levels.back(), count);
        order = orderByColour(next);
        std::vector<std::uint32_t> place(count);
        for (std::uint32_t r = 0; r < count; ++r)
            place[order[r]] = r;
        for (Entry & entry : interpolation.entries)
            entry.column = place[entry.column];
        m_levels.push_back(inOrder(next, order));
    }
}

/// An order of the cells in which those of a colour, no two of them neighbours, follow each other: a sweep does not have to
/// wait for the cell before, and takes away more of the rough errors.
std::vector<std::uint32_t> Multilevel::orderByColour(const Level & level) {
    const std::size_t n = level.rows();
    constexpr std::uint32_t NONE = ~0u;
    std::vector<std::uint32_t> colour(n, NONE);
    std::vector<std::uint32_t> usedBy; // the last cell with a neighbour of each colour
    std::vector<std::vector<std::uint32_t>> cells;
    for (std::uint32_t r = 0; r < n; ++r) {
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
            if (const std::uint32_t of = colour[level.column[e]]; of != NONE)
                usedBy[of] = r;
        const auto free = std::find_if(usedBy.begin(), usedBy.end(), [r](std::uint32_t user) { return user != r; });
        colour[r] = static_cast<std::uint32_t>(free - usedBy.begin());
        if (free == usedBy.end()) {
            usedBy.push_back(NONE);
            cells.emplace_back();
        }
        cells[colour[r]].push_back(r);
    }
    std::vector<std::uint32_t> order;
    order.reserve(n);
    for (const std::vector<std::uint32_t> & some : cells)
        order.insert(order.end(), some.begin(), some.end());
    return order;
}

/// The level with its cells in another order, ready for its sweeps. \param order the cell of each new row
Multilevel::Level Multilevel::inOrder(const Level & level, std::span<const std::uint32_t> order) {
    const std::size_t n = level.rows();
    std::vector<std::uint32_t> place(n);
    for (std::uint32_t r = 0; r < n; ++r)
        place[order[r]] = r;
    Level result;
    result.start.push_back(0);
    std::vector<std::pair<std::uint32_t, std::uint32_t>> row; // column, entry
    for (std::uint32_t r = 0; r < n; ++r) {
        row.clear();
        for (std::uint32_t e = level.start[order[r]]; e < level.start[order[r] + 1]; ++e)
            row.emplace_back(place[level.column[e]], e);
        std::sort(row.begin(), row.end());
        for (const auto & [column, e] : row) {
            if (column == r)
                result.diagonal.push_back(static_cast<std::uint32_t>(result.column.size()));
            result.column.push_back(column);
            result.conductance.push_back(level.conductance[e]);
            result.capacity.push_back(level.capacity[e]);
        }
        result.start.push_back(static_cast<std::uint32_t>(result.column.size()));
    }
    result.others.resize(result.column.size() - n);
    for (std::vector<double> * v : {&result.inverse, &result.right, &result.sum})
        v->assign(n, 0.0);
    return result;
}

/// Marks the cells of the next level with their number, the others with -1. The cell on which most others depend goes on,
/// those that depend on it follow it.
std::vector<std::int32_t> Multilevel::chooseCoarse(const Level & level, std::span<const std::uint32_t> order,
                                                   std::uint32_t & count) {
    const std::size_t n = level.rows();
    std::vector<std::uint32_t> rowOf(n);
    for (std::uint32_t r = 0; r < n; ++r)
        rowOf[order[r]] = r;
    std::vector<bool> isStrong(level.column.size());
    std::vector<std::uint32_t> dependents(n, 0); // how many depend on a cell, those that follow others twice
    std::vector<std::vector<std::uint32_t>> dependentOn(n);
    for (std::uint32_t r = 0; r < n; ++r) {
        double largest = 0;
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
            largest = std::max(largest, -level.conductance[e]);
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e) {
            isStrong[e] = e != level.diagonal[r] && largest > 0 && -level.conductance[e] >= STRONG * largest;
            if (isStrong[e]) {
                dependentOn[level.column[e]].push_back(r);
                ++dependents[level.column[e]];
            }
        }
    }
    constexpr std::int32_t OPEN = -2;
    constexpr std::int32_t FOLLOWS = -1;
    std::vector<std::int32_t> mark(n, OPEN);
    std::priority_queue<std::pair<std::uint32_t, std::uint32_t>> queue; // entries that were overtaken stay in it
    for (std::uint32_t c = 0; c < n; ++c)
        queue.push({dependents[c], static_cast<std::uint32_t>(n) - 1 - order[c]});
    count = 0;
    while (!queue.empty()) {
        const auto [weight, reversed] = queue.top();
        queue.pop();
        const std::uint32_t c = rowOf[n - 1 - reversed];
        if (mark[c] != OPEN || weight != dependents[c])
            continue;
        if (weight == 0) { // nobody depends on it: what sweeps leave of its error is none
            mark[c] = FOLLOWS;
            continue;
        }
        mark[c] = static_cast<std::int32_t>(count++);
        for (const std::uint32_t follower : dependentOn[c]) {
            if (mark[follower] != OPEN)
                continue;
            mark[follower] = FOLLOWS;
            for (std::size_t e = level.start[follower]; e < level.start[follower + 1]; ++e)
                if (const std::uint32_t other = level.column[e]; isStrong[e] && mark[other] == OPEN)
                    queue.push({++dependents[other], static_cast<std::uint32_t>(n) - 1 - order[other]});
        }
    }
    return mark;
}

/// Temperatures of cells that follow, as means of their strong neighbours that go on: what they would have without heat of
/// their own.
Multilevel::Rows Multilevel::interpolate(const Level & level, const std::vector<std::int32_t> & coarse) {
    Rows rows;
    rows.start.push_back(0);
    for (std::size_t r = 0; r < level.rows(); ++r) {
        const std::size_t first = rows.entries.size();
        if (coarse[r] >= 0) {
            rows.entries.push_back({static_cast<std::uint32_t>(coarse[r]), 1});
        } else {
            double largest = 0;
            double sum = 0;
            double diagonal = 0;
            for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e) {
                const double conductance = -level.conductance[e];
                if (e == level.diagonal[r] || conductance < 0)
                    diagonal -= conductance;
                else {
                    sum += conductance;
                    if (coarse[level.column[e]] >= 0)
                        largest = std::max(largest, conductance);
                }
            }
            double taken = 0;
            for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
                if (const double conductance = -level.conductance[e];
                    coarse[level.column[e]] >= 0 && conductance > 0 && conductance >= TRUNCATED * largest) {
                    rows.entries.push_back({static_cast<std::uint32_t>(coarse[level.column[e]]),
                                            static_cast<float>(conductance / largest)});
                    taken += conductance;
                }
            for (std::size_t e = first; e < rows.entries.size(); ++e)
                rows.entries[e].value *= static_cast<float>(sum / taken / std::max(diagonal, 1e-300) * largest);
        }
        rows.start.push_back(static_cast<std::uint32_t>(rows.entries.size()));
    }
    return rows;
}

/// The next level: what its cells and those that follow them exchange and hold.
Multilevel::Level Multilevel::project(const Level & fine, std::size_t count) {
    const Rows & p = fine.interpolation;
    std::vector<std::vector<std::pair<std::uint32_t, double>>> followers(count);
    for (std::uint32_t r = 0; r < p.count(); ++r)
        for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
            followers[p.entries[e].column].push_back({r, static_cast<double>(p.entries[e].value)});
    Level level;
    level.start.push_back(0);
    std::vector<double> conductance(count, 0.0);
    std::vector<double> capacity(count, 0.0);
    std::vector<std::uint32_t> seen(count, ~0u);
    std::vector<std::uint32_t> row;
    for (std::uint32_t r = 0; r < count; ++r) {
        row.clear();
        for (const auto & [f, weight] : followers[r])
            for (std::size_t e = fine.start[f]; e < fine.start[f + 1]; ++e)
                for (std::size_t k = p.start[fine.column[e]]; k < p.start[fine.column[e] + 1]; ++k) {
                    const std::uint32_t c = p.entries[k].column;
                    const double share = weight * static_cast<double>(p.entries[k].value);
                    if (seen[c] != r) {
                        seen[c] = r;
                        conductance[c] = capacity[c] = 0;
                        row.push_back(c);
                    }
                    conductance[c] += share * fine.conductance[e];
                    capacity[c] += share * fine.capacity[e];
                }
        std::sort(row.begin(), row.end());
        for (const std::uint32_t c : row) {
            if (c == r)
                level.diagonal.push_back(static_cast<std::uint32_t>(level.column.size()));
            level.column.push_back(c);
            level.conductance.push_back(conductance[c]);
            level.capacity.push_back(capacity[c]);
        }
        level.start.push_back(static_cast<std::uint32_t>(level.column.size()));
    }
    return level;
}

bool Multilevel::factorise(const BlockMatrix &, double gamma) {
    for (Level & level : m_levels)
        for (std::size_t r = 0; r < level.rows(); ++r) {
            const auto value = [&](std::size_t e) { return level.capacity[e] + gamma * level.conductance[e]; };
            double diagonal = value(level.diagonal[r]);
            for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
                if (e != level.diagonal[r]) {
                    Entry & entry = level.others[e - r - (e > level.diagonal[r] ? 1 : 0)];
                    entry = {level.column[e], static_cast<float>(value(e))};
                    // What rounding takes from an exchange it takes from the cell's balance as well: the sums of rows, small
                    // between large entries, stay as they are.
                    diagonal += value(e) - static_cast<double>(entry.value);
                }
            if (!(diagonal > 0))
                return false;
            level.inverse[r] = 1 / diagonal;
        }
    return m_levels.back().rows() > SMALL || factoriseLast(gamma);
}

/// L U without pivots, as the diagonal outweighs the rest.
bool Multilevel::factoriseLast(double gamma) {
    const Level & level = m_levels.back();
    const std::size_t n = level.rows();
    m_last.assign(n * n, 0.0);
    for (std::size_t r = 0; r < n; ++r)
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
            m_last[r * n + level.column[e]] = level.capacity[e] + gamma * level.conductance[e];
    for (std::size_t k = 0; k < n; ++k) {
        if (!(std::fabs(m_last[k * n + k]) > 0))
            return false;
        for (std::size_t r = k + 1; r < n; ++r) {
            const double factor = m_last[r * n + k] /= m_last[k * n + k];
            for (std::size_t c = k + 1; factor != 0 && c < n; ++c)
                m_last[r * n + c] -= factor * m_last[k * n + c];
        }
    }
    return true;
}

void Multilevel::solveLast(const Level & level) const {
    const std::size_t n = level.rows();
    level.sum = level.right;
    for (std::size_t r = 0; r < n; ++r)
        for (std::size_t c = 0; c < r; ++c)
            level.sum[r] -= m_last[r * n + c] * level.sum[c];
    for (std::size_t r = n; r-- > 0;) {
        for (std::size_t c = r + 1; c < n; ++c)
            level.sum[r] -= m_last[r * n + c] * level.sum[c];
        level.sum[r] /= m_last[r * n + r];
    }
}

/// level.sum becomes the approximate solution for level.right.
void Multilevel::cycle(std::size_t l) const {
    const Level & level = m_levels[l];
    const std::size_t n = level.rows();
    const bool isLast = l + 1 == m_levels.size();
    if (isLast && n <= SMALL) {
        solveLast(level);
        return;
    }
    for (std::size_t r = 0; r < n; ++r)
        level.sum[r] = (level.right[r] - level.product(level.before(r))) * level.inverse[r];
    if (!isLast) {
        const Level & coarse = m_levels[l + 1];
        const Rows & p = level.interpolation;
        std::fill(coarse.right.begin(), coarse.right.end(), 0.0);
        for (std::size_t r = 0; r < n; ++r) {
            const std::span<const Entry> behind = level.behind(r);
            if (behind.empty())
                continue; // the sweep balanced each cell with those before it
            const double rest = level.product(behind);
            for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
                coarse.right[p.entries[e].column] -= static_cast<double>(p.entries[e].value) * rest;
        }
        cycle(l + 1);
        for (std::size_t r = 0; r < n; ++r)
            for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
                level.sum[r] += static_cast<double>(p.entries[e].value) * coarse.sum[p.entries[e].column];
    }
    for (std::size_t r = n; r-- > 0;)
        level.sum[r] =
            (level.right[r] - level.product(level.before(r)) - level.product(level.behind(r))) * level.inverse[r];
}

void Multilevel::solve(std::span<const double> r, std::span<double> z) const {
    const Level & fine = m_levels.front();
    for (std::size_t row = 0; row < m_cells.size(); ++row)
        fine.right[row] = m_volumes[m_cells[row]] * r[m_cells[row]];
    cycle(0);
    for (std::size_t row = 0; row < m_cells.size(); ++row)
        z[m_cells[row]] = m_capacities[m_cells[row]] * fine.sum[row];
}

} // namespace SOLVER
