#include "BoundaryLaws.h"

#include "LawTable.h"

#include <SOLVER/Physics.h>

#include <KOR/Exception.h>
#include <MM/Physics.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

namespace SOLVER {

using HYGRION::BoundaryCond;
using HYGRION::KeywordList;
using KOR::Exception;
using KOR::text;

namespace {

constexpr const char * WHERE = "[BoundaryLaw::fromCondition]";

using Type = BoundaryCond::condition_t;
using Kind = BoundaryCond::kind_t;
using Para = BoundaryCond::para_t;
using Flag = BoundaryCond::flag_t;
using Quantity = QuantitySignals::Quantity;

constexpr double CLEAR_SKY_DIFFERENCE = 11;   ///< of air and sky where nothing else is known [K]
constexpr double GROUND_EMISSION = 0.95;      ///< of soil and vegetation
constexpr double DEFAULT_SNOW_LIMIT = T_ZERO; ///< [K]

double blackBody(double T) {
    return STEFAN_BOLTZMANN * T * T * T * T;
}

// *** The laws ***

double temperature(const BoundaryLaw & law, const ClimateMoment & moment) {
    return law.signals.value(moment, Quantity::Temperature);
}

/// Relative humidity and vapour pressure of the air.
double vaporPressure(const BoundaryLaw & law, const ClimateMoment & moment) {
    return law.signals.has(Quantity::VaporPressure)
               ? law.signals.value(moment, Quantity::VaporPressure)
               : law.signals.value(moment, Quantity::RelativeHumidity) * saturationPressure(temperature(law, moment));
}

double exchangeCoefficient(const BoundaryLaw & law, const ClimateMoment & moment) {
    double coefficient = law.coefficient;
    if (law.slope != 0) {
        const Quantity velocity = law.signals.has(Quantity::WindVelocity) ? Quantity::WindVelocity : Quantity::Velocity;
        coefficient += law.slope * std::pow(std::max(0.0, law.signals.value(moment, velocity)), law.exponent);
    }
    return std::max(0.0, coefficient);
}

void heatSurfaceValue(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.hasTemperature = true;
    load.airTemperature = temperature(law, moment);
    load.heatDirection = law.heatDirection;
}

void heatFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.heatFlux += law.signals.value(moment, Quantity::HeatFlux);
}

/// Several exchanges on one surface add up to one with the mean of their air temperatures.
void addExchange(double coefficient, double T, const BoundaryLaw & law, SurfaceLoad & load) {
    const double sum = load.heatTransfer + coefficient;
    if (!load.hasTemperature)
        load.airTemperature = sum > 0 ? (load.heatTransfer * load.airTemperature + coefficient * T) / sum : T;
    load.heatTransfer = sum;
    load.heatDirection = law.heatDirection;
}

void heatExchange(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    addExchange(law.signals.has(Quantity::HeatTransferCoefficient)
                    ? law.signals.value(moment, Quantity::HeatTransferCoefficient)
                    : exchangeCoefficient(law, moment),
                temperature(law, moment), law, load);
}

PipeFlow pipeFlowOf(const BoundaryLaw & law, const ClimateMoment & moment) {
    const double T = temperature(law, moment);
    const auto given = [&](Quantity quantity) { return law.signals.value(moment, quantity); };
    const double massFlow = law.signals.has(Quantity::MassFlowRate) ? given(Quantity::MassFlowRate)
                            : law.signals.has(Quantity::FluidFlowRate)
                                ? law.pipe.density(T) * given(Quantity::FluidFlowRate)
                                : law.pipe.density(T) * law.pipe.innerArea() * given(Quantity::Velocity);
    const double inner = law.signals.has(Quantity::HeatTransferCoefficient)
                             ? given(Quantity::HeatTransferCoefficient)
                             : law.pipe.innerCoefficient(T, std::max(massFlow, 0.0));
    return {T, std::max(massFlow, 0.0) * law.pipe.specificHeat(), inner, law.pipe.conductance(massFlow, inner)};
}

void pipeCollector(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    const PipeFlow flow = pipeFlowOf(law, moment);
    addExchange(law.pipe.perArea * flow.conductance, flow.inlet, law, load);
}

void vaporSurfaceValue(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    const double T = temperature(law, moment);
    const double humidity = law.signals.has(Quantity::VaporPressure)
                                ? law.signals.value(moment, Quantity::VaporPressure) / saturationPressure(T)
                                : law.signals.value(moment, Quantity::RelativeHumidity);
    load.hasSuction = true;
    load.suction = -kelvinPressure(law.kelvinTemperature > 0 ? law.kelvinTemperature : T) *
                   std::log(std::clamp(humidity, 1e-12, 1.0));
}

void vaporFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.vaporFlux += law.signals.value(moment, Quantity::WaterFlux);
}

