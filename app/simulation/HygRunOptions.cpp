#include "HygRunOptions.h"

#include <KOR/Numbers.h>

#include <QCoreApplication>

#include <cmath>

namespace {

constexpr double SAME_PERIOD = 1e-10; ///< [s]
constexpr double MAX_THREADS = 1024;  ///< what the solver takes

// clang-format off
constexpr HygRunOptions::FlagRow FLAGS[] = {
    {&HygRunOptions::disableHeaders, "--disable-headers", "disableHeaders",
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Disable periodic headers"),
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "The line that names the columns of the progress is written once only.")},
    {&HygRunOptions::stepStats, "--step-stats", "stepStats",
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Write statistics for each internal solver step"),
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "One line for each step in log/steps.tsv; tells what makes a run slow. The file may become large.")},
    {&HygRunOptions::closeOnExit, "--close-on-exit", "closeOnExit",
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Close solver window on exit"),
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "The window of the solver closes when the run has ended.")},
    {&HygRunOptions::disablePeriodicRestart, "--disable-periodic-restart-file-writing", "disablePeriodicRestart",
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Disable periodic restart file writing (may improve performance)"),
     QT_TRANSLATE_NOOP("HygSimulationStartWidget", "A run that crashes must then start from the beginning; one that is stopped can still be continued.")},
};
// clang-format on

} // namespace

std::span<const HygRunOptions::FlagRow> HygRunOptions::flags() {
    return FLAGS;
}

int HygRunOptions::threadCount() const {
    const auto value = KOR::parseDouble(QString(parallelThreads).replace(',', '.').toStdString());
    return value && *value >= 1 && *value <= MAX_THREADS ? static_cast<int>(*value) : 0;
}

QStringList HygRunOptions::arguments() const {
    QStringList options;
    for (const FlagRow & row : FLAGS)
        if (this->*row.member)
            options << QLatin1String(row.option);
    options << QStringLiteral("--verbosity-level=%1").arg(verbosityLevel);
    if (std::abs(restartPeriod - DEFAULT_RESTART_PERIOD) > SAME_PERIOD)
        options << QStringLiteral("--restart-realtime-dt=%1").arg(QString::fromStdString(KOR::toString(restartPeriod)));
    if (const int count = threadCount(); count > 0)
        options << QStringLiteral("--parallel-threads=%1").arg(count);
    return options;
}

QString HygRunOptions::commandLine(const QString & executable, const QStringList & arguments,
                                   const QString & projectFile) {
    const auto quoted = [](const QString & path) {
        QString result;
        for (const QChar c : path) {
#ifndef Q_OS_WIN // what a shell would take for its own within double quotes
            if (QStringLiteral("\"\\$`").contains(c))
                result += '\\';
#endif
            result += c;
        }
        return '"' + result + '"';
    };
    return quoted(executable) + ' ' + arguments.join(' ') + ' ' + quoted(projectFile);
}
