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

void Multilevel::Level::resizeVectors() {
    for (std::vector<double> * v : {&inverse, &right, &sum})
        v->assign(rows(), 0.0);
}

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
        for (std::size_t e = fine.start[r]; e < fine.start[r + 1]; ++e) {
            const double conductance = -m_volumes[r] * *jacobian.block(e) * m_capacities[fine.column[e]];
            fits = fits && std::fabs(conductance - fine.conductance[e]) <= ALIKE * before;
            fine.conductance[e] = conductance;
        }
        const double capacity = m_volumes[r] * m_capacities[r];
        fits = fits && std::fabs(capacity - fine.capacity[fine.diagonal[r]]) <= ALIKE * capacity;
        fine.capacity[fine.diagonal[r]] = capacity;
    }
    return fits;
}

void Multilevel::makeLevels(const BlockMatrix & jacobian) {
    m_levels.clear();
    Level & fine = m_levels.emplace_back();
    fine.start.push_back(0);
    for (std::size_t r = 0; r < jacobian.rows(); ++r) {
        for (std::size_t e = jacobian.rowStart(r); e < jacobian.rowStart(r + 1); ++e) {
            const std::uint32_t c = jacobian.column(e);
            if (c == r)
                fine.diagonal.push_back(static_cast<std::uint32_t>(e));
            fine.column.push_back(c);
            fine.conductance.push_back(-m_volumes[r] * *jacobian.block(e) * m_capacities[c]);
            fine.capacity.push_back(c == r ? m_volumes[r] * m_capacities[r] : 0);
        }
        fine.start.push_back(static_cast<std::uint32_t>(fine.column.size()));
    }
    fine.resizeVectors();
    while (m_levels.size() < MAX_LEVELS && m_levels.back().rows() > SMALL) {
        std::uint32_t count = 0;
        const std::vector<std::int32_t> coarse = chooseCoarse(m_levels.back(), count);
        if (count == 0 || count == m_levels.back().rows())
            break;
        m_levels.back().interpolation = interpolate(m_levels.back(), coarse);
        Level next = project(m_levels.back(), count);
        m_levels.push_back(std::move(next));
    }
}

/// Marks the cells of the next level with their number, the others with -1. The cell on which most others depend goes on,
/// those that depend on it follow it.
std::vector<std::int32_t> Multilevel::chooseCoarse(const Level & level, std::uint32_t & count) {
    const std::size_t n = level.rows();
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
        queue.push({dependents[c], static_cast<std::uint32_t>(n) - 1 - c});
    count = 0;
    while (!queue.empty()) {
        const auto [weight, reversed] = queue.top();
        queue.pop();
        const std::uint32_t c = static_cast<std::uint32_t>(n) - 1 - reversed;
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
                    queue.push({++dependents[other], static_cast<std::uint32_t>(n) - 1 - other});
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
        const std::size_t first = rows.column.size();
        if (coarse[r] >= 0) {
            rows.column.push_back(static_cast<std::uint32_t>(coarse[r]));
            rows.weight.push_back(1);
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
                    rows.column.push_back(static_cast<std::uint32_t>(coarse[level.column[e]]));
                    rows.weight.push_back(conductance);
                    taken += conductance;
                }
            for (std::size_t e = first; e < rows.weight.size(); ++e)
                rows.weight[e] *= sum / taken / std::max(diagonal, 1e-300);
        }
        rows.start.push_back(static_cast<std::uint32_t>(rows.column.size()));
    }
    return rows;
}

/// The next level: what its cells and those that follow them exchange and hold.
Multilevel::Level Multilevel::project(const Level & fine, std::size_t count) {
    const Rows & p = fine.interpolation;
    std::vector<std::vector<std::pair<std::uint32_t, double>>> followers(count);
    for (std::uint32_t r = 0; r < p.count(); ++r)
        for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
            followers[p.column[e]].push_back({r, p.weight[e]});
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
                    const std::uint32_t c = p.column[k];
                    if (seen[c] != r) {
                        seen[c] = r;
                        conductance[c] = capacity[c] = 0;
                        row.push_back(c);
                    }
                    conductance[c] += weight * fine.conductance[e] * p.weight[k];
                    capacity[c] += weight * fine.capacity[e] * p.weight[k];
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
    level.resizeVectors();
    return level;
}

