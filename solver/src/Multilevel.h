#pragma once

#include "Preconditioner.h"

#include <optional>

namespace SOLVER {

/// Multigrid on aggregates of cells: incomplete factors on every level take the rough errors, a coarser level the smooth
/// ones. Cells join along their strongest couplings, so that neither thin cells nor contrasts of the materials
/// slow it down (Notay, Electron. Trans. Numer. Anal. 37 (2010) 123, sec. 3). Coarse matrices are sums over aggregates of
/// the balances as functions of the potentials, temperature and humidity: these are smooth, whatever cells store.
class Multilevel : public Preconditioner {
public:
    /// \param pattern of the Jacobian \param volumes of the cells [m3]
    Multilevel(const BlockMatrix & pattern, std::vector<double> volumes);
    /// The aggregates are made of a Jacobian. \param capacities a block a cell: derivatives of its unknowns by its potentials
    void setJacobian(const BlockMatrix & jacobian, std::span<const double> capacities);
    bool factorise(const BlockMatrix & jacobian, double gamma) override;
    void solve(std::span<const double> r, std::span<double> z) const override;

private:
    struct Level {
        explicit Level(const BlockMatrix & pattern);
        BlockMatrix matrix; ///< balances by potentials
        BlockIlu smoother;
        std::vector<std::uint32_t> aggregate;             ///< of each cell: its cell on the next level
        std::vector<std::uint32_t> target;                ///< of each entry: its entry on the next level
        mutable std::vector<double> right, sum, residual; ///< of the solve
    };
    void makeLevels();
    void scaleFine(const BlockMatrix & jacobian, double gamma);
    static void collect(const Level & fine, BlockMatrix & coarse);
    void cycle(std::size_t level) const;

    std::size_t m_blockSize;
    std::vector<double> m_volumes;
    std::vector<double> m_capacities; ///< a block a cell
    std::vector<Level> m_levels;
};

} // namespace SOLVER
