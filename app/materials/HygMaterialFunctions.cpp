#include "materials/HygMaterialFunctions.h"

#include <MM/Material.h>

#include <QCoreApplication>

namespace {

using namespace HygMaterialFunctions;
using MM::Material;

template <auto FUNCTION, typename MaterialType> auto & section(MaterialType & material, int direction) {
    using Functions = decltype(FUNCTION);
    const auto d = static_cast<std::size_t>(direction);
    if constexpr (std::is_same_v<Functions, MM::MoistureStorage::Functions>)
        return material.m_moistureStorage;
    else if constexpr (std::is_same_v<Functions, MM::ThermalStorage::Functions>)
        return material.m_thermalStorage;
    else if constexpr (std::is_same_v<Functions, MM::MoistureTransport::Functions>)
        return material.m_moistureTransport[d];
    else if constexpr (std::is_same_v<Functions, MM::ThermalTransport::Functions>)
        return material.m_thermalTransport[d];
    else if constexpr (std::is_same_v<Functions, MM::AirTransport::Functions>)
        return material.m_airTransport[d];
    else
        return material.m_vaporContactResistance;
}

template <auto FUNCTION> const KOR::LinearSpline & get(const Material & material, int direction) {
    return section<FUNCTION>(material, direction).function(FUNCTION);
}

template <auto FUNCTION> void set(Material & material, int direction, const KOR::LinearSpline & spline) {
    section<FUNCTION>(material, direction).setFunction(FUNCTION, spline);
}

using Storage = MM::MoistureStorage::Functions;
using Moisture = MM::MoistureTransport::Functions;
using Heat = MM::ThermalTransport::Functions;
using Energy = MM::ThermalStorage::Functions;
using Air = MM::AirTransport::Functions;
using Foil = MM::VaporContactResistanceModel::Functions;

#define AT(function) get<function>, set<function>
// clang-format off
constexpr Row ROWS[] = {
    {"Theta_l(RH)",       QT_TRANSLATE_NOOP("HygMaterialFunctions", "Sorption isotherm"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Relative humidity"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", false, AT(Storage::Theta_l_RH)},
    {"Theta_l(pC)_de",    QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture retention, desorption"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "pC = log10(pc / Pa)"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", false, AT(Storage::Theta_l_pC_de)},
    {"pC(Theta_l)_de",    QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture retention, desorption, inverse"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "pC = log10(pc / Pa)"), "-", false, AT(Storage::pC_Theta_l_de)},
    {"Theta_l(pC)_ad",    QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture retention, adsorption"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "pC = log10(pc / Pa)"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", false, AT(Storage::Theta_l_pC_ad)},
    {"pC(Theta_l)_ad",    QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture retention, adsorption, inverse"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "pC = log10(pc / Pa)"), "-", false, AT(Storage::pC_Theta_l_ad)},
    {"mwu(T)",            QT_TRANSLATE_NOOP("HygMaterialFunctions", "mwu over temperature (kept, not used)"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Temperature"), "K", "mwu", "-", false, AT(Storage::mwu_T)},
    {"DE(pC)",            QT_TRANSLATE_NOOP("HygMaterialFunctions", "DE over pC (kept, not used)"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "pC = log10(pc / Pa)"), "-", "DE", "-", false, AT(Storage::DE_pC)},
    {"lgKl(Theta_l)",     QT_TRANSLATE_NOOP("HygMaterialFunctions", "Liquid conductivity"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "log10(Kl / s)"), "-", true, AT(Moisture::lgKl_Theta_l)},
    {"lgDl(Theta_l)",     QT_TRANSLATE_NOOP("HygMaterialFunctions", "Liquid diffusivity"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "log10(Dl / (m2/s))"), "-", true, AT(Moisture::lgDl_Theta_l)},
    {"lgKv(Theta_l)",     QT_TRANSLATE_NOOP("HygMaterialFunctions", "Vapour permeability"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "log10(Kv / s)"), "-", true, AT(Moisture::lgKv_Theta_l)},
    {"mew(RH)",           QT_TRANSLATE_NOOP("HygMaterialFunctions", "Vapour diffusion resistance"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Relative humidity"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Resistance factor µ"), "-", true, AT(Moisture::mew_RH)},
    {"lambda(Theta_l)",   QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity over moisture content"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity"), "W/mK", true, AT(Heat::lambda_Theta_l)},
    {"lambda(T)",         QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity over temperature"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Temperature"), "K", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity"), "W/mK", true, AT(Heat::lambda_T)},
    {"lambda(Theta_ice)", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity over ice content"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Ice content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Thermal conductivity"), "W/mK", true, AT(Heat::lambda_Theta_ice)},
    {"Kg(Theta_l)",       QT_TRANSLATE_NOOP("HygMaterialFunctions", "Air permeability"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Moisture content"), "m3/m3", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Air permeability"), "s", true, AT(Air::Kg_Theta_l)},
    {"u(T)",              QT_TRANSLATE_NOOP("HygMaterialFunctions", "Specific energy"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Temperature"), "K", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Specific energy"), "J/kg", false, AT(Energy::u_T)},
    {"sd+(rh)",           QT_TRANSLATE_NOOP("HygMaterialFunctions", "Vapour resistance of a foil, positive direction"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Relative humidity"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Equivalent air layer"), "m", false, AT(Foil::sdPos_rh)},
    {"sd-(rh)",           QT_TRANSLATE_NOOP("HygMaterialFunctions", "Vapour resistance of a foil, negative direction"), QT_TRANSLATE_NOOP("HygMaterialFunctions", "Relative humidity"), "-", QT_TRANSLATE_NOOP("HygMaterialFunctions", "Equivalent air layer"), "m", false, AT(Foil::sdNeg_rh)},
};
// clang-format on
#undef AT

QString text(const char * source) {
    return QCoreApplication::translate("HygMaterialFunctions", source);
}

} // namespace

const Row & HygMaterialFunctions::row(int row) {
    return ROWS[row];
}

int HygMaterialFunctions::numRows() {
    return static_cast<int>(std::size(ROWS));
}

QString HygMaterialFunctions::title(const Place & place) {
    static constexpr const char * DIRECTIONS[] = {"u", "v", "w"};
    const QString title = text(ROWS[place.row].title);
    return place.direction == 0 ? title
                                : QCoreApplication::translate("HygMaterialFunctions", "%1, direction %2")
                                      .arg(title, QLatin1String(DIRECTIONS[place.direction]));
}

QString HygMaterialFunctions::xTitle(const Place & place) {
    return text(ROWS[place.row].xTitle);
}

QString HygMaterialFunctions::yTitle(const Place & place) {
    return text(ROWS[place.row].yTitle);
}

std::vector<Place> HygMaterialFunctions::places(const Material & material) {
    std::vector<Place> found;
    for (int i = 0; i < numRows(); ++i)
        for (int direction = 0; direction < static_cast<int>(Material::NUM_DIRECTIONS); ++direction)
            if (direction == 0 || (ROWS[i].hasDirections && material.hasDirection(direction)))
                found.push_back({i, direction});
    return found;
}

const KOR::LinearSpline & HygMaterialFunctions::spline(const Material & material, const Place & place) {
    return ROWS[place.row].get(material, place.direction);
}

void HygMaterialFunctions::setPoints(Material & material, const Place & place, std::vector<double> x,
                                     std::vector<double> y) {
    KOR::LinearSpline changed = spline(material, place);
    changed.clear();
    if (!x.empty()) {
        changed.setPoints(std::move(x), std::move(y));
        std::string problem; // points that are no function are kept; saving is refused then
        changed.makeSpline(problem);
    }
    ROWS[place.row].set(material, place.direction, changed);
}
