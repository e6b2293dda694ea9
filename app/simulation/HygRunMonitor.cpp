#include "HygRunMonitor.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "HygSolverProcess.h"

#include <KOR/Numbers.h>
#include <KOR/Time.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

namespace {

constexpr int PERIOD_MS = 500;
constexpr qint64 TAIL = 4096;            ///< [bytes], holds many lines of progress
constexpr qint64 MAX_SUMMARY = 16 << 20; ///< [bytes]
constexpr int CLOCK_GRAIN_MS = 20;       ///< of the times of files
constexpr int NUM_COLUMNS = 6;
constexpr const char * SET_UP = "set up without errors";

QByteArray tail(const QString & path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    file.seek(std::max<qint64>(0, file.size() - TAIL));
    return file.read(TAIL);
}

} // namespace

HygRunMonitor::HygRunMonitor(Run run, QObject * parent)
    : QObject(parent), m_run(std::move(run)), m_directory(m_run.directory), m_timer(new QTimer(this)),
      m_moved(QDateTime::currentDateTime()) {
    connect(m_timer, &QTimer::timeout, this, &HygRunMonitor::poll);
    m_timer->start(PERIOD_MS);
}

qint64 HygRunMonitor::process() const {
    return m_owner != 0 ? m_owner : m_run.process;
}

double HygRunMonitor::idleSeconds() const {
    return m_state == Running ? 1e-3 * static_cast<double>(m_moved.msecsTo(QDateTime::currentDateTime())) : 0;
}

void HygRunMonitor::poll() {
    if (!isActive())
        return;
    const qint64 owner = m_directory.owner();
    const bool isRunning = owner != 0;
    // A window of the solver may stay open behind a run that is over before anybody looked.
    const bool isStarting = owner == 0 && m_owner == 0 && HygSolverProcess::isAlive(m_run.process) &&
                            !isNew(m_directory.log("summary.json"));
    if (isRunning)
        m_owner = owner;
    const double before = m_progress.time;
    if (isNew(m_directory.log("progress.txt")))
        readProgress(m_directory.log("progress.txt"), m_progress);
    if (m_progress.time != before || m_state != Running)
        m_moved = QDateTime::currentDateTime();
    if (isRunning)
        m_state = HygSolverProcess::isPaused(owner) ? Paused : Running;
    else if (!isStarting)
        readEnd();
    emit changed();
    if (!isActive()) {
        m_timer->stop();
        if (!m_run.outputFile.isEmpty())
            QFile::remove(m_run.outputFile);
        emit ended();
    }
}

bool HygRunMonitor::isNew(const QString & path) const {
    const QFileInfo file(path);
    return file.isFile() && file.lastModified() >= m_run.started.addMSecs(-CLOCK_GRAIN_MS);
}

bool HygRunMonitor::readProgress(const QString & path, Progress & progress) {
    QByteArray text = tail(path);
    text.truncate(text.lastIndexOf('\n'));
    const QList<QByteArray> words = text.mid(text.lastIndexOf('\n') + 1).split('\t');
    double values[NUM_COLUMNS];
    if (words.size() < NUM_COLUMNS)
        return false;
    for (int i = 0; i < NUM_COLUMNS; ++i) {
        const auto value = KOR::parseDouble(words[i].toStdString());
        if (!value)
            return false;
        values[i] = *value;
    }
    progress = {values[0], values[1], values[2], values[3], values[4], static_cast<qint64>(values[5])};
    return true;
}

void HygRunMonitor::readEnd() {
    const QString path = m_directory.log("summary.json");
    QFile file(path);
    if (isNew(path) && file.size() <= MAX_SUMMARY && file.open(QIODevice::ReadOnly)) {
        const QJsonObject summary = QJsonDocument::fromJson(file.readAll()).object();
        const QString status = summary.value(QLatin1String("status")).toString();
        m_state = status == QLatin1String("finished")      ? Finished
                  : status == QLatin1String("interrupted") ? Interrupted
                                                           : Failed;
        const QJsonValue time = summary.value(QLatin1String("time_s"));
        if (time.isDouble())
            m_progress.time = time.toDouble();
        if (const QString story = summary.value(QLatin1String("error")).toString(); !story.isEmpty())
            m_problem = HygCoreMessages::told(
                time.isDouble() ? tr("The solver ended with an error at %1 d.")
                                      .arg(HygFormat::locale().toString(m_progress.time / KOR::SECONDS_PER_DAY, 'f', 2))
                                : tr("The solver could not begin: something in the project, its materials or its "
                                     "climate cannot be calculated."),
                story);
        if (m_state == Finished)
            m_progress.percent = 100;
        m_progress.left = 0;
        return;
    }
    if (m_run.isTest) {
        const QByteArray log = tail(m_directory.screenLog());
        m_state = log.contains(SET_UP) ? Finished : Failed;
        if (m_state == Failed)
            m_problem = HygCoreMessages::told(tr("The solver cannot calculate the project as it is."),
                                              QString::fromUtf8(log).trimmed().section('\n', -1));
        return;
    }
    m_state = Lost;
    if (const QString errors = lastErrors(); !errors.isEmpty()) {
        m_problem =
            HygCoreMessages::told(tr("The solver ended with an error and could not write the end of its log."), errors);
        return;
    }
    m_problem = tr("The solver ended without a word: it crashed, was ended from outside, or the machine was switched "
                   "off. If there is a restart file, the run can be continued.");
}

QString HygRunMonitor::lastErrors() const {
    constexpr int MAX_LINES = 5;
    QStringList errors;
    const QString log = m_directory.screenLog();
    for (const QString & path : {isNew(log) ? log : QString(), m_run.outputFile}) {
        if (path.isEmpty() || !errors.isEmpty())
            continue;
        for (const QByteArray & line : tail(path).split('\n')) // "[Error   ] [Class::function]\tmessage"
            if (line.contains("[Error"))
                errors << QString::fromUtf8(line.mid(line.indexOf('\t') + 1)).trimmed();
    }
    return errors.mid(std::max(0, errors.size() - MAX_LINES)).join('\n');
}

void HygRunMonitor::pause() {
    HygSolverProcess::pause(process());
    poll();
}

void HygRunMonitor::resume() {
    HygSolverProcess::resume(process());
    poll();
}

void HygRunMonitor::stop() {
    m_stopAsked = QDateTime::currentDateTime();
    HygSolverProcess::stop(process());
    poll();
}

void HygRunMonitor::kill() {
    HygSolverProcess::kill(process());
}
