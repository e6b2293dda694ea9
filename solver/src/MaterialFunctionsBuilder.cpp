#include "MaterialFunctionsBuilder.h"

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>
#include <MM/MaterialEvaluator.h>

#include <cmath>
#include <memory>

namespace SOLVER {

using KOR::Exception;
using KOR::text;
using Selection = HYGRION::Init::lambdaSelection_t;
using Function = MaterialFunctions::Function;

namespace {

constexpr const char * READ = "[SOLVER::readMaterial]";
constexpr const char * BUILD = "[SOLVER::buildMaterialFunctions]";

using Evaluator = std::shared_ptr<const MM::MaterialEvaluator>;

double suctionAt(double pC) {
    return std::pow(10.0, pC);
}

Function liquidConductivity(const Evaluator & material, int direction) {
    return [material, direction](double pC) {
        const MM::MaterialEvaluator::Value content = material->content(-suctionAt(pC));
        return material->hasDiffusivity(direction)
                   ? MM::RHO_WATER * material->liquidDiffusivity(direction, content.value).value * content.slope
                   : material->liquidConductivity(direction, content.value).value;
    };
}

Function vaporPermeability(const Evaluator & material, int direction) {
    return [material, direction](double pC) {
        const double suction = suctionAt(pC);
        return material->vaporPermeability(direction, material->content(-suction).value, MM::relativeHumidity(-suction))
            .value;
    };
}

/// At T_REF and without ice.
Function thermalConductivity(const Evaluator & evaluator, const MM::Material & material, int direction,
                             Selection selection) {
    using Para = MM::Material::ParaTransport;
    switch (selection) {
    case Selection::LambdaDesign: {
        const KOR::Parameter & design = material.parameter(Para::LAMBDA_DESIGN);
        if (design.empty())
            throw Exception("Parameter LAMBDA_DESIGN is missing, which 'LambdaDesign' asks for.", BUILD);
        return [lambda = design.value()](double) { return lambda; };
    }
    case Selection::LambdaDry:
        return [lambda = material.thermalTransport(direction).lambdaDry()](double) { return lambda; };
    case Selection::LambdaMoistureDependent:
        break;
    }
    return [evaluator, direction](double pC) {
        return evaluator->thermalConductivity(direction, evaluator->content(-suctionAt(pC)).value, T_REF).value;
    };
}

} // namespace

MM::Material readMaterial(const std::string & path, const MaterialOptions & options) {
    MM::Material material;
    material.read(path);
    try {
        material.prepareCalculation();
    } catch (const Exception & ex) {
        if (options.module != module_t::heat)
            throw Exception(ex, text("Material '%1' cannot be used for moisture transport.", material.name()), READ);
        using Flags = MM::MaterialIdentification::Flags;
        material.m_identification.m_flags |= static_cast<unsigned int>(Flags::VAPOR_TIGHT) |
                                             static_cast<unsigned int>(Flags::WATER_TIGHT) |
                                             static_cast<unsigned int>(Flags::AIR_TIGHT);
        material.prepareCalculation();
        KOR::message(text("Material '%1' is taken to be dry: %2", material.name(), ex.cause()), KOR::MSG_WARNING, READ);
    }
    if (options.isStrict)
        for (const MM::MoistureTransport & transport : material.m_moistureTransport)
            transport.checkLiquidFunctionMonotony(material.name());
    return material;
}

MaterialFunctions buildMaterialFunctions(const MM::Material & material, const MaterialOptions & options) {
    try {
        const auto evaluator = std::make_shared<const MM::MaterialEvaluator>(material);
        MaterialFunctions functions;
        functions.name = material.name();
        functions.heatCapacity = material.m_thermalStorage.density() * material.m_thermalStorage.heatCapacity();
        functions.moisture = [evaluator](double pC) {
            return MM::RHO_WATER * evaluator->content(-suctionAt(pC)).value;
        };
        const auto transport = [&](int direction) {
            return MaterialFunctions::Transport{liquidConductivity(evaluator, direction),
                                                vaporPermeability(evaluator, direction),
                                                thermalConductivity(evaluator, material, direction, options.lambda)};
        };
        MaterialFunctions::Transport u = transport(0);
        functions.liquidConductivity = std::move(u.liquidConductivity);
        functions.vaporPermeability = std::move(u.vaporPermeability);
        functions.thermalConductivity = std::move(u.thermalConductivity);
        for (int direction : {1, 2})
            if (material.effectiveDirection(direction) != 0)
                functions.otherDirections[static_cast<std::size_t>(direction - 1)] = transport(direction);

        using Conduction = MM::ThermalTransport::Functions;
        using Storage = MM::ThermalStorage::Functions;
        if (!material.m_thermalStorage.prepared(Storage::u_T).empty())
            functions.enthalpy = [evaluator, zero = evaluator->enthalpy(T_ZERO).value](double T) {
                return evaluator->enthalpy(T).value - zero;
            };
        const MM::ThermalTransport & conduction = material.thermalTransport(0);
        if (options.lambda == Selection::LambdaMoistureDependent) {
            const double lambda = evaluator->thermalConductivity(0, 0, T_REF).value;
            if (!conduction.prepared(Conduction::lambda_T).empty())
                functions.conductivityByTemperature = [evaluator, lambda](double T) {
                    return evaluator->thermalConductivity(0, 0, T).value - lambda;
                };
            if (!conduction.prepared(Conduction::lambda_Theta_ice).empty())
                functions.conductivityByIce = [evaluator, lambda](double ice) {
                    return evaluator->thermalConductivity(0, 0, T_REF, ice).value - lambda;
                };
        }
        return functions;
    } catch (const Exception & ex) {
        throw Exception(ex, text("Material '%1' lacks a function that the calculation needs.", material.name()), BUILD);
    }
}

Construction::Expansion buildExpansion(const MM::Material & material) {
    using Para = MM::Material::ParaMechanical;
    constexpr Para THERMAL[] = {Para::ALPHA, Para::ALPHA_V, Para::ALPHA_W};
    constexpr Para HYGRIC[] = {Para::BETA_THETA_L, Para::BETA_THETA_L_V, Para::BETA_THETA_L_W};
    Construction::Expansion expansion;
    expansion.density = material.m_thermalStorage.density();
    // A direction that is not given is like the one before.
    const auto value = [&](Para which, std::string_view unit, double before) {
        const KOR::Parameter & parameter = material.parameter(which);
        return parameter.empty() ? before : parameter.get_value(unit);
    };
    for (std::size_t d = 0; d < 3; ++d) {
        expansion.thermal[d] = value(THERMAL[d], "m/mK", d > 0 ? expansion.thermal[d - 1] : 0);
        expansion.hygric[d] = value(HYGRIC[d], "m3m/m3m", d > 0 ? expansion.hygric[d - 1] : 0);
    }
    expansion.fiberSaturation = value(Para::BETA_THETA_L2, "m3/m3", expansion.fiberSaturation);
    return expansion;
}

} // namespace SOLVER
