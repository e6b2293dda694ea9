// Results of 1 GB: the first chart has to be there in 0.5 s, the time bar over a field of 100,000 cells to give 20 pictures
// a second, and the memory to hold what is shown, not what is in the file. Files are read from the disk, not from its cache.
#include "HygDebugApplication.h"
#include "HygSettings.h"
#include "document/HygProjectHandler.h"
#include "results/HygResultTree.h"
#include "results/HygResultsView.h"
#include "results/HygTimeBar.h"

#include <DATAIO/DataWriter.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

namespace {

constexpr QSize WINDOW(1600, 1000);
constexpr double FILE_SIZE = 1e9; ///< [bytes]
constexpr int MAX_MS = 60000;
constexpr double MB = 1e6;

struct Kind {
    const char * name;
    std::size_t columns, rows;
};
constexpr Kind KINDS[] = {
    {"Field",   400, 250},
    {"Profile", 100, 1  },
    {"Course",  1,   1  },
};
enum kind_t { Field, Profile, Course };

/// Writes a file of 1 GB with its geometry.
QString write(const QString & folder, const Kind & kind) {
    DATAIO::GeoFile geometry;
    geometry.m_materials = {
        {1, 0xff336699, "Brick"}
    };
    geometry.setGrid({std::vector(kind.columns, 0.002), std::vector(kind.rows, 0.002), {1.0}});
    const std::size_t cells = kind.columns * kind.rows;
    geometry.makeTables(std::vector<std::uint32_t>(cells, 1));
    const std::string name = std::string(kind.name) + ".h6g";
    geometry.write(folder.toStdString() + '/' + name, true);
    DATAIO::DataHeader header;
    header.geoFile = name;
    header.geoFileHash = DATAIO::GeoFile::hash(KOR::readFile(folder.toStdString() + '/' + name, 1u << 28));
    header.quantity = header.quantityKeyword = "Temperature";
    header.valueUnit = "C";
    header.timeUnit = "h";
    header.created = "2026-01-31 12:00:00";
    for (std::uint32_t i = 0; i < cells; ++i)
        header.indices.push_back(i);
    const QString path = folder + '/' + kind.name + ".h6b";
    DATAIO::DataWriter writer(path.toStdString(), header, true);
    std::vector<double> values(cells);
    const auto records = static_cast<int>(FILE_SIZE / static_cast<double>(sizeof(double) * (1 + cells)));
    for (int t = 0; t < records; ++t) {
        for (std::size_t i = 0; i < cells; ++i)
            values[i] = 10 + static_cast<double>((7 * i + 13 * static_cast<std::size_t>(t)) % 1009) / 100;
        writer.append(t, values);
    }
    writer.flush();
    return path;
}

/// Files and program, made once.
class Bench {
public:
    static Bench & instance() {
        static Bench bench;
        return bench;
    }
    const QString & path(kind_t kind) {
        if (m_paths[kind].isEmpty())
            m_paths[kind] = write(m_folder.filePath("wall/results"), KINDS[kind]);
        // What is in memory of it has to be read again.
        const int file = ::open(m_paths[kind].toLocal8Bit().constData(), O_RDONLY);
        ::fsync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
        return m_paths[kind];
    }
    QString project() const { return m_folder.filePath("wall.h6p"); }

private:
    Bench() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        settings().setDefaults();
        QDir(m_folder.path()).mkpath("wall/results");
        HYGRION::Project project;
        project.m_projectInfo.m_created = "2026-01-01";
        KOR::writeFile(this->project().toStdString(), project.text());
    }
    static HygSettings & settings() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "bench_hygapp";
        static char * argv[] = {name, nullptr};
        if (QCoreApplication::instance() == nullptr)
            new HygDebugApplication(argc, argv); // outlives all that is static
        static HygSettings settings{"KOR", "Hygrion benchmark"};
        return settings;
    }
    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_folder;
    QString m_paths[std::size(KINDS)];
};

