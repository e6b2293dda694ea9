#include "BlockMatrix.h"

#include "Colouring.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace SOLVER {

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
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i] = -gamma * jacobian.m_values[i];
    for (const std::uint32_t d : m_diagonal)
        for (std::size_t i = 0; i < m_blockSize; ++i)
            block(d)[i * (m_blockSize + 1)] += 1;
}

JacobianBuilder::JacobianBuilder(Model & model)
    : m_model(model), m_scales(model.scales()), m_colours(colourCells(model.neighbours())), m_shifted(model.size()),
      m_difference(model.size()) {}

bool JacobianBuilder::build(double time, std::span<const double> state, std::span<const double> derivative,
                            BlockMatrix & jacobian) {
    const std::size_t unknowns = m_model.unknowns();
    const double root = std::sqrt(std::numeric_limits<double>::epsilon());
    std::copy(state.begin(), state.end(), m_shifted.begin());
    for (const std::vector<std::uint32_t> & cells : m_colours)
        for (std::size_t u = 0; u < unknowns; ++u) {
            for (const std::uint32_t c : cells) {
                const std::size_t i = unknowns * c + u;
                m_shifted[i] += root * std::max(std::fabs(state[i]), m_scales[i]);
            }
            if (!m_model.rightHandSide(time, m_shifted, m_difference))
                return false;
            for (const std::uint32_t c : cells) {
                const std::size_t i = unknowns * c + u;
                const double perShift = 1 / (m_shifted[i] - state[i]);
                for (const std::uint32_t n : m_model.neighbours()[c]) {
                    double * const block = jacobian.block(jacobian.find(n, c));
                    for (std::size_t v = 0; v < unknowns; ++v)
                        block[v * unknowns + u] =
                            (m_difference[unknowns * n + v] - derivative[unknowns * n + v]) * perShift;
                }
                m_shifted[i] = state[i];
            }
        }
    return true;
}

} // namespace SOLVER
