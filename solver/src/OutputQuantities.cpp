#include <SOLVER/OutputQuantities.h>

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <vector>

namespace SOLVER {

namespace {

using Kind = OutputQuantity::kind_t;
constexpr Kind FIELD = OutputQuantity::FIELD;
constexpr Kind FLUX = OutputQuantity::FLUX;
constexpr Kind STATE = OutputQuantity::STATE;

const ModelInput::Cell & inputOf(const Snapshot & s, std::size_t c) {
    return s.model.input().cells[c];
}
const MaterialTable & materialOf(const Snapshot & s, std::size_t c) {
    return s.model.input().materials[inputOf(s, c).material];
}

/// A member of a cell's, a face's or a surface's state.
template <double Model::CellState::*Member> double cell(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].*Member;
}
template <double Model::FaceFlux::*Member> double face(const Snapshot & s, std::size_t f, bool) {
    return s.model.faceFluxes()[f].*Member;
}
template <double Model::SideState::*Member> double side(const Snapshot & s, std::size_t f, bool isSeenFromB) {
    return s.model.sideState(f, isSeenFromB).*Member;
}
/// The same of pores: what is tight has none, and what the integration leaves there is noise.
constexpr double NO_VALUE = std::numeric_limits<double>::quiet_NaN();
template <double Model::CellState::*Member> double pores(const Snapshot & s, std::size_t c) {
    return materialOf(s, c).isTight() ? NO_VALUE : cell<Member>(s, c);
}
template <double Model::SideState::*Member> double poresAtSide(const Snapshot & s, std::size_t f, bool isSeenFromB) {
    const ModelInput::Face & face = s.model.input().faces[f];
    return materialOf(s, face.a).isTight() && materialOf(s, face.b).isTight() ? NO_VALUE
                                                                              : side<Member>(s, f, isSeenFromB);
}
template <double SurfaceState::*Member> double surface(const Snapshot & s, std::size_t i) {
    return s.model.surfaceStates()[i].*Member;
}
template <double SurfaceLoad::*Member> double load(const Snapshot & s, std::size_t i) {
    return s.model.surfaceLoads()[i].*Member;
}

double moistureContent(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].moisture / RHO_WATER;
}
double moistureMass(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].moisture * inputOf(s, c).volume;
}
double massByMass(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].moisture / s.construction.expansion.at(inputOf(s, c).material).density;
}
double overhygroscopic(const Snapshot & s, std::size_t c) {
    const double limit = -kelvinPressure(T_REF) * std::log(s.maxHygroscopicHumidity);
    return std::max(0.0, s.model.cellStates()[c].moisture - materialOf(s, c).moisture(limit));
}
double liquidMoisture(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].moisture - s.model.cellStates()[c].ice;
}
double iceVolume(const Snapshot & s, std::size_t c) {
    return s.model.cellStates()[c].ice / RHO_ICE;
}
double saturationShare(const Snapshot & s, std::size_t c) {
    return materialOf(s, c).isTight() ? NO_VALUE : liquidMoisture(s, c) / materialOf(s, c).saturation();
}
double energyDensity(const Snapshot & s, std::size_t c) {
    return s.model.input().module == module_t::moisture ? 0 : s.state[s.model.unknowns() * c];
}
double energyOfCell(const Snapshot & s, std::size_t c) {
    return energyDensity(s, c) * inputOf(s, c).volume;
}

template <int Axis> double thermalStrain(const Snapshot & s, std::size_t c) {
    const ModelInput::Cell & cell = inputOf(s, c);
    return s.construction.expansion.at(cell.material).thermal[cell.direction[Axis]] *
           (s.model.cellStates()[c].temperature - s.expansionTemperature);
}
template <int Axis> double hygricStrain(const Snapshot & s, std::size_t c) {
    const ModelInput::Cell & cell = inputOf(s, c);
    const double reference =
        s.expansionHumidity > 0
            ? materialOf(s, c).moisture(-kelvinPressure(T_REF) * std::log(std::min(1.0, s.expansionHumidity)))
            : 0;
    const Construction::Expansion & expansion = s.construction.expansion.at(cell.material);
    const auto swelling = [&](double moisture) { return std::min(moisture / RHO_WATER, expansion.fiberSaturation); };
    return expansion.hygric[cell.direction[Axis]] * (swelling(s.model.cellStates()[c].moisture) - swelling(reference));
}

