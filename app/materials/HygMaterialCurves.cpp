#include "materials/HygMaterialCurves.h"

#include <MM/Evaluation.h>
#include <MM/Material.h>

#include <SCI/PointModels.h>

#include <QCoreApplication>

#include <limits>

namespace {

using namespace HygMaterialCurves;
using Flags = MM::MaterialIdentification::Flags;
using MM::Material;
using Transport = MM::MoistureTransport::Functions;
using Conduction = MM::ThermalTransport::Functions;

constexpr std::size_t POINTS = 600;
constexpr double LEVEL_LINE = 0.01; ///< width of a chart of one value, in the unit of its axis
constexpr double COLDEST = 253.15;  ///< [K]
constexpr double HOTTEST = 353.15;  ///< [K]

double zero(const Material &) {
    return 0;
}
double one(const Material &) {
    return 1;
}
double dry(const Material &) {
    return MM::MoistureStorage::PC_DRY;
}
double saturation(const Material & material) {
    const KOR::Parameter & given = material.parameter(Material::ParaStorage::THETA_EFF);
    return given.empty() ? material.m_moistureStorage.saturation() : given.value();
}
/// Vapour moves until all pores are full.
double porosity(const Material & material) {
    const KOR::Parameter & given = material.parameter(Material::ParaStorage::THETA_POR);
    return given.empty() ? saturation(material) : given.value();
}
double coldest(const Material &) {
    return COLDEST;
}
double hottest(const Material &) {
    return HOTTEST;
}

bool storesMoisture(const Material & material, int direction) {
    return direction == 0 && !material.hasFlag(Flags::AIR) && !material.m_identification.isTight() &&
           material.m_moistureStorage.mode() != MM::MoistureStorage::MODE_NONE;
}
bool hasLiquid(const Material & material, int direction) {
    return material.moistureTransport(direction).hasLiquid();
}
bool hasDiffusivity(const Material & material, int direction) {
    return hasLiquid(material, direction) &&
           !material.moistureTransport(direction).prepared(Transport::lgDl_Theta_l).empty();
}
bool hasVapor(const Material & material, int direction) {
    return material.moistureTransport(direction).vaporModel() != MM::MoistureTransport::VaporModel::NONE;
}
bool conducts(const Material & material, int direction) {
    return material.thermalTransport(direction).lambdaDry() > 0;
}
template <Conduction FUNCTION> bool conductsBy(const Material & material, int direction) {
    return material.thermalTransport(direction).has(FUNCTION);
}
bool letsAirPass(const Material & material, int direction) {
    return material.airTransport(direction).Kg(0) > 0;
}
bool storesHeat(const Material & material, int direction) {
    return direction == 0 && material.m_thermalStorage.density() > 0;
}
bool isAdaptive(const Material & material, int direction) {
    using Foil = MM::VaporContactResistanceModel::Functions;
    return direction == 0 && (material.m_vaporContactResistance.has(Foil::sdPos_rh) ||
                              material.m_vaporContactResistance.has(Foil::sdNeg_rh));
}

// clang-format off
constexpr Row ROWS[] = {
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture storage over relative humidity"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Relative humidity"), "---", "%", QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", SCI::LINEAR,
     storesMoisture, zero, one, "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture storage over capillary pressure"), QT_TRANSLATE_NOOP("HygMaterialCurves", "pC = log10(pc / Pa)"), "-", "-", QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", SCI::LINEAR,
     storesMoisture, zero, dry, "Theta_l(pC)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Liquid conductivity Kl"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Liquid conductivity"), "s", SCI::LOGARITHMIC,
     hasLiquid, zero, saturation, "Kl"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Liquid diffusivity Dl"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Liquid diffusivity"), "m2/s", SCI::LOGARITHMIC,
     hasDiffusivity, zero, saturation, "Dl"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Vapour permeability Kv"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Vapour permeability"), "s", SCI::LINEAR,
     hasVapor, zero, porosity, "Kv"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Vapour diffusion resistance µ"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Relative humidity"), "---", "%", QT_TRANSLATE_NOOP("HygMaterialCurves", "Resistance factor µ"), "-", SCI::LINEAR,
     hasVapor, zero, one, "mew(RH)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity over moisture content"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity"), "W/mK", SCI::LINEAR,
     conducts, zero, saturation, "lambda"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity over temperature"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Temperature"), "K", "C", QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity"), "W/mK", SCI::LINEAR,
     conductsBy<Conduction::lambda_T>, coldest, hottest, "lambda(T)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity over ice content"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Ice content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal conductivity"), "W/mK", SCI::LINEAR,
     conductsBy<Conduction::lambda_Theta_ice>, zero, saturation, "lambda(Theta_ice)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Air permeability Kg"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Moisture content"), "m3/m3", "m3/m3", QT_TRANSLATE_NOOP("HygMaterialCurves", "Air permeability"), "s", SCI::LOGARITHMIC,
     letsAirPass, zero, saturation, "Kg"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Thermal storage"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Temperature"), "K", "C", QT_TRANSLATE_NOOP("HygMaterialCurves", "Specific energy"), "J/kg", SCI::LINEAR,
     storesHeat, coldest, hottest, "u(T)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Vapour resistance of a foil, positive direction"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Relative humidity"), "---", "%", QT_TRANSLATE_NOOP("HygMaterialCurves", "Equivalent air layer"), "m", SCI::LINEAR,
     isAdaptive, zero, one, "sd+(rh)"},
    {QT_TRANSLATE_NOOP("HygMaterialCurves", "Vapour resistance of a foil, negative direction"), QT_TRANSLATE_NOOP("HygMaterialCurves", "Relative humidity"), "---", "%", QT_TRANSLATE_NOOP("HygMaterialCurves", "Equivalent air layer"), "m", SCI::LINEAR,
     isAdaptive, zero, one, "sd-(rh)"},
};
// clang-format on
static_assert(std::size(ROWS) == NUM_CURVES, "curve table and enumeration disagree");

