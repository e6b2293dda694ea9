#include "../tests/ReferenceCases.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <fstream>
#include <random>
#include <sstream>

/// Whole calculations, each from the model's arrays to the last state. The counter "kB" is the memory of model and
/// integrator per cell, "failures" are steps that were tried again.

using namespace SOLVER;
using namespace reference;

namespace {

constexpr double DAY = 86400;

/// Masonry that takes up rain.
MaterialFunctions brick() {
    const auto w = [](double pC) { return 300 / std::pow(1 + std::pow(2e-5 * pascal(pC), 1.7), 0.41); };
    return {"brick",
            1.5e6,
            w,
            [w](double pC) { return 1e-8 * std::pow(w(pC) / 300, 6); },
            [w](double pC) { return permeability(12, w(pC), 320); },
            [w](double pC) { return 0.7 + 0.003 * w(pC); }};
}

/// Inside insulation that conducts liquid.
MaterialFunctions insideInsulation() {
    const auto w = [](double pC) { return 800 / std::pow(1 + std::pow(4e-6 * pascal(pC), 1.6), 0.375); };
    return {"inside insulation",
            3e5,
            w,
            [w](double pC) { return 3e-9 * std::pow(w(pC) / 800, 5); },
            [w](double pC) { return permeability(4, w(pC), 850); },
            [w](double pC) { return 0.06 + 6e-4 * w(pC); }};
}

std::vector<double> refined(double thickness, int cells, double growth) {
    std::vector<double> widths;
    double sum = 0;
    for (int i = 0; i < cells; ++i) {
        widths.push_back(std::min(30.0, std::pow(growth, std::min(i, cells - 1 - i))));
        sum += widths.back();
    }
    for (double & width : widths)
        width *= thickness / sum;
    return widths;
}

/// A year of weather: days, seasons and a noise that lasts for days; rain in showers of whole hours.
struct Weather {
    struct Hour {
        double temperature, vapor, shortWave, rain;
    };
    std::vector<Hour> hours;
    std::vector<double> jumps; ///< [s]

