#include "document/HygJournal.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Xml.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QtConcurrent>

namespace {

constexpr std::string_view MAGIC = "H6JOURNAL 1\n";
constexpr std::size_t HEAD_SIZE = 64u << 10; ///< the head with the longest path of a file system
constexpr const char * SUFFIX = ".h6j";
constexpr int MAX_ORPHANS = 50;
constexpr qint64 MAX_AGE_DAYS = 180;
constexpr qint64 EMPTY_LOCK_STALE_S = 2;

QString pathOf(const QString & projectFile) {
    const QFileInfo info(projectFile);
    return info.exists() ? info.canonicalFilePath() : QDir::cleanPath(info.absoluteFilePath());
}

QString lockOf(const QString & journalFile) {
    return journalFile + QStringLiteral(".lock");
}

std::unique_ptr<QLockFile> lockFor(const QString & journalFile) {
    auto lock = std::make_unique<QLockFile>(lockOf(journalFile));
    lock->setStaleLockTime(0);
    return lock;
}

void removeFile(const QString & file) {
    QFile::remove(file);
    KOR::removeLeftovers(file.toStdString());
}

/// Where the project begins, and what the head says. Throws on anything else.
std::pair<std::size_t, HygJournal::Entry> parseHead(const std::string & content, const QString & journalFile) {
    const std::size_t end = content.find('\n', MAGIC.size());
    if (!content.starts_with(MAGIC) || end == std::string::npos)
        throw KOR::Exception(KOR::text("'%1' is not a journal.", journalFile.toStdString()), "[HygJournal::read]");
    const QByteArray line(content.data() + MAGIC.size(), static_cast<int>(end - MAGIC.size()));
    const QJsonObject head = QJsonDocument::fromJson(line).object();
    HygJournal::Entry entry{.journalFile = journalFile,
                            .projectFile = head["project"].toString(),
                            .fileDate = QDateTime::fromString(head["fileDate"].toString(), Qt::ISODateWithMs),
                            .journalDate = QDateTime::fromString(head["date"].toString(), Qt::ISODateWithMs),
                            .changes = head["changes"].toInt()};
    if (entry.projectFile.isEmpty() || !entry.journalDate.isValid())
        throw KOR::Exception(KOR::text("The head of journal '%1' cannot be read.", journalFile.toStdString()),
                             "[HygJournal::read]");
    return {end + 1, entry};
}

} // namespace

/// One writing of the journal; shared with the thread that does it.
struct HygJournal::Job {
    QString file;
    QJsonObject head;
    HYGRION::Project project;
    std::atomic<bool> isVoid = false; ///< the state was saved or given up meanwhile
    std::string problem;              ///< read when the job is done

    void run() noexcept {
        try {
            if (isVoid)
                return;
            std::string content(MAGIC);
            content += QJsonDocument(head).toJson(QJsonDocument::Compact).toStdString() + '\n';
            content += project.text();
            if (isVoid)
                return;
            KOR::writeFile(file.toStdString(), content);
            if (isVoid)
                QFile::remove(file);
            project = {}; // here rather than on the GUI thread
        } catch (const std::exception & ex) {
            problem = ex.what();
        }
    }
};

HygJournal::HygJournal(std::function<HYGRION::Project()> project, QObject * parent)
    : QObject(parent), m_project(std::move(project)) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &HygJournal::write);
    connect(&m_watcher, &QFutureWatcher<void>::finished, this, &HygJournal::takeOverResult);
}

HygJournal::~HygJournal() {
    stop();
    m_watcher.waitForFinished();
}

