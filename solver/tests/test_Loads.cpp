#include "ProjectTexts.h"

#include <SOLVER/Physics.h>

#include <CCM/SolarRadiationModel.h>
#include <MM/Physics.h>

#include <cmath>
#include <numbers>

using namespace SOLVER;
using namespace texts;

/// Every kind of condition, out of a project's text, against its formula by hand.
namespace {

constexpr double SIGMA = 5.670374e-8;
constexpr double AIR = 283.15;
double saturation(double celsius) {
    return 610.5 * std::exp(17.269 * celsius / (237.3 + celsius));
}
double black(double T) {
    return SIGMA * T * T * T * T;
}

// *** Boundary conditions ***

struct BoundaryCase {
    const char * name;
    std::string attributes, children;
    /// Expected heat [W/m2] and water [kg/m2s] into the wall, from the state of the surface.
    double (*heat)(const SurfaceState &);
    double (*water)(const SurfaceState &);
};
void PrintTo(const BoundaryCase & row, std::ostream * out) {
    *out << row.name;
}

double none(const SurfaceState &) {
    return 0;
}
/// What vapour carries into the surface.
template <double (*Water)(const SurfaceState &)> double latent(const SurfaceState & s) {
    return Water(s) * enthalpyOfVapor(s.temperature);
}
template <double (*Water)(const SurfaceState &)> double fromRain(const SurfaceState & s) {
    return Water(s) * 4187 * 10;
}
double vapor(double coefficient, double pressure, const SurfaceState & s) {
    return coefficient * (pressure - s.vaporPressure);
}
double vaporOfAir(const SurfaceState & s) {
    return vapor(2e-8, 0.8 * saturation(10), s);
}
double vaporOfPressure(const SurfaceState & s) {
    return vapor(1 / (1 / 2e-8 + 0.3 / MM::KV_AIR), 900, s);
}
double vaporOfWind(const SurfaceState & s) {
    return vapor(2e-8 + 1e-8 * 9, 0.8 * saturation(10), s);
}
double imposedVapor(const SurfaceState &) {
    return 1e-6;
}
double rainNormal(const SurfaceState &) {
    return 0.5 / 3600;
}
/// Wind from 300 Deg against a wall that faces 270 Deg.
double rainOfModel(const SurfaceState &) {
    return 0.4 * 2.0 / 9 * 3 * std::pow(2, 8.0 / 9) * std::cos(std::numbers::pi / 6) / 3600;
}
double imposedWater(const SurfaceState &) {
    return 0.25e-6;
}
double sun() {
    CCM::SolarRadiationModel model;
    model.m_climate.m_longitude = 13.4;
    model.m_climate.m_latitude = 52.5;
    model.m_climate.m_elevation = 100;
    model.m_climate.setUtcOffset(1);
    const unsigned int wall = model.addSurface(std::numbers::pi / 2, 1.5 * std::numbers::pi);
    const double time = 4.625 * 86400;
    model.setRadiation(time, model.convertHorizontalToNormalRadiation(time, 300), 100);
    return model.radiationLoad(wall).direct + model.radiationLoad(wall).diffuse;
}
/// Clark and Allen, Walton: 10 C and 80 %, half of the sky in clouds.
double cloudySky() {
    const double x = std::log(0.8 * saturation(10) / 610.5);
    const double dewPoint = 273.15 + 237.3 * x / (17.269 - x);
    return (0.787 + 0.764 * std::log(dewPoint / 273)) * (1 + 0.0224 * 5 - 0.0035 * 25 + 0.00028 * 125) * black(AIR);
}
/// Half of what a wall sees is sky.
double halfSky(double sky, const SurfaceState & s) {
    return 0.9 * 0.5 * (sky - black(s.temperature));
}
/// Water of 0.05 kg/s in 20 m of pipe, 25 mm and 2 mm of wall: Reynolds number 3028, between laminar and turbulent.
double pipe(const SurfaceState & s) {
    constexpr double INNER = 0.021;
    const double reynolds = 4 * 0.05 / (std::numbers::pi * INNER * 1.0016e-3);
    const double prandtl = 4187 * 1.0016e-3 / 0.59846;
    const double f = std::pow(0.79 * std::log(4000.0) - 1.64, -2) / 8;
    const double turbulent = f * 3000 * prandtl / (1 + 12.7 * std::sqrt(f) * (std::pow(prandtl, 2.0 / 3) - 1));
    const double share = (reynolds - 2300) / 1700;
    const double inner = ((1 - share) * 3.66 + share * turbulent) * 0.59846 / INNER;
    const double resistance =
        1 / (inner * std::numbers::pi * INNER) + std::log(25 / 21.0) / (2 * std::numbers::pi * 0.4);
    // The model holds half of the pipe on a surface of 1 m2.
    return 0.5 * 0.05 * 4187 * (1 - std::exp(-20 / (resistance * 0.05 * 4187))) * (AIR - s.temperature);
}

class Boundaries : public testing::TestWithParam<BoundaryCase> {};

TEST_P(Boundaries, BringWhatTheirFormulaSays) {
    const BoundaryCase & row = GetParam();
    Parts parts;
    parts.boundary = "<BoundaryCondition name='Law' " + row.attributes + ">" + row.children + "</BoundaryCondition>";
    const Evaluated wall(parts, 4.625 * 86400);
    const double heat = row.heat(wall.surface());
    const double water = row.water(wall.surface());
    EXPECT_NEAR(wall.heat(), heat, 2e-4 * std::fabs(heat) + 1e-7);
    EXPECT_NEAR(wall.water(), water, 2e-6 * std::fabs(water) + 1e-15);
}

std::string law(const std::string & type, const std::string & kind) {
    return "type='" + type + "' kind='" + kind + "'";
}
const std::string T = reference("Temperature");
const std::string RH = reference("RelativeHumidity");
const std::string WIND = reference("WindVelocity");

INSTANTIATE_TEST_SUITE_P(
    Projects, Boundaries,
    testing::Values(
        BoundaryCase{"HeatFlux", law("HeatConduction", "ImposedFlux"), reference("HeatFlux"),
                     [](const SurfaceState &) { return 25.0; }, none},
        BoundaryCase{"HeatExchange", law("HeatConduction", "Exchange"),
                     T + parameter("ExchangeCoefficient", "8", "W/m2K"),
                     [](const SurfaceState & s) { return 8 * (AIR - s.temperature); }, none},
        BoundaryCase{"HeatExchangeOfClimate", law("HeatConduction", "Exchange"),
                     T + reference("HeatTransferCoefficient"),
                     [](const SurfaceState & s) { return 12 * (AIR - s.temperature); }, none},
        BoundaryCase{"HeatExchangeInWind", law("HeatConduction", "ExchangeVelocity"),
                     T + WIND + parameter("ExchangeCoefficient", "4", "W/m2K") +
                         parameter("ExchangeSlope", "5", "J/m3K") + parameter("ExchangeExponent", "0.8", "---"),
                     [](const SurfaceState & s) { return (4 + 5 * std::pow(3, 0.8)) * (AIR - s.temperature); }, none},
        BoundaryCase{"HeatExchangeThatOnlyCools", law("HeatConduction", "Exchange"),
                     T + parameter("ExchangeCoefficient", "8", "W/m2K") +
                         "<KOR:IntPara name='HeatingCooling'>2</KOR:IntPara>",
                     [](const SurfaceState & s) { return 8 * (AIR - s.temperature); }, none},
        BoundaryCase{"Pipe", law("HeatConduction", "PipeCollectorModel"),
                     T + reference("MassFlowRate") + parameter("PipeCollectorDiameter", "25", "mm") +
                         parameter("PipeCollectorThickness", "2", "mm") + parameter("PipeCollectorLength", "20", "m") +
                         parameter("PipeCollectorThermalConductivity", "0.4", "W/mK") +
                         parameter("PipeCollectorModelFraction", "0.5", "---"),
                     pipe, none},
        BoundaryCase{"VaporFlux", law("VaporDiffusion", "ImposedFlux"), reference("WaterFlux"), latent<imposedVapor>,
                     imposedVapor},
        BoundaryCase{"VaporExchange", law("VaporDiffusion", "Exchange"),
                     T + RH + parameter("ExchangeCoefficient", "2e-8", "s/m"), latent<vaporOfAir>, vaporOfAir},
        BoundaryCase{"VaporExchangeThroughPaint", law("VaporDiffusion", "Exchange"),
                     reference("VaporPressure") + flag("UseVaporPressure") +
                         parameter("ExchangeCoefficient", "2e-8", "s/m") + parameter("SDValue", "30", "cm"),
                     latent<vaporOfPressure>, vaporOfPressure},
        BoundaryCase{"VaporExchangeInWind", law("VaporDiffusion", "ExchangeVelocity"),
                     T + RH + WIND + parameter("ExchangeCoefficient", "2e-8", "s/m") +
                         parameter("ExchangeSlope", "1e-8", "s2/m2") + parameter("ExchangeExponent", "2", "---"),
                     latent<vaporOfWind>, vaporOfWind},
        BoundaryCase{"RainOnTheWall", law("WindDrivenRain", "ImposedFlux"),
                     T + reference("RainFluxNormal") + parameter("ExposureCoefficient", "0.5", "---"),
                     fromRain<rainNormal>, rainNormal},
        BoundaryCase{"RainAsSnow", law("WindDrivenRain", "ImposedFlux"),
                     T + reference("RainFluxNormal") + parameter("MinRainTemperature", "10.5", "C") +
                         parameter("ExposureCoefficient", "0.5", "---"),
                     none, none},
        BoundaryCase{"DrivingRain", law("WindDrivenRain", "StandardRainModel"),
                     T + WIND + reference("WindDirection") + reference("RainFluxHorizontal") +
                         parameter("ExposureCoefficient", "0.8", "---") +
                         parameter("SurfaceLiquidFraction", "0.5", "---"),
                     fromRain<rainOfModel>, rainOfModel},
        BoundaryCase{"SunOnTheWall", law("ShortWaveRadiation", "ImposedFlux"),
                     reference("SWRadiationImposed") + parameter("SurfaceAbsorptionCoefficient", "0.6", "---"),
                     [](const SurfaceState &) { return 120.0; }, none},
        BoundaryCase{"Sun", law("ShortWaveRadiation", "StandardRadiationModel"),
                     reference("SWRadiationDirect") + reference("SWRadiationDiffuse") +
                         parameter("SurfaceAbsorptionCoefficient", "0.6", "---"),
                     [](const SurfaceState &) { return 0.6 * sun(); }, none},
        BoundaryCase{"LongWaveFlux", law("LongWaveRadiation", "ImposedFlux"), reference("LWRadiationFlux"),
                     [](const SurfaceState &) { return -40.0; }, none},
        BoundaryCase{"Sky", law("LongWaveRadiation", "LongWaveComponents"),
                     reference("LWRadiationSkyEmission") + parameter("SurfaceEmissionCoefficient", "0.9", "---"),
                     [](const SurfaceState & s) { return halfSky(280, s); }, none},
        BoundaryCase{"SkyAndGround", law("LongWaveRadiation", "LongWaveComponents"),
                     reference("SkyTemperature") + reference("LWRadiationGroundEmission") +
                         parameter("SurfaceEmissionCoefficient", "0.9", "---"),
                     [](const SurfaceState & s) { return halfSky(black(263.15), s) + halfSky(330, s); }, none},
        BoundaryCase{
            "SkyAndGroundOfTheAir", law("LongWaveRadiation", "LongWaveComponents"),
            T + flag("IncludeGround") + reference("LWRadiationSkyEmission") +
                parameter("SurfaceEmissionCoefficient", "0.9", "---"),
            [](const SurfaceState & s) { return halfSky(280, s) + halfSky(0.95 * black(AIR) + 0.05 * 280, s); }, none},
        BoundaryCase{"SkyOfClouds", law("LongWaveRadiation", "LongWaveComponents"),
                     T + RH + reference("CloudCoverage") + flag("IncludeRHandClouds") +
                         parameter("SurfaceEmissionCoefficient", "0.9", "---"),
                     [](const SurfaceState & s) { return halfSky(cloudySky(), s); }, none},
        BoundaryCase{"ClearSky", law("LongWaveRadiation", "StandardRadiationModel"),
                     T + parameter("SurfaceEmissionCoefficient", "0.9", "---"),
                     [](const SurfaceState & s) { return halfSky(black(AIR - 11), s); }, none},
        BoundaryCase{"WaterFlux", law("WaterContact", "ImposedFlux"),
                     T + reference("WaterFlux") + parameter("SurfaceLiquidFraction", "0.25", "---"),
                     fromRain<imposedWater>, imposedWater}),
    [](const auto & row) { return std::string(row.param.name); });

/// What fixes the state of a surface, and how high it stands.
TEST(BoundaryValues, HoldAtTheSurface) {
    const auto surface = [](const std::string & attributes, const std::string & children, Parts parts = {}) {
        parts.boundary = "<BoundaryCondition name='Law' " + attributes + ">" + children + "</BoundaryCondition>";
        return Evaluated(parts);
    };
    EXPECT_NEAR(surface(law("HeatConduction", "SurfaceValue"), T).surface().temperature, AIR, 1e-9);
    EXPECT_NEAR(surface(law("HeatConduction", "SurfaceValue"), T + "<KOR:IntPara name='HeatingCooling'>1</KOR:IntPara>")
                    .surface()
                    .temperature,
                293.15, 1e-9);
    const Evaluated vapor = surface(law("VaporDiffusion", "SurfaceValue"), T + RH);
    EXPECT_NEAR(vapor.surface().suction, -1000 * 461.89 * AIR * std::log(0.8), 1e-6 * vapor.surface().suction);
    const Evaluated open = surface(law("WaterContact", "SurfaceValue"), reference("PressureHead"));
    EXPECT_NEAR(open.surface().suction, -0.8 * 9810, 1e-6);
    EXPECT_GT(open.water(), 1e-4);
    const Evaluated half = surface(law("WaterContact", "SurfaceValue"),
                                   reference("PressureHead") + parameter("SurfaceLiquidFraction", "0.5", "---"));
    EXPECT_NEAR(half.surface().liquidFlux, open.surface().liquidFlux / 2, 1e-9);
    // Rows of 1 m: 0.8 m of water stand before the first one only, 0.3 m above its middle.
    Parts high;
    high.grid += "<YSteps unit='m'>1 1</YSteps>";
    high.range = "0 0 3 1";
    const Evaluated profile = surface(law("WaterContact", "HydrostaticProfile"), reference("PressureHead"), high);
    EXPECT_NEAR(profile.surface().suction, -0.3 * 9810, 1e-6);
    EXPECT_NEAR(profile.model.exchangeRates()[1].water, 0, 1e-15);
}

/// A section through half a pipe in the ground holds as much of it as it is deep.
TEST(BoundaryValues, PipesBelongToAModelByTheirLength) {
    Parts parts;
    parts.module = "HeatTransport";
    parts.grid += "<YSteps unit='m'>0.5 0.5</YSteps><ZSteps unit='m'>2</ZSteps>";
    parts.range = "0 0 3 1";
    parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='PipeCollectorModel'>" + T +
                     reference("MassFlowRate") + reference("HeatTransferCoefficient") +
                     parameter("PipeCollectorDiameter", "25", "mm") + parameter("PipeCollectorThickness", "2", "mm") +
                     parameter("PipeCollectorLength", "20", "m") +
                     parameter("PipeCollectorThermalConductivity", "0.4", "W/mK") +
                     parameter("PipeCollectorModelFraction", "0.5", "---") +
                     parameter("PipeCollectorFluidHeatCapacity", "3800", "J/kgK") +
                     parameter("PipeCollectorGlycolContent", "30", "%") + "</BoundaryCondition>";
    const Evaluated section(parts);
    const double resistance = 1 / (12 * std::numbers::pi * 0.021) + std::log(25 / 21.0) / (2 * std::numbers::pi * 0.4);
    const double whole = 0.05 * 3800 * (1 - std::exp(-20 / (resistance * 0.05 * 3800)));
    const double expected = 0.5 * 2 / 20.0 * whole * (AIR - section.surface().temperature);
    EXPECT_NEAR(section.model.exchangeRates()[0].heat + section.model.exchangeRates()[1].heat, expected,
                1e-6 * std::fabs(expected));
}

TEST(Schedules, SwitchBoundaryAndFieldConditions) {
    for (const bool isEnabled : {true, false}) {
        Parts parts;
        parts.schedules = std::string("<Schedule name='Days' enabled='") + (isEnabled ? "true" : "false") +
                          "'><Interval><KOR:Parameter name='Start' unit='d'>2</KOR:Parameter><KOR:Parameter name='End' "
                          "unit='d'>3</KOR:Parameter></Interval><Interval><KOR:Parameter name='Start' "
                          "unit='d'>5</KOR:Parameter></Interval></Schedule>";
        parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='ImposedFlux'>" +
                         reference("HeatFlux") + "<Schedule>Days</Schedule></BoundaryCondition>";
        parts.field = "<FieldCondition name='Heat' type='EnergySource'>" + reference("EnergySource") +
                      "<Schedule>Days</Schedule></FieldCondition>";
        parts.assignments = assignment("FieldCondition", "Element", "Heat", "1 0 1 0");
        for (const double day : {1.5, 2.5, 3.5, 6.0}) {
            const Evaluated wall(parts, day * 86400);
            const bool acts = !isEnabled || day == 2.5 || day == 6;
            EXPECT_NEAR(wall.heat(), acts ? 25 : 0, 1e-3) << day;
            EXPECT_NEAR(wall.model.loadRates()[0].heat, acts ? 0.3 : 0, 1e-9) << day;
        }
        const Construction made = buildConstruction(project(parts));
        double t = 0;
        for (const double day : {2.0, 3.0, 5.0}) {
            if (!isEnabled)
                break;
            // A stop just before, and one at the switch, where the integrator starts anew.
            t = made.nextJump(t);
            EXPECT_NEAR(t, day * 86400, 0.01);
            EXPECT_LT(t, day * 86400);
            t = made.nextJump(t);
            EXPECT_EQ(t, day * 86400);
            EXPECT_FALSE(made.isContinuousAt(t));
        }
    }
}

/// Engineering interfaces: the surface resistances and climates of their standards.
TEST(EngineeringInterfaces, StandForExchangeWithTheirClimate) {
    struct Case {
        const char * type;
        const char * children;
        double day, coefficient, temperature, vaporCoefficient, humidity;
    };
    const Case cases[] = {
        {"EngineeringIndoor",  "<ClimateTypeIndoor>IndoorDIN4108_2014</ClimateTypeIndoor>",                           10, 4,        20, 2.5e-8, 0.5},
        {"EngineeringIndoor",
         "<ClimateTypeIndoor>IndoorUserData</ClimateTypeIndoor><KOR:Parameter name='CustomIndoorTemperature' "
         "unit='C'>22</KOR:Parameter><KOR:Parameter name='CustomIndoorRelativeHumidity' unit='%'>40</KOR:Parameter>", 10, 1 / 0.13, 22, 2.5e-8, 0.4},
        {"EngineeringOutdoor", "<ClimateTypeOutdoor>OutdoorDIN4108</ClimateTypeOutdoor>",                             10, 25,       -5, 7.5e-8, 0.8},
    };
    for (const Case & row : cases) {
        Parts parts;
        parts.duration = "20";
        parts.interface =
            std::string("<Interface name='Surface' type='") + row.type + "'>" + row.children + "</Interface>";
        const Evaluated wall(parts, row.day * 86400);
        const SurfaceState & s = wall.surface();
        const double water = row.vaporCoefficient * (row.humidity * saturation(row.temperature) - s.vaporPressure);
        EXPECT_NEAR(wall.water(), water, 1e-6 * std::fabs(water)) << row.children;
        EXPECT_NEAR(s.convection, row.coefficient * (row.temperature + 273.15 - s.temperature), 1e-6) << row.children;
    }
}

// *** Contacts ***

struct ContactCase {
    const char * name;
    std::string attributes, children;
    bool isHeat;
    /// Expected flux over the drop of temperature or vapour pressure, both halves of the cells added by the test.
    double resistance;
    double liquidResistance; ///< 0: no liquid passes
    double tolerance;
};
void PrintTo(const ContactCase & row, std::ostream * out) {
    *out << row.name;
}
class Contacts : public testing::TestWithParam<ContactCase> {};

/// Between two cells of 10 mm: 30 C and 20 C for heat, 90 % and 80 % at 20 C for moisture.
TEST_P(Contacts, ResistAsTheySay) {
    const ContactCase & row = GetParam();
    Parts parts;
    parts.module = row.isHeat ? "HeatTransport" : "HeatMoistureTransport";
    parts.boundary = "<BoundaryCondition name='Law' type='HeatConduction' kind='ImposedFlux'>" + reference("HeatFlux") +
                     "</BoundaryCondition>";
    parts.initial = "<InitialCondition name='Warm' type='Temperature'><KOR:Parameter name='Value' "
                    "unit='C'>30</KOR:Parameter></InitialCondition>"
                    "<InitialCondition name='Damp' type='RelativeHumidity'><KOR:Parameter name='Value' "
                    "unit='%'>90</KOR:Parameter></InitialCondition>";
    parts.contact = "<ContactCondition name='Joint' " + row.attributes + ">" + row.children + "</ContactCondition>";
    parts.assignments = assignment("InitialCondition", "Element", row.isHeat ? "Warm" : "Damp", "0 0 0 0") +
                        assignment("ContactCondition", "Right", "Joint", "0 0 0 0");
    const Evaluated wall(parts);
    const auto cells = wall.model.cellStates();
    const Model::FaceFlux & flux = wall.model.faceFluxes()[0];
    if (row.isHeat) {
        const double expected = 10 / (0.005 / cells[0].lambda + 0.005 / cells[1].lambda + row.resistance);
        EXPECT_NEAR(flux.conduction, expected, row.tolerance * expected);
    } else {
        const double drop = cells[0].vaporPressure - cells[1].vaporPressure;
        const double expected = drop / (0.005 / cells[0].vapor + 0.005 / cells[1].vapor + row.resistance);
        EXPECT_NEAR(flux.vapor, expected, row.tolerance * std::fabs(expected));
        const double liquid =
            row.liquidResistance > 0 ? (cells[1].suction - cells[0].suction) / row.liquidResistance : 0;
        EXPECT_NEAR(flux.liquid, liquid, 1e-2 * std::fabs(liquid) + 1e-15);
    }
}

const std::string SPLINE =
    "<KOR:LinearSpline name='sd+(rh)'><X unit='%'>0 100</X><Y unit='m'>100 40</Y></KOR:LinearSpline>";
const std::string BACK =
    "<KOR:LinearSpline name='sd-(rh)'><X unit='%'>0 100</X><Y unit='m'>30 30</Y></KOR:LinearSpline>";
const double UP = 0.9;
const double DOWN = 0.8;

INSTANTIATE_TEST_SUITE_P(
    Projects, Contacts,
    testing::Values(
        ContactCase{"Heat", law("AdditionalResistance", "Exchange"),
                    parameter("HeatConductionResistance", "0.2", "m2K/W"), true, 0.2, 0, 1e-6},
        ContactCase{"HeatOfAFoil", law("Foil", "Exchange"),
                    parameter("HeatConductionResistance", "0.1", "m2K/W") + parameter("VaporDiffusionSD", "1", "m"),
                    true, 0.1, 0, 1e-6},
        ContactCase{"AirHeat", law("AirMaterialBoundary", "Exchange"),
                    parameter("HeatExchangeCoefficient", "2.5", "W/m2K"), true, 0.4, 0, 1e-6},
        ContactCase{"StillAir", law("AirMaterialBoundary", "ExchangeVelocityDependent"),
                    parameter("HeatExchangeCoefficient", "2.5", "W/m2K") + parameter("HeatExchangeSlope", "4", "J/m3K"),
                    true, 0.4, 0, 1e-6},
        ContactCase{"AirVapor", law("AirMaterialBoundary", "Exchange"),
                    parameter("VaporExchangeCoefficient", "1e-12", "s/m"), false, 1e12, 0, 2e-3},
        ContactCase{"Vapor", law("AdditionalResistance", "Exchange"),
                    parameter("VaporDiffusionResistance", "1e12", "m/s") +
                        parameter("WaterConductionResistance", "1e17", "m/s"),
                    false, 1e12, 1e17, 2e-3},
        ContactCase{"Foil", law("Foil", "Exchange"), parameter("VaporDiffusionSD", "100", "m"), false, 100 / MM::KV_AIR,
                    0, 2e-3},
        ContactCase{"FoilForward", law("FoilAdaptive", "DirectionDependent"), SPLINE + BACK, false,
                    (100 - 60 * (UP + DOWN) / 2) / MM::KV_AIR, 0, 1e-2},
        ContactCase{"FoilBackward", law("FoilAdaptive", "DirectionDependent"),
                    SPLINE + BACK + flag("SDPositiveDirection", false), false, 30 / MM::KV_AIR, 0, 5e-3},
        ContactCase{"FoilOfItsInside", law("FoilAdaptive", "DirectionIndependent"),
                    SPLINE + parameter("WEIGHT_FACTOR_POS", "1", "---"), false, (100 - 60 * UP) / MM::KV_AIR, 0, 1e-2},
        ContactCase{"FoilScaled", law("FoilAdaptive", "DirectionIndependent"),
                    parameter("VaporDiffusionSD", "50", "m") + parameter("SCALING_A_POS", "0", "---") +
                        parameter("SCALING_B_POS", "0", "---") + parameter("SCALING_C_POS", "2", "---"),
                    false, 100 / MM::KV_AIR, 0, 2e-3}),
    [](const auto & row) { return std::string(row.param.name); });

// *** Field conditions ***

struct FieldCase {
    const char * name;
    std::string attributes, children;
    double heat, water; ///< expected in the cells 1 and 2 together [W], [kg/s]
};
void PrintTo(const FieldCase & row, std::ostream * out) {
    *out << row.name;
}
class Fields : public testing::TestWithParam<FieldCase> {};

/// In 0.01 and 0.02 m3 of brick at 20 C and 80 %.
TEST_P(Fields, BringWhatTheirFormulaSays) {
    const FieldCase & row = GetParam();
    Parts parts;
    parts.boundary = "<BoundaryCondition name='Law' type='WindDrivenRain' kind='ImposedFlux'>" + T +
                     reference("RainFluxNormal") + parameter("ExposureCoefficient", "0.5", "---") +
                     "</BoundaryCondition>";
    parts.field = "<FieldCondition name='Field' " + row.attributes + ">" + row.children + "</FieldCondition>";
    parts.assignments = assignment("FieldCondition", "Element", "Field", "1 0 2 0");
    const Evaluated wall(parts);
    const Exchange & loads = wall.model.exchangeRates().back();
    EXPECT_NEAR(loads.heat, row.heat, 1e-5 * std::fabs(row.heat) + 1e-9);
    EXPECT_NEAR(loads.water, row.water, 1e-6 * std::fabs(row.water) + 1e-16);
    ASSERT_EQ(wall.model.loadRates().size(), 2u);
}

constexpr double VOLUME = 0.03;             ///< [m3]
constexpr double WATER_AT_20 = 4187 * 20.0; ///< enthalpies [J/kg]
constexpr double VAPOR_AT_20 = 2.5e6 + 2050 * 20.0;
const std::string INDOOR = reference("Temperature", "Indoor") + reference("RelativeHumidity", "IndoorHumidity");
const std::string kind(const std::string & type) {
    return "type='" + type + "'";
}
const std::string mode(int value) {
    return "<KOR:IntPara name='HeatingCooling'>" + std::to_string(value) + "</KOR:IntPara>";
}
/// Vapour in air of a temperature [C] and humidity, [kg/m3].
double vaporContent(double celsius, double humidity) {
    return humidity * saturation(celsius) / (461.89 * (celsius + 273.15));
}
/// Air of 10 C and 80 % against pores of 20 C and 80 %.
double airHeat(double flow) {
    return flow * (101325 / (287.06 * AIR) * 1006 * -10 + vaporContent(10, 0.8) * (2.5e6 + 20500) -
                   vaporContent(20, 0.8) * VAPOR_AT_20);
}
double airWater(double flow) {
    return flow * (vaporContent(10, 0.8) - vaporContent(20, 0.8));
}
/// 21 C and 60 % inside, in a layer of 0.03 m and 1 m2, kept at 20 C: nothing condenses; so 21 C and 100 %.
double leak(double pressure) {
    return 0.007 / 3600 * pressure * (vaporContent(21, 1) - vaporContent(20, 1));
}
const double STACK = 9.81 * 3.0 / 2 * 101325 / 287.06 * (1 / 283.15 - 1 / 294.15);
const std::string DAMP = reference("Temperature", "Indoor") + reference("RelativeHumidity", "Damp");

INSTANTIATE_TEST_SUITE_P(
    Projects, Fields,
    testing::Values(
        FieldCase{"EnergyDensity", kind("EnergySource"), reference("EnergySource"), 30 * VOLUME, 0},
        FieldCase{"EnergyInTotal", kind("EnergySource"),
                  reference("Power") + reference("EnergySource") + flag("UseSource"), 6, 0},
        FieldCase{"EnergyInPart", kind("EnergySource"),
                  reference("Power") + reference("Percentage") + flag("UseSource"), 2.4, 0},
        FieldCase{"HeatingNearItsLimit", kind("EnergySource"),
                  reference("EnergySource") + parameter("LimitT", "22", "C") + parameter("LimitDeltaT", "4", "K") +
                      mode(0),
                  15 * VOLUME, 0},
        FieldCase{"CoolingOfAColdCell", kind("EnergySource"),
                  reference("EnergySource") + parameter("LimitT", "22", "C") + mode(1), 0, 0},
        FieldCase{"CoolingOfAWarmCell", kind("EnergySource"),
                  reference("EnergySource") + parameter("LimitT", "15", "C") + mode(2), -30 * VOLUME, 0},
        FieldCase{"WaterDensity", kind("WaterSource"), reference("WaterSource"), 1e-4 * VOLUME * WATER_AT_20,
                  1e-4 * VOLUME},
        FieldCase{"WaterInTotal", kind("WaterSource"), reference("MassFlowRate") + T + flag("UseSource"),
                  0.05 * 4187 * 10, 0.05},
        FieldCase{"WaterInAFullCell", kind("WaterSource"),
                  reference("WaterSource") + parameter("MaxWaterContent", "0.5", "Vol%"), 0, 0},
        FieldCase{"AirChange", kind("AirChange"), reference("FluidChangeRate") + T + RH, airHeat(0.5 / 3600 * VOLUME),
                  airWater(0.5 / 3600 * VOLUME)},
        FieldCase{"AirFlow", kind("AirChange"), reference("FluidFlowRate") + T + RH + flag("UseFlowRate"),
                  airHeat(0.01), airWater(0.01)},
        FieldCase{"LeakOfDryAir", kind("ConvectiveSource"),
                  INDOOR + parameter("ConvectiveSourcekCL", "0.007", "m3/m2hPa") +
                      parameter("ConvectiveSourcePressure", "5", "Pa"),
                  0, 0},
        FieldCase{"LeakByBuoyancy", kind("ConvectiveSource"),
                  DAMP + "<CCReference type='AmbientTemperature'>Temperature</CCReference>" +
                      parameter("ConvectiveSourcekCL", "0.007", "m3/m2hPa") +
                      parameter("ConvectiveSourceHeight", "3", "m") + parameter("ConvectiveSourcePressure", "2", "Pa"),
                  leak(2 + STACK) * (2.5e6 + 2050 * 21), leak(2 + STACK)},
        FieldCase{"RainByItself", kind("RainSource"), reference("RainFluxNormal") + parameter("RainFraction", "1", "%"),
                  0.01 / 3600 * WATER_AT_20, 0.01 / 3600},
        FieldCase{"RainOfAnInterface", kind("RainSource"),
                  "<OtherInterfaceReference>Surface</OtherInterfaceReference>" + parameter("RainFraction", "1", "%"),
                  0.005 / 3600 * 4187 * 10, 0.005 / 3600},
        FieldCase{"HeatExchanger", kind("HeatExchanger"), T + parameter("HeatTransferCoefficient", "3", "W/K"), -30, 0},
        FieldCase{"HeatExchangerWithItsFlow", kind("HeatExchanger"),
                  T + reference("MassFlowRate") + parameter("HeatTransferCoefficient", "300", "W/K"),
                  -10 * 0.05 * 4187 * (1 - std::exp(-300 / (0.05 * 4187))), 0},
        FieldCase{"HeatExchangerThatHeats", kind("HeatExchanger"),
                  T + parameter("HeatTransferCoefficient", "3", "W/K") + mode(0), 0, 0},
        FieldCase{"GroundWater", kind("GroundWaterFlow"),
                  T + reference("Velocity") + "<KOR:IntPara name='FlowDirection'>1</KOR:IntPara>",
                  1000 * 4187 * 2e-6 * -10, 0},
        FieldCase{"GroundWaterInTotal", kind("GroundWaterFlow"),
                  T + reference("MassFlowRate") + "<KOR:IntPara name='FlowDirection'>0</KOR:IntPara>",
                  0.05 * 4187 * -10, 0}),
    [](const auto & row) { return std::string(row.param.name); });

} // namespace