    Weather() {
        std::mt19937 random(7);
        std::normal_distribution<double> normal;
        double noise = 0;
        int shower = 0;
        for (int h = 0; h <= 8760; ++h) {
            noise = 0.985 * noise + 0.7 * normal(random);
            const double season = -std::cos(2 * M_PI * h / 8760);
            const double day = -std::cos(2 * M_PI * h / 24);
            const double temperature = T_ZERO + 9 + 9 * season + 3 * day + noise;
            if (shower == 0 && random() % 60 == 0)
                shower = 1 + static_cast<int>(random() % 6);
            const double rain = shower > 0 ? 1e-4 * (1 + static_cast<double>(random() % 10)) / 5 : 0;
            shower = std::max(0, shower - 1);
            const double humidity = std::min(0.98, 0.78 - 0.12 * day + 0.03 * normal(random) + (rain > 0 ? 0.15 : 0.0));
            hours.push_back({temperature, humidity * saturationPressure(temperature),
                             std::max(0.0, day * (300 + 150 * season)), rain});
            if (h > 0 && std::fabs(hours[hours.size() - 2].rain - rain) > 0)
                jumps.push_back(h * 3600.0);
        }
    }
    void outside(double time, SurfaceLoad & load) const {
        const double hour = std::min(time / 3600, 8759.999999);
        const auto i = static_cast<std::size_t>(hour);
        const double share = hour - static_cast<double>(i);
        const auto between = [&](double Hour::*value) {
            return (1 - share) * hours[i].*value + share * hours[i + 1].*value;
        };
        load.heatTransfer = 17;
        load.airTemperature = between(&Hour::temperature);
        load.shortWave = 0.6 * between(&Hour::shortWave);
        load.vaporTransfer = 7e-8;
        load.vaporPressure = between(&Hour::vapor);
        load.rain = hours[i].rain;
        load.waterTemperature = load.airTemperature;
    }
    static void inside(SurfaceLoad & load) {
        load.heatTransfer = 8;
        load.airTemperature = T_ZERO + 20;
        load.vaporTransfer = 2.5e-8;
        load.vaporPressure = 0.5 * saturationPressure(T_ZERO + 20);
    }
};
const Weather & weather() {
    static const Weather it;
    return it;
}

/// Carries a model to the end, starting anew at each jump.
void calculate(benchmark::State & counters, const ModelInput & input, const IntegratorSettings & settings, double end,
               const std::vector<double> & jumps = {}) {
    for (auto _ : counters) {
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        Model model(input);
        const auto integrator = makeIntegrator(model, settings, 0, model.initialState());
        integrator->step(1e-3);
        const std::size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
        for (const double jump : jumps) {
            if (jump >= end)
                break;
            integrator->advance(jump);
            integrator->restart();
        }
        integrator->advance(end);
        const IntegratorStatistics s = integrator->statistics();
        counters.counters["steps"] = static_cast<double>(s.steps);
        counters.counters["rhs"] = static_cast<double>(s.rightHandSides);
        counters.counters["jacobians"] = static_cast<double>(s.jacobians);
        counters.counters["newton"] = static_cast<double>(s.nonlinearIterations);
        counters.counters["krylov"] = static_cast<double>(s.linearIterations);
        counters.counters["failures"] = static_cast<double>(s.nonlinearFailures + s.errorTestFailures);
        counters.counters["kB"] = static_cast<double>(after - before) / 1000 / static_cast<double>(model.cellCount());
    }
}

void halfSpace(benchmark::State & counters) {
    std::vector<double> widths;
    double end = 0;
    for (double width = 5e-4; end<30; width *= end> 0.12 ? 1.1 : 1) {
        widths.push_back(width);
        end += width;
    }
    ModelInput input = wall(
        widths, {loadBearing()}, [](double) { return 0u; }, T_REF, [](std::uint32_t) { return suctionAt(0.5); });
    input.useReferenceTemperature = true;
    input.climate = [](double, ModelInput::Loads loads) {
        loads.surfaces[0].hasTemperature = loads.surfaces[0].hasSuction = true;
        loads.surfaces[0].airTemperature = 303.15;
        loads.surfaces[0].suction = suctionAt(0.95);
    };
    calculate(counters, input, {}, 365 * DAY);
}
BENCHMARK(halfSpace)->Name("EN15026/365d/target_0.1s")->Unit(benchmark::kMillisecond);

void drying(benchmark::State & counters) {
    ModelInput input = wall(
        std::vector<double>(200, 0.001), {constantDiffusivity()}, [](double) { return 0u; }, T_REF,
        [](std::uint32_t) { return suctionAt(0.95); });
    input.module = module_t::moisture;
    input.climate = [](double, ModelInput::Loads loads) {
        for (SurfaceLoad & load : loads.surfaces)
            load.vaporTransfer = 1e-3;
        loads.surfaces[0].vaporPressure = 0.45 * saturationPressure(T_REF);
        loads.surfaces[1].vaporPressure = 0.65 * saturationPressure(T_REF);
    };
    calculate(counters, input, {}, 1000 * 3600);
}
BENCHMARK(drying)->Name("HAMSTAD2/1000h/200cells/target_0.09s")->Unit(benchmark::kMillisecond);

void roof(benchmark::State & counters) {
    std::ifstream file(std::string(HYG_SOURCE_DIR) + "/../shared/benchmarks/data/hamstad_bm1_climate.csv");
    if (!file) {
        counters.SkipWithError("no climate of the insulated roof beside the repository");
        return;
    }
    std::vector<std::array<double, 2>> climate;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        std::array<double, 5> value{};
        for (double & v : value) {
            std::string field;
            std::getline(fields, field, ',');
            v = std::stod(field);
        }
        climate.push_back({value[1] + T_ZERO, value[4]});
    }
    std::vector<double> widths = refined(0.1, 40, 1.3);
    for (const double width : refined(0.05, 20, 1.3))
        widths.push_back(width);
    ModelInput input = wall(
        widths, {loadBearing(), insulation()}, [](double x) { return x < 0.1 ? 0u : 1u; }, T_ZERO + 10,
        [](std::uint32_t material) {
            return material == 0 ? 0.125e8 * std::pow(std::pow(146 / 145.0, 1 / 0.375) - 1, 0.625)
                                 : 5000 * std::sqrt(std::pow(900 / 0.065, 2) - 1);
        });
    input.useReferenceTemperature = true;
    input.climate = [&climate](double time, ModelInput::Loads loads) {
        const double hour = std::fmod(time / 3600, 8760);
        const auto i = static_cast<std::size_t>(hour);
        const double share = hour - static_cast<double>(i);
        const auto between = [&](std::size_t k) {
            return (1 - share) * climate[i][k] + share * climate[std::min<std::size_t>(i + 1, 8760)][k];
        };
        loads.surfaces[0].heatTransfer = 25;
        loads.surfaces[0].airTemperature = between(0);
        loads.surfaces[1].heatTransfer = 7;
        loads.surfaces[1].airTemperature = T_ZERO + 20;
        loads.surfaces[1].vaporTransfer = 2e-8;
        loads.surfaces[1].vaporPressure = between(1);
    };
    IntegratorSettings settings;
    settings.relativeTolerance = 1e-4;
    settings.maxStep = 3600;
    calculate(counters, input, settings, 365 * DAY);
}
BENCHMARK(roof)->Name("HAMSTAD1/1year/60cells/target_3s")->Unit(benchmark::kMillisecond)->Iterations(1);

