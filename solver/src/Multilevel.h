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
    /// Rows of weights.
    struct Rows {
        std::vector<std::uint32_t> start, column;
        std::vector<double> weight;
        std::size_t count() const { return start.size() - 1; }
    };
    struct Level {
        std::vector<std::uint32_t> start, column, diagonal; ///< the pattern, rows ascending
        std::vector<double> conductance, capacity;          ///< of each entry
        std::vector<double> value;                          ///< capacity + gamma conductance
        std::vector<double> inverse;                        ///< of each diagonal value
        Rows interpolation;                                 ///< from the next level; empty on the last one
        mutable std::vector<double> right, sum;             ///< of the solve
        std::size_t rows() const { return start.size() - 1; }
        void resizeVectors();
    };
    bool takeOver(const BlockMatrix & jacobian);
    void makeLevels(const BlockMatrix & jacobian);
    static std::vector<std::int32_t> chooseCoarse(const Level & level, std::uint32_t & count);
    static Rows interpolate(const Level & level, const std::vector<std::int32_t> & coarse);
    static Level project(const Level & fine, std::size_t count);
    static void sweepForward(const Level & level);
    static void sweepBackward(const Level & level);
    bool factoriseLast();
    void cycle(std::size_t level) const;

    std::vector<double> m_volumes, m_capacities;
    std::vector<Level> m_levels;
    std::vector<double> m_last; ///< factors of the last level, dense
};

} // namespace SOLVER
