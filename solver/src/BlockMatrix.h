#pragma once

#include <SOLVER/Model.h>

#include <cstdint>
#include <span>
#include <vector>

namespace SOLVER {

/// A sparse matrix of small square blocks, one for each pair of neighbouring cells, in compressed rows.
/// The pattern is symmetric and holds the diagonal.
class BlockMatrix {
public:
    /// \param neighbours of each cell, itself included, ascending \param blockSize unknowns of a cell, 1 or 2
    BlockMatrix(const std::vector<std::vector<std::uint32_t>> & neighbours, std::size_t blockSize);

    std::size_t rows() const { return m_rowStart.size() - 1; }
    std::size_t blockSize() const { return m_blockSize; }
    std::size_t entryCount() const { return m_column.size(); }
    /// Blocks of row \p r are those from rowStart(r) to before rowStart(r + 1).
    std::size_t rowStart(std::size_t r) const { return m_rowStart[r]; }
    std::uint32_t column(std::size_t entry) const { return m_column[entry]; }
    std::size_t diagonal(std::size_t r) const { return m_diagonal[r]; }
    /// The entry at (r, c); entryCount() if the pattern has none.
    std::size_t find(std::size_t r, std::uint32_t c) const;
    /// Row by row within the block, blockSize * blockSize values.
    double * block(std::size_t entry) { return m_values.data() + entry * m_blockSize * m_blockSize; }
    const double * block(std::size_t entry) const { return m_values.data() + entry * m_blockSize * m_blockSize; }

    /// y = A x
    void multiply(std::span<const double> x, std::span<double> y) const;
    /// Becomes I - gamma * \p jacobian, which has the same pattern.
    void setShifted(const BlockMatrix & jacobian, double gamma);

private:
    std::size_t m_blockSize;
    std::vector<std::uint32_t> m_rowStart;
    std::vector<std::uint32_t> m_column;
    std::vector<std::uint32_t> m_diagonal;
    std::vector<double> m_values;
};

/// How the model's exchange rates depend on the unknowns: a block of (heat, water) by unknowns for each pair of an entry
/// of Model::exchangeRates and a cell that it reaches.
class ExchangeRows {
public:
    explicit ExchangeRows(const Model & model);

    std::size_t count() const { return m_cell.size(); }
    std::uint32_t cell(std::size_t i) const { return m_cell[i]; }
    std::uint32_t exchange(std::size_t i) const { return m_exchange[i]; }
    /// Derivatives of heat and of water with respect to unknown \p u of the cell.
    std::array<double, 2> & block(std::size_t i, std::size_t u) { return m_values[m_unknowns * i + u]; }
    const std::array<double, 2> & block(std::size_t i, std::size_t u) const { return m_values[m_unknowns * i + u]; }
    bool isWaterOnly() const { return m_isWaterOnly; } ///< the model's one unknown is its moisture
    /// Adds factor * rows * \p unknowns to \p exchanged: heat and water of each entry, interleaved.
    void addProduct(double factor, std::span<const double> unknowns, std::span<double> exchanged) const;
    /// The model's rate of pair \p i at its last right-hand side.
    Exchange rate(const Model & model, std::size_t i) const;

private:
    std::size_t m_unknowns, m_surfaces;
    bool m_isWaterOnly;
    std::vector<std::uint32_t> m_cell, m_exchange;
    std::vector<std::array<double, 2>> m_values;
};

/// The Jacobian of a model's right-hand side by differences: columns of one colour share no row and are found at once.
class JacobianBuilder {
public:
    explicit JacobianBuilder(Model & model);
    /// \param derivative the right-hand side at \p state. \return false when a right-hand side is not finite
    bool build(double time, std::span<const double> state, std::span<const double> derivative, BlockMatrix & jacobian,
               ExchangeRows & exchange);
    /// Right-hand sides that one build takes.
    std::size_t cost() const { return m_colours.size() * m_model.unknowns() + 1; }
    /// At the last build, a block a cell, row by row: how its unknowns depend on its temperature and humidity; with one
    /// unknown only on its own potential.
    std::span<const double> capacities() const { return m_capacities; }

private:
    double potential(std::size_t cell, std::size_t which) const;
    void invertCapacities();

    Model & m_model;
    std::vector<double> m_scales, m_potentials, m_capacities;
    std::vector<std::vector<std::uint32_t>> m_colours;
    std::vector<std::uint32_t> m_colourOf;
    std::vector<double> m_shifted, m_difference;
    std::vector<Exchange> m_rates;
};

} // namespace SOLVER
