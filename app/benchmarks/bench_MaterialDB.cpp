// What the user of the material database waits for, with 2000 materials: until they are shown after the first start (2 s)
// and after later ones (0.2 s), and for each key that is pressed in the search field (30 ms); and how long the window
// stands still while a function of 100,000 points is edited (50 ms).
#include "HygSettings.h"
#include "materials/HygMaterialDBWidget.h"
#include "materials/HygMaterialEditor.h"
#include "materials/HygMaterialFunctionPage.h"
#include "materials/HygMaterialPointModel.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

#include <time.h>

namespace {

constexpr int MATERIALS = 2000;
constexpr int MAX_MS = 60000;

/// The materials of the product again and again under other IDs.
void makeDatabase(const QString & directory) {
    QDir().mkpath(directory);
    const QFileInfoList files =
        QDir(QStringLiteral(HYG_SOURCE_DIR "/DB_materials")).entryInfoList({"*.m6"}, QDir::Files);
    for (int i = 0; i < MATERIALS; ++i)
        QFile::copy(files[i % files.size()].filePath(), directory + QStringLiteral("/material_%1.m6").arg(1000 + i));
}

struct Setting {
    Setting() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QApplication>(argc, argv);
        settings.setDefaults();
        makeDatabase(home.filePath("built in"));
    }
    /// A database and its widget, shown; returns when all rows have been painted. \return [s]
    double show() {
        QElapsedTimer timer;
        timer.start();
        widget.reset();
        database = std::make_shared<HygMaterialDB>(HygThreadMaterialDBUpdater::Places{home.filePath("built in"),
                                                                                      home.filePath("user"),
                                                                                      home.filePath("cache")},
                                                   "en");
        widget = std::make_unique<HygMaterialDBWidget>(database);
        widget->resize(1200, 700);
        widget->show();
        if (!QTest::qWaitFor([&] { return database->model().rowCount() == MATERIALS && !database->isScanning(); },
                             MAX_MS))
            return MAX_MS;
        widget->repaint();
        return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    }

    int argc = 1;
    char name[13] = "bench_hygapp";
    char * argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
    HygSettings settings{"KOR", "benchmark"};
    QTemporaryDir home;
    std::shared_ptr<HygMaterialDB> database;
    std::unique_ptr<HygMaterialDBWidget> widget;
};

void materialsFirstShown(benchmark::State & state) {
    Setting setting;
    for (auto _ : state) {
        QFile::remove(setting.home.filePath("cache"));
        state.SetIterationTime(setting.show());
    }
}
BENCHMARK(materialsFirstShown)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void materialsShownAgain(benchmark::State & state) {
    Setting setting;
    setting.show();
    for (auto _ : state)
        state.SetIterationTime(setting.show());
}
BENCHMARK(materialsShownAgain)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

/// Types and deletes a search; the table is painted after each key.
void materialsFiltered(benchmark::State & state) {
    Setting setting;
    setting.show();
    auto & search = *setting.widget->findChild<QLineEdit *>("materialSearch");
    const QString text = QStringLiteral("brick lime m*t");
    double slowest = 0;
    for (auto _ : state)
        for (int i = 1; i <= 2 * text.size(); ++i) {
            QElapsedTimer timer;
            timer.start();
            search.setText(text.left(i <= text.size() ? i : 2 * text.size() - i));
            setting.widget->table().viewport()->repaint();
            slowest = std::max(slowest, static_cast<double>(timer.nsecsElapsed()) * 1e-6);
        }
    state.counters["slowest key [ms]"] = slowest;
}
BENCHMARK(materialsFiltered)->Unit(benchmark::kMillisecond)->Iterations(5);

/// Processor time of this thread [ms]: what the window spends itself, whatever else the machine does.
double threadTime() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// What single steps cost the window's thread, with a function of 100,000 points.
void longTableEdited(benchmark::State & state) {
    Setting setting;
    constexpr int POINTS = 99'999; // one is inserted
    MM::Material material;
    material.read(setting.home.filePath("built in/material_1000.m6").toStdString());
    std::vector<double> x, y;
    for (int i = 0; i < POINTS; ++i) {
        x.push_back(250 + 1e-3 * i);
        y.push_back(1.7 * i);
    }
    material.m_thermalStorage.setFunction(MM::ThermalStorage::Functions::u_T, KOR::LinearSpline(x, y));
    const QString path = setting.home.filePath("user/long_1.m6");
    QDir().mkpath(setting.home.filePath("user"));
    material.write(path.toStdString());
    setting.database = std::make_shared<HygMaterialDB>(
        HygThreadMaterialDBUpdater::Places{setting.home.filePath("built in"), setting.home.filePath("user"),
                                           setting.home.filePath("cache")},
        "en");
    for (auto _ : state) {
        double last = threadTime();
        const auto step = [&](const char * name) {
            state.counters[name] = threadTime() - last;
            QTest::qWait(300); // checks and pictures of the step
            last = threadTime();
        };
        MM::Material copy = material;
        HygMaterialEditor editor(*setting.database, std::move(copy));
        editor.show();
        auto & page = *editor.findChild<HygMaterialFunctionPage *>();
        step("open");
        page.showFunction("u(T)");
        step("choose");
        auto & table = *editor.findChild<QTableView *>("pointTable");
        auto & points = static_cast<HygMaterialPointModel &>(*table.model());
        points.setData(points.index(POINTS / 2, 1), "100000");
        step("cell");
        points.insertAfter(POINTS / 3);
        step("insert");
        points.movePoint(POINTS / 4, points.spline().x()[POINTS / 4], 1, 1e-3, 1e-3, "drag");
        step("drag");
        const QString text = points.text();
        step("copy");
        points.setText(text.left(text.size() - 20));
        step("paste");
        editor.document().undoStack().undo();
        step("undo");
        editor.document().save(path);
        step("save");
    }
}
BENCHMARK(longTableEdited)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