/// What all loads of a cell bring, by its volume.
template <double (*OfLoad)(const Snapshot &, std::uint32_t load, std::size_t cell)>
double loadsOf(const Snapshot & s, std::size_t c) {
    double sum = 0;
    if (!s.loadsOfCell.empty())
        for (const std::uint32_t load : s.loadsOfCell[c])
            sum += OfLoad(s, load, c);
    return sum;
}
double fluidHeat(const Snapshot & s, std::uint32_t load, std::size_t c) {
    return s.model.cellLoads()[load].fluidHeat(s.model.cellStates()[c].temperature);
}
double sourceHeat(const Snapshot & s, std::uint32_t load, std::size_t c) {
    return s.model.loadRates()[load].heat / inputOf(s, c).volume - fluidHeat(s, load, c);
}
double sourceMoisture(const Snapshot & s, std::uint32_t load, std::size_t c) {
    return s.model.loadRates()[load].water / inputOf(s, c).volume;
}

double totalFaceHeat(const Snapshot & s, std::size_t f, bool) {
    return s.model.faceFluxes()[f].conduction + s.model.faceFluxes()[f].enthalpy;
}
double totalFaceMoisture(const Snapshot & s, std::size_t f, bool) {
    return s.model.faceFluxes()[f].vapor + s.model.faceFluxes()[f].liquid;
}
double totalSurfaceHeat(const Snapshot & s, std::size_t i) {
    return s.model.exchangeRates()[i].heat / s.model.input().surfaces[i].area;
}
double totalSurfaceMoisture(const Snapshot & s, std::size_t i) {
    return s.model.exchangeRates()[i].water / s.model.input().surfaces[i].area;
}
double surfaceHumidity(const Snapshot & s, std::size_t i) {
    const SurfaceState & state = s.model.surfaceStates()[i];
    return state.vaporPressure / saturationPressure(state.temperature);
}
/// Where no air is defined it is as the surface.
double airTemperature(const Snapshot & s, std::size_t i) {
    const double T = s.model.surfaceLoads()[i].airTemperature;
    return T > 0 ? T : s.model.surfaceStates()[i].temperature;
}
double airVaporPressure(const Snapshot & s, std::size_t i) {
    const SurfaceLoad & load = s.model.surfaceLoads()[i];
    return load.vaporTransfer > 0 ? load.vaporPressure : s.model.surfaceStates()[i].vaporPressure;
}
double airHumidity(const Snapshot & s, std::size_t i) {
    return airVaporPressure(s, i) / saturationPressure(airTemperature(s, i));
}

PipeFlow pipeFlow(const Snapshot & s, std::size_t i) {
    const std::function<std::optional<PipeFlow>(double, std::size_t)> & flow = s.construction.pipeFlow;
    return flow ? flow(s.time, i).value_or(PipeFlow()) : PipeFlow();
}
/// Of the whole pipe, if all of it lay behind a surface of this temperature. What only heats or cools may stand still.
double pipeHeat(const Snapshot & s, std::size_t i) {
    const SurfaceState & state = s.model.surfaceStates()[i];
    const PipeFlow flow = pipeFlow(s, i);
    return state.convection != 0 ? flow.conductance * (flow.inlet - state.temperature) : 0;
}
double pipeReturn(const Snapshot & s, std::size_t i) {
    const PipeFlow flow = pipeFlow(s, i);
    return flow.capacity > 0 ? flow.inlet - pipeHeat(s, i) / flow.capacity : s.model.surfaceStates()[i].temperature;
}
double pipeInlet(const Snapshot & s, std::size_t i) {
    return pipeFlow(s, i).inlet;
}
double pipeCoefficient(const Snapshot & s, std::size_t i) {
    return pipeFlow(s, i).innerCoefficient;
}

