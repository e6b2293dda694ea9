#include "BlockMatrix.h"

#include "Colouring.h"
#include "SmallBlocks.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace SOLVER {

namespace {
/// By how much temperatures are shifted for differences, at least [K]. Fluxes are nearly linear in them, and where a good
/// conductor meets a long step, round-off of smaller shifts would be felt in what the conductor's cells have in common.
constexpr double HEAT_SHIFT = 1e-3;
} // namespace

BlockMatrix::BlockMatrix(const std::vector<std::vector<std::uint32_t>> & neighbours, std::size_t blockSize)
    : m_blockSize(blockSize) {
    m_rowStart.push_back(0);
    for (std::uint32_t r = 0; r < neighbours.size(); ++r) {
        for (const std::uint32_t c : neighbours[r]) {
            if (c == r)
                m_diagonal.push_back(static_cast<std::uint32_t>(m_column.size()));
            m_column.push_back(c);
        }
        m_rowStart.push_back(static_cast<std::uint32_t>(m_column.size()));
    }
    m_values.assign(m_column.size() * blockSize * blockSize, 0.0);
}

std::size_t BlockMatrix::find(std::size_t r, std::uint32_t c) const {
    const auto first = m_column.begin() + m_rowStart[r];
    const auto last = m_column.begin() + m_rowStart[r + 1];
    const auto found = std::lower_bound(first, last, c);
    return found != last && *found == c ? static_cast<std::size_t>(found - m_column.begin()) : entryCount();
}

void BlockMatrix::multiply(std::span<const double> x, std::span<double> y) const {
    const double * value = m_values.data();
    if (m_blockSize == 2) {
        for (std::size_t r = 0; r < rows(); ++r) {
            double y0 = 0;
            double y1 = 0;
            for (std::uint32_t e = m_rowStart[r]; e < m_rowStart[r + 1]; ++e, value += 4) {
                const double * const part = x.data() + std::size_t{2} * m_column[e];
                y0 += value[0] * part[0] + value[1] * part[1];
                y1 += value[2] * part[0] + value[3] * part[1];
            }
            y[2 * r] = y0;
            y[2 * r + 1] = y1;
        }
        return;
    }
    for (std::size_t r = 0; r < rows(); ++r) {
        double sum = 0;
        for (std::uint32_t e = m_rowStart[r]; e < m_rowStart[r + 1]; ++e)
            sum += *value++ * x[m_column[e]];
        y[r] = sum;
    }
}

void BlockMatrix::setShifted(const BlockMatrix & jacobian, double gamma) {
    const std::size_t size = m_blockSize * m_blockSize;
    const double * given = jacobian.m_values.data();
    double * value = m_values.data();
    for (std::size_t r = 0; r < rows(); ++r) {
        std::uint32_t from = jacobian.m_rowStart[r];
        for (std::uint32_t e = m_rowStart[r]; e < m_rowStart[r + 1]; ++e) {
            const bool isGiven = from < jacobian.m_rowStart[r + 1] && jacobian.m_column[from] == m_column[e];
            for (std::size_t i = 0; i < size; ++i)
                *value++ = isGiven ? -gamma * *given++ : 0;
            from += isGiven ? 1 : 0;
        }
    }
    for (const std::uint32_t d : m_diagonal)
        for (std::size_t i = 0; i < m_blockSize; ++i)
            block(d)[i * (m_blockSize + 1)] += 1;
}

ExchangeRows::ExchangeRows(const Model & model)
    : m_unknowns(model.unknowns()), m_surfaces(model.input().surfaces.size()),
      m_isWaterOnly(model.input().module == module_t::moisture) {
    const auto add = [this](std::uint32_t cell, std::size_t exchange) {
        m_cell.push_back(cell);
        m_exchange.push_back(static_cast<std::uint32_t>(exchange));
    };
    for (std::size_t s = 0; s < m_surfaces; ++s)
        add(model.input().surfaces[s].cell, s);
    for (const std::uint32_t cell : model.input().loadedCells)
        add(cell, m_surfaces);
    m_values.assign(m_cell.size() * m_unknowns, {0, 0});
}

Exchange ExchangeRows::rate(const Model & model, std::size_t i) const {
    return i < m_surfaces ? model.exchangeRates()[i] : model.loadRates()[i - m_surfaces];
}

