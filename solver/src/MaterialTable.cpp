#include <SOLVER/MaterialTable.h>

#include "Hermite.h"

#include <SOLVER/Physics.h>

#include <DATAIO/GeoFile.h>

#include <KOR/Exception.h>

#include <algorithm>
#include <cmath>

namespace SOLVER {

using KOR::Exception;
using KOR::text;

namespace {

constexpr double PC_STEP = 0.02;   ///< distance of the nodes; halving it changes no benchmark in the fourth digit
constexpr double PC_DRY_END = 10;  ///< relative humidity below 1e-31
constexpr double PC_WET_END = -2;  ///< wetter than any gravity-free suction of interest
constexpr double WET_LIMIT = 1e-4; ///< share of saturation that the linear extension takes over
constexpr Curve::Range TEMPERATURES = {T_ZERO - 60, T_ZERO + 120, 0.5}; ///< of the functions of temperature [K]
constexpr double LN10 = 2.302585092994046;

/// Where the material has lost WET_LIMIT of its saturation.
double wetEnd(const std::function<double(double)> & moisture, double saturation) {
    double low = PC_WET_END;
    double high = PC_DRY_END;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (moisture(middle) > (1 - WET_LIMIT) * saturation ? low : high) = middle;
    }
    return low;
}

} // namespace