bool Multilevel::factorise(const BlockMatrix &, double gamma) {
    for (Level & level : m_levels) {
        level.value.resize(level.column.size());
        for (std::size_t e = 0; e < level.value.size(); ++e)
            level.value[e] = level.capacity[e] + gamma * level.conductance[e];
        for (std::size_t r = 0; r < level.rows(); ++r) {
            if (!(level.value[level.diagonal[r]] > 0))
                return false;
            level.inverse[r] = 1 / level.value[level.diagonal[r]];
        }
    }
    return m_levels.back().rows() > SMALL || factoriseLast();
}

/// L U without pivots, as the diagonal outweighs the rest.
bool Multilevel::factoriseLast() {
    const Level & level = m_levels.back();
    const std::size_t n = level.rows();
    m_last.assign(n * n, 0.0);
    for (std::size_t r = 0; r < n; ++r)
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
            m_last[r * n + level.column[e]] = level.value[e];
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

/// Balances one cell after the other, from a sum of zero.
void Multilevel::sweepForward(const Level & level) {
    for (std::size_t r = 0; r < level.rows(); ++r) {
        double rest = level.right[r];
        for (std::size_t e = level.start[r]; e < level.diagonal[r]; ++e)
            rest -= level.value[e] * level.sum[level.column[e]];
        level.sum[r] = rest * level.inverse[r];
    }
}

void Multilevel::sweepBackward(const Level & level) {
    for (std::size_t r = level.rows(); r-- > 0;) {
        double rest = level.right[r];
        for (std::size_t e = level.start[r]; e < level.start[r + 1]; ++e)
            rest -= level.value[e] * level.sum[level.column[e]];
        level.sum[r] += rest * level.inverse[r];
    }
}

/// level.sum becomes the approximate solution for level.right.
void Multilevel::cycle(std::size_t l) const {
    const Level & level = m_levels[l];
    const std::size_t n = level.rows();
    if (l + 1 == m_levels.size() && n <= SMALL) {
        level.sum = level.right;
        for (std::size_t r = 0; r < n; ++r)
            for (std::size_t c = 0; c < r; ++c)
                level.sum[r] -= m_last[r * n + c] * level.sum[c];
        for (std::size_t r = n; r-- > 0;) {
            for (std::size_t c = r + 1; c < n; ++c)
                level.sum[r] -= m_last[r * n + c] * level.sum[c];
            level.sum[r] /= m_last[r * n + r];
        }
        return;
    }
    sweepForward(level);
    if (l + 1 < m_levels.size()) {
        const Level & coarse = m_levels[l + 1];
        const Rows & p = level.interpolation;
        std::fill(coarse.right.begin(), coarse.right.end(), 0.0);
        for (std::size_t r = 0; r < n; ++r) {
            double rest = 0; // the sweep balanced each cell with those before it
            for (std::size_t e = level.diagonal[r] + 1; e < level.start[r + 1]; ++e)
                rest -= level.value[e] * level.sum[level.column[e]];
            for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
                coarse.right[p.column[e]] += p.weight[e] * rest;
        }
        cycle(l + 1);
        for (std::size_t r = 0; r < n; ++r)
            for (std::size_t e = p.start[r]; e < p.start[r + 1]; ++e)
                level.sum[r] += p.weight[e] * coarse.sum[p.column[e]];
    }
    sweepBackward(level);
}

void Multilevel::solve(std::span<const double> r, std::span<double> z) const {
    const Level & fine = m_levels.front();
    for (std::size_t c = 0; c < m_volumes.size(); ++c)
        fine.right[c] = m_volumes[c] * r[c];
    cycle(0);
    for (std::size_t c = 0; c < m_volumes.size(); ++c)
        z[c] = m_capacities[c] * fine.sum[c];
}

} // namespace SOLVER
