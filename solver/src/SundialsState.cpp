#include "SundialsState.h"

#include "VectorKernels.h"

#include <algorithm>
#include <cmath>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {
constexpr double WEIGHTLESS = 1e40; ///< tolerance of what takes no part in the control of errors
}

SundialsState::SundialsState(Model & model, const IntegratorSettings & settings, double startTime,
                             std::span<const double> state, const char * where)
    : time(startTime), m_model(model) {
    const std::size_t size = model.size();
    if (state.size() != size || size == 0)
        throw Exception(text("The state has %1 values, the model %2.", state.size(), size), where);
    SUNContext context = nullptr;
    if (SUNContext_Create(nullptr, &context) != 0)
        throw Exception("Cannot create the integrator's context.", where);
    m_context.reset(context);
    const std::size_t extended = size + 2 * model.exchangeRates().size();
    m_vector.reset(newVector(extended, context));
    m_tolerances.reset(newVector(extended, context));
    if (!m_vector || !m_tolerances)
        throw Exception("Not enough memory for the integrator.", where);

    // The norms are means over all entries; those without weight would loosen the tolerance of the others.
    const double tightening = std::sqrt(static_cast<double>(size) / static_cast<double>(extended));
    m_relativeTolerance = settings.relativeTolerance * tightening;
    std::fill(vectorValues(vector()).begin(), vectorValues(vector()).end(), 0.0);
    std::copy(state.begin(), state.end(), vectorValues(vector()).begin());
    const std::span<double> tolerance = vectorValues(tolerances());
    std::fill(tolerance.begin(), tolerance.end(), WEIGHTLESS);
    const std::vector<double> scales = model.scales();
    const bool hasHeat = model.input().module != module_t::moisture;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isHeat = hasHeat && i % model.unknowns() == 0;
        tolerance[i] =
            tightening * scales[i] * (isHeat ? settings.absoluteToleranceHeat : settings.absoluteToleranceMoisture);
    }
}

std::vector<Exchange> SundialsState::exchanged() const {
    const std::span<const double> values = vectorValues(vector()).subspan(m_model.size());
    std::vector<Exchange> result(values.size() / 2);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = {values[2 * i], values[2 * i + 1]};
    return result;
}

bool SundialsState::rightHandSide(Model & model, double t, std::span<const double> y, std::span<double> ydot) {
    const std::size_t size = model.size();
    if (!model.rightHandSide(t, y.first(size), ydot.first(size)))
        return false;
    double * rate = ydot.data() + size;
    for (const Exchange & exchange : model.exchangeRates()) {
        *rate++ = exchange.heat;
        *rate++ = exchange.water;
    }
    return true;
}

std::size_t SundialsState::largest(std::span<const double> errors, std::span<const double> weights) const {
    std::size_t worst = m_model.size();
    double largest = 0;
    for (std::size_t i = 0; i < m_model.size(); ++i)
        if (const double error = std::fabs(errors[i] * weights[i]); error > largest) {
            largest = error;
            worst = i;
        }
    return worst;
}

} // namespace SOLVER