MaterialTable::MaterialTable(const MaterialFunctions & functions)
    : m_name(functions.name), m_heatCapacity(functions.heatCapacity), m_saturation(functions.moisture(PC_WET_END)) {
    m_pCStart = std::min(wetEnd(functions.moisture, m_saturation), PC_DRY_END - 1);
    const auto count = static_cast<std::size_t>(std::ceil((PC_DRY_END - m_pCStart) / PC_STEP)) + 1;

    std::vector<double> pC(count);
    std::vector<double> moisture(count);
    std::vector<double> liquid(count);
    std::vector<double> vapor(count);
    std::vector<double> lambda(count);
    for (std::size_t i = 0; i < count; ++i) {
        pC[i] = m_pCStart + PC_STEP * static_cast<double>(i);
        moisture[i] = functions.moisture(pC[i]);
        liquid[i] = functions.liquidConductivity ? functions.liquidConductivity(pC[i]) : 0;
        vapor[i] = functions.vaporPermeability ? functions.vaporPermeability(pC[i]) : 0;
        lambda[i] = functions.thermalConductivity(pC[i]);
        for (const double value : {moisture[i], liquid[i], vapor[i], lambda[i]})
            if (!std::isfinite(value) || value < 0)
                throw Exception(text("A function of material '%1' is negative or not finite at pC = %2.", m_name,
                                     KOR::toString(pC[i], 4)),
                                "[MaterialTable::MaterialTable]");
        m_conductsLiquid = m_conductsLiquid || liquid[i] > 0;
        m_isTight = m_isTight && !(moisture[i] > 0 || liquid[i] > 0 || vapor[i] > 0);
    }
    // A content that does not fall has no inverse; the smallest fall that a sum of double contents still shows.
    const double smallestFall = 1e-9 * std::max(m_saturation, 1e-3) / static_cast<double>(count);
    for (std::size_t i = count - 1; i-- > 0;)
        moisture[i] = std::max(moisture[i], moisture[i + 1] + smallestFall);

    // Gauss-Legendre with three points: the integrand is smooth within an interval.
    std::vector<double> potential(count, 0.0);
    if (m_conductsLiquid) {
        static constexpr double POINTS[] = {0.1127016653792583, 0.5, 0.8872983346207417};
        static constexpr double WEIGHTS[] = {5.0 / 18, 8.0 / 18, 5.0 / 18};
        for (std::size_t i = count - 1; i-- > 0;) {
            double sum = 0;
            for (std::size_t k = 0; k < 3; ++k) {
                const double x = pC[i] + POINTS[k] * PC_STEP;
                sum += WEIGHTS[k] * functions.liquidConductivity(x) * std::pow(10.0, x);
            }
            potential[i] = potential[i + 1] + sum * LN10 * PC_STEP;
        }
    }

    // Vapour permeability and thermal conductivity are linear enough within an interval for the trapezoidal rule over
    // humidity.
    const auto humidity = [](double x) { return std::exp(-std::pow(10.0, x) / kelvinPressure(T_REF)); };
    m_integralNodes.resize(count);
    const auto integrate = [&](const std::vector<double> & function, double IntegralNode::*value,
                               double IntegralNode::*slope) {
        for (std::size_t i = count; i-- > 0;) {
            IntegralNode & node = m_integralNodes[i];
            node.*slope = -function[i] * humidity(pC[i]) * std::pow(10.0, pC[i]) * LN10 / kelvinPressure(T_REF);
            if (i + 1 < count)
                node.*value = m_integralNodes[i + 1].*value +
                              (function[i] + function[i + 1]) / 2 * (humidity(pC[i]) - humidity(pC[i + 1]));
        }
    };
    integrate(vapor, &IntegralNode::vapor, &IntegralNode::vaporSlope);
    integrate(lambda, &IntegralNode::lambda, &IntegralNode::lambdaSlope);

    std::vector<double> moistureSteps(count - 1);
    std::vector<double> negativePC(count);
    for (std::size_t i = 0; i < count; ++i) {
        negativePC[i] = -pC[i];
        if (i + 1 < count)
            moistureSteps[i] = moisture[i] - moisture[i + 1];
    }
    // pC falls with growing moisture; in the order of the nodes both distances are taken positive.
    const std::vector<double> inverse = monotoneSlopes(moistureSteps, negativePC);
    const std::vector<double> steps(count - 1, PC_STEP);
    const std::vector<double> vaporSlopes = monotoneSlopes(steps, vapor);
    const std::vector<double> lambdaSlopes = monotoneSlopes(steps, lambda);
    m_nodes.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        m_nodes[i] = {moisture[i], inverse[i],     potential[i], -LN10 * std::pow(10.0, pC[i]) * liquid[i],
                      vapor[i],    vaporSlopes[i], lambda[i],    lambdaSlopes[i]};

    if (functions.enthalpy) {
        m_enthalpy = Curve(functions.enthalpy, TEMPERATURES, "The enthalpy of material '" + m_name + "'");
        double slope = 0;
        const auto intervals = static_cast<int>((TEMPERATURES.end - TEMPERATURES.begin) / TEMPERATURES.step);
        for (int i = 0; i <= intervals; ++i) {
            const double T = TEMPERATURES.begin + i * TEMPERATURES.step;
            if (!(m_enthalpy.value(T + TEMPERATURES.step / 2, slope) > m_enthalpy.value(T - TEMPERATURES.step / 2)))
                throw Exception(
                    text("The enthalpy of material '%1' does not grow at %2 K.", m_name, KOR::toString(T, 5)),
                    "[MaterialTable::MaterialTable]");
        }
        m_enthalpy.value(T_REF, m_heatCapacity);
    }
    if (functions.conductivityByTemperature)
        m_lambdaByTemperature = Curve(functions.conductivityByTemperature, TEMPERATURES,
                                      "The thermal conductivity over temperature of material '" + m_name + "'");
    if (functions.conductivityByIce)
        m_lambdaByIce = Curve(functions.conductivityByIce, {0, 1, 0.01},
                              "The thermal conductivity over ice of material '" + m_name + "'");
    for (std::size_t d = 0; d < m_others.size(); ++d)
        if (const auto & other = functions.otherDirections[d]) {
            MaterialFunctions turned = functions;
            turned.otherDirections = {};
            const auto take = [](MaterialFunctions::Function & into, const MaterialFunctions::Function & from) {
                if (from)
                    into = from;
            };
            take(turned.liquidConductivity, other->liquidConductivity);
            take(turned.vaporPermeability, other->vaporPermeability);
            take(turned.thermalConductivity, other->thermalConductivity);
            m_others[d] = std::make_shared<const MaterialTable>(turned);
        }

    m_suctionStart = std::pow(10.0, m_pCStart);
    m_wetConductivity = liquid[0];
    m_wetHumidity = humidity(m_pCStart);
    m_wetSlope = m_suctionStart * LN10 * inverse[0];
}

