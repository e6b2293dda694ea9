#include "StepMatrix.h"

#include "DirectSolver.h"
#include "SmallBlocks.h"

#include <KOR/Exception.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace SOLVER {

using KOR::Exception;

namespace {

/// Up to this many unknowns a sparse direct solve beats the iterative ones (measured).
constexpr std::size_t SPARSE_DIRECT_LIMIT = 2000;

linearSolver_t chosen(linearSolver_t asked, const Model & model, bool isOneDimensional) {
    if (asked == linearSolver_t::automatic) {
        if (isOneDimensional)
            return linearSolver_t::blockTridiagonal;
        return model.size() <= SPARSE_DIRECT_LIMIT ? linearSolver_t::sparse : linearSolver_t::gmres;
    }
    if (asked == linearSolver_t::blockTridiagonal && !isOneDimensional)
        throw Exception("The block-tridiagonal solver is for one-dimensional constructions; choose another one.",
                        "[StepMatrix::StepMatrix]");
    return asked;
}

} // namespace

StepMatrix::StepMatrix(Model & model, const IntegratorSettings & settings, SUNContext context)
    : m_model(model), m_builder(model), m_jacobian(model.neighbours(), model.unknowns()), m_exchange(model),
      m_kind(chosen(settings.linearSolver, model,
                    halfBandWidth(m_jacobian) < 2 * model.unknowns() && LineSolver(model, 0).isExact())),
      m_preconditioner(makePreconditioner(settings, context)) {
    m_usesJacobian = m_preconditioner || settings.preconditioner != preconditioner_t::none;
}

std::unique_ptr<Preconditioner> StepMatrix::makePreconditioner(const IntegratorSettings & settings,
                                                               SUNContext context) {
    const std::size_t width = halfBandWidth(m_jacobian);
    switch (m_kind) {
    case linearSolver_t::blockTridiagonal:
        return std::make_unique<LineSolver>(m_model, 0);
    case linearSolver_t::gmres:
    case linearSolver_t::bicgstab:
        break;
    default:
        return std::make_unique<DirectSolver>(m_jacobian, m_kind, width, context);
    }
    switch (settings.preconditioner) {
    case preconditioner_t::blockTridiagonal:
        return std::make_unique<LineSolver>(m_model, 0);
    case preconditioner_t::band: {
        const auto wanted = static_cast<std::size_t>(std::max(0, settings.preconditionerBandWidth));
        return std::make_unique<DirectSolver>(m_jacobian, linearSolver_t::band, std::min(width, wanted), context);
    }
    case preconditioner_t::adi:
        return std::make_unique<AdiPreconditioner>(m_model);
    case preconditioner_t::none:
    case preconditioner_t::noneWithJacobian:
        return nullptr;
    default:
        break;
    }
    std::vector<double> volumes;
    volumes.reserve(m_model.cellCount());
    for (const ModelInput::Cell & cell : m_model.input().cells)
        volumes.push_back(cell.volume);
    // Heat goes for steady states, with long steps that incomplete factors alone know little about.
    if (settings.preconditioner == preconditioner_t::ilu || m_model.input().module != module_t::heat)
        return std::make_unique<BlockIlu>(m_model, std::move(volumes), settings.preconditionerFill);
    auto multilevel = std::make_unique<Multilevel>(std::move(volumes));
    m_multilevel = multilevel.get();
    return multilevel;
}

bool StepMatrix::build(double time, std::span<const double> state, std::span<const double> derivative) {
    ++m_jacobianCount;
    const std::size_t size = m_model.size();
    if (!m_builder.build(time, state.first(size), derivative.first(size), m_jacobian, m_exchange))
        return false;
    if (m_multilevel != nullptr)
        m_multilevel->setJacobian(m_jacobian, m_builder.capacities());
    const std::size_t n = m_model.unknowns();
    std::vector<double> rates(m_model.cellCount(), 0.0);
    for (std::size_t c = 0; c < rates.size(); ++c)
        for (std::size_t u = 0; u < n; ++u)
            rates[c] = std::max(rates[c], std::fabs(m_jacobian.block(m_jacobian.diagonal(c))[u * (n + 1)]));
    const auto high = rates.begin() + static_cast<std::ptrdiff_t>(9 * rates.size() / 10);
    std::nth_element(rates.begin(), high, rates.end());
    m_cellRate = *high;
    return true;
}

double StepMatrix::residualShare(double gamma) const {
    constexpr double OF_LEVELS = 0.3; // the residual behind several levels is the error
    if (m_multilevel != nullptr)
        return OF_LEVELS;
    constexpr double LEAST = 1e-3;
    if (m_model.input().module == module_t::heat) // long steps to steady states, bridges of metal
        return LEAST;
    constexpr double HARMLESS = 1000; // gamma times rate up to which incomplete factors are good (measured)
    return std::clamp(HARMLESS / std::max(std::fabs(gamma) * m_cellRate, HARMLESS), LEAST, 1.0);
}

