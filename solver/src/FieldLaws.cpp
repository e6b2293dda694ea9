#include "FieldLaws.h"

#include "LawTable.h"

#include <SOLVER/Physics.h>

#include <cmath>

namespace SOLVER {

using HYGRION::FieldCond;
using HYGRION::KeywordList;
using KOR::Exception;
using KOR::text;

namespace {

constexpr const char * WHERE = "[FieldLaw::fromCondition]";

using Type = FieldCond::condition_t;
using Para = FieldCond::para_t;
using Flag = FieldCond::flag_t;
using Quantity = QuantitySignals::Quantity;

/// The power of a thermostat fades within this [K] where nothing is given.
constexpr double DEFAULT_RANGE = 1;

double airDensity(double pressure, double T) {
    return pressure / (R_AIR * T);
}

double vaporPressure(const FieldLaw & law, const ClimateMoment & moment) {
    if (law.signals.has(Quantity::VaporPressure))
        return law.signals.value(moment, Quantity::VaporPressure);
    if (!law.signals.has(Quantity::RelativeHumidity))
        return 0; // moisture is not balanced
    return law.signals.value(moment, Quantity::RelativeHumidity) *
           saturationPressure(law.signals.value(moment, Quantity::Temperature));
}

// *** The laws ***

void energySource(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    const double heat =
        law.signals.value(moment, law.share == FieldLaw::TOTAL ? Quantity::Power : Quantity::EnergySource);
    load.heat = load.heatRange > 0 ? std::fabs(heat) : heat; // the thermostat knows whether to heat or to cool
}

void setWater(double rate, const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    load.water = rate;
    load.waterTemperature =
        law.signals.has(Quantity::Temperature) ? law.signals.value(moment, Quantity::Temperature) : 0;
}

void waterSource(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    setWater(law.signals.value(moment, law.share == FieldLaw::TOTAL ? Quantity::MassFlowRate : Quantity::WaterSource),
             law, moment, load);
}

void rainSource(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    if (law.rain.empty()) {
        setWater(law.coefficient * std::max(0.0, law.signals.value(moment, Quantity::RainFluxNormal)), law, moment,
                 load);
        return;
    }
    SurfaceLoad surface; // rain of an unknown temperature is as warm as the cell
    for (const BoundaryLaw & rain : law.rain)
        if (rain.active.contains(moment.time))
            rain.apply(rain, moment, surface);
    load.water = law.coefficient * surface.rain;
    load.waterTemperature = surface.waterTemperature;
}

void airChange(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    load.airFlow = std::max(0.0, law.signals.value(moment, law.share == FieldLaw::TOTAL ? Quantity::FluidFlowRate
                                                                                        : Quantity::FluidChangeRate));
    load.airTemperature = law.signals.value(moment, Quantity::Temperature);
    load.airVaporPressure = vaporPressure(law, moment);
}

/// Air leaks outwards under its buoyancy over half of the height of the connected air space, and under the pressure of
/// a fan.
void convectiveSource(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    const double T = law.signals.value(moment, Quantity::Temperature);
    double pressure = law.pressure;
    if (law.height > 0) {
        const double outside = moment.values[static_cast<std::size_t>(law.ambient)];
        pressure +=
            GRAVITY * (airDensity(load.airPressure, outside) - airDensity(load.airPressure, T)) * law.height / 2;
    }
    load.leakFlow = law.coefficient * std::max(0.0, pressure);
    load.leakTemperature = T;
    load.leakVaporPressure = vaporPressure(law, moment);
}

/// Heat per kelvin that flowing water carries through a cell [W/K], by the area of the flow if that is a velocity.
void groundWaterFlow(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    const double flow = law.signals.has(Quantity::MassFlowRate) ? law.signals.value(moment, Quantity::MassFlowRate)
                        : law.signals.has(Quantity::FluidFlowRate)
                            ? RHO_WATER * law.signals.value(moment, Quantity::FluidFlowRate)
                            : RHO_WATER * law.signals.value(moment, Quantity::Velocity);
    load.heatTransfer = C_WATER * flow;
    load.fluidTemperature = law.signals.value(moment, Quantity::Temperature);
}

/// With its flow known, the fluid takes the temperature of the surroundings on its way.
void heatExchanger(const FieldLaw & law, const ClimateMoment & moment, CellLoad & load) {
    load.fluidTemperature = law.signals.value(moment, Quantity::Temperature);
    const bool hasMass = law.signals.has(Quantity::MassFlowRate);
    if (!hasMass && !law.signals.has(Quantity::FluidFlowRate)) {
        load.heatTransfer = law.coefficient;
        return;
    }
    const double capacity = C_WATER * (hasMass ? law.signals.value(moment, Quantity::MassFlowRate)
                                               : RHO_WATER * law.signals.value(moment, Quantity::FluidFlowRate));
    load.heatTransfer = capacity > 0 ? -capacity * std::expm1(-law.coefficient / capacity) : 0;
}

// *** The table ***

using Parameters = Names<Para>;
using Flags = Names<Flag>;

struct Row {
    Type type;
    FieldLaw::share_t share;
    FieldLaw::Apply apply;
    Quantities required, optional;
    Parameters needed, used;
    Flags flags;
    bool hasMode; ///< parameter HeatingCooling counts
};

using enum FieldCond::para_t;

// clang-format off
//  type                    share              law               climate needed, optional; parameters needed, used; flags; HeatingCooling
const Row ROWS[] = {
    {Type::EnergySource,     FieldLaw::DENSITY, energySource,     {Quantity::EnergySource}, {Quantity::Power, Quantity::Percentage}, {}, {LimitT, LimitDeltaT}, {Flag::UseSource}, true},
    {Type::WaterSource,      FieldLaw::DENSITY, waterSource,      {Quantity::WaterSource}, {Quantity::MassFlowRate, Quantity::Temperature, Quantity::Percentage}, {}, {MaxWaterContent, MinWaterContent}, {Flag::UseSource}, false},
    {Type::AirChange,        FieldLaw::DENSITY, airChange,        {Quantity::FluidChangeRate, Quantity::Temperature}, {Quantity::FluidFlowRate, Quantity::RelativeHumidity, Quantity::VaporPressure, Quantity::Percentage}, {}, {AirPressure}, {Flag::UseFlowRate}, false},
    {Type::ConvectiveSource, FieldLaw::LAYER,   convectiveSource, {Quantity::Temperature, Quantity::RelativeHumidity}, {Quantity::VaporPressure, Quantity::Percentage}, {ConvectiveSourcekCL}, {ConvectiveSourceHeight, ConvectiveSourcePressure, AirPressure, MaxWaterContent}, {}, false},
    {Type::RainSource,       FieldLaw::LAYER,   rainSource,       {Quantity::RainFluxNormal}, {Quantity::Temperature, Quantity::Percentage}, {RainFraction}, {MaxWaterContent}, {}, false},
    {Type::GroundWaterFlow,  FieldLaw::FLOW,    groundWaterFlow,  {Quantity::Temperature}, {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Velocity, Quantity::Percentage}, {}, {}, {Flag::UseFlowRate}, false},
    {Type::HeatExchanger,    FieldLaw::TOTAL,   heatExchanger,    {Quantity::Temperature}, {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Percentage}, {HeatTransferCoefficient}, {}, {}, true},
};
const Row CAVITY = {Type::LongWaveRadiation, FieldLaw::DENSITY, nullptr, {}, {}, {}, {LeftEmissionCoefficient, RightEmissionCoefficient, BottomEmissionCoefficient, TopEmissionCoefficient, BackEmissionCoefficient, FrontEmissionCoefficient},
                    {Flag::LongWaveRadiationX, Flag::LongWaveRadiationY, Flag::LongWaveRadiationZ}, false};
// clang-format on

/// A source in total instead of its density: which flag asks for it, and its quantity.
struct Total {
    Type type;
    Flag flag;
    Quantity density, total;
};
constexpr Total TOTALS[] = {
    {Type::EnergySource, Flag::UseSource,   Quantity::EnergySource,    Quantity::Power        },
    {Type::WaterSource,  Flag::UseSource,   Quantity::WaterSource,     Quantity::MassFlowRate },
    {Type::AirChange,    Flag::UseFlowRate, Quantity::FluidChangeRate, Quantity::FluidFlowRate},
};

/// The row of totals that the condition's flag switches on, or nullptr.
const Total * totalOf(const FieldCond & condition) {
    for (const Total & row : TOTALS)
        if (row.type == condition.m_type && condition.m_flag.isEnabled(row.flag))
            return &row;
    return nullptr;
}

void checkUseOf(const Row & row, const FieldCond & condition) {
    for (const Para key : {GasConvectionGastype, GasConvectionProportion, GasConvectionInclination})
        if (condition.m_para.contains(key))
            throw Exception(text("Parameter '%1' belongs to the convection of gas in gaps, which is not available.",
                                 KeywordList::Keyword(key)),
                            WHERE);
    if (condition.m_intPara.contains(FieldCond::intpara_t::HeatingCooling) && !row.hasMode)
        throw Exception(text("Parameter 'HeatingCooling' cannot be used in type '%1'.", KeywordList::Keyword(row.type)),
                        WHERE);
    if (condition.m_intPara.contains(FieldCond::intpara_t::FlowDirection) && row.share != FieldLaw::FLOW)
        throw Exception(text("Parameter 'FlowDirection' cannot be used in type '%1'.", KeywordList::Keyword(row.type)),
                        WHERE);
    if (!condition.m_otherInterfaceReference.empty() && row.apply != rainSource)
        throw Exception(text("'OtherInterfaceReference' cannot be used in type '%1'.", KeywordList::Keyword(row.type)),
                        WHERE);
    if (!condition.m_additionalReferences.empty() && row.apply != convectiveSource)
        throw Exception(
            text("Climate quantity 'AmbientTemperature' cannot be used in type '%1'.", KeywordList::Keyword(row.type)),
            WHERE);
    checkUse(row, condition, row.flags, text("Field condition '%1'", condition.m_name),
             text("type '%1'", KeywordList::Keyword(row.type)), WHERE);
}

void requireClimate(const Row & row, const FieldCond & condition, bool hasMoisture) {
    const Total * const total = totalOf(condition);
    const auto has = [&](Quantity quantity) { return condition.m_ccReferences.contains(quantity); };
    const auto require = [&](Quantity quantity, std::string_view reason = "") {
        requireQuantity(condition, quantity, reason, WHERE);
    };
    for (const Quantity quantity : row.required) {
        const bool isOfInterface = quantity == Quantity::RainFluxNormal && !condition.m_otherInterfaceReference.empty();
        if (isOfInterface || quantity == Quantity::RelativeHumidity)
            continue; // humidity: see below
        if (total && quantity == total->density)
            require(total->total, text(", which flag '%1' asks for", KeywordList::Keyword(total->flag)));
        else
            require(quantity);
    }
    const bool needsHumidity = row.apply == convectiveSource || row.apply == airChange;
    if (needsHumidity && hasMoisture && !has(Quantity::VaporPressure))
        require(Quantity::RelativeHumidity);
    if (row.share != FieldLaw::FLOW)
        return;
    requireOneOf(condition, {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Velocity}, WHERE);
    if (!condition.m_intPara.contains(FieldCond::intpara_t::FlowDirection))
        throw Exception("Parameter 'FlowDirection' is missing.", WHERE);
}

void readThermostat(const FieldCond & condition, FieldLaw & law) {
    const auto mode = condition.m_intPara.value(FieldCond::intpara_t::HeatingCooling);
    const auto limit = condition.m_para.value(LimitT, "K");
    if (condition.m_type == Type::EnergySource && !limit && (mode || condition.m_para.contains(LimitDeltaT)))
        throw Exception("Parameter 'LimitT' is missing, which 'HeatingCooling' and 'LimitDeltaT' refer to.", WHERE);
    const int byDefault = condition.m_type == Type::HeatExchanger ? 2 : 0;
    law.limits.canHeat = mode.value_or(byDefault) != 1;
    law.limits.canCool = mode.value_or(byDefault) != 0;
    if (!limit)
        return;
    law.limits.heatLimit = *limit;
    law.limits.heatRange = condition.m_para.value(LimitDeltaT, "K").value_or(DEFAULT_RANGE);
    if (!(law.limits.heatRange > 0))
        throw Exception("Parameter 'LimitDeltaT' must be above 0.", WHERE);
}

void readLeak(const FieldCond & condition, FieldLaw & law) {
    law.coefficient = condition.m_para.value(ConvectiveSourcekCL, "m3/m2sPa").value_or(0);
    law.height = condition.m_para.value(ConvectiveSourceHeight, "m").value_or(0);
    law.pressure = condition.m_para.value(ConvectiveSourcePressure, "Pa").value_or(0);
    if (!condition.m_para.contains(ConvectiveSourceHeight) && !condition.m_para.contains(ConvectiveSourcePressure))
        throw Exception("Neither 'ConvectiveSourceHeight' nor 'ConvectiveSourcePressure' is given, so that nothing "
                        "drives the air.",
                        WHERE);
    if (law.height > 0 &&
        !condition.m_additionalReferences.contains(FieldCond::additionalClimate_t::AmbientTemperature))
        throw Exception("Climate quantity 'AmbientTemperature' is missing, which 'ConvectiveSourceHeight' needs.",
                        WHERE);
}

} // namespace

FieldLaw FieldLaw::fromCondition(const FieldCond & condition, bool hasMoisture) {
    const auto row = std::find_if(std::begin(ROWS), std::end(ROWS),
                                  [&](const Row & known) { return known.type == condition.m_type; });
    if (row == std::end(ROWS))
        throw Exception(text("Type '%1' belongs to the transport of pollutants (VOC), which is not available.",
                             KeywordList::Keyword(condition.m_type)),
                        WHERE);
    requireClimate(*row, condition, hasMoisture);
    checkUseOf(*row, condition);

    FieldLaw law;
    law.apply = row->apply;
    law.share = totalOf(condition) ? TOTAL : row->share;
    law.limits.airPressure = condition.m_para.value(AirPressure, "Pa").value_or(P_ATMOSPHERE);
    if (row->hasMode)
        readThermostat(condition, law);
    const auto content = [&](Para key, double otherwise) {
        const auto given = condition.m_para.value(key, "m3/m3");
        return given ? RHO_WATER * *given : otherwise;
    };
    law.limits.maxMoisture = content(MaxWaterContent, law.limits.maxMoisture);
    law.limits.minMoisture = content(MinWaterContent, law.limits.minMoisture);
    if (condition.m_type == Type::ConvectiveSource)
        readLeak(condition, law);
    if (condition.m_type == Type::RainSource)
        law.coefficient = condition.m_para.value(RainFraction, "---").value_or(0);
    if (condition.m_type == Type::HeatExchanger)
        law.coefficient = condition.m_para.value(HeatTransferCoefficient, "W/K").value_or(0);
    return law;
}

std::array<std::optional<std::array<double, 2>>, 3> cavityEmissions(const FieldCond & condition) {
    constexpr Flag FLAGS[] = {Flag::LongWaveRadiationX, Flag::LongWaveRadiationY, Flag::LongWaveRadiationZ};
    constexpr Para EMISSIONS[3][2] = {
        {LeftEmissionCoefficient,   RightEmissionCoefficient},
        {BottomEmissionCoefficient, TopEmissionCoefficient  },
        {BackEmissionCoefficient,   FrontEmissionCoefficient},
    };
    checkUseOf(CAVITY, condition);
    if (!condition.m_schedule.empty())
        throw Exception("A schedule cannot switch the radiation in a cavity.", WHERE);
    std::array<std::optional<std::array<double, 2>>, 3> all;
    for (std::size_t d = 0; d < 3; ++d) {
        if (!condition.m_flag.isEnabled(FLAGS[d]))
            continue;
        all[d].emplace();
        for (std::size_t side = 0; side < 2; ++side) {
            const auto given = condition.m_para.value(EMISSIONS[d][side], "---");
            if (!given)
                throw Exception(text("Parameter '%1' is missing.", KeywordList::Keyword(EMISSIONS[d][side])), WHERE);
            (*all[d])[side] = *given;
        }
    }
    if (!all[0] && !all[1] && !all[2])
        throw Exception("None of the flags 'LongWaveRadiationX', 'LongWaveRadiationY' and 'LongWaveRadiationZ' is set, "
                        "so that it has no direction.",
                        WHERE);
    return all;
}

void scale(CellLoad & load, double factor) {
    for (double * const density : {&load.heat, &load.water, &load.heatTransfer, &load.airFlow, &load.leakFlow})
        *density *= factor;
}

} // namespace SOLVER
