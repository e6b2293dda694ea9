#include "document/HygProjectPackage.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

#include <map>

namespace {

constexpr const char * WRITE = "[HygProjectPackage::write]";
constexpr const char * EXTRACT = "[HygProjectPackage::extract]";
constexpr qint64 CHUNK = 64 << 10;
constexpr int MAX_NAME = 1000;
constexpr int MAX_COMPONENT = 200;
constexpr int MAX_DEPTH = 16;

/// The kind of file in the upper half of the external attributes, as POSIX writes it.
constexpr quint32 KIND_MASK = 0170000;
constexpr quint32 KIND_REGULAR = 0100000;
constexpr quint32 KIND_DIRECTORY = 0040000;

/// The folder of a file in the package, by its suffix.
QString folderFor(const QString & path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("m6") || suffix == QLatin1String("m6b") || suffix == QLatin1String("mat"))
        return QStringLiteral("materials");
    return suffix == QLatin1String("xml") ? QStringLiteral("data") : QStringLiteral("climate");
}

/// The files that the project refers to, by their path on this computer, with their names in the package. The project's
/// paths are changed to these.
std::map<QString, QString> collectFiles(HYGRION::Project & project) {
    std::map<QString, QString> names;
    QSet<QString> taken;
    const HYGRION::Project original = project;
    HYGRION::forEachPath(project, [&](KOR::Path & path, const std::string &) {
        if (path.empty())
            return;
        const QString file = QString::fromStdString(original.resolved(path).normalized().str());
        QString & name = names[file];
        if (name.isEmpty()) {
            const QFileInfo info(file);
            const QString suffix = info.suffix().isEmpty() ? QString() : '.' + info.suffix();
            name = folderFor(file) + '/' + info.fileName();
            for (int number = 2; taken.contains(name.toLower()); ++number)
                name =
                    QStringLiteral("%1/%2_%3%4").arg(folderFor(file), info.completeBaseName()).arg(number).arg(suffix);
            taken.insert(name.toLower());
        }
        path = KOR::Path(KOR::text("${%1}/%2", KOR::Path::PROJECT_DIRECTORY, name.toStdString()));
    });
    return names;
}

void addEntry(QuaZip & zip, const QString & name, std::string_view content) {
    QuaZipNewInfo info(name);
    info.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    QuaZipFile entry(&zip);
    const bool isWritten =
        entry.open(QIODevice::WriteOnly, info) &&
        entry.write(content.data(), static_cast<qint64>(content.size())) == static_cast<qint64>(content.size());
    entry.close();
    if (!isWritten || entry.getZipError() != ZIP_OK)
        throw KOR::Exception(KOR::text("'%1' cannot be packed.", name.toStdString()), WRITE);
}

// ---- reading

[[noreturn]] void refuse(const QString & name, const char * reason) {
    throw KOR::Exception(KOR::text("Entry '%1' of the package is refused: %2", name.toStdString(), reason), EXTRACT);
}

/// Refuses names that would not make a file below the folder, here or on another system.
void checkName(const QString & name) {
    if (name.isEmpty() || name.size() > MAX_NAME)
        refuse(name.left(80), "its name is empty or too long.");
    for (const QChar c : name)
        if (c.unicode() < 0x20 || c.unicode() == 0x7f || QStringLiteral("\\:*?\"<>|").contains(c))
            refuse(name, "its name holds characters that file names do not hold.");
    if (name.startsWith('/') || name.startsWith('~'))
        refuse(name, "its name is absolute.");
    QStringList parts = name.split('/');
    if (parts.last().isEmpty())
        parts.removeLast(); // a directory
    if (parts.size() > MAX_DEPTH)
        refuse(name, "it lies too deep.");
    for (const QString & part : parts) {
        if (part.isEmpty() || part == QLatin1String(".") || part == QLatin1String(".."))
            refuse(name, "its name leads to another folder.");
        if (part.size() > MAX_COMPONENT || part.endsWith('.') || part.endsWith(' ') || part.startsWith(' '))
            refuse(name, "its name is no file name on every system.");
    }
}