void ExchangeRows::addProduct(double factor, std::span<const double> unknowns, std::span<double> exchanged) const {
    for (std::size_t i = 0; i < m_cell.size(); ++i)
        for (std::size_t u = 0; u < m_unknowns; ++u) {
            const double value = factor * unknowns[m_unknowns * m_cell[i] + u];
            const std::array<double, 2> & block = m_values[m_unknowns * i + u];
            exchanged[2 * m_exchange[i]] += value * block[0];
            exchanged[2 * m_exchange[i] + 1] += value * block[1];
        }
}

JacobianBuilder::JacobianBuilder(Model & model)
    : m_model(model), m_scales(model.scales()), m_potentials(model.size()),
      m_capacities(model.size() * model.unknowns()), m_colours(colourCells(model.neighbours())),
      m_colourOf(model.cellCount()), m_shifted(model.size()), m_difference(model.size()) {
    for (std::uint32_t k = 0; k < m_colours.size(); ++k)
        for (const std::uint32_t c : m_colours[k])
            m_colourOf[c] = k;
}

bool JacobianBuilder::build(double time, std::span<const double> state, std::span<const double> derivative,
                            BlockMatrix & jacobian, ExchangeRows & exchange) {
    const std::size_t unknowns = m_model.unknowns();
    const double root = std::sqrt(std::numeric_limits<double>::epsilon());
    std::copy(state.begin(), state.end(), m_shifted.begin());
    if (!m_model.rightHandSide(time, m_shifted, m_difference)) // for the rates of exchange at this state
        return false;
    for (std::size_t c = 0; c < m_model.cellCount(); ++c)
        for (std::size_t u = 0; u < unknowns; ++u)
            m_potentials[unknowns * c + u] = potential(c, u);
    m_rates.resize(exchange.count());
    for (std::size_t i = 0; i < exchange.count(); ++i)
        m_rates[i] = exchange.rate(m_model, i);
    for (std::uint32_t k = 0; k < m_colours.size(); ++k)
        for (std::size_t u = 0; u < unknowns; ++u) {
            const std::vector<std::uint32_t> & cells = m_colours[k];
            for (const std::uint32_t c : cells) {
                const std::size_t i = unknowns * c + u;
                const bool isHeat = u == 0 && m_model.input().module != module_t::moisture;
                m_shifted[i] += std::max(root * std::fabs(state[i]), (isHeat ? HEAT_SHIFT : root) * m_scales[i]);
            }
            if (!m_model.rightHandSide(time, m_shifted, m_difference))
                return false;
            for (std::size_t i = 0; i < exchange.count(); ++i) {
                if (m_colourOf[exchange.cell(i)] != k)
                    continue;
                const std::size_t at = unknowns * exchange.cell(i) + u;
                const double perShift = 1 / (m_shifted[at] - state[at]);
                const Exchange rate = exchange.rate(m_model, i);
                exchange.block(i, u) = {(rate.heat - m_rates[i].heat) * perShift,
                                        (rate.water - m_rates[i].water) * perShift};
            }
            for (const std::uint32_t c : cells) {
                const std::size_t i = unknowns * c + u;
                const double perShift = 1 / (m_shifted[i] - state[i]);
                for (const std::uint32_t n : m_model.neighbours()[c]) {
                    double * const block = jacobian.block(jacobian.find(n, c));
                    for (std::size_t v = 0; v < unknowns; ++v)
                        block[v * unknowns + u] =
                            (m_difference[unknowns * n + v] - derivative[unknowns * n + v]) * perShift;
                }
                for (std::size_t v = 0; v < unknowns; ++v)
                    m_capacities[unknowns * (unknowns * c + v) + u] =
                        (potential(c, v) - m_potentials[unknowns * c + v]) * perShift;
                m_shifted[i] = state[i];
            }
        }
    invertCapacities();
    return true;
}

double JacobianBuilder::potential(std::size_t cell, std::size_t which) const {
    const Model::CellState & state = m_model.cellStates()[cell];
    const bool isHeat = which == 0 && m_model.input().module != module_t::moisture;
    return isHeat ? state.temperature : state.humidity;
}

/// What was found is how the potentials depend on the unknowns.
void JacobianBuilder::invertCapacities() {
    const std::size_t size = m_model.unknowns() * m_model.unknowns();
    for (std::size_t c = 0; c < m_model.cellCount(); ++c) {
        double * const block = m_capacities.data() + c * size;
        if (!(size == 4 ? invert<2>(block)
                        : invert<1>(block))) { // where something does not move, the unknowns themselves
            std::fill(block, block + size, 0.0);
            for (std::size_t u = 0; u < m_model.unknowns(); ++u)
                block[u * (m_model.unknowns() + 1)] = m_scales[m_model.unknowns() * c + u];
        }
    }
}

} // namespace SOLVER
