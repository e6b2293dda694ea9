#include "document/HygProjectLock.h"

#include "HygFormat.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>
#include <QTimer>

namespace {

constexpr int RENEWAL_MS = 60'000;
/// A lock of another computer that was not renewed for this long is left over.
constexpr qint64 FOREIGN_STALE_S = 600;
/// A lock without a process number is one that its maker was killed over.
constexpr qint64 UNREADABLE_STALE_S = 2;

/// Whether nobody can be behind the lock any more. Processes of this computer QLockFile has looked after already.
bool isLeftOver(const QLockFile & lock, const QString & path) {
    qint64 pid = 0;
    QString host;
    QString program;
    const qint64 age = QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime());
    if (!lock.getLockInfo(&pid, &host, &program))
        return age > UNREADABLE_STALE_S;
    return host != QSysInfo::machineHostName() && age > FOREIGN_STALE_S;
}

} // namespace

HygProjectLock::HygProjectLock(const QString & projectFile)
    : m_path(lockPath(projectFile)), m_lock(std::make_unique<QLockFile>(m_path)) {
    m_lock->setStaleLockTime(0); // however long a project is open, its lock holds
}

HygProjectLock::~HygProjectLock() = default;

QString HygProjectLock::lockPath(const QString & projectFile) {
    const QFileInfo given(projectFile);
    const QFileInfo file(given.exists() ? given.canonicalFilePath() : given.absoluteFilePath());
    return file.absoluteDir().filePath(QLatin1Char('.') + file.fileName() + QStringLiteral(".lock"));
}

bool HygProjectLock::isHeld() const {
    return m_lock->isLocked();
}

bool HygProjectLock::acquire() {
    m_problem.clear();
    if (isHeld() || m_lock->tryLock(0) ||
        (isLeftOver(*m_lock, m_path) && QFile::remove(m_path) && m_lock->tryLock(0))) {
        if (!m_renewal) {
            m_renewal = std::make_unique<QTimer>();
            QObject::connect(m_renewal.get(), &QTimer::timeout, [this] {
                QFile file(m_path);
                if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
                    file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
            });
            m_renewal->start(RENEWAL_MS);
        }
        return true;
    }
    qint64 pid = 0;
    QString host;
    QString program;
    if (m_lock->error() != QLockFile::LockFailedError)
        m_problem = tr("The folder '%1' cannot be written.").arg(QDir::toNativeSeparators(QFileInfo(m_path).path()));
    else if (m_lock->getLockInfo(&pid, &host, &program))
        m_problem =
            tr("It is open in another editor: user '%1' on computer '%2', process %3, since %4.")
                .arg(QFileInfo(m_path).owner(), host, QString::number(pid),
                     HygFormat::dateTime(QFileInfo(m_path).birthTime().isValid() ? QFileInfo(m_path).birthTime()
                                                                                 : QFileInfo(m_path).lastModified()));
    else
        m_problem = tr("It is open in another editor, which is just starting.");
    return false;
}
