#include "Multilevel.h"

#include "SmallBlocks.h"

#include <SOLVER/Physics.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

namespace {

constexpr std::uint32_t NONE = ~0u;
constexpr std::size_t MAX_LEVELS = 30;
constexpr int PAIRINGS = 2;    ///< aggregates of up to four cells
constexpr int CYCLES = 2;      ///< visits of the next level: W cycles
constexpr double STRONG = 0.1; ///< couplings along which cells join, in parts of a cell's strongest
/// Constant on aggregates, errors are stiffer on the coarse level than they are; by this much their couplings are weakened
/// (Braess, Computing 55 (1995) 379, sec. 4).
constexpr double STIFFENING = 1.8;
/// Balances of water are weighed by its heat of evaporation, which makes them comparable to those of heat.
constexpr double WATER_WEIGHT = H_EVAPORATION;

/// How strongly two cells are coupled, relative to what the first holds to.
double coupling(const BlockMatrix & matrix, std::size_t row, std::size_t entry) {
    const std::size_t b = matrix.blockSize();
    const double * const own = matrix.block(matrix.diagonal(row));
    const double * const other = matrix.block(entry);
    double sum = 0;
    for (std::size_t i = 0; i < b; ++i)
        sum += std::fabs(other[i * (b + 1)]) / (std::fabs(own[i * (b + 1)]) + 1e-300);
    return sum;
}

/// Joins each cell with the neighbour to which it is coupled most. \return of each cell its pair
std::vector<std::uint32_t> pairUp(const BlockMatrix & matrix, std::size_t & count) {
    std::vector<std::uint32_t> pair(matrix.rows(), NONE);
    count = 0;
    for (std::size_t r = 0; r < matrix.rows(); ++r) {
        if (pair[r] != NONE)
            continue;
        std::size_t best = NONE;
        double most = 0;
        double strongest = 0;
        for (std::size_t e = matrix.rowStart(r); e < matrix.rowStart(r + 1); ++e) {
            const std::uint32_t c = matrix.column(e);
            if (c == r)
                continue;
            const double strength = coupling(matrix, r, e);
            strongest = std::max(strongest, strength);
            if (pair[c] == NONE && strength > most) {
                most = strength;
                best = c;
            }
        }
        pair[r] = static_cast<std::uint32_t>(count);
        if (best != NONE && most >= STRONG * strongest)
            pair[best] = static_cast<std::uint32_t>(count);
        ++count;
    }
    return pair;
}

/// The pattern of the pairs' couplings.
BlockMatrix coarsePattern(const BlockMatrix & matrix, const std::vector<std::uint32_t> & aggregate, std::size_t count) {
    std::vector<std::vector<std::uint32_t>> neighbours(count);
    for (std::size_t r = 0; r < matrix.rows(); ++r)
        for (std::size_t e = matrix.rowStart(r); e < matrix.rowStart(r + 1); ++e)
            neighbours[aggregate[r]].push_back(aggregate[matrix.column(e)]);
    for (std::vector<std::uint32_t> & list : neighbours) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    return {neighbours, matrix.blockSize()};
}

std::vector<std::uint32_t> entryTargets(const BlockMatrix & matrix, const std::vector<std::uint32_t> & aggregate,
                                        const BlockMatrix & coarse) {
    std::vector<std::uint32_t> target(matrix.entryCount());
    for (std::size_t r = 0; r < matrix.rows(); ++r)
        for (std::size_t e = matrix.rowStart(r); e < matrix.rowStart(r + 1); ++e)
            target[e] = static_cast<std::uint32_t>(coarse.find(aggregate[r], aggregate[matrix.column(e)]));
    return target;
}

void addEntries(const BlockMatrix & fine, const std::vector<std::uint32_t> & target, BlockMatrix & coarse) {
    const std::size_t size = fine.blockSize() * fine.blockSize();
    std::fill(coarse.block(0), coarse.block(0) + coarse.entryCount() * size, 0.0);
    for (std::size_t e = 0; e < fine.entryCount(); ++e) {
        double * const to = coarse.block(target[e]);
        const double * const from = fine.block(e);
        for (std::size_t i = 0; i < size; ++i)
            to[i] += from[i];
    }
}

} // namespace

Multilevel::Level::Level(const BlockMatrix & pattern) : matrix(pattern), smoother(pattern) {
    const std::size_t size = pattern.rows() * pattern.blockSize();
    for (std::vector<double> * v : {&right, &sum, &residual})
        v->resize(size);
}

Multilevel::Multilevel(const BlockMatrix & pattern, std::vector<double> volumes)
    : m_blockSize(pattern.blockSize()), m_volumes(std::move(volumes)) {
    m_levels.emplace_back(pattern);
}

void Multilevel::setJacobian(const BlockMatrix & jacobian, std::span<const double> capacities) {
    m_capacities.assign(capacities.begin(), capacities.end());
    // The couplings alone, as for an endless step: then aggregates hold for every step size.
    constexpr double LONG_STEP = 1e12;
    scaleFine(jacobian, LONG_STEP);
    makeLevels();
}

/// The matrix of the first level: V (I - gamma J) C.
void Multilevel::scaleFine(const BlockMatrix & jacobian, double gamma) {
    BlockMatrix & fine = m_levels.front().matrix;
    const std::size_t b = m_blockSize;
    for (std::size_t r = 0; r < fine.rows(); ++r)
        for (std::size_t e = fine.rowStart(r); e < fine.rowStart(r + 1); ++e) {
            const double * const from = jacobian.block(e);
            const double * const capacity = m_capacities.data() + fine.column(e) * b * b;
            double * const to = fine.block(e);
            for (std::size_t i = 0; i < b; ++i) {
                const double weight = m_volumes[r] * (i == 1 ? WATER_WEIGHT : 1.0);
                for (std::size_t j = 0; j < b; ++j) {
                    double value = 0;
                    for (std::size_t k = 0; k < b; ++k)
                        value += ((fine.column(e) == r && i == k ? 1.0 : 0.0) - gamma * from[i * b + k]) *
                                 capacity[k * b + j];
                    to[i * b + j] = weight * value;
                }
            }
        }
}

