// What the user of the material database waits for, with 2000 materials: until they are shown after the first start (2 s)
// and after later ones (0.2 s), and for each key that is pressed in the search field (30 ms).
#include "HygSettings.h"
#include "materials/HygMaterialDBWidget.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

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

} // namespace
