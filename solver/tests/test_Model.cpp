#include "ReferenceCases.h"

#include <KOR/Exception.h>

using namespace SOLVER;
using namespace reference;

namespace {

TEST(MaterialTable, InvertsItselfAndStaysNearItsFunctions) {
    for (const MaterialFunctions & functions : {loadBearing(), insulation(), constantDiffusivity()}) {
        const MaterialTable table(functions);
        std::uint32_t interval = 0;
        for (double pC = -1; pC < 9.5; pC += 0.0137) {
            const double suction = pascal(pC);
            const double moisture = table.moisture(suction);
            EXPECT_NEAR(moisture, functions.moisture(pC), 2e-4 * table.saturation() + 1e-9) << pC;
            const MaterialTable::State state = table.fromMoisture(moisture, interval);
            EXPECT_NEAR(table.moisture(state.suction), moisture, 1e-9 * table.saturation()) << pC;
            MaterialTable::Slopes slopes{};
            const MaterialTable::State direct = table.fromSuction(suction, slopes);
            // Wetter than the start of the linear extension a material keeps its permeability.
            const double compared =
                moisture < (1 - 2e-4) * table.saturation() ? functions.vaporPermeability(pC) : direct.vapor;
            EXPECT_NEAR(direct.vapor, compared, 2e-3 * direct.vapor) << pC;
            // The derivative of the potential is the conductivity, by differences.
            MaterialTable::Slopes unused{};
            const double step = 1e-4 * suction;
            const double difference = (table.fromSuction(suction - step, unused).potential -
                                       table.fromSuction(suction + step, unused).potential) /
                                      (2 * step);
            EXPECT_NEAR(difference, slopes.liquid, 1e-3 * slopes.liquid + 1e-25) << functions.name << " " << pC;
        }
    }
}

TEST(MaterialTable, StaysRegularWhenOverfilledAndWhenDry) {
    const MaterialTable table(loadBearing());
    std::uint32_t interval = 0;
    const double full = table.fromMoisture(146.0, interval).suction;
    EXPECT_LT(table.fromMoisture(147.0, interval).suction, std::min(full, 0.0));
    EXPECT_NEAR(table.moisture(-1e5), 146, 5);
    EXPECT_GT(table.fromMoisture(0, interval).suction, 1e9);
    EXPECT_GT(table.fromMoisture(-1, interval).suction, 1e9);
    MaterialFunctions broken = loadBearing();
    broken.thermalConductivity = [](double) { return std::nan(""); };
    EXPECT_THROW(MaterialTable{broken}, KOR::Exception);
}

/// Two layers of different conductivity with a contact resistance: the exact steady flux.
TEST(Model, SteadyHeatThroughLayersIsExact) {
    const std::vector<double> widths = {0.02, 0.03, 0.05, 0.01, 0.04};
    for (const double resistance : {0.0, 0.3}) {
        ModelInput input = wall(
            widths, {conductor(0.5), conductor(0.04)}, [](double x) { return x < 0.1 ? 0u : 1u; }, 290,
            [](std::uint32_t) { return 1e7; });
        input.module = module_t::heat;
        input.faces[2].contact.heat = resistance;
        input.climate = [](double, ModelInput::Loads loads) {
            loads.surfaces[0] = {.heatTransfer = 25, .airTemperature = 263.15};
            loads.surfaces[1] = {.heatTransfer = 8, .airTemperature = 293.15};
        };
        Model model(input);
        CvodeIntegrator integrator(model, {}, 0, model.initialState());
        integrator.advance(1e9);
        std::vector<double> derivative(model.size());
        model.rightHandSide(1e9, integrator.state(), derivative);
        const double exact = 30 / (1.0 / 25 + 0.1 / 0.5 + 0.05 / 0.04 + 1.0 / 8 + resistance);
        for (const Model::FaceFlux & flux : model.faceFluxes())
            EXPECT_NEAR(-flux.conduction, exact, 1e-6 * exact);
        EXPECT_NEAR(model.surfaceStates()[1].temperature, 293.15 - exact / 8, 1e-5);
    }
}

/// Glaser's steady case without condensation: vapour flux through resistances in series, a foil among them.
TEST(Model, SteadyVaporThroughLayersAndAFoilIsExact) {
    const std::vector<double> widths(20, 0.01);
    MaterialFunctions dry = conductor(1);
    ModelInput input = wall(
        widths, {dry}, [](double) { return 0u; }, T_REF, [](std::uint32_t) { return suctionAt(0.5); });
    input.module = module_t::moisture;
    input.useReferenceTemperature = true;
    constexpr double FOIL = 2e11; // [m/s]
    input.faces[9].contact = {.vapor = FOIL, .blocksLiquid = true};
    const double pv[] = {0.4 * saturationPressure(T_REF), 0.7 * saturationPressure(T_REF)};
    input.climate = [&pv](double, ModelInput::Loads loads) {
        loads.surfaces[0] = {.vaporTransfer = 1e-8, .vaporPressure = pv[0]};
        loads.surfaces[1] = {.vaporTransfer = 2e-8, .vaporPressure = pv[1]};
    };
    Model model(input);
    CvodeIntegrator integrator(model, {}, 0, model.initialState());
    integrator.advance(1e12);
    std::vector<double> derivative(model.size());
    model.rightHandSide(1e12, integrator.state(), derivative);
    const double exact = (pv[1] - pv[0]) / (1 / 1e-8 + 1 / 2e-8 + 0.2 / 2e-12 + FOIL);
    for (const Model::FaceFlux & flux : model.faceFluxes())
        EXPECT_NEAR(-flux.vapor, exact, 1e-4 * exact);
}

/// Rain, sorption, condensation and heat in two materials: what crosses the surfaces is what the cells gain.
TEST(Model, BalancesOfWaterAndHeatClose) {
    const std::vector<double> widths(30, 0.005);
    ModelInput input = wall(
        widths, {loadBearing(), insulation()}, [](double x) { return x < 0.1 ? 0u : 1u; }, 283,
        [](std::uint32_t) { return suctionAt(0.8); });
    input.climate = [](double time, ModelInput::Loads loads) {
        const double angle = time / 86400 * 6.283185307;
        loads.surfaces[0] = {.heatTransfer = 17,
                             .airTemperature = 278 + 8 * std::sin(angle),
                             .heatFlux = 100,
                             .vaporTransfer = 7e-8,
                             .vaporPressure = 700,
                             .rain = 5e-5,
                             .waterTemperature = 279};
        loads.surfaces[1] = {.heatTransfer = 8, .airTemperature = 293, .vaporTransfer = 2.5e-8, .vaporPressure = 1300};
    };
    Model model(input);
    CvodeIntegrator integrator(model, {}, 0, model.initialState());
    integrator.advance(2 * 86400);
    double water = 0;
    double heat = 0;
    double exchanged = 0;
    for (const Exchange & exchange : integrator.exchanged()) {
        water += exchange.water;
        heat += exchange.heat;
        exchanged += std::fabs(exchange.water);
    }
    EXPECT_GT(exchanged, 0.3);
    const std::vector<double> start = model.initialState();
    EXPECT_NEAR(total(model, integrator.state(), 1) - total(model, start, 1), water, 1e-9 * exchanged);
    EXPECT_NEAR(total(model, integrator.state(), 0) - total(model, start, 0), heat, 1e-9 * std::fabs(heat));
    std::vector<double> derivative(model.size());
    model.rightHandSide(integrator.time(), integrator.state(), derivative);
    EXPECT_GT(model.surfaceStates()[0].runoff, 0); // more rain than the dense material takes
}

/// A symmetric set-up keeps its symmetry whatever solver is used, and all solvers agree.
TEST(Model, SymmetricTwoDimensionalSetUpStaysSymmetric) {
    constexpr std::uint32_t N = 8;
    constexpr double H = 0.01;
    ModelInput input;
    input.materials.emplace_back(loadBearing());
    input.materials.emplace_back(insulation());
    for (std::uint32_t j = 0; j < N; ++j)
        for (std::uint32_t i = 0; i < N; ++i) {
            const std::uint32_t cell = i + N * j;
            input.cells.push_back({H * H, i + j < N - 1 ? 0u : 1u, 285, suctionAt(0.7)});
            if (i > 0)
                input.faces.push_back({cell - 1, cell, H, H / 2, H / 2, 0, {}, 0});
            if (j > 0)
                input.faces.push_back({cell - N, cell, H, H / 2, H / 2, 0, {}, 1});
            if (i == 0)
                input.surfaces.push_back({cell, H, H / 2, 0});
            if (j == 0)
                input.surfaces.push_back({cell, H, H / 2, 1});
        }
    input.climate = [](double, ModelInput::Loads loads) {
        for (SurfaceLoad & load : loads.surfaces)
            load = {.heatTransfer = 8, .airTemperature = 293, .vaporTransfer = 2.5e-8, .vaporPressure = 1900};
    };
    std::vector<double> first;
    struct Choice {
        linearSolver_t solver;
        preconditioner_t preconditioner;
    };
    for (const Choice & choice : {
             Choice{linearSolver_t::dense,    preconditioner_t::automatic       },
             Choice{linearSolver_t::band,     preconditioner_t::automatic       },
             Choice{linearSolver_t::sparse,   preconditioner_t::automatic       },
             Choice{linearSolver_t::gmres,    preconditioner_t::ilu             },
             Choice{linearSolver_t::gmres,    preconditioner_t::adi             },
             Choice{linearSolver_t::gmres,    preconditioner_t::blockTridiagonal},
             Choice{linearSolver_t::bicgstab, preconditioner_t::ilu             },
             Choice{linearSolver_t::gmres,    preconditioner_t::noneWithJacobian}
    }) {
        Model model(input);
        IntegratorSettings settings;
        settings.relativeTolerance = 1e-6;
        settings.linearSolver = choice.solver;
        settings.preconditioner = choice.preconditioner;
        CvodeIntegrator integrator(model, settings, 0, model.initialState());
        integrator.advance(43200);
        const auto state = integrator.state();
        for (std::uint32_t j = 0; j < N; ++j)
            for (std::uint32_t i = 0; i < j; ++i)
                EXPECT_NEAR(state[2 * (i + N * j) + 1], state[2 * (j + N * i) + 1], 0.02);
        if (first.empty())
            first.assign(state.begin(), state.end());
        for (std::size_t i = 0; i < first.size(); ++i)
            EXPECT_NEAR(state[i], first[i], 2e-3 * std::fabs(first[i]) + 1e-3) << static_cast<int>(choice.solver);
    }
    ModelInput plane = input;
    Model model(plane);
    IntegratorSettings settings;
    settings.linearSolver = linearSolver_t::blockTridiagonal;
    EXPECT_THROW(CvodeIntegrator(model, settings, 0, model.initialState()), KOR::Exception);
}

/// Halving the cells twice divides the error by about four each time.
TEST(Model, IsOfSecondOrderInSpace) {
    const auto solution = [](std::size_t cells) {
        const std::vector<double> widths(cells, 0.2 / static_cast<double>(cells));
        ModelInput input = wall(
            widths, {loadBearing()}, [](double) { return 0u; }, 293.15, [](std::uint32_t) { return suctionAt(0.6); });
        input.climate = [](double, ModelInput::Loads loads) {
            loads.surfaces[0] = {
                .heatTransfer = 5, .airTemperature = 303.15, .vaporTransfer = 1e-9, .vaporPressure = 3000};
        };
        Model model(input);
        IntegratorSettings settings;
        settings.relativeTolerance = 1e-8;
        settings.absoluteToleranceMoisture = 1e-9;
        CvodeIntegrator integrator(model, settings, 0, model.initialState());
        integrator.advance(40 * 86400.0);
        return at(0.05, widths, [&](std::size_t i) { return integrator.state()[2 * i + 1]; });
    };
    const double coarse = solution(20);
    const double medium = solution(40);
    const double fine = solution(80);
    const double order = std::log2(std::fabs((coarse - medium) / (medium - fine)));
    EXPECT_GT(order, 1.7);
}

TEST(Model, NeedsCellsWithAVolume) {
    ModelInput input = wall(
        {0.1, 0.1}, {loadBearing()}, [](double) { return 0u; }, 293, [](std::uint32_t) { return 1e7; });
    input.cells[0].volume = 0;
    EXPECT_THROW(Model{input}, KOR::Exception);
}

} // namespace
