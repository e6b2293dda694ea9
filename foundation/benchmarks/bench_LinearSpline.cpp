#include <KOR/LinearSpline.h>

#include <benchmark/benchmark.h>
#include <gsl/gsl_interp.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

/// One evaluation a step, over many places in turn; ours and GSL's gsl_interp_eval with accelerator on the same points.
namespace {

constexpr std::size_t PLACES = 1 << 17; ///< too many for the branch predictor to learn by heart

enum spacing_t { EVEN, SCATTERED, CROWDED };
enum order_t { RANDOM, ASCENDING };

struct Case {
    std::vector<double> x, y, places;

    explicit Case(const benchmark::State & state) {
        const auto count = static_cast<std::size_t>(state.range(0));
        std::mt19937 random(1);
        std::uniform_real_distribution<double> unit(0, 1);
        for (std::size_t i = 0; i < count; ++i) {
            const double even = static_cast<double>(i) / static_cast<double>(count - 1);
            const double part = state.range(2) == EVEN ? even : i == 0 ? 0 : i + 1 == count ? 1 : unit(random);
            x.push_back(state.range(2) == CROWDED ? std::pow(10.0, -6 * part) : part);
            y.push_back(unit(random));
        }
        std::sort(x.begin(), x.end());
        for (std::size_t i = 0; i < PLACES; ++i)
            places.push_back(x.front() + (x.back() - x.front()) * unit(random));
        if (state.range(1) == ASCENDING)
            std::sort(places.begin(), places.end());
    }
};

void splineValue(benchmark::State & state) {
    const Case data(state);
    const KOR::LinearSpline spline(data.x, data.y);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(spline.value(data.places[i]));
        i = (i + 1) % PLACES;
    }
}

void gslValue(benchmark::State & state) {
    const Case data(state);
    const std::unique_ptr<gsl_interp, decltype(&gsl_interp_free)> interp(
        gsl_interp_alloc(gsl_interp_linear, data.x.size()), &gsl_interp_free);
    const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> accelerator(gsl_interp_accel_alloc(),
                                                                                          &gsl_interp_accel_free);
    gsl_interp_init(interp.get(), data.x.data(), data.y.data(), data.x.size());
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            gsl_interp_eval(interp.get(), data.x.data(), data.y.data(), data.places[i], accelerator.get()));
        i = (i + 1) % PLACES;
    }
}

void cases(benchmark::internal::Benchmark * benchmark) {
    benchmark->ArgNames({"points", "ascending", "spacing"});
    benchmark->ArgsProduct({
        {10,         100,       10000},
        {RANDOM,     ASCENDING},
        {EVEN, SCATTERED,   CROWDED     }
    });
}

void splineMake(benchmark::State & state) {
    const Case data(state);
    KOR::LinearSpline spline;
    for (auto _ : state)
        spline.setValues(data.x, data.y);
}

} // namespace

BENCHMARK(splineValue)->Apply(cases);
BENCHMARK(gslValue)->Apply(cases);
BENCHMARK(splineMake)->Args({10000, 0, SCATTERED});
