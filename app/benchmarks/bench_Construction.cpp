// The construction view with many cells: 16 ms a frame are 60 frames a second; opening and showing 1000 x 1000 cells may
// take 2.5 s, a command with its redraw 50 ms at 100,000 cells.
#include "HygDebugApplication.h"
#include "HygSettings.h"
#include "construction/HygConstructionView.h"
#include "document/HygProjectHandler.h"

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QPixmap>
#include <QTemporaryDir>
#include <QUndoStack>

#include <benchmark/benchmark.h>

namespace {

/// A grid of n x n cells, tiled by blocks of 5 x 10 cells of 20 materials; every twentieth block bears an interface.
HYGRION::Project project(std::int64_t n) {
    using HYGRION::Assignment;
    HYGRION::Project p;
    p.m_projectInfo.m_created = "2026-01-01";
    std::vector<double> widths(static_cast<std::size_t>(n));
    for (std::size_t i = 0; i < widths.size(); ++i)
        widths[i] = 1 + 0.1 * static_cast<double>(i % 7);
    p.m_disc.m_xSteps = {widths, KOR::Unit("mm")};
    p.m_disc.m_ySteps = {widths, KOR::Unit("mm")};
    for (unsigned int i = 0; i < 20; ++i)
        p.m_materials.push_back({"Material " + std::to_string(i), KOR::Color::fromRgb(0x405060 + i * 0x060a05),
                                 static_cast<int>(i % 14), KOR::Path("${Project Directory}/materials/a.m6")});
    p.m_conditions.m_interfaces.emplace_back().m_name = "Surface";
    std::uint32_t count = 0;
    for (std::uint32_t j = 0; j + 9 < n; j += 10)
        for (std::uint32_t i = 0; i + 4 < n; i += 5, ++count) {
            const HYGRION::Range range{i, j, 0, i + 4, j + 9, 0};
            p.m_assignments.m_list.emplace_back(Assignment::type_t::Material, Assignment::location_t::Element, range,
                                                "Material " + std::to_string(count * 7 % 20));
            if (count % 20 == 0)
                p.m_assignments.m_list.emplace_back(Assignment::type_t::Interface, Assignment::location_t::Left, range,
                                                    "Surface");
        }
    return p;
}

/// Application, settings and a quiet log for the time of a benchmark.
class Bench {
public:
    explicit Bench(std::int64_t cells) {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        m_settings.setDefaults();
        m_path = m_directory.filePath("grid.h6p");
        KOR::writeFile(m_path.toStdString(), project(cells).text());
    }
    ~Bench() { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }
    Bench(const Bench &) = delete;
    Bench & operator=(const Bench &) = delete;
    const QString & path() const { return m_path; }

private:
    static HygDebugApplication & application() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "bench_hygapp";
        static char * argv[] = {name, nullptr};
        static HygDebugApplication application(argc, argv);
        return application;
    }
    HygDebugApplication & m_application = application();
    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygSettings m_settings{"KOR", "Hygrion benchmark"};
    QString m_path;
};

constexpr QSize WINDOW(1600, 1000);

void paint(HygConstructionView & view) {
    static QPixmap frame(WINDOW);
    QCoreApplication::processEvents(); // layouts
    view.canvas().viewport()->render(&frame);
}

/// A frame while the drawing is moved: everything is drawn anew.
void pannedFrame(benchmark::State & state) {
    const Bench bench(state.range(0));
    HygProjectHandler projects;
    HygConstructionView view(&projects);
    view.resize(WINDOW);
    projects.openProject(bench.path());
    view.show();
    for (std::int64_t n = 0; n < state.range(1); ++n)
        view.canvas().zoomIn();
    int step = 0;
    for (auto _ : state) {
        auto & scene = view.canvas().scene();
        scene.x.setView(scene.x.scale(), scene.x.origin() + (step++ % 2 == 0 ? 3 : -3));
        paint(view);
    }
}
BENCHMARK(pannedFrame)
    ->Unit(benchmark::kMillisecond)
    ->ArgNames({
        "cells", "zoom"
})
    ->ArgsProduct({{100, 1000}, {0, 6, 14}});

/// A frame in which only the selection changes.
void selectedFrame(benchmark::State & state) {
    const Bench bench(state.range(0));
    HygProjectHandler projects;
    HygConstructionView view(&projects);
    view.resize(WINDOW);
    projects.openProject(bench.path());
    view.show();
    std::uint32_t step = 0;
    for (auto _ : state) {
        view.canvas().select({
            {step++ % 50, 0, 0, 60, 60, 0}
        });
        paint(view);
    }
}
BENCHMARK(selectedFrame)->Unit(benchmark::kMillisecond)->ArgName("cells")->Arg(100)->Arg(1000);

/// From the file to the painted view.
void openAndShow(benchmark::State & state) {
    const Bench bench(state.range(0));
    for (auto _ : state) {
        HygProjectHandler projects;
        HygConstructionView view(&projects);
        view.resize(WINDOW);
        projects.openProject(bench.path());
        view.show();
        paint(view);
    }
}
BENCHMARK(openAndShow)->Unit(benchmark::kMillisecond)->ArgName("cells")->Arg(100)->Arg(1000);

/// A command and its undo, each with the redraw.
void command(benchmark::State & state) {
    const Bench bench(state.range(0));
    HygProjectHandler projects;
    HygConstructionView view(&projects);
    view.resize(WINDOW);
    projects.openProject(bench.path());
    view.show();
    bool isUndo = false;
    for (auto _ : state) {
        if (isUndo)
            projects.undoStack().undo();
        else
            view.editor().assign(HYGRION::Assignment::type_t::Material, "Material 3",
                                 {
                                     {3, 3, 0, 40, 40, 0}
            },
                                 HYGRION::Assignment::location_t::Element);
        isUndo = !isUndo;
        paint(view);
    }
}
BENCHMARK(command)->Unit(benchmark::kMillisecond)->ArgName("cells")->Arg(100)->Arg(316)->Arg(1000);

} // namespace
