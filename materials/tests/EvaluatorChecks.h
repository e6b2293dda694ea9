#pragma once

#include <MM/Material.h>
#include <MM/MaterialEvaluator.h>

#include <gtest/gtest.h>

#include <cmath>

namespace MM {

/// Slopes agree with central differences, wherever the function has no corner between the points.
/// \param scale size of the function's values
template <typename Function>
void expectSlope(const Function & function, double x, double step, double scale, const std::string & what) {
    const auto here = function(x);
    const auto above = function(x + step);
    const auto below = function(x - step);
    // The slopes on both sides tell how far the function bends (or has a corner) within the step.
    const double bend = std::abs(above.slope - below.slope) + 1e-4 * (std::abs(above.slope) + std::abs(below.slope));
    const double difference = (above.value - below.value) / (2 * step);
    EXPECT_NEAR(here.slope, difference, bend + 1e-9 * scale / step) << what << " at " << x;
}

/// What must hold for every prepared material.
inline void checkIdentities(const Material & material, MaterialEvaluator::Interpolation interpolation) {
    const MaterialEvaluator evaluator(material, interpolation);
    const std::string name = material.name();
    const double saturation = evaluator.saturation();
    using Flags = MaterialIdentification::Flags;
    const bool hasLiquid = !material.hasFlag(Flags::WATER_TIGHT);
    const bool isVaporTight = material.hasFlag(Flags::VAPOR_TIGHT);
    const bool isOpenPored =
        material.m_moistureTransport[0].vaporModel() == MoistureTransport::VaporModel::SERIAL_PARALLEL;
    const double porosity = isOpenPored ? material.m_moistureTransport[0].porosity() : 2;
    for (int direction = 0; direction < 3; ++direction) {
        for (int i = 0; i <= 40; ++i) {
            const double content = saturation * i / 40;
            const double humidity = i / 40.0;
            EXPECT_GT(evaluator.thermalConductivity(direction, content, 283.15).value, 0) << name;
            EXPECT_EQ(evaluator.liquidConductivity(direction, content).value > 0, hasLiquid) << name;
            const double permeability = evaluator.vaporPermeability(direction, content, humidity).value;
            EXPECT_EQ(permeability > 0, !isVaporTight && content < porosity) << name << " at " << content;
            EXPECT_GE(evaluator.airPermeability(direction, content).value, 0) << name;
        }
    }
    for (const double temperature : {253.15, 283.15, 303.15}) {
        const auto energy = evaluator.enthalpy(temperature);
        EXPECT_GT(energy.slope, 0) << name;
        EXPECT_NEAR(evaluator.temperature(energy.value).value, temperature, 1e-9) << name;
        EXPECT_NEAR(evaluator.temperature(energy.value).slope * energy.slope, 1, 1e-9) << name;
    }
    if (evaluator.isTight()) {
        EXPECT_EQ(evaluator.content(-1e6).value, 0) << name;
        return;
    }

    // Content falls with pC and is never below 0.
    double last = evaluator.content(1e4).value;
    for (double pC = -1; pC <= 13; pC += 0.05) {
        const auto state = evaluator.content(-std::pow(10.0, pC));
        EXPECT_LE(state.value, last * (1 + 1e-12)) << name << " at pC " << pC;
        EXPECT_GE(state.value, 0) << name;
        EXPECT_GE(state.slope, 0) << name;
        last = state.value;
    }

    // Humidity and content undo each other; smooth tables agree as well as their points do.
    const bool isLinear = interpolation == MaterialEvaluator::Interpolation::LINEAR;
    if (isLinear && !material.m_moistureStorage.isAir()) {
        EXPECT_NEAR(evaluator.content(1e7).value, material.m_moistureStorage.Thetal_pl(1e7), 1e-9 * saturation) << name;
    }
    for (double humidity = 0.05; humidity < 0.995; humidity += 0.015) {
        const double content = evaluator.content(liquidPressure(humidity)).value;
        if (content > 1e-9 * saturation && content < MoistureStorage::NEARLY_SATURATED * saturation) {
            EXPECT_NEAR(evaluator.moisture(content).humidity, humidity, isLinear ? 1e-9 : 1e-3) << name;
        }
        if (isLinear && !material.m_moistureStorage.isAir()) {
            EXPECT_NEAR(material.m_moistureStorage.Thetal_RH(humidity), content, 1e-9 * saturation + 1e-15) << name;
        }
    }

    for (int i = 1; i < 60; ++i) {
        const double content = saturation * (i / 60.0) * 1.01;
        const double step = 1e-6 * saturation;
        const auto pressure = [&](double x) {
            const auto state = evaluator.moisture(x);
            return MaterialEvaluator::Value{state.liquidPressure, state.pressureSlope};
        };
        const auto humidity = [&](double x) {
            const auto state = evaluator.moisture(x);
            return MaterialEvaluator::Value{state.humidity, state.humiditySlope};
        };
        expectSlope(pressure, content, step, std::abs(pressure(content).value), name + " pl");
        expectSlope(humidity, content, step, 1, name + " RH");
        const auto conductivity = [&](double x) { return evaluator.liquidConductivity(0, x); };
        expectSlope(conductivity, content, step, conductivity(content).value, name + " Kl");
        const auto permeability = [&](double x) { return evaluator.vaporPermeability(0, x, 0.5); };
        expectSlope(permeability, content, step, KV_AIR, name + " Kv");
        const auto byHumidity = [&](double x) {
            const auto value = evaluator.vaporPermeability(0, content, x);
            return MaterialEvaluator::Value{value.value, value.slope2};
        };
        expectSlope(byHumidity, i / 60.0, 1e-6, KV_AIR, name + " Kv over RH");
        const auto lambda = [&](double x) { return evaluator.thermalConductivity(0, x, 283.15); };
        expectSlope(lambda, content, step, 1, name + " lambda");
        const auto byTemperature = [&](double x) {
            const auto value = evaluator.thermalConductivity(0, content, x);
            return MaterialEvaluator::Value{value.value, value.slope2};
        };
        expectSlope(byTemperature, 250 + 0.97 * i, 1e-4, 1e-4, name + " lambda over T");
        const auto airPermeability = [&](double x) { return evaluator.airPermeability(0, x); };
        expectSlope(airPermeability, content, step, airPermeability(0).value, name + " Kg");
        const auto retention = [&](double x) { return evaluator.content(x); };
        const double pl = -std::pow(10.0, 0.1 + 0.15 * i);
        expectSlope(retention, pl, std::abs(1e-5 * pl), saturation, name + " Theta");
    }
}

} // namespace MM