ModelInput threeLayers() {
    std::vector<double> widths = refined(0.36, 50, 1.2);
    for (const double width : refined(0.08, 34, 1.2))
        widths.push_back(width);
    for (const double width : refined(0.015, 16, 1.2))
        widths.push_back(width);
    return wall(
        widths, {brick(), insideInsulation(), loadBearing()},
        [](double x) { return x < 0.36   ? 0u
                              : x < 0.44 ? 1u
                                         : 2u; }, T_ZERO + 15,
        [](std::uint32_t) { return suctionAt(0.8); });
}

void insideInsulated(benchmark::State & counters) {
    ModelInput input = threeLayers();
    input.climate = [](double, ModelInput::Loads loads) {
        Weather::inside(loads.surfaces[1]);
        loads.surfaces[0] = {.heatTransfer = 25,
                             .airTemperature = T_ZERO - 5,
                             .vaporTransfer = 2e-7,
                             .vaporPressure = 0.8 * saturationPressure(T_ZERO - 5)};
    };
    calculate(counters, input, {}, 60 * DAY);
}
BENCHMARK(insideInsulated)->Name("ThreeLayers/60d/100cells/target_0.1s")->Unit(benchmark::kMillisecond);

void rainyYear(benchmark::State & counters) {
    ModelInput input = threeLayers();
    input.climate = [](double time, ModelInput::Loads loads) {
        weather().outside(time, loads.surfaces[0]);
        Weather::inside(loads.surfaces[1]);
    };
    IntegratorSettings settings;
    settings.relativeTolerance = 1e-4;
    settings.maxStep = 3600;
    calculate(counters, input, settings, static_cast<double>(counters.range(0)) * DAY, weather().jumps);
}
BENCHMARK(rainyYear)->Name("RainyYear/100cells/target_4s")->Unit(benchmark::kMillisecond)->Iterations(1)->Arg(365);

