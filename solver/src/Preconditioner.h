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

/// Incomplete block factors L U on the pattern of the matrix itself.
class BlockIlu : public Preconditioner {
public:
    explicit BlockIlu(const BlockMatrix & pattern) : m_factors(pattern) {}
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;

private:
    template <std::size_t B> bool factoriseBlocks();
    template <std::size_t B> void solveBlocks(std::span<double> z) const;
    BlockMatrix m_factors; ///< L below the diagonal (unit blocks left out), U above, the diagonal inverted
};

/// Exact block-tridiagonal solves along the grid lines of one direction.
class LineSolver : public Preconditioner {
public:
    LineSolver(const Model & model, int direction);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;
    /// Whether every coupling of the model lies on these lines.
    bool isExact() const override { return m_isComplete; }
    /// As above, with a share of the Jacobian's diagonal only: the part of one direction among several.
    bool factoriseShare(const BlockMatrix & jacobian, double gamma, double share);

private:
    template <std::size_t B> bool factoriseBlocks(const BlockMatrix & jacobian, double gamma, double share);
    template <std::size_t B> void solveBlocks(std::span<double> z) const;
    static constexpr std::uint32_t NONE = ~0u;
    struct Step {
        std::uint32_t cell;
        std::uint32_t previous; ///< cell before on the line; NONE at its start
    };
    std::size_t m_blockSize;
    bool m_isComplete = true;
    std::vector<Step> m_steps;                        ///< line after line, each from its start to its end
    std::vector<double> m_lower, m_upper, m_diagonal; ///< a block a step; lower scaled, the diagonal inverted
};

/// Alternating directions: I - gamma J is approximated by the product of its parts along x, y and z.
class AdiPreconditioner : public Preconditioner {
public:
    explicit AdiPreconditioner(const Model & model);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;

private:
    std::vector<LineSolver> m_directions;
};

} // namespace SOLVER
