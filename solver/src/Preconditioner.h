#pragma once

#include "BlockMatrix.h"

#include <memory>
#include <span>
#include <vector>

namespace SOLVER {

/// An approximate inverse of I - gamma J.
class Preconditioner {
public:
    virtual ~Preconditioner() = default;
    /// \return false if the matrix is singular in this approximation
    virtual bool factorise(const BlockMatrix & jacobian, double gamma) = 0;
    /// z becomes the approximate solution of A z = r; both may be the same.
    virtual void solve(std::span<const double> r, std::span<double> z) const = 0;
    /// Whether it is the very inverse.
    virtual bool isExact() const { return false; }
};

/// Incomplete block factors L U on the pattern of the matrix and some levels of fill. What they leave out goes to the diagonal of its column,
/// by volume, so that the product has the sums of heat and water of the matrix (modified incomplete factors: Gustafsson, BIT
/// 18 (1978) 142, by columns): what is wrong in them does not grow with the number of cells as it does in plain ones.
class BlockIlu : public Preconditioner {
public:
    /// \param volumes of the cells [m3]
    /// \throws KOR::Exception if \p fill levels take too many entries
    BlockIlu(const Model & model, std::vector<double> volumes, int fill);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;

private:
    template <std::size_t B> bool factoriseBlocks();
    template <std::size_t B> void solveBlocks(std::span<double> z) const;
    BlockMatrix m_factors;       ///< L below the diagonal (unit blocks left out), U above, the diagonal inverted
    std::vector<float> m_single; ///< the factors: solves wait for the memory
    std::vector<double> m_volumes;
};

/// Exact block-tridiagonal solves along lines of cells.
class LineSolver : public Preconditioner {
public:
    using Pair = std::array<std::uint32_t, 2>; ///< neighbouring cells
    /// The grid lines of one direction.
    LineSolver(const Model & model, int direction);
    /// Lines out of \p pairs; those that fit none, since lines neither branch nor close to rings, are left in it.
    LineSolver(std::size_t cells, std::size_t blockSize, std::vector<Pair> & pairs);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    /// The same with other diagonal blocks of the Jacobian, one a cell.
    bool factorise(const BlockMatrix & jacobian, double gamma, std::span<const double> diagonal);
    void solve(std::span<const double> r, std::span<double> z) const override;
    /// Whether every coupling of the model lies on these lines.
    bool isExact() const override { return m_isComplete; }
    const std::vector<Pair> & pairs() const { return m_pairs; }

private:
    void makeLines(std::size_t cells, std::vector<Pair> & pairs);
    template <std::size_t B>
    bool factoriseBlocks(const BlockMatrix & jacobian, double gamma, std::span<const double> given);
    template <std::size_t B> void solveBlocks(std::span<double> z) const;
    static constexpr std::uint32_t NONE = ~0u;
    struct Step {
        std::uint32_t cell;
        std::uint32_t previous; ///< cell before on the line; NONE at its start
    };
    std::size_t m_blockSize;
    bool m_isComplete = true;
    std::vector<Pair> m_pairs;
    std::vector<Step> m_steps;                        ///< line after line, each from its start to its end
    std::vector<double> m_lower, m_upper, m_diagonal; ///< a block a step; lower scaled, the diagonal inverted
};

/// Alternating directions: I - gamma J is approximated by the product of its parts along x, y and z; couplings that lie
/// on no grid line (radiation across cavities, coupled surfaces) are parts of their own. Each part keeps heat and water:
/// what it takes from a cell it gives to its neighbours. What comes from outside belongs to the first part.
class AdiPreconditioner : public Preconditioner {
public:
    explicit AdiPreconditioner(const Model & model);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    /// The same with what comes from outside as \p exchange says, so that the sums agree to round-off.
    bool factorise(const BlockMatrix & jacobian, double gamma, const ExchangeRows & exchange);
    void solve(std::span<const double> r, std::span<double> z) const override;
    /// Of states that hold, behind the unknowns, what came in (see StepMatrix).
    void solveExtended(std::span<const double> r, std::span<double> z, const ExchangeRows & exchange) const;
    std::size_t partCount() const { return m_parts.size(); }

private:
    /// Fills m_diagonals with what each part's own pairs take from their cells.
    void splitDiagonals(const BlockMatrix & jacobian);
    bool factoriseParts(const BlockMatrix & jacobian, double gamma);

    std::size_t m_blockSize;
    double m_gamma = 0;
    std::vector<double> m_volumes;
    std::vector<LineSolver> m_parts;
    std::vector<std::vector<double>> m_diagonals; ///< a block a cell, for each part
};

} // namespace SOLVER
