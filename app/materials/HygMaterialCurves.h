#pragma once

#include <SCI/Axis.h>
#include <SCI/PointModel.h>

#include <memory>
#include <span>
#include <vector>

namespace MM {
class Material;
}

/// The functions of a material as curves, one row a function. A curve is evaluated by the prepared material itself, so
/// that it shows what a calculation uses.
namespace HygMaterialCurves {

enum curve_t {
    StorageRH,
    StoragePC,
    LiquidConductivity,
    LiquidDiffusivity,
    VaporPermeability,
    VaporResistance,
    ConductivityContent,
    ConductivityTemperature,
    ConductivityIce,
    AirPermeability,
    ThermalStorage,
    FoilForward,
    FoilBackward,
    NUM_CURVES
};

struct Row {
    const char * title; ///< to be translated in context "HygMaterialCurves"
    const char * xTitle;
    const char * xDataUnit;
    const char * xShownUnit;
    const char * yTitle;
    const char * yDataUnit;
    SCI::scale_t yScale;
    /// Whether the material has the function in a direction.
    bool (*exists)(const MM::Material & material, int direction);
    /// Largest and smallest x.
    double (*from)(const MM::Material & material);
    double (*to)(const MM::Material & material);
    const char * evaluation; ///< name of the MM::Evaluation
};

const Row & row(curve_t curve);
QString title(curve_t curve);
SCI::Axis xAxis(curve_t curve);
SCI::Axis yAxis(curve_t curve);

/// The directions (0, 1, 2) in which a material has a function of its own; empty if it has none.
std::vector<int> directions(curve_t curve, const MM::Material & material);
/// Evaluates the material, which the model keeps alive.
std::shared_ptr<const SCI::PointModel> model(curve_t curve, const std::shared_ptr<const MM::Material> & material,
                                             int direction);

} // namespace HygMaterialCurves
