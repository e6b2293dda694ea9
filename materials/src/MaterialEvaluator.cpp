#include <MM/MaterialEvaluator.h>

#include <MM/Material.h>

#include "SplineTools.h"

#include <KOR/Exception.h>

#include <cassert>
#include <cmath>

namespace MM {

namespace {

FunctionTable tableOf(const KOR::LinearSpline & spline, FunctionTable::Interpolation interpolation) {
    return spline.empty() ? FunctionTable() : FunctionTable(spline, interpolation);
}

/// The smooth table of a retention function, so dense that its inverse may run through the same points.
KOR::LinearSpline densified(const KOR::LinearSpline & spline) {
    constexpr std::size_t POINTS = 400;
    const FunctionTable smooth(spline, FunctionTable::Interpolation::MONOTONE_CUBIC);
    const std::size_t parts = std::max<std::size_t>(1, POINTS / spline.size());
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t i = 0; i + 1 < spline.size(); ++i)
        for (std::size_t part = 0; part < parts; ++part) {
            const double share = static_cast<double>(part) / static_cast<double>(parts);
            x.push_back(std::lerp(spline.x()[i], spline.x()[i + 1], share));
            y.push_back(smooth.value(x.back()));
        }
    x.push_back(spline.x().back());
    y.push_back(spline.y().back());
    return {x, y};
}

/// The element of a result that is wanted, or a place for what is not.
struct Out {
    explicit Out(std::span<double> values) : m_values(values) {}
    void set(std::size_t i, double value) {
        if (!m_values.empty())
            m_values[i] = value;
    }
    std::span<double> m_values;
};

} // namespace

MaterialEvaluator::MaterialEvaluator(const Material & material, Interpolation interpolation) {
    using Retention = MoistureStorage::Functions;
    const MoistureStorage & storage = material.m_moistureStorage;
    const bool isLinear = storage.mode() == MoistureStorage::MODE_LINEAR;
    if (storage.mode() == MoistureStorage::MODE_NONE || storage.mode() == MoistureStorage::MODE_MODEL)
        throw KOR::Exception(KOR::text("Material '%1' is not prepared for calculation.", material.name()),
                             "[MaterialEvaluator::MaterialEvaluator]");
    m_storage = storage.isAir()                              ? Storage::AIR
                : isLinear                                   ? Storage::TIGHT
                : storage.mode() == MoistureStorage::MODE_PC ? Storage::OVER_PC
                                                             : Storage::OVER_RH;
    m_saturation = storage.saturation();
    m_nearlySaturated = MoistureStorage::NEARLY_SATURATED * m_saturation;
    if (m_storage == Storage::AIR) {
        m_nearlySaturated = m_saturation;
        m_slope = storage.slopeAtSaturation();
        m_stateByContent = FunctionTable({0, m_saturation}, {0, 1}, Interpolation::LINEAR);
        m_contentByState = FunctionTable({0, 1}, {0, m_saturation}, Interpolation::LINEAR);
    } else if (m_storage != Storage::TIGHT) {
        const bool overPC = m_storage == Storage::OVER_PC;
        KOR::LinearSpline contents = storage.prepared(overPC ? Retention::Theta_l_pC_de : Retention::Theta_l_RH);
        KOR::LinearSpline states = overPC ? storage.prepared(Retention::pC_Theta_l_de) : storage.humidity();
        if (interpolation == Interpolation::MONOTONE_CUBIC) {
            contents = densified(contents);
            states = inverted(contents, MoistureStorage::SAME_CONTENT * m_saturation);
        }
        m_contentByState = FunctionTable(contents, interpolation);
        m_stateByContent = FunctionTable(states, interpolation);
        const double state = m_stateByContent.value(m_nearlySaturated);
        m_threshold = overPC ? -std::pow(10.0, state) : liquidPressure(state);
        m_slope = (m_saturation - m_nearlySaturated) / -m_threshold;
    }
    for (int direction = 0; direction < 3; ++direction) {
        Direction & d = m_directions[index(direction)];
        const MoistureTransport & moisture = material.moistureTransport(direction);
        const ThermalTransport & heat = material.thermalTransport(direction);
        const AirTransport & air = material.airTransport(direction);
        using Moist = MoistureTransport::Functions;
        d.hasLiquid = moisture.hasLiquid();
        d.vaporModel = moisture.vaporModel();
        d.dryKv = moisture.dryKv();
        d.porosity = moisture.porosity();
        d.parallelShare = moisture.parallelShare();
        if (d.hasLiquid) {
            d.lgKl = tableOf(moisture.prepared(Moist::lgKl_Theta_l), interpolation);
            d.lgDl = tableOf(moisture.prepared(Moist::lgDl_Theta_l), interpolation);
        }
        d.lgKv = tableOf(moisture.prepared(Moist::lgKv_Theta_l), interpolation);
        d.mew = tableOf(moisture.prepared(Moist::mew_RH), interpolation);
        d.lambda = heat.lambdaDry();
        d.lambdaContent = tableOf(heat.prepared(ThermalTransport::Functions::lambda_Theta_l), interpolation);
        d.lambdaTemperature = tableOf(heat.prepared(ThermalTransport::Functions::lambda_T), interpolation);
        d.lambdaIce = tableOf(heat.prepared(ThermalTransport::Functions::lambda_Theta_ice), interpolation);
        d.dryKg = air.Kg(0);
        if (d.dryKg > 0)
            d.kg = tableOf(air.prepared(AirTransport::Functions::Kg_Theta_l), interpolation);
    }
    m_density = material.m_thermalStorage.density();
    m_heatCapacity = material.m_thermalStorage.heatCapacity();
    // Energy and its inverse must undo each other, which straight lines do.
    m_energy = tableOf(material.m_thermalStorage.prepared(ThermalStorage::Functions::u_T), Interpolation::LINEAR);
    m_temperature = tableOf(material.m_thermalStorage.inverse(), Interpolation::LINEAR);
}

