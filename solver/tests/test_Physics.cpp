#include "ReferenceCases.h"

#include <KOR/Exception.h>

using namespace SOLVER;
using namespace reference;

namespace {

std::vector<double> derivativeOf(Model & model, std::span<const double> state) {
    std::vector<double> derivative(model.size());
    EXPECT_TRUE(model.rightHandSide(0, state, derivative));
    return derivative;
}

/// One cell of 1 m3 that nothing but the loads of the inside reaches.
ModelInput box(const MaterialFunctions & material, double temperature, double humidity) {
    ModelInput input;
    input.materials.emplace_back(material);
    input.cells.push_back({1, 0, temperature, suctionAt(humidity)});
    input.loadedCells = {0};
    return input;
}

struct LoadCase {
    const char * name;
    CellLoad load;
    double heat, water; ///< [W], [kg/s] into a cell at 283.15 K and 50 % with 29.5 kg/m3
};
void PrintTo(const LoadCase & row, std::ostream * out) {
    *out << row.name;
}
class CellLoads : public testing::TestWithParam<LoadCase> {};

TEST_P(CellLoads, BringWhatTheySay) {
    ModelInput input = box(loadBearing(), 283.15, 0.5);
    input.climate = [](double, ModelInput::Loads loads) { loads.cells[0] = GetParam().load; };
    Model model(input);
    const std::vector<double> derivative = derivativeOf(model, model.initialState());
    EXPECT_NEAR(derivative[0], GetParam().heat, 1e-9 + 1e-6 * std::fabs(GetParam().heat));
    EXPECT_NEAR(derivative[1], GetParam().water, 1e-12 + 1e-6 * std::fabs(GetParam().water));
    EXPECT_DOUBLE_EQ(model.exchangeRates().back().heat, derivative[0]);
    EXPECT_DOUBLE_EQ(model.exchangeRates().back().water, derivative[1]);
}
// Air: 101325 / (287.06 * 293.15) = 1.204076 kg/m3. Vapour of the cell: of 1227.31 Pa at saturation, its humidity taken at
// 283.15 K is 0.5^(293.15/283.15) = 0.487909, so 0.004578652 kg/m3; of the air 1000 / (461.89 * 293.15) = 0.007385358.
INSTANTIATE_TEST_SUITE_P(
    Model, CellLoads,
    testing::Values(
        LoadCase{
            "Heat", {.heat = 50},
             50, 0
},
        LoadCase{"WarmWater", {.water = 1e-3, .waterTemperature = 303.15}, 1e-3 * 4187 * 30, 1e-3},
        LoadCase{"WaterIntoAFullCell", {.water = 1e-3, .maxMoisture = 20}, 0, 0},
        LoadCase{"WaterOut", {.water = -1e-3}, -1e-3 * 4187 * 10, -1e-3},
        LoadCase{"WaterOutOfADryCell", {.water = -1e-3, .minMoisture = 60}, 0, 0},
        LoadCase{"Fluid", {.heatTransfer = 7, .fluidTemperature = 280.15}, -21, 0},
        LoadCase{"FluidThatOnlyHeats", {.canCool = false, .heatTransfer = 7, .fluidTemperature = 280.15}, 0, 0},
        LoadCase{
            "ThermostatNearItsLimit", {.heat = 50, .heatLimit = 284.15, .heatRange = 4, .canCool = false}, 12.5, 0},
        LoadCase{"ThermostatThatCools", {.heat = 50, .heatLimit = 273.15, .heatRange = 4}, -50, 0},
        LoadCase{"DryLeak", {.leakFlow = 0.1, .leakTemperature = 293.15, .leakVaporPressure = 1200}, 0, 0},
        LoadCase{"MoistLeak",
                 {.leakFlow = 0.1, .leakTemperature = 293.15, .leakVaporPressure = 1500},
                 0.1 * (0.011078037 - 0.009384239849) * 2.541e6,
                 0.1 * (0.011078037 - 0.009384239849)},
        LoadCase{"Air",
                 {.airFlow = 0.1, .airTemperature = 293.15, .airVaporPressure = 1000},
                 0.1 * (1.2040764 * 1006 * 10 + 0.007385358 * 2.541e6 - 0.004578652 * 2.5205e6),
                 0.1 * (0.007385358 - 0.004578652)}),
    [](const auto & row) { return std::string(row.param.name); });

/// Equilibrium of ice: freezing-point depression after Clausius and Clapeyron, energies of the phases.
TEST(Ice, FormsInEquilibriumWithThePores) {
    // 1.2 MPa/K near zero; 2 % less at -10 C as the heat of fusion falls.
    EXPECT_NEAR(freezingSuction(T_ZERO - 1), 1.2190e6, 0.002e6);
    EXPECT_NEAR(freezingSuction(T_ZERO - 10), 12.02e6, 0.06e6);
    EXPECT_NEAR((freezingSuction(265.001) - freezingSuction(264.999)) / 0.002, freezingSuctionSlope(265), 10);
    // Over ice in equilibrium the vapour pressure is that over a surface of ice: 259.9 Pa at -10 C, 103.2 Pa at -20 C.
    for (const auto & [celsius, pressure] : {
             std::pair{-10, 259.9},
             std::pair{-20, 103.2}
    }) {
        const double T = T_ZERO + celsius;
        EXPECT_NEAR(saturationPressure(T) * std::exp(-freezingSuction(T) / kelvinPressure(T)), pressure,
                    0.02 * pressure);
    }
    ModelInput input = box(loadBearing(), 293.15, 0.9995);
    input.useIce = true;
    double heat = 0;
    input.climate = [&heat](double, ModelInput::Loads loads) { loads.cells[0].heat = heat; };
    Model model(input);
    // Cooling by hand: the energy falls, the temperature follows its definition.
    std::vector<double> state = model.initialState();
    const double moisture = state[1];
    const MaterialTable & table = model.input().materials[0];
    double before = 400;
    bool hasIce = false;
    for (double energy = 2e6; energy > -8e7; energy -= 3e5) {
        state[0] = energy;
        derivativeOf(model, state);
        const Model::CellState & cell = model.cellStates()[0];
        EXPECT_LT(cell.temperature, before);
        before = cell.temperature;
        double slope = 0;
        EXPECT_NEAR(table.enthalpy(cell.temperature, slope) +
                        (moisture - cell.ice) * enthalpyOfLiquid(cell.temperature) +
                        cell.ice * enthalpyOfIce(cell.temperature),
                    energy, 1);
        if (cell.ice > 0) {
            hasIce = true;
            EXPECT_NEAR(cell.suction, freezingSuction(cell.temperature), 1);
            EXPECT_NEAR(table.moisture(cell.suction), moisture - cell.ice, 1e-6);
        } else {
            EXPECT_GT(cell.temperature, T_ZERO - 1); // nearly saturated: freezes just below zero
        }
    }
    EXPECT_TRUE(hasIce);
    EXPECT_LT(before, T_ZERO - 15);
}

/// A wet wall under frost: freezing holds its temperature up, ice builds up, and what thaws is what froze.
TEST(Ice, FreezesAndThawsWithoutLoss) {
    for (const bool useIce : {false, true}) {
        const std::vector<double> widths(30, 0.005);
        ModelInput input = wall(
            widths, {loadBearing()}, [](double) { return 0u; }, T_ZERO + 5,
            [](std::uint32_t) { return suctionAt(0.998); });
        input.useIce = useIce;
        input.climate = [](double time, ModelInput::Loads loads) {
            loads.surfaces[0] = {.heatTransfer = 25, .airTemperature = T_ZERO + (time < 2 * 86400 ? -10 : 10)};
        };
        Model model(input);
        CvodeIntegrator integrator(model, {}, 0, model.initialState());
        std::vector<double> derivative(model.size());
        const double water = total(model, integrator.state(), 1);
        const double heat = total(model, integrator.state(), 0);
        integrator.advance(6 * 3600);
        model.rightHandSide(integrator.time(), integrator.state(), derivative);
        const double inside = model.cellStates()[29].temperature - T_ZERO;
        integrator.advance(2 * 86400);
        model.rightHandSide(integrator.time(), integrator.state(), derivative);
        double ice = 0;
        for (const Model::CellState & cell : model.cellStates())
            ice += cell.ice * 0.005;
        integrator.restart();
        integrator.advance(12 * 86400);
        model.rightHandSide(integrator.time(), integrator.state(), derivative);
        EXPECT_NEAR(total(model, integrator.state(), 1), water, 1e-9 * water);
        EXPECT_NEAR(total(model, integrator.state(), 0) - heat, integrator.exchanged()[0].heat,
                    1e-9 * std::fabs(heat) + 1e-3);
        EXPECT_NEAR(model.cellStates()[0].temperature, T_ZERO + 10, 0.05);
        if (useIce) {
            EXPECT_GT(inside, -3.5);
            EXPECT_GT(ice, 3); // of 16 kg/m2 of water
            EXPECT_NEAR(model.cellStates()[0].ice, 0, 0);
        } else {
            EXPECT_LT(inside, -4);
        }
    }
}

/// A plate whose grain lies along x or along y: u conducts as the material says, v as its second set does.
TEST(Anisotropy, FollowsTheDirectionOfTheCells) {
    MaterialFunctions wood = loadBearing();
    wood.otherDirections[0] =
        MaterialFunctions::Transport{nullptr, [](double) { return 5e-12; }, [](double) { return 0.1; }};
    for (const std::uint8_t alongX : {std::uint8_t{0}, std::uint8_t{1}}) {
        ModelInput input;
        input.materials.emplace_back(wood);
        for (std::uint32_t c = 0; c < 4; ++c)
            input.cells.push_back({
                1e-4,
                0,
                280.0 + 3 * (c % 2) + (c < 2 ? 0 : 5),
                suctionAt(0.5 + 0.05 * c),
                {alongX, static_cast<std::uint8_t>(1 - alongX), 0}
            });
        input.faces = {
            {0, 1, 0.01, 0.005, 0.005, 0, {}, 0},
            {0, 2, 0.01, 0.005, 0.005, 0, {}, 1}
        };
        Model model(input);
        derivativeOf(model, model.initialState());
        for (int axis = 0; axis < 2; ++axis) {
            const auto cells = model.cellStates();
            const bool isAcross = (axis == 0) == (alongX == 1);
            const std::size_t other = axis == 0 ? 1 : 2;
            const double w = (cells[0].moisture + cells[other].moisture) / 2;
            const double drop = cells[0].temperature - cells[other].temperature;
            const Model::FaceFlux & flux = model.faceFluxes()[static_cast<std::size_t>(axis)];
            EXPECT_NEAR(flux.conduction, (isAcross ? 0.1 : 1.5 + 0.0158 * w) * drop / 0.01, 1e-4 * 500);
            const double T = (cells[0].temperature + cells[other].temperature) / 2;
            const double across =
                5e-12 * (1 + 0.81 * (T - T_REF) / T_REF) * (cells[0].vaporPressure - cells[other].vaporPressure) / 0.01;
            if (isAcross)
                EXPECT_NEAR(flux.vapor, across, 1e-6 * std::fabs(across));
            else
                EXPECT_GT(std::fabs(flux.vapor - across), 0.1 * std::fabs(across));
        }
    }
}

/// lambda = 0.5 + 0.01 (T - 283.15): exact steady flux is that at the mean temperature; at a face of two materials, too.
TEST(Model, ConductivityOverTemperatureGivesTheExactSteadyFlux) {
    MaterialFunctions warm = conductor(0.5);
    warm.conductivityByTemperature = [](double T) { return 0.01 * (T - 283.15); };
    for (const int materials : {1, 2}) {
        ModelInput input = wall(
            std::vector<double>(40, 0.005), {warm, warm},
            [materials](double x) { return materials == 2 && x > 0.1 ? 1u : 0u; }, 290,
            [](std::uint32_t) { return 1e7; });
        input.module = module_t::heat;
        input.climate = [](double, ModelInput::Loads loads) {
            for (SurfaceLoad & load : loads.surfaces)
                load.hasTemperature = true;
            loads.surfaces[0].airTemperature = 273.15;
            loads.surfaces[1].airTemperature = 303.15;
        };
        Model model(input);
        CvodeIntegrator integrator(model, {}, 0, model.initialState());
        integrator.advance(1e9);
        derivativeOf(model, integrator.state());
        for (const Model::FaceFlux & flux : model.faceFluxes())
            EXPECT_NEAR(flux.conduction, -0.55 * 30 / 0.2, 1e-4 * 82.5);
    }
}

/// Enthalpy 1e6 (T - T0) + 2000 (T - T0)^2 with latent-like growth: the temperature follows it.
TEST(Model, EnthalpyFunctionSetsTheTemperature) {
    MaterialFunctions material = conductor(1);
    material.enthalpy = [](double T) { return 1e6 * (T - T_ZERO) + 2000 * (T - T_ZERO) * (T - T_ZERO); };
    ModelInput input = box(material, T_ZERO + 30, 0.5);
    Model model(input);
    std::vector<double> state = model.initialState();
    derivativeOf(model, state);
    EXPECT_NEAR(model.cellStates()[0].temperature, T_ZERO + 30, 1e-6);
    state[0] += 1e6 * 10 + 2000 * (40 * 40 - 30 * 30) + C_WATER * state[1] * 10;
    derivativeOf(model, state);
    EXPECT_NEAR(model.cellStates()[0].temperature, T_ZERO + 40, 1e-4);
    material.enthalpy = [](double T) { return -T; };
    EXPECT_THROW(MaterialTable{material}, KOR::Exception);
}

/// Water that stands still: under gravity the suctions differ by its weight, in one material and across two.
TEST(Model, WaterInHydrostaticEquilibriumDoesNotFlow) {
    ModelInput input = wall(
        std::vector<double>(10, 0.1), {loadBearing(), constantDiffusivity()},
        [](double x) { return x < 0.5 ? 0u : 1u; }, T_REF, [](std::uint32_t) { return 1.0; });
    input.useGravity = input.useReferenceTemperature = true;
    input.module = module_t::moisture;
    for (std::size_t c = 0; c < 10; ++c)
        input.cells[c].suction = 2e4 + RHO_WATER * GRAVITY * 0.1 * static_cast<double>(c);
    for (ModelInput::Face & face : input.faces)
        face.rise = 0.1;
    Model model(input);
    derivativeOf(model, model.initialState());
    for (const Model::FaceFlux & flux : model.faceFluxes())
        EXPECT_NEAR(flux.liquid, 0, 1e-5 * 1e-10 * RHO_WATER * GRAVITY);
    // Nor at surfaces whose suctions belong to their heights.
    input.surfaces[0].rise = -0.05;
    input.surfaces[1].rise = 0.05;
    input.climate = [](double, ModelInput::Loads loads) {
        loads.surfaces[0] = {.hasSuction = true, .suction = 2e4 - RHO_WATER * GRAVITY * 0.05};
        loads.surfaces[1] = {.hasSuction = true, .suction = 2e4 + RHO_WATER * GRAVITY * 0.95};
    };
    Model open(input);
    derivativeOf(open, open.initialState());
    for (const SurfaceState & surface : open.surfaceStates())
        EXPECT_NEAR(surface.liquidFlux, 0, 1e-5 * 1e-10 * RHO_WATER * GRAVITY);
    input.climate = nullptr;
    input.useGravity = false;
    Model light(input);
    derivativeOf(light, light.initialState());
    for (const Model::FaceFlux & flux : light.faceFluxes())
        EXPECT_GT(flux.liquid, 0);
}

/// Between two materials the state is that of the joint, not one on the line between the centres; a resistance parts it.
TEST(Model, StatesOfSidesAreThoseThatAreSolvedFor) {
    for (const double resistance : {0.0, 0.5}) {
        ModelInput input = wall(
            {0.1, 0.1, 0.2}, {conductor(2), conductor(0.1)}, [](double x) { return x < 0.2 ? 0u : 1u; }, 290,
            [](std::uint32_t) { return 1e7; });
        input.module = module_t::heat;
        input.cells[0].temperature = 300;
        input.cells[2].temperature = 270;
        input.faces[1].contact.heat = resistance;
        Model model(input);
        std::vector<double> derivative(3);
        ASSERT_TRUE(model.rightHandSide(0, model.initialState(), derivative));
        const double flux = 20 / (0.05 / 2 + resistance + 0.1 / 0.1);
        EXPECT_NEAR(model.faceFluxes()[1].conduction, flux, 1e-6 * flux);
        EXPECT_NEAR(model.sideState(1, false).temperature, 290 - flux * 0.05 / 2, 1e-5);
        EXPECT_NEAR(model.sideState(1, true).temperature, 270 + flux * 0.1 / 0.1, 1e-5);
        EXPECT_NEAR(model.sideState(0, false).temperature, 295, 1e-12);
    }
    // With moisture, suction and vapour pressure belong together and are common to both materials.
    ModelInput input = wall(
        {0.01, 0.01}, {loadBearing(), insulation()}, [](double x) { return x < 0.01 ? 0u : 1u; }, 290,
        [](std::uint32_t material) { return suctionAt(material == 0 ? 0.9 : 0.4); });
    Model model(input);
    std::vector<double> derivative(4);
    ASSERT_TRUE(model.rightHandSide(0, model.initialState(), derivative));
    const Model::SideState side = model.sideState(0, false);
    EXPECT_NEAR(side.humidity, std::exp(-side.suction / kelvinPressure(side.temperature)), 1e-12);
    EXPECT_NEAR(side.vaporPressure, side.humidity * saturationPressure(side.temperature), 1e-9);
    EXPECT_DOUBLE_EQ(model.sideState(0, true).suction, side.suction);
    EXPECT_LT(side.humidity, 0.45) << "the open insulation sets the humidity of the joint";
}

/// A surface whose heat exchange only heats or only cools, and one that is half closed to liquid.
TEST(Model, SurfacesPassHeatInOneDirectionAndLiquidInPart) {
    ModelInput input = wall(
        std::vector<double>(4, 0.01), {loadBearing()}, [](double) { return 0u; }, 283.15,
        [](std::uint32_t) { return suctionAt(0.9); });
    SurfaceLoad load;
    input.climate = [&load](double, ModelInput::Loads loads) { loads.surfaces[0] = load; };
    Model model(input);
    const std::vector<double> state = model.initialState();
    const auto surface = [&](const SurfaceLoad & given) {
        load = given;
        derivativeOf(model, state);
        return model.surfaceStates()[0];
    };
    for (const bool isFixed : {true, false})
        for (const int direction : {-1, 0, 1})
            for (const double T : {280.0, 290.0}) {
                const double heat = surface({.heatTransfer = isFixed ? 0.0 : 8.0,
                                             .airTemperature = T,
                                             .hasTemperature = isFixed,
                                             .heatDirection = direction})
                                        .conduction;
                const double sign = T > 283.15 ? 1 : -1;
                EXPECT_EQ(heat * sign > 1, direction == 0 || direction == sign) << direction << " " << T;
            }
    const double open = surface({.hasSuction = true}).liquidFlux;
    EXPECT_GT(open, 0);
    EXPECT_NEAR(surface({.hasSuction = true, .openToLiquid = 0.25}).liquidFlux, open / 4, 1e-9 * open);
}

/// A foil that closes in dry air: steady flux through it and two half walls, both ways, against a bisection by hand.
TEST(Model, FoilsFollowTheirHumidityAndTheDirectionOfFlow) {
    const auto forward = [](double phi) { return 1e10 * (1 + 20 * (1 - phi)); };
    const auto backward = [](double phi) { return 4e10 * (1 + 5 * (1 - phi)); };
    for (const bool isForward : {true, false}) {
        ModelInput input = wall(
            std::vector<double>(20, 0.01), {conductor(1)}, [](double) { return 0u; }, T_REF,
            [](std::uint32_t) { return suctionAt(0.5); });
        input.module = module_t::moisture;
        input.useReferenceTemperature = true;
        input.foils.push_back({forward, backward});
        input.faces[9].contact = {.blocksLiquid = true, .foil = 0};
        const double p = saturationPressure(T_REF);
        const double left = (isForward ? 0.8 : 0.3) * p;
        const double right = (isForward ? 0.3 : 0.8) * p;
        input.climate = [&](double, ModelInput::Loads loads) {
            loads.surfaces[0] = {.vaporTransfer = 1e-8, .vaporPressure = left};
            loads.surfaces[1] = {.vaporTransfer = 1e-8, .vaporPressure = right};
        };
        Model model(input);
        CvodeIntegrator integrator(model, {}, 0, model.initialState());
        integrator.advance(1e12);
        derivativeOf(model, integrator.state());
        const double side = 1e8 + 0.1 / 2e-12; // surface and half of the wall
        // Symmetric: the mean humidity at the foil is the mean of both airs.
        const double exact = (left - right) / (2 * side + (isForward ? forward(0.55) : backward(0.55)));
        for (const Model::FaceFlux & flux : model.faceFluxes())
            EXPECT_NEAR(flux.vapor, exact, 1e-4 * std::fabs(exact));
    }
}

/// Radiation between the walls of an air layer beside its conduction: exact series of resistances.
TEST(Model, WallsExchangeRadiationAcrossACavity) {
    const std::vector<double> widths = {0.05, 0.05, 0.01, 0.01, 0.01, 0.05, 0.05};
    ModelInput input = wall(
        widths, {conductor(0.5), conductor(0.025)}, [](double x) { return x > 0.1 && x < 0.13 ? 1u : 0u; }, 290,
        [](std::uint32_t) { return 1e7; });
    input.module = module_t::heat;
    input.radiation.push_back({1, 5, 1e-9, 1e-9, 1, 0.8, 0});
    input.climate = [](double, ModelInput::Loads loads) {
        for (SurfaceLoad & load : loads.surfaces)
            load.hasTemperature = true;
        loads.surfaces[0].airTemperature = 273.15;
        loads.surfaces[1].airTemperature = 303.15;
    };
    Model model(input);
    CvodeIntegrator integrator(model, {}, 0, model.initialState());
    integrator.advance(1e9);
    derivativeOf(model, integrator.state());
    const auto cells = model.cellStates();
    const double radiated =
        0.8 * STEFAN_BOLTZMANN * (std::pow(cells[1].temperature, 4) - std::pow(cells[5].temperature, 4));
    EXPECT_NEAR(model.radiationFluxes()[0], radiated, 1e-6 * std::fabs(radiated));
    EXPECT_LT(radiated, -50);
    // What leaves the wall is what the air layer conducts and what it radiates.
    EXPECT_NEAR(model.faceFluxes()[0].conduction, radiated + model.faceFluxes()[2].conduction, 1e-3);
    EXPECT_NEAR(model.surfaceStates()[0].conduction, -model.surfaceStates()[1].conduction, 1e-3);
}

struct Condensation {
    const char * name;
    MaterialFunctions material;
    double swing; ///< of the vapour pressure over a day
    long steps;   ///< at most
};
void PrintTo(const Condensation & row, std::ostream * out) {
    *out << row.name;
}
class CondensationOn : public testing::TestWithParam<Condensation> {};

/// Vapour that condenses for two months on a surface that cannot take it: water runs off, the steps stay long.
TEST_P(CondensationOn, ASurfaceThatCannotTakeItRunsOff) {
    std::vector<double> widths;
    widths.reserve(40);
    for (int i = 0; i < 40; ++i)
        widths.push_back(1e-3 * std::pow(1.1, i));
    for (const double excess : {1.02, 1.2, 2.0}) {
        ModelInput input = wall(
            widths, {GetParam().material}, [](double) { return 0u; }, T_ZERO + 10,
            [](std::uint32_t) { return suctionAt(0.8); });
        const double swing = GetParam().swing;
        input.climate = [excess, swing](double time, ModelInput::Loads loads) {
            const double pressure = excess * (1 + swing * std::sin(time / 86400 * 6.283185307));
            loads.surfaces[0] = {.heatTransfer = 8,
                                 .airTemperature = T_ZERO + 18,
                                 .vaporTransfer = 5e-8,
                                 .vaporPressure = pressure * saturationPressure(T_ZERO + 14)};
            loads.surfaces[1] = {.heatTransfer = 25,
                                 .airTemperature = T_ZERO + 5,
                                 .vaporTransfer = 2e-7,
                                 .vaporPressure = 0.7 * saturationPressure(T_ZERO + 5)};
        };
        Model model(input);
        CvodeIntegrator integrator(model, {}, 0, model.initialState());
        double runoff = 0;
        std::vector<double> derivative(model.size());
        while (integrator.time() < 60 * 86400.0) {
            integrator.step(60 * 86400.0);
            model.rightHandSide(integrator.time(), integrator.state(), derivative);
            runoff = std::max(runoff, model.surfaceStates()[0].runoff);
            ASSERT_GT(model.surfaceStates()[0].suction, -1e-6);
        }
        EXPECT_GT(runoff, excess > 1.9 ? 1e-6 : -1);
        const IntegratorStatistics s = integrator.statistics();
        EXPECT_LT(s.steps, GetParam().steps) << excess;
        EXPECT_LT(s.nonlinearFailures, s.steps / 15) << excess;
    }
}
INSTANTIATE_TEST_SUITE_P(Model, CondensationOn,
                         testing::Values(Condensation{"DenseMaterial", loadBearing(), 0, 600},
                                         Condensation{"DenseMaterialEveryNight", loadBearing(), 0.5, 14000},
                                         Condensation{"InsulationWithoutLiquid", insulation(), 0, 800},
                                         Condensation{"InsulationEveryNight", insulation(), 0.5, 35000}),
                         [](const auto & row) { return std::string(row.param.name); });

} // namespace
