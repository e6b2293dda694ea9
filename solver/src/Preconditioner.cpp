#include "Preconditioner.h"

#include "SmallBlocks.h"

#include <algorithm>

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
    std::vector<std::uint32_t> before(model.cellCount(), NONE);
    std::vector<std::uint32_t> after(model.cellCount(), NONE);
    for (const ModelInput::Face & face : model.input().faces) {
        if (face.direction == direction && before[face.b] == NONE && after[face.a] == NONE) {
            before[face.b] = face.a;
            after[face.a] = face.b;
        } else {
            m_isComplete = false;
        }
    }
    for (std::uint32_t c = 0; c < model.cellCount(); ++c)
        if (before[c] == NONE)
            for (std::uint32_t cell = c; cell != NONE; cell = after[cell])
                m_steps.push_back({cell, before[cell]});
    const std::size_t size = m_steps.size() * m_blockSize * m_blockSize;
    m_lower.resize(size);
    m_upper.resize(size);
    m_diagonal.resize(size);
}

bool LineSolver::factorise(const BlockMatrix & jacobian, double gamma) {
    return factoriseShare(jacobian, gamma, 1);
}

bool LineSolver::factoriseShare(const BlockMatrix & jacobian, double gamma, double share) {
    return m_blockSize == 2 ? factoriseBlocks<2>(jacobian, gamma, share) : factoriseBlocks<1>(jacobian, gamma, share);
}

template <std::size_t B> bool LineSolver::factoriseBlocks(const BlockMatrix & jacobian, double gamma, double share) {
    constexpr std::size_t SIZE = B * B;
    const auto scale = [](const double * from, double factor, double * to) {
        for (std::size_t i = 0; i < SIZE; ++i)
            to[i] = factor * from[i];
    };
    for (std::size_t s = 0; s < m_steps.size(); ++s) {
        const Step & step = m_steps[s];
        double * const diagonal = m_diagonal.data() + s * SIZE;
        scale(jacobian.block(jacobian.diagonal(step.cell)), -gamma * share, diagonal);
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

AdiPreconditioner::AdiPreconditioner(const Model & model) {
    for (int direction = 0; direction < 3; ++direction)
        if (std::any_of(model.input().faces.begin(), model.input().faces.end(),
                        [direction](const ModelInput::Face & face) { return face.direction == direction; }))
            m_directions.emplace_back(model, direction);
    if (m_directions.empty())
        m_directions.emplace_back(model, 0);
}

bool AdiPreconditioner::factorise(const BlockMatrix & jacobian, double gamma) {
    // What a row has on its diagonal beyond the identity is shared by the directions in equal parts: exact where they
    // conduct alike, and an approximation elsewhere, as the product is anyway.
    const double share = 1 / static_cast<double>(m_directions.size());
    return std::all_of(m_directions.begin(), m_directions.end(), [&jacobian, gamma, share](LineSolver & lines) {
        return lines.factoriseShare(jacobian, gamma, share);
    });
}

void AdiPreconditioner::solve(std::span<const double> r, std::span<double> z) const {
    m_directions.front().solve(r, z);
    for (std::size_t d = 1; d < m_directions.size(); ++d)
        m_directions[d].solve(z, z);
}

} // namespace SOLVER