QString text(const char * source) {
    return QCoreApplication::translate("HygMaterialCurves", source);
}

} // namespace

const Row & HygMaterialCurves::row(curve_t curve) {
    return ROWS[curve];
}

QString HygMaterialCurves::title(curve_t curve) {
    return text(ROWS[curve].title);
}

SCI::Axis HygMaterialCurves::xAxis(curve_t curve) {
    const Row & row = ROWS[curve];
    return {text(row.xTitle), QLatin1String(row.xDataUnit), QLatin1String(row.xShownUnit)};
}

SCI::Axis HygMaterialCurves::yAxis(curve_t curve) {
    const Row & row = ROWS[curve];
    return {text(row.yTitle), QLatin1String(row.yDataUnit), {}, row.yScale};
}

std::vector<int> HygMaterialCurves::directions(curve_t curve, const Material & material) {
    std::vector<int> found;
    for (int direction = 0; direction < static_cast<int>(Material::NUM_DIRECTIONS); ++direction)
        if (material.effectiveDirection(direction) == direction && ROWS[curve].exists(material, direction))
            found.push_back(direction);
    return found;
}

std::shared_ptr<const SCI::PointModel>
HygMaterialCurves::model(curve_t curve, const std::shared_ptr<const Material> & material, int direction) {
    const Row & row = ROWS[curve];
    const double from = row.from(*material);
    const double end = row.to(*material); // what holds no water has one value, drawn as a level line
    const double to = end > from ? end : from + LEVEL_LINE;
    const auto value = MM::evaluation(row.evaluation).value;
    return std::make_shared<SCI::FunctionModel>(
        [material, direction, value, last = std::max(from, end)](double x) {
            return value(*material, direction, std::min(x, last));
        },
        from, to, POINTS);
}