/// A corner: masonry outside, insulation inside, refined towards surfaces and the interface.
void corner(benchmark::State & counters) {
    const auto n = static_cast<std::uint32_t>(counters.range(0));
    std::vector<double> widths = refined(0.3, static_cast<int>(n) * 6 / 10, 1.0 + 10.0 / n);
    for (const double width : refined(0.1, static_cast<int>(n) - static_cast<int>(n) * 6 / 10, 1.0 + 10.0 / n))
        widths.push_back(width);
    ModelInput input;
    input.materials.emplace_back(brick());
    input.materials.emplace_back(insideInsulation());
    std::vector<bool> isOutside;
    for (std::uint32_t j = 0; j < n; ++j)
        for (std::uint32_t i = 0; i < n; ++i) {
            const std::uint32_t cell = i + n * j;
            const bool isBrick = i < n * 6 / 10 || j < n * 6 / 10;
            input.cells.push_back({widths[i] * widths[j], isBrick ? 0u : 1u, T_ZERO + 12, suctionAt(0.8)});
            if (i > 0)
                input.faces.push_back({cell - 1, cell, widths[j], widths[i - 1] / 2, widths[i] / 2, 0, {}, 0});
            if (j > 0)
                input.faces.push_back({cell - n, cell, widths[i], widths[j - 1] / 2, widths[j] / 2, 0, {}, 1});
            const auto surface = [&](double area, double distance, int direction, bool outside) {
                input.surfaces.push_back({cell, area, distance, direction});
                isOutside.push_back(outside);
            };
            if (i == 0)
                surface(widths[j], widths[i] / 2, 0, true);
            if (j == 0)
                surface(widths[i], widths[j] / 2, 1, true);
            if (i == n - 1 && j > n * 8 / 10)
                surface(widths[j], widths[i] / 2, 0, false);
            if (j == n - 1 && i > n * 8 / 10)
                surface(widths[i], widths[j] / 2, 1, false);
        }
    input.climate = [&isOutside](double time, ModelInput::Loads loads) {
        SurfaceLoad outside;
        SurfaceLoad inside;
        weather().outside(time, outside);
        Weather::inside(inside);
        for (std::size_t s = 0; s < loads.surfaces.size(); ++s)
            loads.surfaces[s] = isOutside[s] ? outside : inside;
    };
    IntegratorSettings settings;
    settings.relativeTolerance = 1e-4;
    settings.maxStep = 3600;
    calculate(counters, input, settings, static_cast<double>(counters.range(1)) * DAY, weather().jumps);
}
BENCHMARK(corner)
    ->Name("Corner2D/target_12s_for_100x100")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Args({25, 3})
    ->Args({50, 3})
    ->Args({100, 3})
    ->Args({200, 3});
BENCHMARK(corner)->Name("Corner2D/year/target_20min")->Unit(benchmark::kSecond)->Iterations(1)->Args({100, 365});

/// Steady heat through a plate or a block of many cells with a metal bridge in it.
void steadyHeat(benchmark::State & counters) {
    const auto n = static_cast<std::uint32_t>(counters.range(0));
    const std::uint32_t depth = counters.range(1) == 3 ? n : 1;
    const double h = 1.0 / n;
    const double d = depth > 1 ? h : 1;
    ModelInput input;
    input.module = module_t::heat;
    input.materials.emplace_back(conductor(0.04));
    input.materials.emplace_back(conductor(50));
    std::vector<bool> isOutside;
    for (std::uint32_t k = 0; k < depth; ++k)
        for (std::uint32_t j = 0; j < n; ++j)
            for (std::uint32_t i = 0; i < n; ++i) {
                const std::uint32_t cell = i + n * (j + n * k);
                const bool isBridge = i >= n / 2 && i <= n / 2 + n / 20 && k <= depth / 2;
                input.cells.push_back({h * h * d, isBridge ? 1u : 0u, 283, 1e7});
                if (i > 0)
                    input.faces.push_back({cell - 1, cell, h * d, h / 2, h / 2, 0, {}, 0});
                if (j > 0)
                    input.faces.push_back({cell - n, cell, h * d, h / 2, h / 2, 0, {}, 1});
                if (k > 0)
                    input.faces.push_back({cell - n * n, cell, h * h, h / 2, h / 2, 0, {}, 2});
                if (j == 0 || j == n - 1) {
                    input.surfaces.push_back({cell, h * d, h / 2, 1});
                    isOutside.push_back(j == 0);
                }
            }
    input.climate = [&isOutside](double, ModelInput::Loads loads) {
        for (std::size_t s = 0; s < loads.surfaces.size(); ++s) {
            loads.surfaces[s].heatTransfer = isOutside[s] ? 25 : 8;
            loads.surfaces[s].airTemperature = isOutside[s] ? 263.15 : 293.15;
        }
    };
    calculate(counters, input, {}, 1e10);
}
BENCHMARK(steadyHeat)
    ->Name("SteadyHeat/target_10s_for_100000_cells")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Args({100, 2})
    ->Args({316, 2})
    ->Args({22, 3})
    ->Args({46, 3});

} // namespace
