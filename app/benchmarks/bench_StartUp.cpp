// From the start of the process until the main window has been painted: the target is 0.6 s, offscreen and optimised.
#include <KOR/Directories.h>
#include <KOR/FileIO.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

void mainWindowShown(benchmark::State & state) {
    int argc = 1;
    char name[] = "bench_hygapp";
    char * argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    QDir(home.path()).mkpath(".config/KOR");
    KOR::writeFile(home.filePath(".config/KOR/Hygrion 6.1.conf").toStdString(), "[General]\nUserLogLevelConsole=3\n");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home.path());
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    const QString program = QString::fromStdString((KOR::directories::install() / "Hygrion").str());

    for (auto _ : state) {
        QProcess process;
        process.setProcessEnvironment(environment);
        QElapsedTimer timer;
        timer.start();
        process.start(program, {"--no-splash", "--lang=de"});
        QByteArray out;
        while (!out.contains("Main window shown.") && process.waitForReadyRead(10000))
            out += process.readAllStandardOutput();
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
        if (!out.contains("Main window shown."))
            state.SkipWithError("the main window was not shown");
        process.terminate();
        process.waitForFinished();
    }
}
BENCHMARK(mainWindowShown)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace
