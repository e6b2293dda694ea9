#include <SCI/Chart.h>
#include <SCI/PointModels.h>

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace {

using SCI::Chart;
constexpr QSize WINDOW(1280, 800);

void needApplication() {
    static int argc = 1;
    static char name[] = "bench_SciChart";
    static char * argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(argc, argv);
}

/// A chart on the screen; draw() waits until it has been painted.
struct Shown {
    Shown() {
        needApplication();
        chart = std::make_unique<Chart>();
        chart->resize(WINDOW);
        chart->show();
        QApplication::processEvents();
        canvas = chart->findChild<QWidget *>("canvas");
    }
    void draw() const { canvas->repaint(); }
    std::unique_ptr<Chart> chart;
    QWidget * canvas;
};

/// A noisy course, the worst case: every column of pixels holds the whole range of values.
struct Course {
    explicit Course(std::size_t count) {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> noise(-1, 1);
        for (std::size_t i = 0; i < count; ++i) {
            x.push_back(static_cast<double>(i));
            y.push_back(10 * std::sin(static_cast<double>(i) * 1e-5) + noise(random));
        }
    }
    std::vector<double> x, y;
};

/// All points stay in sight while they are moved; a frame a step.
void panPoints(benchmark::State & state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const Course course(count);
    const Shown shown;
    shown.chart->addLine(std::make_shared<SCI::ArrayModel>(course.x, course.y));
    const auto length = static_cast<double>(count);
    double shift = 0;
    for (auto _ : state) {
        shift = shift > 0.04 * length ? 0 : shift + 0.001 * length;
        shown.chart->setRange(SCI::X_BOTTOM, {-0.05 * length + shift, length + shift});
        shown.draw();
    }
    state.counters["frames/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(panPoints)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();

struct Field : SCI::GridModel {
    explicit Field(std::size_t size) : n(size), values(size * size) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = std::sin(static_cast<double>(i % n) * 0.01) * std::cos(static_cast<double>(i / n) * 0.013);
    }
    std::size_t columns() const override { return n; }
    std::size_t rows() const override { return n; }
    double xEdge(std::size_t i) const override { return static_cast<double>(i); }
    double yEdge(std::size_t j) const override { return static_cast<double>(j); }
    double value(std::size_t i, std::size_t j) const override { return values[j * n + i]; }
    std::size_t n;
    std::vector<double> values;
};

enum style_t { COLORS, NEW_DATA, SMOOTH, ISOLINES };

/// A colour grid of 1000 x 1000 cells drawn anew.
void redrawGrid(benchmark::State & state) {
    const auto style = static_cast<style_t>(state.range(0));
    const Shown shown;
    SCI::GridStyle grid;
    grid.isSmooth = style == SMOOTH;
    grid.hasIsolines = style == ISOLINES;
    const auto id = shown.chart->addGrid(std::make_shared<Field>(1000), grid);
    double shift = 0;
    for (auto _ : state) {
        shift = shift > 50 ? 0 : shift + 1;
        if (style == NEW_DATA)
            shown.chart->dataChanged(id);
        shown.chart->setRange(SCI::X_BOTTOM, {shift, 950 + shift});
        shown.draw();
    }
    constexpr const char * LABELS[] = {"colours", "new values", "smooth", "isolines"};
    state.SetLabel(LABELS[style]);
}
BENCHMARK(redrawGrid)->DenseRange(COLORS, ISOLINES)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