MaterialTable::State MaterialTable::interpolate(std::size_t interval, double t, double suction) const {
    const Node & a = m_nodes[interval];
    const Node & b = m_nodes[interval + 1];
    return {suction, hermite(t, PC_STEP, a.potential, a.potentialSlope, b.potential, b.potentialSlope),
            hermite(t, PC_STEP, a.vapor, a.vaporSlope, b.vapor, b.vaporSlope),
            hermite(t, PC_STEP, a.lambda, a.lambdaSlope, b.lambda, b.lambdaSlope)};
}

MaterialTable::State MaterialTable::wetState(double suction) const {
    const Node & wettest = m_nodes.front();
    return {suction, wettest.potential + m_wetConductivity * (m_suctionStart - suction), wettest.vapor, wettest.lambda};
}

std::size_t MaterialTable::locate(double suction, double & t) const {
    const double position =
        std::min((std::log10(suction) - m_pCStart) / PC_STEP, static_cast<double>(m_nodes.size() - 1));
    const std::size_t i = std::min(static_cast<std::size_t>(position), m_nodes.size() - 2);
    t = position - static_cast<double>(i);
    return i;
}

MaterialTable::Integrals MaterialTable::integrals(double suction) const {
    if (suction <= m_suctionStart) {
        const double wetter = std::exp(-suction / kelvinPressure(T_REF)) - m_wetHumidity;
        const IntegralNode & wettest = m_integralNodes.front();
        return {wettest.vapor + m_nodes.front().vapor * wetter, wettest.lambda + m_nodes.front().lambda * wetter};
    }
    double t = 0;
    const std::size_t i = locate(suction, t);
    const IntegralNode & a = m_integralNodes[i];
    const IntegralNode & b = m_integralNodes[i + 1];
    return {hermite(t, PC_STEP, a.vapor, a.vaporSlope, b.vapor, b.vaporSlope),
            hermite(t, PC_STEP, a.lambda, a.lambdaSlope, b.lambda, b.lambdaSlope)};
}

MaterialTable::State MaterialTable::fromMoisture(double moisture, std::uint32_t & interval) const {
    const Node & wettest = m_nodes.front();
    if (moisture >= wettest.moisture) {
        const double suction = m_suctionStart + (moisture - wettest.moisture) * m_wetSlope;
        return wetState(suction);
    }
    const auto last = static_cast<std::uint32_t>(m_nodes.size() - 2);
    std::uint32_t i = std::min(interval, last);
    if (moisture > m_nodes[i].moisture || moisture < m_nodes[i + 1].moisture) {
        const auto found = std::lower_bound(m_nodes.begin() + 1, m_nodes.end() - 1, moisture,
                                            [](const Node & node, double value) { return node.moisture > value; });
        i = static_cast<std::uint32_t>(found - m_nodes.begin()) - 1;
        interval = i;
    }
    const Node & a = m_nodes[i];
    const Node & b = m_nodes[i + 1];
    const double length = a.moisture - b.moisture;
    const double s = std::min((a.moisture - moisture) / length, 1.0); // below the driest node nothing is left to give
    const double pCStart = m_pCStart + PC_STEP * i;
    const double pC = hermite(s, length, pCStart, -a.inverseSlope, pCStart + PC_STEP, -b.inverseSlope);
    return interpolate(i, (pC - pCStart) / PC_STEP, std::exp(LN10 * pC));
}

MaterialTable::State MaterialTable::fromSuction(double suction, Slopes & slopes) const {
    if (suction <= m_suctionStart) {
        slopes = {m_wetConductivity, 0, 0};
        return wetState(suction);
    }
    double t = 0;
    const std::size_t i = locate(suction, t);
    const Node & a = m_nodes[i];
    const Node & b = m_nodes[i + 1];
    const double perSuction = 1 / (suction * LN10);
    slopes = {-hermiteSlope(t, PC_STEP, a.potential, a.potentialSlope, b.potential, b.potentialSlope) * perSuction,
              hermiteSlope(t, PC_STEP, a.vapor, a.vaporSlope, b.vapor, b.vaporSlope) * perSuction,
              hermiteSlope(t, PC_STEP, a.lambda, a.lambdaSlope, b.lambda, b.lambdaSlope) * perSuction};
    return interpolate(i, t, suction);
}