MaterialEvaluator::Value MaterialEvaluator::content(double liquidPressure) const {
    if (m_storage == Storage::TIGHT)
        return {};
    if (m_storage == Storage::AIR ? liquidPressure >= 0 : liquidPressure > m_threshold)
        return {m_saturation + m_slope * liquidPressure, m_slope};
    Value result;
    if (m_storage == Storage::OVER_PC) {
        const double logarithm = std::log(-liquidPressure);
        result.value = m_contentByState.value(logarithm * std::numbers::log10e, result.slope);
        result.slope /= liquidPressure * std::numbers::ln10;
    } else {
        const double humidity = std::exp(liquidPressure / kelvinPressure());
        result.value = m_contentByState.value(humidity, result.slope);
        result.slope *= humidity / kelvinPressure();
    }
    // The two tables agree but for their last digits; the content must not jump down where the line takes over.
    if (m_storage != Storage::AIR)
        result.value = std::fmin(result.value, m_nearlySaturated);
    return result;
}

MaterialEvaluator::Value MaterialEvaluator::temperature(double enthalpy) const {
    const double energy = enthalpy / m_density;
    Value result{T_ZERO, 1 / m_heatCapacity};
    double from = 0;
    if (!m_temperature.empty()) {
        from = std::fmin(std::fmax(energy, m_temperature.first()), m_temperature.last());
        double slope;
        result.value = m_temperature.value(from, slope);
        if (from == energy)
            result.slope = slope;
    }
    result.value += (energy - from) / m_heatCapacity;
    result.slope /= m_density;
    return result;
}

void MaterialEvaluator::moisture(std::span<const double> content, std::span<double> liquidPressure,
                                 std::span<double> pressureSlope, std::span<double> humidity,
                                 std::span<double> humiditySlope) const {
    assert(liquidPressure.empty() || liquidPressure.size() == content.size());
    Out pressures(liquidPressure), pressureSlopes(pressureSlope), humidities(humidity), humiditySlopes(humiditySlope);
    for (std::size_t i = 0; i < content.size(); ++i) {
        const Moisture state = moisture(content[i]);
        pressures.set(i, state.liquidPressure);
        pressureSlopes.set(i, state.pressureSlope);
        humidities.set(i, state.humidity);
        humiditySlopes.set(i, state.humiditySlope);
    }
}

void MaterialEvaluator::content(std::span<const double> liquidPressure, std::span<double> contents,
                                std::span<double> slope) const {
    Out values(contents), slopes(slope);
    for (std::size_t i = 0; i < liquidPressure.size(); ++i) {
        const Value result = content(liquidPressure[i]);
        values.set(i, result.value);
        slopes.set(i, result.slope);
    }
}

void MaterialEvaluator::liquidConductivity(int direction, std::span<const double> content, std::span<double> value,
                                           std::span<double> slope) const {
    Out values(value), slopes(slope);
    for (std::size_t i = 0; i < content.size(); ++i) {
        const Value result = liquidConductivity(direction, content[i]);
        values.set(i, result.value);
        slopes.set(i, result.slope);
    }
}

void MaterialEvaluator::vaporPermeability(int direction, std::span<const double> content,
                                          std::span<const double> humidity, std::span<double> value,
                                          std::span<double> contentSlope, std::span<double> humiditySlope) const {
    assert(humidity.size() == content.size());
    Out values(value), contentSlopes(contentSlope), humiditySlopes(humiditySlope);
    for (std::size_t i = 0; i < content.size(); ++i) {
        const Value2 result = vaporPermeability(direction, content[i], humidity[i]);
        values.set(i, result.value);
        contentSlopes.set(i, result.slope);
        humiditySlopes.set(i, result.slope2);
    }
}

void MaterialEvaluator::thermalConductivity(int direction, std::span<const double> content,
                                            std::span<const double> temperature, std::span<double> value,
                                            std::span<double> contentSlope, std::span<double> temperatureSlope) const {
    assert(temperature.size() == content.size());
    Out values(value), contentSlopes(contentSlope), temperatureSlopes(temperatureSlope);
    for (std::size_t i = 0; i < content.size(); ++i) {
        const Value2 result = thermalConductivity(direction, content[i], temperature[i]);
        values.set(i, result.value);
        contentSlopes.set(i, result.slope);
        temperatureSlopes.set(i, result.slope2);
    }
}

void MaterialEvaluator::enthalpy(std::span<const double> temperature, std::span<double> value,
                                 std::span<double> slope) const {
    Out values(value), slopes(slope);
    for (std::size_t i = 0; i < temperature.size(); ++i) {
        const Value result = enthalpy(temperature[i]);
        values.set(i, result.value);
        slopes.set(i, result.slope);
    }
}

} // namespace MM
