#pragma once

#include <MM/FunctionTable.h>
#include <MM/MoistureStorage.h>
#include <MM/MoistureTransport.h>

#include <array>
#include <cmath>
#include <numbers>
#include <span>

namespace MM {

class Material;

/// A prepared material in flat tables, for calculations over many cells: states in, values and derivatives out, without
/// memory being taken and without virtual calls. The functions for one state are for loops of the caller's own; those
/// for spans do whole vectors. All spans of a call are equally long; a span for results that nobody needs may be empty.
///
/// Near and above saturation, contents follow the line of MoistureStorage::Thetal_pl, so that the inverse stays smooth.
class MaterialEvaluator {
public:
    using Interpolation = FunctionTable::Interpolation;

    /// Moisture of one cell.
    struct Moisture {
        double liquidPressure = 0; ///< [Pa], negative below saturation
        double pressureSlope = 0;  ///< d pl / d Theta_l [Pa]
        double humidity = 0;       ///< relative humidity [-], at most 1
        double humiditySlope = 0;  ///< d phi / d Theta_l [-]
    };
    struct Value {
        double value = 0, slope = 0;
    };
    struct Value2 {
        double value = 0, slope = 0, slope2 = 0;
    };

    /// Throws KOR::Exception ("[MaterialEvaluator::MaterialEvaluator]") for a material that is not prepared.
    /// LINEAR gives the values of the material's own functions, MONOTONE_CUBIC smooth ones through the same points.
    explicit MaterialEvaluator(const Material & material, Interpolation interpolation = Interpolation::MONOTONE_CUBIC);

    /// Content at saturation [m3/m3].
    double saturation() const { return m_saturation; }
    /// Holds no moisture: all of its moisture is 0.
    bool isTight() const { return m_storage == Storage::TIGHT; }

    /// State of moisture by the content [m3/m3], with the Kelvin law at a temperature [K].
    Moisture moisture(double content, double kelvinTemperature = T_REF) const;
    void moisture(std::span<const double> content, std::span<double> liquidPressure, std::span<double> pressureSlope,
                  std::span<double> humidity, std::span<double> humiditySlope) const;

    /// Content [m3/m3] by the liquid pressure [Pa], and its slope [1/Pa], with the Kelvin law at T_REF.
    Value content(double liquidPressure) const;
    void content(std::span<const double> liquidPressure, std::span<double> content, std::span<double> slope) const;

    /// Liquid conductivity [s] by the content, in a direction (0, 1, 2), and its slope.
    Value liquidConductivity(int direction, double content) const;
    void liquidConductivity(int direction, std::span<const double> content, std::span<double> value,
                            std::span<double> slope) const;

    /// Liquid diffusivity [m2/s] by the content; 0 where the material is given by its conductivity.
    Value liquidDiffusivity(int direction, double content) const;
    bool hasDiffusivity(int direction) const { return !m_directions[index(direction)].lgDl.empty(); }

    /// Vapour permeability [s] by content and relative humidity; slopes by content and by humidity.
    Value2 vaporPermeability(int direction, double content, double humidity) const;
    void vaporPermeability(int direction, std::span<const double> content, std::span<const double> humidity,
                           std::span<double> value, std::span<double> contentSlope,
                           std::span<double> humiditySlope) const;

    /// Thermal conductivity [W/mK] by content, temperature [K] and ice content; slopes by content and temperature.
    Value2 thermalConductivity(int direction, double content, double temperature, double iceContent = 0) const;
    void thermalConductivity(int direction, std::span<const double> content, std::span<const double> temperature,
                             std::span<double> value, std::span<double> contentSlope,
                             std::span<double> temperatureSlope) const;

    /// Air permeability [s] by the content.
    Value airPermeability(int direction, double content) const;

    /// Energy of the dry material [J/m3] by temperature [K], 0 at 273.15 K unless a function says otherwise; its slope
    /// is the volumetric heat capacity [J/m3K].
    Value enthalpy(double temperature) const;
    void enthalpy(std::span<const double> temperature, std::span<double> value, std::span<double> slope) const;
    /// The inverse: temperature [K] by energy [J/m3].
    Value temperature(double enthalpy) const;

private:
    enum class Storage { TIGHT, AIR, OVER_PC, OVER_RH };
    struct Direction {
        FunctionTable lgKl, lgDl, lgKv, mew, lambdaContent, lambdaTemperature, lambdaIce, kg;
        MoistureTransport::VaporModel vaporModel = MoistureTransport::VaporModel::NONE;
        bool hasLiquid = false;
        double dryKv = 0, porosity = 1, parallelShare = 1, lambda = 0, dryKg = 0;
    };
    static std::size_t index(int direction) { return static_cast<std::size_t>(direction); }

    Moisture moistureOverPC(double content, double kelvin) const;
    Moisture moistureOverRH(double content, double kelvin) const;
    static Value power10(const FunctionTable & logarithm, double x);