using C = Model::CellState;
using F = Model::FaceFlux;
using P = Model::SideState;
using S = SurfaceState;
using L = SurfaceLoad;
constexpr auto temperature = cell<&C::temperature>;
constexpr auto humidity = pores<&C::humidity>;
constexpr auto vaporPressure = pores<&C::vaporPressure>;
constexpr auto suction = pores<&C::suction>;

// clang-format off
//   keyword                       description                                                        unit      integral kind   amount cell                          face                      surface                      heat   moisture
constexpr OutputQuantity QUANTITIES[] = {
    {"Temperature",                "Temperature; of the surface at sides",                            "C",      "---",   FIELD, false, temperature,                  side<&P::temperature>,    surface<&S::temperature>,    true,  false},
    {"RelativeHumidity",           "Relative humidity of the pore air; at the surface at sides",      "%",      "m3",    FIELD, false, humidity,                     poresAtSide<&P::humidity>, surfaceHumidity,             false, true },
    {"VaporPressure",              "Partial pressure of water vapour; at the surface at sides",       "Pa",     "---",   FIELD, false, vaporPressure,                poresAtSide<&P::vaporPressure>, surface<&S::vaporPressure>,  false, true },
    {"CapillaryPressure",          "Capillary pressure, positive as suction; at the surface at sides", "Pa",    "---",   FIELD, false, suction,                      poresAtSide<&P::suction>, surface<&S::suction>,      false, true },
    {"MoistureContent",            "Volume of water by volume of material",                           "m3/m3",  "m3",    FIELD, false, moistureContent,              nullptr,                  nullptr,                     false, true },
    {"MoistureMassDensity",        "Mass of water by volume of material",                             "kg/m3",  "kg",    FIELD, false, cell<&C::moisture>,           nullptr,                  nullptr,                     false, true },
    {"MoistureMass",               "Mass of water in a cell",                                         "kg",     "kg",    FIELD, true,  moistureMass,                 nullptr,                  nullptr,                     false, true },
    {"MoistureContentMassByMass",  "Mass of water by mass of dry material",                           "kg/kg",  "---",   FIELD, false, massByMass,                   nullptr,                  nullptr,                     false, true },
    {"OverhygroscopicMoistureMassDensity", "Mass of water above the content at MaximumHygricRH",      "kg/m3",  "kg",    FIELD, false, overhygroscopic,              nullptr,                  nullptr,                     false, true },
    {"LiquidMoistureMassDensity",  "Mass of water that is not frozen by volume of material",          "kg/m3",  "kg",    FIELD, false, liquidMoisture,               nullptr,                  nullptr,                     false, true },
    {"IceMassDensity",             "Mass of ice by volume of material",                               "kg/m3",  "kg",    FIELD, false, cell<&C::ice>,                nullptr,                  nullptr,                     true,  true },
    {"IceContent",                 "Volume of ice by volume of material",                             "m3/m3",  "m3",    FIELD, false, iceVolume,                    nullptr,                  nullptr,                     true,  true },
    {"LiquidSaturation",           "Water that is not frozen by the content at saturation",           "%",      "m3",    FIELD, false, saturationShare,              nullptr,                  nullptr,                     false, true },
    {"ThermalConductivity",        "Thermal conductivity of the moist material, direction u",         "W/mK",   "---",   FIELD, false, cell<&C::lambda>,             nullptr,                  nullptr,                     false, false},
    {"EnergyDensity",              "Energy by volume, from liquid water and dry material at 0 C",     "J/m3",   "J",     FIELD, false, energyDensity,                nullptr,                  nullptr,                     true,  false},
    {"Energy",                     "Energy of a cell, from liquid water and dry material at 0 C",     "J",      "J",     FIELD, true,  energyOfCell,                 nullptr,                  nullptr,                     true,  false},
    {"ThermalExpansionX",          "Strain by temperature in x, from ThermalExpansionTRef",           "---",    "m3",    FIELD, false, thermalStrain<0>,             nullptr,                  nullptr,                     true,  false},
    {"ThermalExpansionY",          "Strain by temperature in y",                                      "---",    "m3",    FIELD, false, thermalStrain<1>,             nullptr,                  nullptr,                     true,  false},
    {"ThermalExpansionZ",          "Strain by temperature in z",                                      "---",    "m3",    FIELD, false, thermalStrain<2>,             nullptr,                  nullptr,                     true,  false},
    {"HygricExpansionX",           "Strain by moisture in x, from HygricExpansionRHRef",              "---",    "m3",    FIELD, false, hygricStrain<0>,              nullptr,                  nullptr,                     false, true },
    {"HygricExpansionY",           "Strain by moisture in y",                                         "---",    "m3",    FIELD, false, hygricStrain<1>,              nullptr,                  nullptr,                     false, true },
    {"HygricExpansionZ",           "Strain by moisture in z",                                         "---",    "m3",    FIELD, false, hygricStrain<2>,              nullptr,                  nullptr,                     false, true },
    {"SourceHeat",                 "Heat that field conditions bring, without that of fluids",         "W/m3",   "W",     FIELD, false, loadsOf<sourceHeat>,          nullptr,                  nullptr,                     true,  false},
    {"SourceMoisture",             "Water that field conditions bring",                                "kg/m3s", "kg/s",  FIELD, false, loadsOf<sourceMoisture>,      nullptr,                  nullptr,                     false, true },
    {"ThermalLoadGroundWaterFlow", "Heat from ground water or the fluid of a heat exchanger",         "W/m3",   "W",     FIELD, false, loadsOf<fluidHeat>,           nullptr,                  nullptr,                     true,  false},
    {"TotalFluxHeat",              "Heat by all mechanisms",                                          "W/m2",   "W",     FLUX,  false, nullptr,                      totalFaceHeat,            totalSurfaceHeat,            true,  false},
    {"FluxHeatConduction",         "Heat by conduction in the material",                              "W/m2",   "W",     FLUX,  false, nullptr,                      face<&F::conduction>,     surface<&S::conduction>,     true,  false},
    {"FluxHeatEnthalpy",           "Heat carried by vapour and liquid",                               "W/m2",   "W",     FLUX,  false, nullptr,                      face<&F::enthalpy>,       surface<&S::enthalpyFlux>,   true,  true },
    {"FluxHeatConvection",         "Heat from the air at the surface",                                "W/m2",   "W",     FLUX,  false, nullptr,                      nullptr,                  surface<&S::convection>,     true,  false},
    {"FluxHeatShortWave",          "Short-wave radiation absorbed by the surface",                    "W/m2",   "W",     FLUX,  false, nullptr,                      nullptr,                  load<&L::shortWave>,         true,  false},
    {"FluxHeatLongWave",           "Long-wave radiation absorbed less emitted by the surface",        "W/m2",   "W",     FLUX,  false, nullptr,                      nullptr,                  surface<&S::longWave>,       true,  false},
    {"FluxHeatVapor",              "Heat carried by vapour from the air",                             "W/m2",   "W",     FLUX,  false, nullptr,                      nullptr,                  surface<&S::vaporEnthalpy>,  true,  true },
    {"FluxHeatRain",               "Heat carried by rain and imposed water, less that of the runoff",  "W/m2",   "W",     FLUX,  false, nullptr,                      nullptr,                  surface<&S::liquidEnthalpy>, true,  true },
    {"TotalFluxMoisture",          "Vapour and liquid",                                               "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      totalFaceMoisture,        totalSurfaceMoisture,        false, true },
    {"FluxVapor",                  "Vapour; at surfaces what comes from the air",                     "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      face<&F::vapor>,          surface<&S::vaporArrival>,   false, true },
    {"FluxLiquid",                 "Liquid water; at surfaces rain and water taken up",               "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      face<&F::liquid>,         surface<&S::liquidArrival>,  false, true },
    {"FluxVaporMaterial",          "Vapour in the material next to the surface",                      "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      face<&F::vapor>,          surface<&S::vaporFlux>,      false, true },
    {"FluxLiquidMaterial",         "Liquid water in the material next to the surface",                "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      face<&F::liquid>,         surface<&S::liquidFlux>,     false, true },
    {"FluxRain",                   "Rain that reaches the surface",                                   "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      nullptr,                  load<&L::rain>,              false, true },
    {"FluxRunoff",                 "Rain and condensate that the surface does not take",              "kg/m2s", "kg/s",  FLUX,  false, nullptr,                      nullptr,                  surface<&S::runoff>,         false, true },
    {"AirTemperature",             "Temperature of the air before the surface",                       "C",      "---",   FLUX,  false, nullptr,                      nullptr,                  airTemperature,              false, false},
    {"AirVaporPressure",           "Vapour pressure of the air before the surface",                   "Pa",     "---",   FLUX,  false, nullptr,                      nullptr,                  airVaporPressure,            false, false},
    {"AirRelativeHumidity",        "Relative humidity of the air before the surface",                 "%",      "m2",    FLUX,  false, nullptr,                      nullptr,                  airHumidity,                 false, false},
    {"PipeCollectorTr",            "Return temperature of a pipe",                                    "C",      "---",   FLUX,  false, nullptr,                      nullptr,                  pipeReturn,                  true,  false, true},
    {"PipeCollectorQdot",          "Heat that the whole pipe gives",                                  "W",      "---",   FLUX,  false, nullptr,                      nullptr,                  pipeHeat,                    true,  false, true},
    {"PipeCollectorT0",            "Inlet temperature of a pipe",                                     "C",      "---",   FLUX,  false, nullptr,                      nullptr,                  pipeInlet,                   false, false, true},
    {"PipeCollectorHP",            "Heat transfer coefficient between fluid and pipe",                "W/m2K",  "---",   FLUX,  false, nullptr,                      nullptr,                  pipeCoefficient,             false, false, true},
    {"LayerMoistureMass",          "Mass of water of each assigned block of cells",                   "kg",     "kg",    STATE, true,  moistureMass,                 nullptr,                  nullptr,                     false, true },
    {"LayerEnergy",                "Energy of each assigned block of cells",                          "J",      "J",     STATE, true,  energyOfCell,                 nullptr,                  nullptr,                     true,  false},
};
// clang-format on

/// Number of letters to change, insert or drop.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

} // namespace

std::span<const OutputQuantity> outputQuantities() {
    return QUANTITIES;
}

const OutputQuantity & outputQuantity(std::string_view keyword) {
    for (const OutputQuantity & known : QUANTITIES)
        if (known.keyword == keyword)
            return known;
    const std::string wanted = KOR::lowered(keyword.substr(0, 100));
    const auto closeness = [&wanted](const OutputQuantity & known) {
        return distance(wanted, KOR::lowered(known.keyword));
    };
    const auto nearest = std::min_element(
        std::begin(QUANTITIES), std::end(QUANTITIES),
        [&](const OutputQuantity & a, const OutputQuantity & b) { return closeness(a) < closeness(b); });
    throw KOR::Exception(KOR::text("Unknown output quantity '%1'. Did you mean '%2'?", keyword, nearest->keyword),
                         "[SOLVER::outputQuantity]");
}

} // namespace SOLVER