bool StepMatrix::factorise(double gamma) {
    m_gamma = gamma;
    return !m_preconditioner || m_preconditioner->factorise(m_jacobian, gamma);
}

void StepMatrix::solve(std::span<const double> r, std::span<double> z, double gamma) const {
    const std::size_t size = m_model.size();
    m_solveGamma = gamma;
    m_lastResidual.assign(r.begin(), r.begin() + static_cast<std::ptrdiff_t>(size));
    if (!m_preconditioner) {
        std::copy(r.begin(), r.end(), z.begin());
        return;
    }
    m_preconditioner->solve(r.first(size), z.first(size));
    std::copy(r.begin() + static_cast<std::ptrdiff_t>(size), r.end(), z.begin() + static_cast<std::ptrdiff_t>(size));
    m_exchange.addProduct(m_gamma, z.first(size), z.subspan(size));
    // The factors are those of an older step size: between the exact factors 1 of the slow parts of the state and the
    // ratio of the sizes of the fast ones the mean is taken (Hindmarsh et al., ACM TOMS 31 (2005) 363, sec. 2.1). All
    // entries alike, so that the sums of what comes in still agree.
    if (m_preconditioner->isExact() && std::fabs(gamma - m_gamma) > 0) {
        const double scale = 2 / (1 + gamma / m_gamma);
        for (double & value : z)
            value *= scale;
    }
}

void StepMatrix::keepSums(std::span<const double> r, std::span<double> z) const {
    const std::size_t n = m_model.unknowns();
    const std::size_t size = m_model.size();
    const auto comeIn = [&](std::span<const double> cells, std::span<double> exchanged) {
        if (m_usesJacobian)
            m_exchange.addProduct(m_solveGamma, cells, exchanged);
    };
    const auto takeWhatComesIn = [&] { // nothing weighs its error in the iterations
        if (!m_usesJacobian)
            return;
        std::copy(r.begin() + static_cast<std::ptrdiff_t>(size), r.end(),
                  z.begin() + static_cast<std::ptrdiff_t>(size));
        comeIn(z.first(size), z.subspan(size));
    };
    takeWhatComesIn();
    constexpr double LEAST = 1e-12; // where nothing moved, all cells bear alike
    const auto firstOf = [&](std::size_t u) { return m_model.input().module == module_t::moisture ? 1 : u; };
    const auto share = [&](std::size_t i) { return std::fabs(z[i]) + LEAST; };
    std::array<double, 2> missing{};
    std::array<double, 4> response{}; // of the sums, row by row, to a change in proportion to z of each unknown
    std::vector<double> part(size);
    std::vector<double> exchanged(z.size() - size);
    for (std::size_t u = 0; u < n; ++u) {
        std::fill(part.begin(), part.end(), 0.0);
        std::fill(exchanged.begin(), exchanged.end(), 0.0);
        for (std::size_t c = 0; c < m_model.cellCount(); ++c) {
            const double volume = m_model.input().cells[c].volume;
            missing[u] += volume * (z[n * c + u] - r[n * c + u]);
            part[n * c + u] = share(n * c + u);
            response[u * n + u] += volume * part[n * c + u];
        }
        comeIn(part, exchanged);
        for (std::size_t v = 0; v < n; ++v)
            for (std::size_t i = firstOf(v); i < exchanged.size(); i += 2)
                response[v * n + u] -= exchanged[i];
        for (std::size_t i = firstOf(u); i < exchanged.size(); i += 2)
            missing[u] -= z[size + i] - r[size + i];
    }
    if (!(n == 2 ? invert<2>(response.data()) : invert<1>(response.data())))
        return;
    for (std::size_t u = 0; u < n; ++u) {
        double factor = 0;
        for (std::size_t v = 0; v < n; ++v)
            factor += response[u * n + v] * missing[v];
        for (std::size_t i = u; i < size; i += n)
            z[i] -= factor * share(i);
    }
    takeWhatComesIn();
}

void StepMatrix::multiply(std::span<const double> v, std::span<double> jv) const {
    const std::size_t size = m_model.size();
    m_jacobian.multiply(v.first(size), jv.first(size));
    std::fill(jv.begin() + static_cast<std::ptrdiff_t>(size), jv.end(), 0.0);
    m_exchange.addProduct(1, v.first(size), jv.subspan(size));
}

std::size_t StepMatrix::worstUnknown() const {
    const std::vector<double> scales = m_model.scales();
    std::size_t worst = m_model.size();
    double largest = -1;
    for (std::size_t i = 0; i < m_lastResidual.size(); ++i) {
        const double residual = std::fabs(m_lastResidual[i]) / scales[i];
        if (!(residual <= largest)) {
            largest = residual;
            worst = i;
        }
    }
    return worst;
}

} // namespace SOLVER