void checkEntry(const QuaZipFileInfo64 & info) {
    checkName(info.name);
    const quint32 kind = (info.externalAttr >> 16) & KIND_MASK;
    const bool isDirectory = info.name.endsWith('/');
    if (kind != 0 && kind != (isDirectory ? KIND_DIRECTORY : KIND_REGULAR))
        refuse(info.name, "it is a link or another special file.");
    if (info.isEncrypted())
        refuse(info.name, "it is encrypted.");
    if (isDirectory && info.uncompressedSize != 0)
        refuse(info.name, "it is a folder with content.");
}

/// Inflates the present entry into a file. \param left bytes that may still be unpacked
void extractEntry(QuaZip & zip, const QuaZipFileInfo64 & info, const QString & path, quint64 & left) {
    QuaZipFile entry(&zip);
    QFile file(path);
    if (!entry.open(QIODevice::ReadOnly))
        refuse(info.name, "it is damaged, or packed by a method that is not known.");
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw KOR::Exception(
            KOR::text("Cannot create file '%1': %2", path.toStdString(), file.errorString().toStdString()), EXTRACT);
    QByteArray chunk(CHUNK, '\0');
    quint64 size = 0;
    for (;;) {
        const qint64 count = entry.read(chunk.data(), chunk.size());
        if (count < 0)
            refuse(info.name, "it is damaged.");
        if (count == 0)
            break;
        size += static_cast<quint64>(count);
        if (static_cast<quint64>(count) > left)
            throw KOR::Exception(KOR::text("The package holds more than %1 MiB.", HygProjectPackage::MAX_SIZE >> 20),
                                 EXTRACT);
        left -= static_cast<quint64>(count);
        if (file.write(chunk.constData(), count) != count)
            throw KOR::Exception(
                KOR::text("Cannot write file '%1': %2", path.toStdString(), file.errorString().toStdString()), EXTRACT);
    }
    entry.close();
    // What the directory says is compared here; a wrong check sum shows when the entry is closed.
    if (entry.getZipError() != UNZ_OK || size != info.uncompressedSize)
        refuse(info.name, "it is damaged, or its size is not the one that is given.");
    if (!file.flush() || file.size() != static_cast<qint64>(size))
        throw KOR::Exception(
            KOR::text("Cannot write file '%1': %2", path.toStdString(), file.errorString().toStdString()), EXTRACT);
}

/// Unpacks everything into an empty folder. \return the project file's name; empty if it was stopped
QString extractAll(QuaZip & zip, const QDir & folder, const HygProjectPackage::IsStopped & isStopped) {
    QString project;
    QSet<QString> seen;
    quint64 left = HygProjectPackage::MAX_SIZE;
    int entries = 0;
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        if (isStopped && isStopped())
            return {};
        if (++entries > HygProjectPackage::MAX_ENTRIES)
            throw KOR::Exception(KOR::text("The package holds more than %1 entries.", HygProjectPackage::MAX_ENTRIES),
                                 EXTRACT);
        QuaZipFileInfo64 info;
        if (!zip.getCurrentFileInfo(&info))
            throw KOR::Exception("The directory of the package is damaged.", EXTRACT);
        checkEntry(info);
        if (seen.contains(info.name.toLower()))
            refuse(info.name, "there are two of this name.");
        seen.insert(info.name.toLower());
        const QString path = folder.filePath(info.name);
        if (!QDir().mkpath(info.name.endsWith('/') ? path : QFileInfo(path).path()))
            refuse(info.name, "its folder cannot be made.");
        if (info.name.endsWith('/'))
            continue;
        if (!info.name.contains('/') &&
            QFileInfo(info.name).suffix().compare(QLatin1String(HYGRION::Project::FILE_EXTENSION),
                                                  Qt::CaseInsensitive) == 0) {
            if (!project.isEmpty())
                throw KOR::Exception("The package holds several projects.", EXTRACT);
            project = info.name;
        }
        extractEntry(zip, info, path, left);
    }
    if (zip.getZipError() != UNZ_OK)
        throw KOR::Exception("The directory of the package is damaged.", EXTRACT);
    if (project.isEmpty())
        throw KOR::Exception("The package holds no project.", EXTRACT);
    return project;
}

} // namespace