    Storage m_storage = Storage::TIGHT;
    double m_saturation = 0;
    double m_nearlySaturated = 0;   ///< content from which on the line holds
    double m_slope = 0;             ///< of the line [1/Pa]
    double m_threshold = 0;         ///< liquid pressure at m_nearlySaturated [Pa]
    FunctionTable m_contentByState; ///< over pC or relative humidity
    FunctionTable m_stateByContent;
    std::array<Direction, 3> m_directions;
    double m_density = 0, m_heatCapacity = 0;
    FunctionTable m_energy, m_temperature;
};

inline MaterialEvaluator::Moisture MaterialEvaluator::moistureOverPC(double content, double kelvin) const {
    Moisture state;
    if (content > m_nearlySaturated) {
        state.pressureSlope = 1 / m_slope;
        state.liquidPressure = (content - m_saturation) * state.pressureSlope;
    } else {
        double slope;
        const double pC = m_stateByContent.value(content, slope);
        state.liquidPressure = -std::exp(pC * std::numbers::ln10);
        state.pressureSlope = state.liquidPressure * std::numbers::ln10 * slope;
    }
    if (state.liquidPressure >= 0) {
        state.humidity = 1;
    } else {
        state.humidity = std::exp(state.liquidPressure / kelvin);
        state.humiditySlope = state.humidity * state.pressureSlope / kelvin;
    }
    return state;
}

inline MaterialEvaluator::Moisture MaterialEvaluator::moistureOverRH(double content, double kelvin) const {
    if (content > m_nearlySaturated)
        return moistureOverPC(content, kelvin);
    Moisture state;
    state.humidity = m_stateByContent.value(content, state.humiditySlope);
    if (state.humidity > 0) {
        state.liquidPressure = std::fmax(-1e12, kelvin * std::log(state.humidity));
        state.pressureSlope = kelvin / state.humidity * state.humiditySlope;
    } else {
        state.liquidPressure = -1e12;
    }
    return state;
}

inline MaterialEvaluator::Moisture MaterialEvaluator::moisture(double content, double kelvinTemperature) const {
    const double kelvin = kelvinPressure(kelvinTemperature);
    switch (m_storage) {
    case Storage::OVER_PC:
        return moistureOverPC(content, kelvin);
    case Storage::OVER_RH:
    case Storage::AIR:
        return moistureOverRH(content, kelvin);
    case Storage::TIGHT:
        break;
    }
    return {};
}

inline MaterialEvaluator::Value MaterialEvaluator::power10(const FunctionTable & logarithm, double x) {
    double slope;
    const double value = std::exp(logarithm.value(x, slope) * std::numbers::ln10);
    return {value, value * std::numbers::ln10 * slope};
}

inline MaterialEvaluator::Value MaterialEvaluator::liquidConductivity(int direction, double content) const {
    const Direction & d = m_directions[index(direction)];
    return d.hasLiquid ? power10(d.lgKl, content) : Value();
}

inline MaterialEvaluator::Value MaterialEvaluator::liquidDiffusivity(int direction, double content) const {
    const Direction & d = m_directions[index(direction)];
    return d.lgDl.empty() ? Value() : power10(d.lgDl, content);
}

inline MaterialEvaluator::Value2 MaterialEvaluator::vaporPermeability(int direction, double content,
                                                                      double humidity) const {
    using Model = MoistureTransport::VaporModel;
    const Direction & d = m_directions[index(direction)];
    switch (d.vaporModel) {
    case Model::NONE:
        return {};
    case Model::CONSTANT:
        return {d.dryKv, 0, 0};
    case Model::KV_FUNCTION: {
        const Value value = power10(d.lgKv, content);
        return {value.value, value.slope, 0};
    }
    case Model::MEW_FUNCTION: {
        double slope;
        const double mew = d.mew.value(humidity, slope);
        return {KV_AIR / mew, 0, -KV_AIR / (mew * mew) * slope};
    }
    case Model::SERIAL_PARALLEL:
        break;
    }
    const double open = 1 - content / d.porosity;
    if (open <= 0 || open > 1)
        return {open <= 0 ? 0 : d.dryKv, 0, 0};
    const double p = d.parallelShare;
    const double denominator = (1 - p) * open * open + p;
    const double slopeByOpen = (p - (1 - p) * open * open) / (denominator * denominator);
    return {d.dryKv * open / denominator, -d.dryKv * slopeByOpen / d.porosity, 0};
}

inline MaterialEvaluator::Value2 MaterialEvaluator::thermalConductivity(int direction, double content,
                                                                        double temperature, double iceContent) const {
    const Direction & d = m_directions[index(direction)];
    Value2 result{d.lambda, 0, 0};
    if (!d.lambdaContent.empty())
        result.value += d.lambdaContent.value(content, result.slope) - d.lambda;
    if (!d.lambdaTemperature.empty())
        result.value += d.lambdaTemperature.value(temperature, result.slope2) - d.lambda;
    if (!d.lambdaIce.empty())
        result.value += d.lambdaIce.value(iceContent) - d.lambda;
    return result;
}

inline MaterialEvaluator::Value MaterialEvaluator::airPermeability(int direction, double content) const {
    const Direction & d = m_directions[index(direction)];
    Value result{d.dryKg, 0};
    if (!d.kg.empty())
        result.value = d.kg.value(content, result.slope);
    return result;
}

inline MaterialEvaluator::Value MaterialEvaluator::enthalpy(double temperature) const {
    Value result{0, m_heatCapacity};
    double from = T_ZERO;
    if (!m_energy.empty()) {
        from = std::fmin(std::fmax(temperature, m_energy.first()), m_energy.last());
        double slope;
        result.value = m_energy.value(from, slope);
        if (from == temperature)
            result.slope = slope;
    }
    result.value = m_density * (result.value + m_heatCapacity * (temperature - from));
    result.slope *= m_density;
    return result;
}

} // namespace MM
