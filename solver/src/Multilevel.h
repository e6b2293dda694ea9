#pragma once

#include "Preconditioner.h"

namespace SOLVER {

/// Multigrid for heat alone, algebraic: each level takes the rough errors, a coarser one, of some of its cells, the smooth ones
/// (Ruge and Stueben, in: Multigrid Methods, SIAM 1987, chapter 4). Which cells go on and how the others follow them is read
/// from the conductances, so that neither thin cells nor contrasts of the materials slow it down. What is smooth is
/// temperature, not energy: the levels belong to the balances as functions of temperature,
/// V (I - gamma J) C = capacities + gamma conductances.
class Multilevel : public Preconditioner {
public:
    /// \param volumes of the cells [m3]
    explicit Multilevel(std::vector<double> volumes) : m_volumes(std::move(volumes)) {}
    /// Makes the levels. \param capacities of the cells: energy by temperature [J/m3K]
    void setJacobian(const BlockMatrix & jacobian, std::span<const double> capacities);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;

private:
    /// Single precision: sweeps wait for the memory.
    struct Entry {
        std::uint32_t column;
        float value;
    };
    /// Rows of weights.
    struct Rows {
        std::vector<std::uint32_t> start;
        std::vector<Entry> entries;
        std::size_t count() const { return start.size() - 1; }
    };
    struct Level {
        std::vector<std::uint32_t> start, column, diagonal; ///< the pattern, rows ascending
        std::vector<double> conductance, capacity;          ///< of each entry
        std::vector<Entry> others;                          ///< capacity + gamma conductance off the diagonal
        std::vector<double> inverse;                        ///< of each diagonal value
        Rows interpolation;                                 ///< from the next level; empty on the last one
        mutable std::vector<double> right, sum;             ///< of the solve
        std::size_t rows() const { return start.size() - 1; }
        std::span<const Entry> before(std::size_t row) const {
            return {others.data() + (start[row] - row), diagonal[row] - start[row]};
        }
        std::span<const Entry> behind(std::size_t row) const {
            return {others.data() + (diagonal[row] - row), start[row + 1] - diagonal[row] - 1};
        }
        double product(std::span<const Entry> entries) const {
            double result = 0;
            for (const Entry & e : entries)
                result += static_cast<double>(e.value) * sum[e.column];
            return result;
        }
    };
    bool takeOver(const BlockMatrix & jacobian);
    void makeLevels(const BlockMatrix & jacobian);
    static std::vector<std::int32_t> chooseCoarse(const Level & level, std::span<const std::uint32_t> order,
                                                  std::uint32_t & count);
    static Rows interpolate(const Level & level, const std::vector<std::int32_t> & coarse);
    static Level project(const Level & fine, std::size_t count);
    static std::vector<std::uint32_t> orderByColour(const Level & level);
    static Level inOrder(const Level & level, std::span<const std::uint32_t> order);
    bool factoriseLast(double gamma);
    void solveLast(const Level & level) const;
    void cycle(std::size_t level) const;

    std::vector<double> m_volumes, m_capacities;
    std::vector<std::uint32_t> m_cells;   ///< of the rows of the first level
    std::vector<std::uint32_t> m_sources; ///< entries of the Jacobian, of those of the first level
    std::vector<Level> m_levels;
    std::vector<double> m_last; ///< factors of the last level, dense
};

} // namespace SOLVER