void HygJournal::start(const QString & directory, const QString & projectFile) {
    stop();
    if (directory.isEmpty())
        return;
    m_projectFile = pathOf(projectFile);
    m_fileDate = QFileInfo(m_projectFile).lastModified();
    if (!QDir().mkpath(directory))
        return emit failed(tr("The folder '%1' for unsaved changes cannot be made.").arg(directory));
    const QByteArray hash = QCryptographicHash::hash(m_projectFile.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    for (int number = 1; !m_lock; ++number) {
        const QString file = QDir(directory).filePath(QStringLiteral("%1-%2-%3%4")
                                                          .arg(QString::fromLatin1(hash))
                                                          .arg(QCoreApplication::applicationPid())
                                                          .arg(number)
                                                          .arg(QLatin1String(SUFFIX)));
        std::unique_ptr<QLockFile> lock = lockFor(file);
        if (QFileInfo::exists(file) || !lock->tryLock(0)) {
            if (lock->error() != QLockFile::NoError && lock->error() != QLockFile::LockFailedError)
                return emit failed(tr("The folder '%1' for unsaved changes cannot be written.").arg(directory));
            continue; // left by a process of the same number
        }
        m_file = file;
        m_lock = std::move(lock);
    }
}

void HygJournal::adopt(const Entry & entry) {
    stop();
    std::unique_ptr<QLockFile> lock = lockFor(entry.journalFile);
    if (!lock->tryLock(0))
        throw KOR::Exception(
            tr("The unsaved changes of '%1' are in use by another editor.").arg(entry.projectFile).toStdString(),
            "[HygJournal::adopt]");
    m_lock = std::move(lock);
    m_file = entry.journalFile;
    m_projectFile = entry.projectFile;
    m_fileDate = entry.fileDate;
    m_changes = entry.changes;
}

void HygJournal::note() {
    m_changeDate = QDateTime::currentDateTime();
    if (m_file.isEmpty())
        return;
    m_isPending = true;
    if (!m_timer.isActive())
        m_timer.start(DELAY_MS);
}

std::shared_ptr<HygJournal::Job> HygJournal::makeJob() {
    auto job = std::make_shared<Job>();
    m_changes = std::max(m_changes, 1);
    job->file = m_file;
    job->head = {
        {"project",  m_projectFile                           },
        {"fileDate", m_fileDate.toString(Qt::ISODateWithMs)  },
        {"date",     m_changeDate.toString(Qt::ISODateWithMs)},
        {"changes",  m_changes                               },
    };
    job->project = m_project();
    return job;
}

void HygJournal::write() {
    if (!m_isPending || m_watcher.isRunning())
        return; // takeOverResult() comes back here
    m_isPending = false;
    m_job = makeJob();
    m_watcher.setFuture(QtConcurrent::run([job = m_job] { job->run(); }));
}

void HygJournal::takeOverResult() {
    const std::string problem = m_job ? m_job->problem : std::string();
    if (m_job && !problem.empty() && !m_job->isVoid) {
        m_isPending = true; // with the next change, or when there is room again
        m_timer.start(10 * DELAY_MS);
        if (!std::exchange(m_hasFailed, true))
            emit failed(
                tr("Unsaved changes cannot be kept for the case of a crash: %1").arg(QString::fromStdString(problem)));
        return;
    }
    m_hasFailed = false;
    if (m_isPending && !m_timer.isActive())
        m_timer.start(DELAY_MS);
}

void HygJournal::flush() {
    m_timer.stop();
    m_watcher.waitForFinished();
    if (m_file.isEmpty() || !std::exchange(m_isPending, false))
        return;
    m_job = makeJob();
    m_job->run();
    takeOverResult();
}

void HygJournal::clear() {
    m_timer.stop();
    m_isPending = false;
    m_changes = 0;
    if (m_job)
        m_job->isVoid = true;
    if (m_file.isEmpty())
        return;
    QFile::remove(m_file);
}

void HygJournal::saved() {
    clear();
    if (!m_file.isEmpty())
        m_fileDate = QFileInfo(m_projectFile).lastModified();
}

void HygJournal::stop() {
    m_timer.stop();
    m_isPending = false;
    m_changes = 0;
    m_file.clear();
    m_lock.reset();
}

std::vector<HygJournal::Entry> HygJournal::orphans(const QString & directory, const QString & projectFile) {
    std::vector<Entry> found;
    const QString pattern = QStringLiteral("*") + SUFFIX;
    QStringList files;
    for (const QFileInfo & info : QDir(directory).entryInfoList({pattern}, QDir::Files, QDir::Time))
        files << info.absoluteFilePath();
    // An editor that was killed before it had anything to keep leaves its lock alone.
    for (const QFileInfo & lock : QDir(directory).entryInfoList({lockOf(pattern)}, QDir::Files))
        if (const QString file = lock.absoluteFilePath().chopped(lockOf({}).size()); !files.contains(file))
            files << file;
    for (const QString & file : std::as_const(files)) {
        const QFileInfo lockInfo(lockOf(file));
        if (lockInfo.exists() && lockInfo.size() == 0 &&
            lockInfo.lastModified().secsTo(QDateTime::currentDateTime()) > EMPTY_LOCK_STALE_S)
            QFile::remove(lockOf(file));                       // its maker was killed over it
        const std::unique_ptr<QLockFile> lock = lockFor(file); // removes the file when it goes out of scope
        if (!lock->tryLock(0))
            continue; // its editor lives
        KOR::removeLeftovers(file.toStdString());
        if (!QFileInfo::exists(file))
            continue; // it was killed before it had written anything
        try {
            const Entry entry = parseHead(KOR::readFileHead(file.toStdString(), HEAD_SIZE), file).second;
            const bool isTooOld = entry.journalDate.daysTo(QDateTime::currentDateTime()) > MAX_AGE_DAYS;
            if (isTooOld || static_cast<int>(found.size()) >= MAX_ORPHANS)
                removeFile(file);
            else if (projectFile.isEmpty() || entry.projectFile == pathOf(projectFile))
                found.push_back(entry);
        } catch (const KOR::Exception & ex) {
            // Put aside, so that it is told once and can still be looked at.
            KOR::Exception(ex, "A journal of unsaved changes cannot be used.", "[HygJournal::orphans]").report();
            QFile::rename(file, file + QStringLiteral(".bad"));
        }
    }
    return found;
}

HYGRION::Project HygJournal::read(const QString & journalFile) {
    const std::string content = KOR::readFile(journalFile.toStdString(), KOR::xml::MAX_FILE_SIZE + HEAD_SIZE);
    const auto [begin, entry] = parseHead(content, journalFile);
    HYGRION::Project project;
    project.readText(content.substr(begin));
    project.m_fileName = entry.projectFile.toStdString();
    return project;
}

void HygJournal::discard(const Entry & entry) {
    removeFile(entry.journalFile);
    QFile::remove(lockOf(entry.journalFile));
}
