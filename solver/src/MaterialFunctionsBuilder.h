#pragma once

#include <SOLVER/Construction.h>
#include <SOLVER/MaterialTable.h>

#include <HYGRION/Init.h>
#include <MM/Material.h>

namespace SOLVER {

/// How a project wants its materials.
struct MaterialOptions {
    module_t module = module_t::heatAndMoisture;
    HYGRION::Init::lambdaSelection_t lambda = HYGRION::Init::lambdaSelection_t::LambdaMoistureDependent;
    bool isStrict = false; ///< liquid transport functions must not fall
};

/// Reads a material file and makes its functions ready. In pure heat conduction a material without moisture functions
/// is a dry one. Throws ("[SOLVER::readMaterial]") with the name and what is missing.
MM::Material readMaterial(const std::string & path, const MaterialOptions & options);

/// The functions of a prepared material as the balances need them, evaluated by the object that charts evaluate.
///
/// Liquid conductivity on the gradient of suction is Kl [s]; from a diffusivity Dl it is rho_w Dl dTheta_l/dpl, the slope
/// taken from the very storage function, so that both forms give the same flux.
/// Throws ("[SOLVER::buildMaterialFunctions]") when a function is missing.
MaterialFunctions buildMaterialFunctions(const MM::Material & material, const MaterialOptions & options);

/// The material's expansion and density.
Construction::Expansion buildExpansion(const MM::Material & material);

} // namespace SOLVER