/// The most memory the process has had since the last reset, and what it has [MB].
double peakMemory() {
    const std::string status = KOR::readFile("/proc/self/status", 1 << 16);
    return std::strtod(status.c_str() + status.find("VmHWM:") + 6, nullptr) * 1024 / MB;
}
void resetPeak() {
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

struct View {
    HygProjectHandler projects;
    HygResultsView view{&projects};
    explicit View(Bench & bench) {
        view.resize(WINDOW);
        projects.openProject(bench.project());
        view.show();
        if (!QTest::qWaitForWindowExposed(&view))
            throw std::runtime_error("the window does not come up");
        paint();
    }
    void paint() {
        QCoreApplication::processEvents(); // layouts
        view.chart().repaint();
    }
};

/// From the choice in the tree to the painted chart, and until it is complete.
void firstChart(benchmark::State & state) {
    Bench & bench = Bench::instance();
    const auto kind = static_cast<kind_t>(state.range(0));
    state.SetLabel(KINDS[kind].name);
    double slowest = 0, complete = 0, memory = 0;
    bool isThere = true;
    for (auto _ : state) {
        const QString path = bench.path(kind);
        View shown(bench);
        resetPeak();
        const double before = peakMemory();
        QElapsedTimer timer;
        timer.start();
        shown.view.tree().choose({path});
        isThere =
            QTest::qWaitFor([&] { return !shown.view.findChild<QLabel *>("statistics")->text().isEmpty(); }, MAX_MS) &&
            isThere;
        shown.paint();
        const double seconds = 1e-9 * static_cast<double>(timer.nsecsElapsed());
        state.SetIterationTime(seconds);
        slowest = std::max(slowest, seconds);
        isThere = QTest::qWaitFor([&] { return shown.view.chart().isComplete(); }, MAX_MS) && isThere;
        complete = std::max(complete, 1e-9 * static_cast<double>(timer.nsecsElapsed()));
        memory = std::max(memory, peakMemory() - before);
    }
    if (!isThere)
        state.SkipWithError("the chart does not come up");
    state.counters["slowest [s]"] = slowest;
    state.counters["complete [s]"] = complete;
    state.counters["memory [MB]"] = memory;
}
BENCHMARK(firstChart)->DenseRange(Field, Course)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

/// From the choice of another place to its painted course, out of records of 100,000 values, and until it is complete.
void courseOfAPlace(benchmark::State & state) {
    Bench & bench = Bench::instance();
    double complete = 0;
    bool isThere = true;
    int place = 1;
    for (auto _ : state) {
        const QString path = bench.path(Field);
        View shown(bench);
        shown.view.tree().choose({path});
        isThere = QTest::qWaitFor([&] { return shown.view.chart().isComplete(); }, MAX_MS) && isThere;
        shown.view.findChild<QComboBox *>("chartMode")->setCurrentIndex(1);
        isThere = QTest::qWaitFor([&] { return shown.view.chart().isComplete(); }, MAX_MS) && isThere;
        bench.path(Field); // out of memory again
        auto & figures = *shown.view.findChild<QLabel *>("statistics");
        QElapsedTimer timer;
        timer.start();
        shown.view.findChild<QSpinBox *>("place")->setValue(place += 30011);
        isThere = QTest::qWaitFor([&] { return !figures.text().isEmpty(); }, MAX_MS) && isThere;
        shown.paint();
        state.SetIterationTime(1e-9 * static_cast<double>(timer.nsecsElapsed()));
        isThere = QTest::qWaitFor([&] { return shown.view.chart().isComplete(); }, MAX_MS) && isThere;
        complete = std::max(complete, 1e-9 * static_cast<double>(timer.nsecsElapsed()));
    }
    if (!isThere)
        state.SkipWithError("the chart does not come up");
    state.counters["complete [s]"] = complete;
}
BENCHMARK(courseOfAPlace)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

/// Pictures a second while the time bar is moved to and fro.
void timeBarMoved(benchmark::State & state) {
    Bench & bench = Bench::instance();
    const auto kind = static_cast<kind_t>(state.range(0));
    state.SetLabel(KINDS[kind].name);
    const QString path = bench.path(kind);
    View shown(bench);
    shown.view.tree().choose({path});
    shown.view.findChild<QComboBox *>("cut")->setCurrentIndex(state.range(1) != 0 ? HygResultChart::AlongX
                                                                                  : HygResultChart::NoCut);
    resetPeak();
    const double before = peakMemory();
    std::size_t step = 0;
    const std::size_t count = shown.view.timeBar().count();
    for (auto _ : state) {
        step = (step + count / 97) % count;
        shown.view.timeBar().setIndex(step);
        shown.paint();
    }
    state.counters["pictures/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["memory [MB]"] = peakMemory() - before;
}
BENCHMARK(timeBarMoved)
    ->ArgNames({
        "kind", "cut"
})
    ->ArgsProduct({{Field, Profile}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(3)
    ->UseRealTime();

} // namespace
