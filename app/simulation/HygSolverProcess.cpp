#include "HygSolverProcess.h"

#include "HygFormat.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <sys/resource.h>

#include <csignal>

namespace HygSolverProcess {

namespace {

constexpr int BELOW_NORMAL = 5; ///< niceness

/// The letter of the state in the system's list: 'R', 'S', 'T' (stopped), 'Z' (gone); 0 without such a process.
char state(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (process <= 0 || !file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readAll(); // "4711 (name) S 1 ..."; the name may hold anything
    const int end = line.lastIndexOf(") ");
    return end < 0 || end + 2 >= line.size() ? '\0' : line[end + 2];
}

bool send(qint64 process, int signal) {
    return process > 1 && ::kill(static_cast<pid_t>(process), signal) == 0;
}

/// Every thread has a priority of its own; those to come take that of the thread that makes them.
void lowerPriority(qint64 process) {
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString & thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        ::setpriority(PRIO_PROCESS, thread.toUInt(), BELOW_NORMAL);
}

} // namespace

qint64 start(const QString & program, const QStringList & arguments, const QString & outputFile) {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(LANGUAGE_VARIABLE), HygFormat::locale().name().left(2));
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(outputFile.isEmpty() ? QProcess::nullDevice() : outputFile);
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 number = 0;
    if (!process.startDetached(&number))
        return 0;
    lowerPriority(number);
    return number;
}

bool isAlive(qint64 process) {
    const char letter = state(process);
    return letter != 0 && letter != 'Z' && letter != 'X';
}

bool isPaused(qint64 process) {
    return state(process) == 'T';
}

bool pause(qint64 process) {
    return send(process, SIGSTOP);
}

bool resume(qint64 process) {
    return send(process, SIGCONT);
}

bool stop(qint64 process) {
    const bool isSent = send(process, SIGTERM);
    resume(process);
    return isSent;
}

bool kill(qint64 process) {
    return send(process, SIGKILL);
}

} // namespace HygSolverProcess