void vaporExchange(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    double coefficient = exchangeCoefficient(law, moment);
    if (!(coefficient > 0))
        return;
    coefficient = 1 / (1 / coefficient + law.resistance);
    const double sum = load.vaporTransfer + coefficient;
    load.vaporPressure = (load.vaporTransfer * load.vaporPressure + coefficient * vaporPressure(law, moment)) / sum;
    load.vaporTransfer = sum;
}

void addRain(const BoundaryLaw & law, const ClimateMoment & moment, double rain, SurfaceLoad & load) {
    if (!(rain > 0))
        return;
    if (law.signals.has(Quantity::Temperature)) {
        const double T = temperature(law, moment);
        if (law.hasMinimum && T < law.minimum)
            return; // snow
        load.waterTemperature = T;
    } else {
        load.waterTemperature = load.airTemperature;
    }
    load.rain += law.factor * rain;
}

void rainFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    addRain(law, moment, law.signals.value(moment, Quantity::RainFluxNormal), load);
}

void standardRain(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    const double rain = law.signals.value(moment, Quantity::RainFluxHorizontal);
    if (rain > 0)
        addRain(law, moment,
                drivingRain(rain, law.signals.value(moment, Quantity::WindVelocity),
                            law.signals.value(moment, Quantity::WindDirection), law.position),
                load);
}

void shortWaveFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.shortWave += law.factor * law.signals.value(moment, Quantity::SWRadiationImposed);
}

void shortWaveModel(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    const auto & sun = moment.suns[law.sun].surfaces()[law.sunSurface].load;
    load.shortWave += law.factor * (sun.direct + sun.diffuse);
}

void longWaveFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.longWave += law.signals.value(moment, Quantity::LWRadiationFlux);
}

/// Exchange with the sky and, if it is included, with the ground. Without the ground the surface is taken to be as warm
/// as the ground, so that only its view of the sky counts.
void addLongWave(const BoundaryLaw & law, const ClimateMoment & moment, double sky, SurfaceLoad & load) {
    load.longWave += law.factor * law.skyView * sky;
    load.emissivity += law.factor * law.skyView;
    const double view = 1 - law.skyView;
    const bool isKnown = law.signals.has(Quantity::LWRadiationGroundEmission);
    if (!isKnown && !law.includeGround)
        return;
    const double ground = isKnown ? law.signals.value(moment, Quantity::LWRadiationGroundEmission)
                                  : GROUND_EMISSION * blackBody(temperature(law, moment)) + (1 - GROUND_EMISSION) * sky;
    load.longWave += law.factor * view * ground;
    load.emissivity += law.factor * view;
}

/// The emission of the sky [W/m2]: measured, by its temperature, out of humidity and clouds, or of a clear sky.
double skyEmissionOf(const BoundaryLaw & law, const ClimateMoment & moment) {
    const auto given = [&](Quantity quantity) { return law.signals.value(moment, quantity); };
    if (law.signals.has(Quantity::LWRadiationSkyEmission))
        return given(Quantity::LWRadiationSkyEmission);
    if (law.signals.has(Quantity::SkyTemperature))
        return blackBody(given(Quantity::SkyTemperature));
    if (law.useHumidityAndClouds)
        return skyEmission(temperature(law, moment), given(Quantity::RelativeHumidity), given(Quantity::CloudCoverage));
    return blackBody(temperature(law, moment) - CLEAR_SKY_DIFFERENCE);
}

