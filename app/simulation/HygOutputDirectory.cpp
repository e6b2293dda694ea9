#include "HygOutputDirectory.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace {

constexpr qint64 MAX_KEPT_LOG = 64 << 20;
constexpr qint64 MAX_NUMBER = 32; ///< digits of a process number
constexpr const char * PARTS[] = {"log", "results", "var"};

std::filesystem::path native(const QString & path) {
    return path.toStdString();
}

} // namespace

HygOutputDirectory HygOutputDirectory::ofProject(const QString & projectFile) {
    const QFileInfo info(projectFile);
    return HygOutputDirectory(info.path() + '/' + info.completeBaseName());
}

bool HygOutputDirectory::isBlocked() const {
    std::error_code ignored;
    const auto status = std::filesystem::status(native(m_path), ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool HygOutputDirectory::exists() const {
    return QFileInfo(m_path).isDir();
}

bool HygOutputDirectory::hasResults() const {
    QDirIterator files(results(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    return files.hasNext();
}

bool HygOutputDirectory::canContinue() const {
    return QFileInfo(restartFile()).isFile();
}

bool HygOutputDirectory::isWritable() const {
    const auto isOpen = [](const QString & path) {
        return ::faccessat(AT_FDCWD, path.toLocal8Bit().constData(), W_OK | X_OK, AT_EACCESS) == 0;
    };
    if (!exists())
        return isOpen(QFileInfo(m_path).path());
    return isOpen(m_path) && std::all_of(std::begin(PARTS), std::end(PARTS), [&](const char * part) {
               const QString path = m_path + '/' + QLatin1String(part);
               return !QFileInfo::exists(path) || isOpen(path);
           });
}

bool HygOutputDirectory::clearResults() const {
    std::error_code error;
    std::filesystem::remove_all(native(results()), error); // takes links away without following them
    return !error && !std::filesystem::exists(std::filesystem::symlink_status(native(results()), error));
}

qint64 HygOutputDirectory::owner() const {
    // The solver holds a lock on this file. To try for it would be to take it from a solver that is about to start;
    // the system's own list tells without.
    struct stat lock {};
    if (::stat((m_path + "/var/lock").toLocal8Bit().constData(), &lock) != 0)
        return 0;
    QFile holder(m_path + "/var/lock");
    QFile locks(QStringLiteral("/proc/locks"));
    if (!holder.open(QIODevice::ReadOnly) || !locks.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray process = holder.read(MAX_NUMBER).trimmed();
    const QByteArray inode = ':' + QByteArray::number(static_cast<quint64>(lock.st_ino));
    for (const QByteArray & line : locks.readAll().split('\n')) {
        // "3: FLOCK  ADVISORY  WRITE 4711 08:01:393243 0 EOF"
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() > 5 && words[1] == "FLOCK" && words[4] == process && words[5].endsWith(inode))
            return process.toLongLong();
    }
    return 0;
}

HygOutputDirectory::Snapshot::Snapshot(const HygOutputDirectory & directory)
    : m_path(directory.path()), m_existed(directory.exists()) {
    const QDir base(m_path);
    for (const char * part : PARTS) {
        const QString name = QLatin1String(part);
        if (QFileInfo(base.filePath(name)).isDir())
            m_entries.emplace(name, std::nullopt);
        QDirIterator entries(base.filePath(name),
                             QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        while (entries.hasNext()) {
            const QFileInfo entry(entries.next());
            std::optional<QByteArray> content;
            if (QFile file(entry.filePath()); name == QLatin1String("log") && entry.isFile() &&
                                              entry.size() <= MAX_KEPT_LOG && file.open(QIODevice::ReadOnly))
                content = file.readAll();
            m_entries.emplace(name + '/' + entry.fileName(), content);
        }
    }
}

void HygOutputDirectory::Snapshot::restore() const {
    const QDir base(m_path);
    std::error_code ignored;
    for (const char * part : PARTS) {
        const QString name = QLatin1String(part);
        // A link that stands in for a part leads elsewhere: what is there belongs to somebody else.
        if (!std::filesystem::is_directory(std::filesystem::symlink_status(native(base.filePath(name)), ignored)))
            continue;
        const QStringList entries =
            QDir(base.filePath(name)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QString & entry : entries) {
            const auto known = m_entries.find(name + '/' + entry);
            if (known == m_entries.end()) {
                std::filesystem::remove_all(native(base.filePath(name + '/' + entry)), ignored);
            } else if (known->second) {
                QFile file(base.filePath(known->first));
                if (file.open(QIODevice::ReadOnly) && file.readAll() == *known->second)
                    continue;
                file.close();
                try {
                    KOR::writeFile(file.fileName().toStdString(), known->second->toStdString());
                } catch (const KOR::Exception & ex) {
                    ex.report();
                }
            }
        }
        if (!m_entries.contains(name))
            std::filesystem::remove(native(base.filePath(name)), ignored); // only if it is empty
    }
    if (!m_existed)
        std::filesystem::remove(native(m_path), ignored);
}