void Multilevel::makeLevels() {
    Level first = std::move(m_levels.front());
    m_levels.clear();
    m_levels.push_back(std::move(first));
    while (m_levels.size() < MAX_LEVELS && m_levels.back().matrix.rows() > 1) {
        Level & fine = m_levels.back();
        std::size_t count = 0;
        std::vector<std::uint32_t> aggregate = pairUp(fine.matrix, count);
        BlockMatrix coarse = coarsePattern(fine.matrix, aggregate, count);
        std::vector<std::uint32_t> target = entryTargets(fine.matrix, aggregate, coarse);
        addEntries(fine.matrix, target, coarse);
        for (int i = 1; i < PAIRINGS; ++i) {
            const std::vector<std::uint32_t> pairs = pairUp(coarse, count);
            BlockMatrix next = coarsePattern(coarse, pairs, count);
            const std::vector<std::uint32_t> further = entryTargets(coarse, pairs, next);
            for (std::uint32_t & a : aggregate)
                a = pairs[a];
            for (std::uint32_t & t : target)
                t = further[t];
            coarse = std::move(next);
            addEntries(fine.matrix, target, coarse);
        }
        if (10 * count > 9 * fine.matrix.rows())
            break;
        fine.aggregate = std::move(aggregate);
        fine.target = std::move(target);
        m_levels.emplace_back(coarse);
        m_levels.back().matrix = std::move(coarse);
    }
}

/// Sums over aggregates, with their couplings weakened: what a cell loses to others is taken from its diagonal as well.
void Multilevel::collect(const Level & fine, BlockMatrix & coarse) {
    addEntries(fine.matrix, fine.target, coarse);
    const std::size_t size = coarse.blockSize() * coarse.blockSize();
    constexpr double TAKEN = 1 - 1 / STIFFENING;
    for (std::size_t r = 0; r < coarse.rows(); ++r)
        for (std::size_t e = coarse.rowStart(r); e < coarse.rowStart(r + 1); ++e) {
            const std::uint32_t c = coarse.column(e);
            if (c == r)
                continue;
            double * const diagonal = coarse.block(coarse.diagonal(c));
            double * const block = coarse.block(e);
            for (std::size_t i = 0; i < size; ++i) {
                diagonal[i] += TAKEN * block[i];
                block[i] -= TAKEN * block[i];
            }
        }
}

bool Multilevel::factorise(const BlockMatrix & jacobian, double gamma) {
    scaleFine(jacobian, gamma);
    for (std::size_t l = 0; l < m_levels.size(); ++l) {
        if (l > 0)
            collect(m_levels[l - 1], m_levels[l].matrix);
        if (!m_levels[l].smoother.factorise(m_levels[l].matrix))
            return false;
    }
    return true;
}

/// level.sum becomes the approximate solution for level.right: first what the next level knows, then the rough rest.
void Multilevel::cycle(std::size_t l) const {
    const Level & level = m_levels[l];
    if (l + 1 == m_levels.size()) {
        level.smoother.solve(level.right, level.sum);
        return;
    }
    const Level & coarse = m_levels[l + 1];
    const std::size_t b = m_blockSize;
    const auto takeResidual = [&level] {
        level.matrix.multiply(level.sum, level.residual);
        for (std::size_t i = 0; i < level.residual.size(); ++i)
            level.residual[i] = level.right[i] - level.residual[i];
    };
    std::fill(level.sum.begin(), level.sum.end(), 0.0);
    for (int k = 0; k < (l == 0 ? 1 : CYCLES); ++k) {
        if (k > 0)
            takeResidual();
        const std::vector<double> & left = k > 0 ? level.residual : level.right;
        std::fill(coarse.right.begin(), coarse.right.end(), 0.0);
        for (std::size_t c = 0; c < level.aggregate.size(); ++c)
            for (std::size_t u = 0; u < b; ++u)
                coarse.right[b * level.aggregate[c] + u] += left[b * c + u];
        cycle(l + 1);
        for (std::size_t c = 0; c < level.aggregate.size(); ++c)
            for (std::size_t u = 0; u < b; ++u)
                level.sum[b * c + u] += coarse.sum[b * level.aggregate[c] + u];
        takeResidual();
        level.smoother.solve(level.residual, level.residual);
        for (std::size_t i = 0; i < level.sum.size(); ++i)
            level.sum[i] += level.residual[i];
    }
}

void Multilevel::solve(std::span<const double> r, std::span<double> z) const {
    const Level & fine = m_levels.front();
    const std::size_t b = m_blockSize;
    for (std::size_t c = 0; c < m_volumes.size(); ++c)
        for (std::size_t u = 0; u < b; ++u)
            fine.right[b * c + u] = m_volumes[c] * (u == 1 ? WATER_WEIGHT : 1.0) * r[b * c + u];
    cycle(0);
    for (std::size_t c = 0; c < m_volumes.size(); ++c)
        for (std::size_t u = 0; u < b; ++u) {
            double value = 0;
            for (std::size_t v = 0; v < b; ++v)
                value += m_capacities[(c * b + u) * b + v] * fine.sum[b * c + v];
            z[b * c + u] = value;
        }
}

} // namespace SOLVER