void longWaveExchange(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    addLongWave(law, moment, skyEmissionOf(law, moment), load);
}

/// Water under a pressure head [m]; negative heads are suctions.
void setHead(double head, SurfaceLoad & load) {
    load.hasSuction = true;
    load.suction = -RHO_WATER * GRAVITY * head;
}

void waterHead(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    setHead(law.signals.value(moment, Quantity::PressureHead), load);
    load.openToLiquid = law.factor;
}

void waterFlux(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    load.liquidFlux += law.factor * law.signals.value(moment, Quantity::WaterFlux);
    load.waterTemperature = law.signals.has(Quantity::Temperature) ? temperature(law, moment) : load.airTemperature;
}

/// The head is the height of the water level above the bottom of the construction; surfaces above it are dry.
void hydrostaticProfile(const BoundaryLaw & law, const ClimateMoment & moment, SurfaceLoad & load) {
    const double head = law.signals.value(moment, Quantity::PressureHead) - law.position.height;
    if (head <= 0)
        return;
    setHead(head, load);
    load.openToLiquid = law.factor;
}

// *** The table ***

using Parameters = Names<Para>;

struct Row {
    Type type;
    Kind kind;
    BoundaryLaw::Apply apply;
    Quantities required; ///< climate
    Quantities optional;
    Parameters needed;
    Parameters used; ///< further parameters that count where they are given
};

using enum HYGRION::BoundaryCond::para_t;

constexpr Parameters NO_PARAMETERS{};
constexpr Quantities AIR{Quantity::Temperature, Quantity::RelativeHumidity};

// clang-format off
//  type and kind                                            law                 climate needed, optional; parameters needed, used
const Row ROWS[] = {
    {Type::HeatConduction,     Kind::SurfaceValue,           heatSurfaceValue,   {Quantity::Temperature}, {}, NO_PARAMETERS, NO_PARAMETERS},
    {Type::HeatConduction,     Kind::ImposedFlux,            heatFlux,           {Quantity::HeatFlux}, {}, NO_PARAMETERS, NO_PARAMETERS},
    {Type::HeatConduction,     Kind::Exchange,               heatExchange,       {Quantity::Temperature}, {Quantity::HeatTransferCoefficient}, {}, {ExchangeCoefficient}},
    {Type::HeatConduction,     Kind::ExchangeVelocity,       heatExchange,       {Quantity::Temperature, Quantity::WindVelocity}, {Quantity::Velocity}, {ExchangeCoefficient, ExchangeSlope, ExchangeExponent}, {}},
    {Type::HeatConduction,     Kind::PipeCollectorModel,     pipeCollector,      {Quantity::Temperature}, {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Velocity, Quantity::HeatTransferCoefficient},
                                                                                 {PipeCollectorDiameter, PipeCollectorThickness, PipeCollectorLength, PipeCollectorThermalConductivity},
                                                                                 {PipeCollectorFluidHeatCapacity, PipeCollectorModelFraction, PipeCollectorGlycolContent}},
    {Type::VaporDiffusion,     Kind::SurfaceValue,           vaporSurfaceValue,  AIR, {Quantity::VaporPressure}, NO_PARAMETERS, NO_PARAMETERS},
    {Type::VaporDiffusion,     Kind::ImposedFlux,            vaporFlux,          {Quantity::WaterFlux}, {}, NO_PARAMETERS, NO_PARAMETERS},
    {Type::VaporDiffusion,     Kind::Exchange,               vaporExchange,      AIR, {Quantity::VaporPressure}, {ExchangeCoefficient}, {SDValue}},
    {Type::VaporDiffusion,     Kind::ExchangeVelocity,       vaporExchange,      {Quantity::Temperature, Quantity::RelativeHumidity, Quantity::WindVelocity}, {Quantity::VaporPressure, Quantity::Velocity}, {ExchangeCoefficient, ExchangeSlope, ExchangeExponent}, {SDValue}},
    {Type::WindDrivenRain,     Kind::ImposedFlux,            rainFlux,           {Quantity::RainFluxNormal}, {Quantity::Temperature}, {}, {ExposureCoefficient, MinRainTemperature, SurfaceLiquidFraction}},
    {Type::WindDrivenRain,     Kind::StandardRainModel,      standardRain,       {Quantity::RainFluxHorizontal, Quantity::WindDirection, Quantity::WindVelocity}, {Quantity::Temperature}, {}, {ExposureCoefficient, MinRainTemperature, SurfaceLiquidFraction}},
    {Type::ShortWaveRadiation, Kind::ImposedFlux,            shortWaveFlux,      {Quantity::SWRadiationImposed}, {}, {}, {SurfaceAbsorptionCoefficient}},
    {Type::ShortWaveRadiation, Kind::StandardRadiationModel, shortWaveModel,     {Quantity::SWRadiationDirect, Quantity::SWRadiationDiffuse}, {}, {SurfaceAbsorptionCoefficient}, {}},
    {Type::LongWaveRadiation,  Kind::ImposedFlux,            longWaveFlux,       {Quantity::LWRadiationFlux}, {}, NO_PARAMETERS, NO_PARAMETERS},
    {Type::LongWaveRadiation,  Kind::LongWaveComponents,     longWaveExchange,   {Quantity::LWRadiationSkyEmission}, {Quantity::SkyTemperature, Quantity::LWRadiationGroundEmission, Quantity::Temperature, Quantity::RelativeHumidity, Quantity::CloudCoverage}, {SurfaceEmissionCoefficient}, {}},
    {Type::LongWaveRadiation,  Kind::StandardRadiationModel, longWaveExchange,   {Quantity::Temperature}, {Quantity::SkyTemperature, Quantity::LWRadiationGroundEmission, Quantity::RelativeHumidity, Quantity::CloudCoverage}, {SurfaceEmissionCoefficient}, {}},
    {Type::WaterContact,       Kind::SurfaceValue,           waterHead,          {Quantity::PressureHead}, {}, NO_PARAMETERS, {SurfaceLiquidFraction}},
    {Type::WaterContact,       Kind::ImposedFlux,            waterFlux,          {Quantity::WaterFlux}, {Quantity::Temperature}, {}, {SurfaceLiquidFraction}},
    {Type::WaterContact,       Kind::HydrostaticProfile,     hydrostaticProfile, {Quantity::PressureHead}, {}, NO_PARAMETERS, {SurfaceLiquidFraction}},
};
// clang-format on