void HygProjectPackage::write(const HYGRION::Project & project, const QString & package, const IsStopped & isStopped) {
    HYGRION::Project packed = project;
    const std::map<QString, QString> files = collectFiles(packed);
    QStringList missing;
    quint64 size = 0;
    for (const auto & [file, name] : files) {
        const QFileInfo info(file);
        if (!info.isFile() || !info.isReadable())
            missing << QDir::toNativeSeparators(file);
        else
            size += static_cast<quint64>(info.size());
    }
    if (!missing.isEmpty())
        throw KOR::Exception(tr("These files of the project are missing or cannot be read:\n%1")
                                 .arg(missing.join(QLatin1Char('\n')))
                                 .toStdString(),
                             WRITE);
    const std::string text = packed.text();
    if (size + text.size() > MAX_SIZE || files.size() >= static_cast<std::size_t>(MAX_ENTRIES))
        throw KOR::Exception(
            tr("The files of the project are larger than %1 MiB together.").arg(MAX_SIZE >> 20).toStdString(), WRITE);

    QBuffer buffer;
    QuaZip zip(&buffer);
    zip.setUtf8Enabled(true);
    zip.setAutoClose(false);
    if (!zip.open(QuaZip::mdCreate))
        throw KOR::Exception("The package cannot be begun.", WRITE);
    const QString base = QFileInfo(QString::fromStdString(project.m_fileName)).completeBaseName();
    addEntry(zip,
             (base.isEmpty() ? QStringLiteral("project") : base) + '.' +
                 QLatin1String(HYGRION::Project::FILE_EXTENSION),
             text);
    for (const auto & [file, name] : files) {
        if (isStopped && isStopped())
            return;
        addEntry(zip, name, KOR::readFile(file.toStdString(), MAX_SIZE));
    }
    zip.close();
    if (zip.getZipError() != ZIP_OK)
        throw KOR::Exception("The package cannot be ended.", WRITE);
    KOR::writeFile(package.toStdString(), {buffer.data().constData(), static_cast<std::size_t>(buffer.data().size())});
}

QString HygProjectPackage::extract(const QString & package, const QString & folder, const IsStopped & isStopped) {
    QuaZip zip(package);
    zip.setUtf8Enabled(true);
    if (!QFileInfo(package).isFile() || !zip.open(QuaZip::mdUnzip))
        throw KOR::Exception(KOR::text("'%1' is not a project package, or is damaged.", package.toStdString()),
                             EXTRACT);
    QTemporaryDir temporary(QDir(folder).filePath(QStringLiteral(".hyg-package-XXXXXX")));
    if (!temporary.isValid())
        throw KOR::Exception(KOR::text("The folder '%1' cannot be written.", folder.toStdString()), EXTRACT);
    const QString project = extractAll(zip, QDir(temporary.path()), isStopped);
    if (project.isEmpty())
        return {};
    const QString base = QFileInfo(package).completeBaseName();
    QString name = base;
    for (int number = 2; QFileInfo::exists(QDir(folder).filePath(name)); ++number)
        name = QStringLiteral("%1 %2").arg(base).arg(number);
    const QString target = QDir(folder).filePath(name);
    if (!QDir().rename(temporary.path(), target))
        throw KOR::Exception(KOR::text("The folder '%1' cannot be made.", target.toStdString()), EXTRACT);
    temporary.setAutoRemove(false);
    return QDir(target).filePath(project);
}
