#include "ReferenceCases.h"

#include <SOLVER/AdiIntegrator.h>

#include <KOR/Exception.h>

#include <chrono>

using namespace SOLVER;
using namespace reference;

namespace {

using Extent = std::array<std::uint32_t, 3>;
using I = integrator_t;
using L = linearSolver_t;
using P = preconditioner_t;

/// A block of dense material with a corner of insulation, under rain and air of three surfaces, with a source of heat and
/// water inside and radiation across it.
ModelInput block(const Extent & n) {
    constexpr double H = 0.01;
    ModelInput input;
    input.materials.emplace_back(loadBearing());
    input.materials.emplace_back(insulation());
    std::vector<int> surfaceDirections;
    for (std::uint32_t k = 0; k < n[2]; ++k)
        for (std::uint32_t j = 0; j < n[1]; ++j)
            for (std::uint32_t i = 0; i < n[0]; ++i) {
                const auto cell = static_cast<std::uint32_t>(input.cells.size());
                input.cells.push_back({H * H * H, i + j + k < n[0] - 1 ? 0u : 1u, 285, suctionAt(0.7)});
                const Extent at{i, j, k};
                const Extent stride{1, n[0], n[0] * n[1]};
                for (int d = 0; d < 3; ++d) {
                    const auto axis = static_cast<std::size_t>(d);
                    if (at[axis] > 0)
                        input.faces.push_back({cell - stride[axis], cell, H * H, H / 2, H / 2, 0, {}, d});
                    else if (n[axis] > 1)
                        input.surfaces.push_back({cell, H * H, H / 2, d});
                }
            }
    input.loadedCells = {2};
    if (n[1] > 1)
        input.radiation.push_back({0, n[0] - 1, H / 2, H / 2, H * H, 0.8, 0});
    input.climate = [](double time, ModelInput::Loads loads) {
        for (SurfaceLoad & load : loads.surfaces)
            load = {.heatTransfer = 8,
                    .airTemperature = 293 + 3 * std::sin(time / 8000),
                    .vaporTransfer = 2.5e-8,
                    .vaporPressure = 1700,
                    .rain = 1e-7};
        loads.cells[0].heat = 500;
        loads.cells[0].water = 1e-5;
    };
    return input;
}

struct Choice {
    const char * name;
    integrator_t integrator;
    linearSolver_t solver;
    preconditioner_t preconditioner = preconditioner_t::automatic;
    double relativeTolerance = 1e-5;
    bool isForLinesOnly = false;
};
void PrintTo(const Choice & choice, std::ostream * out) {
    *out << choice.name;
}
class EveryChoice : public testing::TestWithParam<std::tuple<Choice, Extent>> {};

/// Whatever carries the model through time: the result is the same, and what the cells gain is what came in.
TEST_P(EveryChoice, GivesTheSameStateAndClosesTheBalances) {
    constexpr double END = 21600;
    const auto & [choice, extent] = GetParam();
    IntegratorSettings settings;
    settings.relativeTolerance = 1e-8;
    settings.linearSolver = linearSolver_t::dense;
    Model model(block(extent));
    CvodeIntegrator reference(model, settings, 0, model.initialState());
    reference.advance(END);
    const std::vector<double> exact(reference.state().begin(), reference.state().end());

    settings.integrator = choice.integrator;
    settings.linearSolver = choice.solver;
    settings.preconditioner = choice.preconditioner;
    settings.relativeTolerance = choice.relativeTolerance;
    if (choice.isForLinesOnly && extent[1] > 1) {
        EXPECT_THROW(makeIntegrator(model, settings, 0, model.initialState()), KOR::Exception);
        return;
    }
    const auto integrator = makeIntegrator(model, settings, 0, model.initialState());
    std::vector<double> middle(model.size());
    while (integrator->time() < END) {
        const double from = integrator->time();
        const std::vector<double> before(integrator->state().begin(), integrator->state().end());
        integrator->step(END);
        if (from > 0 && integrator->time() - from > 10) {
            integrator->interpolate((from + integrator->time()) / 2, middle);
            const double mean = (before[0] + integrator->state()[0]) / 2;
            ASSERT_NEAR(middle[0], mean, 0.02 * std::fabs(mean) + 0.5 * std::fabs(before[0] - integrator->state()[0]));
        }
    }
    const auto state = integrator->state();
    const std::vector<double> scales = model.scales();
    for (std::size_t i = 0; i < exact.size(); ++i) // of some 10 K and 1 kg/m3 that changed
        EXPECT_NEAR(state[i], exact[i], (i % 2 == 0 ? 4e-3 : 4e-2) * scales[i]) << i;

    for (std::size_t u = 0; u < 2; ++u) {
        double cameIn = 0;
        double exchanged = 0;
        for (const Exchange & exchange : integrator->exchanged()) {
            const double value = u == 0 ? exchange.heat : exchange.water;
            cameIn += value;
            exchanged += std::fabs(value);
        }
        const double gained = total(model, state, u) - total(model, model.initialState(), u);
        EXPECT_NEAR(gained, cameIn, (u == 0 ? 1e-4 : 1e-6) * exchanged);
        EXPECT_GT(exchanged, u == 0 ? 10 : 1e-6);
    }
    const IntegratorStatistics s = integrator->statistics();
    EXPECT_GT(s.steps, 10);
    EXPECT_GT(s.rightHandSides, s.steps);
    EXPECT_LT(integrator->limitingUnknown(), model.size() + 1);
}

INSTANTIATE_TEST_SUITE_P(
    Integrator, EveryChoice,
    testing::Combine(
        testing::Values(Choice{"Auto", I::automatic, L::automatic},
                        Choice{"BlockTridiagonal", I::cvode, L::blockTridiagonal, P::automatic, 1e-5, true},
                        Choice{"Band", I::cvode, L::band}, Choice{"Dense", I::cvode, L::dense},
                        Choice{"Klu", I::cvode, L::sparse}, Choice{"GmresIlu", I::cvode, L::gmres, P::ilu},
                        Choice{"GmresBand", I::cvode, L::gmres, P::band},
                        Choice{"GmresLines", I::cvode, L::gmres, P::blockTridiagonal},
                        Choice{"GmresAdi", I::cvode, L::gmres, P::adi},
                        Choice{"GmresJacobian", I::cvode, L::gmres, P::noneWithJacobian},
                        Choice{"GmresAlone", I::cvode, L::gmres, P::none},
                        Choice{"BicgstabIlu", I::cvode, L::bicgstab, P::ilu},
                        Choice{"BicgstabAdi", I::cvode, L::bicgstab, P::adi},
                        Choice{"ImplicitEuler", I::implicitEuler, L::automatic, P::automatic, 1e-6},
                        Choice{"ImplicitEulerGmres", I::implicitEuler, L::gmres, P::automatic, 1e-6},
                        Choice{"ExplicitEuler", I::explicitEuler, L::automatic, P::automatic, 1e-6},
                        Choice{"RungeKutta", I::rungeKutta, L::automatic}, Choice{"Adi", I::adi, L::automatic}),
        testing::Values(Extent{12, 1, 1}, Extent{6, 5, 1}, Extent{4, 3, 3})),
    [](const auto & row) {
        return std::string(std::get<0>(row.param).name) + (std::get<1>(row.param)[2] > 1   ? "In3D"
                                                           : std::get<1>(row.param)[1] > 1 ? "In2D"
                                                                                           : "In1D");
    });

/// Numbers that are none and temperatures that no construction has end a calculation at once, with the reason.
TEST(Integrator, StopsAtImpossibleStates) {
    struct Fault {
        const char * name;
        double flux; ///< [W/m2] from 100 s on
    };
    for (const Fault & fault : {
             Fault{"NaN",      std::nan("")},
             Fault{"infinite", HUGE_VAL    },
             Fault{"cold",     -1e7        },
             Fault{"hot",      1e7         }
    })
        for (const I integrator : {I::cvode, I::implicitEuler, I::explicitEuler, I::rungeKutta, I::adi}) {
            ModelInput input = block({5, 1, 1});
            input.climate = [&fault, ofAll = input.climate](double time, ModelInput::Loads loads) {
                ofAll(time, loads);
                loads.surfaces[0].heatFlux = time > 100 ? fault.flux : 0;
            };
            Model model(input);
            IntegratorSettings settings;
            settings.integrator = integrator;
            const auto running = makeIntegrator(model, settings, 0, model.initialState());
            const auto start = std::chrono::steady_clock::now();
            try {
                running->advance(1e5);
                ADD_FAILURE() << fault.name << " went on to " << running->time();
            } catch (const KOR::Exception & ex) {
                // What is finite may also show as a step that cannot be made small enough.
                EXPECT_TRUE(
                    ex.message().find("not finite or impossible temperatures") != std::string::npos ||
                    (std::isfinite(fault.flux) && ex.message().find("with the smallest step") != std::string::npos))
                    << fault.name << ": " << ex.message();
            }
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
            EXPECT_GT(running->time(), 50);
            EXPECT_LT(running->time(), 2000);
        }
}

/// The error of alternating directions falls with the tolerance, in proportion or faster.
TEST(AdiIntegrator, FollowsItsTolerance) {
    Model model(block({6, 5, 1}));
    IntegratorSettings settings;
    settings.relativeTolerance = 1e-9;
    CvodeIntegrator reference(model, settings, 0, model.initialState());
    reference.advance(3600);
    double before = 1e300;
    for (const double tolerance : {1e-4, 1e-5, 1e-6}) {
        settings.relativeTolerance = tolerance;
        AdiIntegrator integrator(model, settings, 0, model.initialState());
        integrator.advance(3600);
        double error = 0;
        for (std::size_t i = 0; i < model.size(); i += 2)
            error = std::max(error, std::fabs(integrator.state()[i] - reference.state()[i]));
        EXPECT_LT(error, before / 3) << tolerance;
        before = error;
    }
}

/// A plate or block of insulation with thin cells and a bridge of metal through it, from its start to where nothing changes.
ModelInput bridge(const Extent & n) {
    ModelInput input;
    input.module = module_t::heat;
    input.materials.emplace_back(conductor(0.03));
    input.materials.emplace_back(conductor(230));
    const auto width = [&n](std::uint32_t i, std::size_t axis) { return n[axis] > 1 && i == 1 ? 0.0005 : 0.02; };
    for (std::uint32_t k = 0; k < n[2]; ++k)
        for (std::uint32_t j = 0; j < n[1]; ++j)
            for (std::uint32_t i = 0; i < n[0]; ++i) {
                const auto cell = static_cast<std::uint32_t>(input.cells.size());
                const Extent at{i, j, k};
                const std::array w{width(i, 0), width(j, 1), width(k, 2)};
                const double volume = w[0] * w[1] * w[2];
                input.cells.push_back({volume, i == n[0] / 2 && j < n[1] - 2 ? 1u : 0u, 283, 1e7});
                const Extent stride{1, n[0], n[0] * n[1]};
                for (std::size_t d = 0; d < 3; ++d)
                    if (at[d] > 0)
                        input.faces.push_back({cell - stride[d],
                                               cell,
                                               volume / w[d],
                                               width(at[d] - 1, d) / 2,
                                               w[d] / 2,
                                               0,
                                               {},
                                               static_cast<int>(d)});
                if (j == 0 || j == n[1] - 1)
                    input.surfaces.push_back({cell, volume / w[1], w[1] / 2, 1});
            }
    input.climate = [columns = n[0]](double, ModelInput::Loads loads) {
        for (std::size_t s = 0; s < loads.surfaces.size(); ++s) {
            const bool isOutside = s / columns % 2 == 0;
            loads.surfaces[s].heatTransfer = isOutside ? 25 : 8;
            loads.surfaces[s].airTemperature = isOutside ? 263.15 : 293.15;
        }
    };
    return input;
}

/// Heat flows steadily through metal and insulation alike, whatever solves for it; on the way there every solve takes a few
/// iterations, and no noise of the Jacobian holds the steps up.
TEST(LinearSolvers, ReachTheSteadyStateOfABridge) {
    for (const Extent & extent : {
             Extent{50, 42, 1 },
             Extent{14, 13, 12}
    }) {
        const ModelInput input = bridge(extent);
        std::vector<double> found;
        for (const linearSolver_t solver : {L::automatic, L::sparse}) {
            Model model(input);
            IntegratorSettings settings;
            settings.linearSolver = solver;
            CvodeIntegrator integrator(model, settings, 0, model.initialState());
            integrator.advance(1e9);
            const IntegratorStatistics s = integrator.statistics();
            EXPECT_LT(s.steps, 320);
            EXPECT_LT(s.linearIterations, 4 * s.nonlinearIterations);
            EXPECT_LT(s.nonlinearFailures + s.errorTestFailures, 15);
            EXPECT_LE(s.nonlinearFailures, 1); // what keeps the sums does not take the solution away
            std::vector<double> derivative(model.size());
            ASSERT_TRUE(model.rightHandSide(1e9, integrator.state(), derivative));
            double in = 0;
            double out = 0;
            for (const Exchange & exchange : model.exchangeRates())
                (exchange.heat > 0 ? in : out) += exchange.heat;
            EXPECT_NEAR(in, -out, 1e-5 * in);
            found.push_back(in);
        }
        EXPECT_NEAR(found[0], found[1], 1e-5 * found[1]);
    }
}

/// More fill-in, fewer iterations, down to those of an exact factorisation; too much of it is refused.
TEST(LinearSolvers, IncompleteFactorsFollowTheirFill) {
    IntegratorSettings settings;
    settings.linearSolver = L::gmres;
    settings.preconditioner = P::ilu;
    long before = std::numeric_limits<long>::max();
    for (const int fill : {0, 1, 3, 1000}) {
        settings.preconditionerFill = fill;
        Model model(block({20, 22, 1}));
        CvodeIntegrator integrator(model, settings, 0, model.initialState());
        integrator.advance(7200);
        const IntegratorStatistics s = integrator.statistics();
        EXPECT_LT(s.linearIterations, before) << fill;
        before = s.linearIterations;
        EXPECT_LT(2 * s.linearIterations, (fill == 1000 ? 3 : 20) * s.nonlinearIterations) << fill;
    }
    Model large(block({54, 56, 1}));
    EXPECT_THROW(CvodeIntegrator(large, settings, 0, large.initialState()), KOR::Exception);
}

/// A ring of cells, as coupled surfaces make one, is no line: all of it is solved for.
TEST(LinearSolvers, CloseRings) {
    std::vector<double> found;
    for (const linearSolver_t solver : {L::dense, L::automatic, L::gmres}) {
        ModelInput input = wall(
            std::vector<double>(10, 0.01), {conductor(0.5)}, [](double) { return 0u; }, 290,
            [](std::uint32_t) { return 1e7; });
        input.module = module_t::heat;
        input.cells[3].temperature = 320;
        input.faces.push_back({9, 0, 1, 0.005, 0.005, 0, {}, 0});
        Model model(input);
        IntegratorSettings settings;
        settings.linearSolver = solver;
        settings.preconditioner = solver == L::gmres ? P::adi : P::automatic;
        CvodeIntegrator integrator(model, settings, 0, model.initialState());
        integrator.advance(3600);
        if (found.empty())
            found.assign(integrator.state().begin(), integrator.state().end());
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_NEAR(integrator.state()[i], found[i], 1e-3 * std::fabs(found[i]));
        EXPECT_NEAR(integrator.state()[2], integrator.state()[4], 1e-4 * integrator.state()[2]);
        EXPECT_NEAR(integrator.state()[9], integrator.state()[7], 1e-4 * integrator.state()[7]);
    }
}

} // namespace