/// Of one quantity another may stand in.
struct Substitute {
    Quantity quantity, by;
};
constexpr Substitute SUBSTITUTES[] = {
    {Quantity::RelativeHumidity,       Quantity::VaporPressure },
    {Quantity::WindVelocity,           Quantity::Velocity      },
    {Quantity::LWRadiationSkyEmission, Quantity::SkyTemperature},
    {Quantity::LWRadiationSkyEmission, Quantity::CloudCoverage },
};

const Row & rowOf(const BoundaryCond & condition) {
    for (const Row & row : ROWS)
        if (row.type == condition.m_type && row.kind == condition.m_kind)
            return row;
    throw Exception(text("The solver cannot calculate type '%1' of kind '%2'.", KeywordList::Keyword(condition.m_type),
                         KeywordList::Keyword(condition.m_kind)),
                    WHERE);
}

/// The parameter in the unit of the law; a unit that does not fit is told.
double parameter(const BoundaryCond & condition, Para key, double otherwise, std::string_view unit) {
    const KOR::Parameter * found = condition.m_para.find(key);
    return found ? found->get_value(unit) : otherwise;
}

bool isSubstituted(const BoundaryCond & condition, Quantity quantity) {
    const auto has = [&](Quantity q) { return condition.m_ccReferences.contains(q); };
    if (quantity == Quantity::Temperature && condition.m_type == Type::VaporDiffusion &&
        condition.m_kind != Kind::SurfaceValue)
        return has(Quantity::VaporPressure);
    return std::any_of(std::begin(SUBSTITUTES), std::end(SUBSTITUTES),
                       [&](const Substitute & row) { return row.quantity == quantity && has(row.by); });
}

