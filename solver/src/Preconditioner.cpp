#include "Preconditioner.h"

#include "SmallBlocks.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

namespace SOLVER {

namespace {

using Pattern = std::vector<std::vector<std::uint32_t>>;

constexpr std::size_t MOST_ENTRIES = 100; ///< of a row on average; more are slower than a direct solver

/// The pattern with fill up to a level: what eliminating a cell adds is one level above the entries it comes from.
Pattern withFill(const Pattern & neighbours, int most) {
    Pattern pattern(neighbours.size());
    std::vector<std::map<std::uint32_t, int>> levels(neighbours.size()); // right of the diagonal
    std::size_t entries = 0;
    for (std::uint32_t row = 0; row < neighbours.size(); ++row) {
        std::map<std::uint32_t, int> level;
        for (const std::uint32_t column : neighbours[row])
            level.emplace(column, 0);
        for (auto left = level.begin(); left->first < row; ++left)
            for (const auto & [column, above] : levels[left->first]) {
                const int sum = left->second + above + 1;
                if (sum > most)
                    continue;
                int & known = level.emplace(column, sum).first->second;
                known = std::min(known, sum);
            }
        for (const auto & [column, of] : level)
            pattern[row].push_back(column);
        levels[row] = {level.upper_bound(row), level.end()};
        entries += level.size();
        if (entries > MOST_ENTRIES * neighbours.size())
            throw KOR::Exception(
                KOR::text(
                    "The incomplete factors take more than %1 entries a cell; choose fewer levels of fill-in than %2.",
                    MOST_ENTRIES, most),
                "[BlockIlu::BlockIlu]");
    }
    return pattern;
}

} // namespace

BlockIlu::BlockIlu(const Model & model, std::vector<double> volumes, int fill)
    : m_factors(withFill(model.neighbours(), fill), model.unknowns()), m_volumes(std::move(volumes)) {}

bool BlockIlu::factorise(const BlockMatrix & jacobian, double gamma) {
    m_factors.setShifted(jacobian, gamma);
    if (!(jacobian.blockSize() == 2 ? factoriseBlocks<2>() : factoriseBlocks<1>()))
        return false;
    const double * const values = m_factors.block(0);
    m_single.assign(values, values + m_factors.entryCount() * m_factors.blockSize() * m_factors.blockSize());
    return true;
}

void BlockIlu::solve(std::span<const double> r, std::span<double> z) const {
    if (z.data() != r.data())
        std::copy(r.begin(), r.end(), z.begin());
    if (m_factors.blockSize() == 2)
        solveBlocks<2>(z);
    else
        solveBlocks<1>(z);
}

template <std::size_t B> bool BlockIlu::factoriseBlocks() {
    constexpr double KEPT = 0.97; // of what is left out; with all of it rough errors stay (measured)
    BlockMatrix & f = m_factors;
    for (std::uint32_t k = 0; k < f.rows(); ++k) {
        if (!invert<B>(f.block(f.diagonal(k))))
            return false;
        for (std::size_t below = f.diagonal(k) + 1; below < f.rowStart(k + 1); ++below) {
            const std::uint32_t r = f.column(below); // the pattern is symmetric
            const std::size_t e = f.find(r, k);
            double scaled[B * B];
            product<B>(f.block(e), f.block(f.diagonal(k)), scaled);
            std::copy(scaled, scaled + B * B, f.block(e));
            // Both rows ascend: one walk finds the columns they share.
            std::size_t target = e + 1;
            for (std::size_t u = f.diagonal(k) + 1; u < f.rowStart(k + 1); ++u) {
                const std::uint32_t c = f.column(u);
                while (target < f.rowStart(r + 1) && f.column(target) < c)
                    ++target;
                if (target < f.rowStart(r + 1) && f.column(target) == c) {
                    subtractProduct<B>(f.block(target), scaled, f.block(u));
                } else {
                    const double share = KEPT * m_volumes[r] / m_volumes[c];
                    double left[B * B];
                    for (std::size_t i = 0; i < B * B; ++i)
                        left[i] = share * scaled[i];
                    subtractProduct<B>(f.block(f.diagonal(c)), left, f.block(u));
                }
            }
        }
    }
    return true;
}

template <std::size_t B> void BlockIlu::solveBlocks(std::span<double> z) const {
    const BlockMatrix & f = m_factors;
    const auto block = [this](std::size_t entry) { return m_single.data() + entry * B * B; };
    for (std::size_t row = 0; row < f.rows(); ++row)
        for (std::size_t e = f.rowStart(row); e < f.diagonal(row); ++e)
            subtractTimes<B>(z.data() + B * row, block(e), z.data() + B * f.column(e));
    for (std::size_t row = f.rows(); row-- > 0;) {
        for (std::size_t e = f.diagonal(row) + 1; e < f.rowStart(row + 1); ++e)
            subtractTimes<B>(z.data() + B * row, block(e), z.data() + B * f.column(e));
        apply<B>(block(f.diagonal(row)), z.data() + B * row);
    }
}

LineSolver::LineSolver(const Model & model, int direction) : m_blockSize(model.unknowns()) {
    std::vector<Pair> pairs;
    for (const ModelInput::Face & face : model.input().faces)
        if (face.direction == direction)
            pairs.push_back({face.a, face.b});
        else
            m_isComplete = false;
    makeLines(model.cellCount(), pairs);
    m_isComplete = m_isComplete && pairs.empty() && model.input().radiation.empty();
}

LineSolver::LineSolver(std::size_t cells, std::size_t blockSize, std::vector<Pair> & pairs) : m_blockSize(blockSize) {
    makeLines(cells, pairs);
    m_isComplete = pairs.empty();
}

void LineSolver::makeLines(std::size_t cells, std::vector<Pair> & pairs) {
    std::vector<std::uint32_t> before(cells, NONE);
    std::vector<std::uint32_t> after(cells, NONE);
    std::vector<std::uint32_t> line(cells); // towards the cell that stands for the line, for finding rings
    std::iota(line.begin(), line.end(), 0u);
    const auto lineOf = [&line](std::uint32_t cell) {
        while (line[cell] != cell)
            cell = line[cell] = line[line[cell]];
        return cell;
    };
    std::vector<Pair> left;
    for (const Pair & pair : pairs) {
        const auto [a, b] = pair;
        if (before[b] != NONE || after[a] != NONE || lineOf(a) == lineOf(b)) {
            left.push_back(pair);
            continue;
        }
        before[b] = a;
        after[a] = b;
        line[lineOf(b)] = lineOf(a);
        m_pairs.push_back(pair);
    }
    pairs = std::move(left);
    for (std::uint32_t c = 0; c < cells; ++c)
        if (before[c] == NONE)
            for (std::uint32_t cell = c; cell != NONE; cell = after[cell])
                m_steps.push_back({cell, before[cell]});
    const std::size_t size = m_steps.size() * m_blockSize * m_blockSize;
    m_lower.resize(size);
    m_upper.resize(size);
    m_diagonal.resize(size);
}

bool LineSolver::factorise(const BlockMatrix & jacobian, double gamma) {
    return factorise(jacobian, gamma, {});
}

bool LineSolver::factorise(const BlockMatrix & jacobian, double gamma, std::span<const double> diagonal) {
    return m_blockSize == 2 ? factoriseBlocks<2>(jacobian, gamma, diagonal)
                            : factoriseBlocks<1>(jacobian, gamma, diagonal);
}

template <std::size_t B>
bool LineSolver::factoriseBlocks(const BlockMatrix & jacobian, double gamma, std::span<const double> given) {
    constexpr std::size_t SIZE = B * B;
    const auto scale = [](const double * from, double factor, double * to) {
        for (std::size_t i = 0; i < SIZE; ++i)
            to[i] = factor * from[i];
    };
    for (std::size_t s = 0; s < m_steps.size(); ++s) {
        const Step & step = m_steps[s];
        double * const diagonal = m_diagonal.data() + s * SIZE;
        scale(given.empty() ? jacobian.block(jacobian.diagonal(step.cell)) : given.data() + step.cell * SIZE, -gamma,
              diagonal);
        for (std::size_t i = 0; i < B; ++i)
            diagonal[i * (B + 1)] += 1;
        if (step.previous != NONE) {
            double left[SIZE];
            double * const lower = m_lower.data() + s * SIZE;
            double * const upper = m_upper.data() + s * SIZE;
            scale(jacobian.block(jacobian.find(step.cell, step.previous)), -gamma, left);
            scale(jacobian.block(jacobian.find(step.previous, step.cell)), -gamma, upper);
            product<B>(left, diagonal - SIZE, lower); // the previous diagonal is inverted already
            subtractProduct<B>(diagonal, lower, upper);
        }
        if (!invert<B>(diagonal))
            return false;
    }
    return true;
}

void LineSolver::solve(std::span<const double> r, std::span<double> z) const {
    if (z.data() != r.data())
        std::copy(r.begin(), r.end(), z.begin());
    if (m_blockSize == 2)
        solveBlocks<2>(z);
    else
        solveBlocks<1>(z);
}

template <std::size_t B> void LineSolver::solveBlocks(std::span<double> z) const {
    constexpr std::size_t SIZE = B * B;
    for (std::size_t s = 0; s < m_steps.size(); ++s)
        if (m_steps[s].previous != NONE)
            subtractTimes<B>(z.data() + B * m_steps[s].cell, m_lower.data() + s * SIZE,
                             z.data() + B * m_steps[s].previous);
    for (std::size_t s = m_steps.size(); s-- > 0;) {
        double * const own = z.data() + B * m_steps[s].cell;
        if (s + 1 < m_steps.size() && m_steps[s + 1].previous != NONE)
            subtractTimes<B>(own, m_upper.data() + (s + 1) * SIZE, z.data() + B * m_steps[s + 1].cell);
        apply<B>(m_diagonal.data() + s * SIZE, own);
    }
}

AdiPreconditioner::AdiPreconditioner(const Model & model) : m_blockSize(model.unknowns()) {
    m_volumes.reserve(model.cellCount());
    for (const ModelInput::Cell & cell : model.input().cells)
        m_volumes.push_back(cell.volume);
    // Each pair of neighbours belongs to one part, whatever couples them.
    std::array<std::vector<LineSolver::Pair>, 3> pairs;
    std::set<LineSolver::Pair> known;
    const auto add = [&](std::uint32_t a, std::uint32_t b, int direction) {
        if (known.insert({std::min(a, b), std::max(a, b)}).second)
            pairs[static_cast<std::size_t>(direction)].push_back({a, b});
    };
    for (const ModelInput::Face & face : model.input().faces)
        add(face.a, face.b, face.direction);
    for (const ModelInput::RadiationLink & link : model.input().radiation)
        add(link.a, link.b, link.direction);
    for (std::vector<LineSolver::Pair> & ofDirection : pairs)
        while (!ofDirection.empty())
            m_parts.emplace_back(model.cellCount(), m_blockSize, ofDirection);
    if (m_parts.empty())
        m_parts.emplace_back(model, 0);
    m_diagonals.assign(m_parts.size(), std::vector<double>(model.cellCount() * m_blockSize * m_blockSize));
}

void AdiPreconditioner::splitDiagonals(const BlockMatrix & jacobian) {
    const std::size_t size = m_blockSize * m_blockSize;
    for (std::size_t p = 0; p < m_parts.size(); ++p) {
        std::vector<double> & diagonal = m_diagonals[p];
        std::fill(diagonal.begin(), diagonal.end(), 0.0);
        const auto take = [&](std::uint32_t cell, std::uint32_t neighbour) {
            const double * const given = jacobian.block(jacobian.find(neighbour, cell));
            const double ratio = m_volumes[neighbour] / m_volumes[cell];
            for (std::size_t i = 0; i < size; ++i)
                diagonal[cell * size + i] -= ratio * given[i];
        };
        for (const auto & [a, b] : m_parts[p].pairs()) {
            take(a, b);
            take(b, a);
        }
    }
}

bool AdiPreconditioner::factoriseParts(const BlockMatrix & jacobian, double gamma) {
    m_gamma = gamma;
    for (std::size_t p = 0; p < m_parts.size(); ++p)
        if (!m_parts[p].factorise(jacobian, gamma, m_diagonals[p]))
            return false;
    return true;
}

bool AdiPreconditioner::factorise(const BlockMatrix & jacobian, double gamma) {
    splitDiagonals(jacobian);
    const std::size_t size = m_blockSize * m_blockSize;
    for (std::size_t c = 0; c < jacobian.rows(); ++c)
        for (std::size_t i = 0; i < size; ++i) {
            double rest = jacobian.block(jacobian.diagonal(c))[i];
            for (const std::vector<double> & diagonal : m_diagonals)
                rest -= diagonal[c * size + i];
            m_diagonals.front()[c * size + i] += rest;
        }
    return factoriseParts(jacobian, gamma);
}

bool AdiPreconditioner::factorise(const BlockMatrix & jacobian, double gamma, const ExchangeRows & exchange) {
    splitDiagonals(jacobian);
    // The rows of a block are heat and water; with one unknown only that of its own balance.
    const bool isWaterOnly = m_blockSize == 1 && exchange.isWaterOnly();
    for (std::size_t i = 0; i < exchange.count(); ++i)
        for (std::size_t u = 0; u < m_blockSize; ++u)
            for (std::size_t v = 0; v < m_blockSize; ++v)
                m_diagonals.front()[(exchange.cell(i) * m_blockSize + v) * m_blockSize + u] +=
                    exchange.block(i, u)[isWaterOnly ? 1 : v] / m_volumes[exchange.cell(i)];
    return factoriseParts(jacobian, gamma);
}

void AdiPreconditioner::solve(std::span<const double> r, std::span<double> z) const {
    m_parts.front().solve(r, z);
    for (std::size_t p = 1; p < m_parts.size(); ++p)
        m_parts[p].solve(z, z);
}

void AdiPreconditioner::solveExtended(std::span<const double> r, std::span<double> z,
                                      const ExchangeRows & exchange) const {
    const std::size_t size = m_volumes.size() * m_blockSize;
    m_parts.front().solve(r.first(size), z.first(size));
    if (z.data() != r.data())
        std::copy(r.begin() + static_cast<std::ptrdiff_t>(size), r.end(),
                  z.begin() + static_cast<std::ptrdiff_t>(size));
    exchange.addProduct(m_gamma, z.first(size), z.subspan(size));
    for (std::size_t p = 1; p < m_parts.size(); ++p)
        m_parts[p].solve(z.first(size), z.first(size));
}

} // namespace SOLVER