double MaterialTable::moisture(double suction) const {
    if (suction <= m_suctionStart)
        return m_nodes.front().moisture + (suction - m_suctionStart) / m_wetSlope;
    double wanted = 0; // of the interval, in pC
    const std::size_t i = locate(suction, wanted);
    // The inverse of the cubic of fromMoisture: Newton's iteration within a bracket.
    const Node & a = m_nodes[i];
    const Node & b = m_nodes[i + 1];
    const double length = a.moisture - b.moisture;
    double low = 0;
    double high = 1;
    double s = wanted;
    constexpr double ROUND_OFF = 1e-14;
    for (int k = 0; k < 60; ++k) {
        const double slope0 = -a.inverseSlope / PC_STEP;
        const double slope1 = -b.inverseSlope / PC_STEP;
        const double error = hermite(s, length, 0, slope0, 1, slope1) - wanted;
        (error > 0 ? high : low) = s;
        const double slope = length * hermiteSlope(s, length, 0, slope0, 1, slope1);
        const double next = s - error / slope;
        const double previous = s;
        // Round-off may lead out of a bracket that is closed: no reason to halve it for long.
        s = next > low - ROUND_OFF && next < high + ROUND_OFF ? std::clamp(next, 0.0, 1.0) : (low + high) / 2;
        if (std::fabs(s - previous) < ROUND_OFF)
            break;
    }
    return a.moisture - s * length;
}

double MaterialTable::capacity(double suction) const {
    if (suction <= m_suctionStart)
        return 1 / m_wetSlope;
    const double step = 1e-5 * suction;
    return (moisture(suction + step) - moisture(suction - step)) / (2 * step);
}

double MaterialTable::enthalpy(double T, double & slope) const {
    if (!m_enthalpy.isEmpty())
        return m_enthalpy.value(T, slope);
    slope = m_heatCapacity;
    return m_heatCapacity * (T - T_ZERO);
}

double MaterialTable::temperature(double energy, double waterCapacity) const {
    if (m_enthalpy.isEmpty())
        return T_ZERO + energy / (m_heatCapacity + waterCapacity);
    double T = T_ZERO + energy / (m_heatCapacity + waterCapacity);
    double low = 0;
    double high = 1e4;
    for (int k = 0; k < 60; ++k) {
        double slope = 0;
        const double error = m_enthalpy.value(T, slope) + waterCapacity * (T - T_ZERO) - energy;
        (error > 0 ? high : low) = T;
        const double next = T - error / (slope + waterCapacity);
        const double previous = T;
        T = next > low && next < high ? next : (low + high) / 2;
        if (std::fabs(T - previous) < 1e-11)
            break;
    }
    return T;
}

std::uint32_t MaterialTable::fingerprint() const {
    std::string values = m_name;
    const auto add = [&values](double value) {
        values.append(reinterpret_cast<const char *>(&value), sizeof(value)); // NOLINT: bytes are what is hashed
    };
    for (const double value : {m_heatCapacity, m_saturation, m_pCStart, m_suctionStart, m_wetConductivity})
        add(value);
    for (const Node & node : m_nodes)
        for (const double value : {node.moisture, node.potential, node.vapor, node.lambda})
            add(value);
    constexpr double COLDEST = 240, WARMEST = 340; // [K]
    constexpr int SAMPLES = 20;
    for (int i = 0; i <= SAMPLES; ++i) {
        const double share = static_cast<double>(i) / SAMPLES;
        for (const Curve * curve : {&m_enthalpy, &m_lambdaByTemperature})
            add(curve->isEmpty() ? 0 : curve->value(COLDEST + share * (WARMEST - COLDEST)));
        add(m_lambdaByIce.isEmpty() ? 0 : m_lambdaByIce.value(share));
    }
    for (const auto & other : m_others)
        if (other)
            add(other->fingerprint());
    return DATAIO::GeoFile::hash(values);
}

} // namespace SOLVER
