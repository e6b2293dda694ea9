#include "Preconditioner.h"

#include "SmallBlocks.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace SOLVER {

bool BlockIlu::factorise(const BlockMatrix & jacobian, double gamma) {
    m_factors.setShifted(jacobian, gamma);
    return jacobian.blockSize() == 2 ? factoriseBlocks<2>() : factoriseBlocks<1>();
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
    BlockMatrix & f = m_factors;
    for (std::size_t r = 0; r < f.rows(); ++r) {
        for (std::size_t e = f.rowStart(r); e < f.diagonal(r); ++e) {
            const std::uint32_t k = f.column(e);
            double scaled[B * B];
            product<B>(f.block(e), f.block(f.diagonal(k)), scaled);
            std::copy(scaled, scaled + B * B, f.block(e));
            // Both rows ascend: one walk finds the columns they share.
            std::size_t target = e + 1;
            for (std::size_t u = f.diagonal(k) + 1; u < f.rowStart(k + 1); ++u) {
                while (target < f.rowStart(r + 1) && f.column(target) < f.column(u))
                    ++target;
                if (target == f.rowStart(r + 1))
                    break;
                if (f.column(target) == f.column(u))
                    subtractProduct<B>(f.block(target), scaled, f.block(u));
            }
        }
        if (!invert<B>(f.block(f.diagonal(r))))
            return false;
    }
    return true;
}

template <std::size_t B> void BlockIlu::solveBlocks(std::span<double> z) const {
    const BlockMatrix & f = m_factors;
    for (std::size_t row = 0; row < f.rows(); ++row)
        for (std::size_t e = f.rowStart(row); e < f.diagonal(row); ++e)
            subtractTimes<B>(z.data() + B * row, f.block(e), z.data() + B * f.column(e));
    for (std::size_t row = f.rows(); row-- > 0;) {
        for (std::size_t e = f.diagonal(row) + 1; e < f.rowStart(row + 1); ++e)
            subtractTimes<B>(z.data() + B * row, f.block(e), z.data() + B * f.column(e));
        apply<B>(f.block(f.diagonal(row)), z.data() + B * row);
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