/// Types whose law a flag can change.
bool isFlagUsed(const BoundaryCond & condition, Flag flag) {
    switch (flag) {
    case Flag::UseVaporPressure:
        return condition.m_type == Type::VaporDiffusion && condition.m_kind != Kind::ImposedFlux;
    case Flag::IncludeRHandClouds:
        return condition.m_type == Type::LongWaveRadiation && condition.m_kind != Kind::ImposedFlux &&
               !condition.m_ccReferences.contains(Quantity::LWRadiationSkyEmission) &&
               !condition.m_ccReferences.contains(Quantity::SkyTemperature);
    case Flag::IncludeGround:
        return condition.m_type == Type::LongWaveRadiation && condition.m_kind != Kind::ImposedFlux;
    case Flag::FluidSettingsHeatPipe:
        return condition.m_kind == Kind::PipeCollectorModel;
    }
    return false;
}
/// Clouds that are given count, unless the flag says otherwise.
bool usesHumidityAndClouds(const BoundaryCond & condition) {
    return isFlagUsed(condition, Flag::IncludeRHandClouds) &&
           condition.m_flag.isEnabled(Flag::IncludeRHandClouds,
                                      condition.m_ccReferences.contains(Quantity::CloudCoverage));
}

struct UsedFlags {
    const BoundaryCond & condition;
    bool contains(Flag flag) const { return isFlagUsed(condition, flag); }
};

/// Named quantities, parameters and flags, against those of the row.
void checkAgainst(const Row & row, const BoundaryCond & condition) {
    for (const Quantity quantity : row.required)
        if (!isSubstituted(condition, quantity))
            requireQuantity(condition, quantity, "", WHERE);
    if (row.apply == pipeCollector)
        requireOneOf(condition, {Quantity::MassFlowRate, Quantity::FluidFlowRate, Quantity::Velocity}, WHERE);
    checkUse(row, condition, UsedFlags{condition}, text("Boundary condition '%1'", condition.m_name),
             text("type '%1' of kind '%2'", KeywordList::Keyword(row.type), KeywordList::Keyword(row.kind)), WHERE);
    if (condition.m_flag.isEnabled(Flag::UseVaporPressure) && isFlagUsed(condition, Flag::UseVaporPressure))
        requireQuantity(condition, Quantity::VaporPressure, ", which flag 'UseVaporPressure' asks for", WHERE);
    if (usesHumidityAndClouds(condition))
        for (const Quantity quantity : {Quantity::Temperature, Quantity::RelativeHumidity, Quantity::CloudCoverage})
            requireQuantity(condition, quantity, ", which sky radiation out of humidity and clouds needs", WHERE);
    if (condition.m_flag.isEnabled(Flag::IncludeGround) && isFlagUsed(condition, Flag::IncludeGround) &&
        !condition.m_ccReferences.contains(Quantity::LWRadiationGroundEmission))
        requireQuantity(condition, Quantity::Temperature, ", which flag 'IncludeGround' asks for", WHERE);
}

/// What only heats or only cools: 0, 1 or -1 of SurfaceLoad::heatDirection.
int heatDirectionOf(const BoundaryCond & condition) {
    const int mode = condition.m_intPara.value(BoundaryCond::intpara_t::HeatingCooling).value_or(0);
    if (mode != 0 && (condition.m_type != Type::HeatConduction || condition.m_kind == Kind::ImposedFlux))
        throw Exception(text("Parameter 'HeatingCooling' cannot be used in type '%1' of kind '%2'.",
                             KeywordList::Keyword(condition.m_type), KeywordList::Keyword(condition.m_kind)),
                        WHERE);
    return mode == 0 ? 0 : mode == 1 ? 1 : -1;
}

} // namespace

bool ActiveTimes::contains(double time) const {
    return m_intervals.empty() || std::any_of(m_intervals.begin(), m_intervals.end(), [time](const auto & interval) {
               return time >= interval[0] && time < interval[1];
           });
}

double drivingRain(double rain, double windVelocity, double windDirection, const SurfacePosition & surface) {
    const double onWall =
        2.0 / 9 * windVelocity * std::pow(3600 * rain, 8.0 / 9) / 3600 * std::cos(windDirection - surface.orientation);
    return std::max(0.0, onWall * std::sin(surface.inclination) + rain * std::cos(surface.inclination));
}

double skyEmission(double T, double humidity, double clouds) {
    // The dew point, by the inverse of the saturation pressure over water.
    const double x = std::log(std::max(humidity, 0.01)) + logSaturationPressure(T) - logSaturationPressure(T_ZERO);
    const double dewPoint = T_ZERO + 237.3 * x / (17.269 - x);
    const double tenths = 10 * std::clamp(clouds, 0.0, 1.0);
    const double cloudFactor = 1 + tenths * (0.0224 + tenths * (-0.0035 + tenths * 0.00028));
    return std::min(1.0, (0.787 + 0.764 * std::log(dewPoint / 273)) * cloudFactor) * blackBody(T);
}

BoundaryLaw BoundaryLaw::fromCondition(const BoundaryCond & condition) {
    const Row & row = rowOf(condition);
    checkAgainst(row, condition);

    BoundaryLaw law;
    law.apply = row.apply;
    const bool isHeat = condition.m_type == Type::HeatConduction;
    law.coefficient = parameter(condition, ExchangeCoefficient, 0, isHeat ? "W/m2K" : "s/m");
    if (condition.m_kind == Kind::Exchange && isHeat && !condition.m_para.contains(ExchangeCoefficient))
        requireQuantity(condition, Quantity::HeatTransferCoefficient, ", and so is parameter 'ExchangeCoefficient'",
                        WHERE);
    if (condition.m_kind == Kind::ExchangeVelocity) {
        law.slope = parameter(condition, ExchangeSlope, 0, isHeat ? "J/m3K" : "s2/m2");
        law.exponent = parameter(condition, ExchangeExponent, 1, "---");
    }
    law.resistance = parameter(condition, SDValue, 0, "m") / MM::KV_AIR;
    const auto factor = [&](Para key) { return parameter(condition, key, 1, "---"); };
    switch (condition.m_type) {
    case Type::WindDrivenRain:
        law.factor = factor(ExposureCoefficient) * factor(SurfaceLiquidFraction);
        law.hasMinimum = condition.m_ccReferences.contains(Quantity::Temperature);
        law.minimum = parameter(condition, MinRainTemperature, DEFAULT_SNOW_LIMIT, "K");
        if (condition.m_para.contains(MinRainTemperature))
            requireQuantity(condition, Quantity::Temperature, ", which parameter 'MinRainTemperature' needs", WHERE);
        break;
    case Type::ShortWaveRadiation:
        law.factor = factor(SurfaceAbsorptionCoefficient);
        break;
    case Type::LongWaveRadiation:
        law.factor = factor(SurfaceEmissionCoefficient);
        break;
    case Type::WaterContact:
        law.factor = factor(SurfaceLiquidFraction);
        break;
    default:
        break;
    }
    law.useHumidityAndClouds = usesHumidityAndClouds(condition);
    law.includeGround = condition.m_flag.isEnabled(Flag::IncludeGround);
    law.heatDirection = heatDirectionOf(condition);
    if (law.isPipe())
        law.pipe = PipeCollector::fromCondition(condition);
    return law;
}

bool BoundaryLaw::needsSun() const {
    return apply == shortWaveModel;
}

bool BoundaryLaw::isRain() const {
    return apply == rainFlux || apply == standardRain;
}

bool BoundaryLaw::needsOrientation() const {
    return needsSun() || apply == standardRain;
}

bool BoundaryLaw::isPipe() const {
    return apply == pipeCollector;
}

PipeFlow BoundaryLaw::pipeFlow(const ClimateMoment & moment) const {
    PipeFlow flow = pipeFlowOf(*this, moment);
    if (!active.contains(moment.time))
        flow.capacity = flow.innerCoefficient = flow.conductance = 0;
    return flow;
}

bool BoundaryLaw::isHeatExchange() const {
    return apply == heatSurfaceValue || apply == heatExchange || apply == pipeCollector;
}

bool BoundaryLaw::isHydrostatic() const {
    return apply == hydrostaticProfile;
}

} // namespace SOLVER
