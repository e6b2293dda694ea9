#include "document/HygProjectHandler.h"

#include "HygCoreMessages.h"

#include "document/HygBackground.h"
#include "document/HygOldProject.h"
#include "document/HygProjectLock.h"
#include "undo/HygModification.h"

#include <KOR/Directories.h>
#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

#include <sys/stat.h>

namespace {

/// Writing a file is several events; one change is told.
constexpr int WATCH_DELAY_MS = 300;
constexpr std::size_t HEAD_SIZE = 64u << 10;

/// In the order of their construction.
std::vector<HygProjectHandler *> instances; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

std::string now() {
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

QString shown(const QString & path) {
    return QDir::toNativeSeparators(path);
}

struct ReadProject {
    std::unique_ptr<HYGRION::Project> project;
    bool isNewer = false; ///< written by a newer version
};

/// Reads a project file of any age; see HygOldProject.
ReadProject readFile(const std::string & file) {
    KOR::removeLeftovers(file);
    HygOldProject::refuse(KOR::readFileHead(file, HEAD_SIZE));
    ReadProject result{std::make_unique<HYGRION::Project>()};
    KOR::Version version = KOR::FILE_VERSION;
    try {
        HYGRION::Project header;
        header.readXML(file, true);
        version = header.m_fileVersion;
    } catch (const KOR::Exception &) { // NOLINT(bugprone-empty-catch): reading the whole tells it with its line
    }
    result.isNewer = version > KOR::FILE_VERSION;
    try {
        result.project->readXML(file);
    } catch (const KOR::Exception & ex) {
        if (!result.isNewer)
            throw;
        throw KOR::Exception(
            ex,
            KOR::text("The project was written by a newer version of the program: its files have version "
                      "%1.%2, this program reads files up to version %3.%4.",
                      int{version.major}, int{version.minor}, int{KOR::FILE_VERSION.major},
                      int{KOR::FILE_VERSION.minor}),
            "[HygProjectHandler::openProject]");
    }
    return result;
}

/// Replaces the file, unless it could not be read again: then the old one is worth more.
void writeProject(const HYGRION::Project & project, const std::string & file) {
    const std::string content = project.text();
    try {
        HYGRION::Project().readText(content);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex,
                             "The project holds something that could not be read again. Please mend it and save then.",
                             "[HygProjectHandler::writeProject]");
    }
    KOR::writeFile(file, content);
}

/// Whether a file holds the project as it is.
bool isContentOf(const HYGRION::Project & project, const std::string & file) {
    const std::string content = project.text();
    try {
        return KOR::readFile(file, content.size()) == content;
    } catch (const KOR::Exception &) {
        return false; // it is larger, or it cannot be read
    }
}

/// Lets the paths that begin at the directory of the project's file lead to the same files from another directory.
/// \return whether there were any
bool rebasePaths(HYGRION::Project & project, const std::string & newFile) {
    const auto directory = [](const std::string & file) {
        return KOR::directories::placeholders(KOR::Path(file))[KOR::Path::PROJECT_DIRECTORY];
    };
    if (directory(project.m_fileName) == directory(newFile))
        return false;
    bool isAny = false;
    const KOR::Path::Placeholders newPlace = {
        {KOR::Path::PROJECT_DIRECTORY, directory(newFile)}
    };
    HYGRION::forEachPath(project, [&](KOR::Path & path, const std::string &) {
        const bool isRelative = !path.empty() && !path.placeholder() && !path.isAbsolute();
        if (!isRelative && path.placeholder() != KOR::Path::PROJECT_DIRECTORY)
            return;
        path = project.resolved(path).normalized().withPlaceholder(newPlace);
        isAny = true;
    });
    return isAny;
}

} // namespace

HygProjectHandler::HygProjectHandler(QObject * parent)
    : QObject(parent), m_undoStack(new QUndoStack(this)),
      m_journal(new HygJournal([this] { return *m_project; }, this)) {
    instances.push_back(this);
    connect(m_undoStack, &QUndoStack::cleanChanged, this, [this](bool isClean) { setIsModified(!isClean); });
    connect(m_undoStack, &QUndoStack::indexChanged, this, &HygProjectHandler::countChanges);
    connect(m_journal, &HygJournal::failed, this, &HygProjectHandler::failed);
    m_watchDelay.setSingleShot(true);
    m_watchDelay.setInterval(WATCH_DELAY_MS);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watchDelay, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watchDelay, qOverload<>(&QTimer::start));
    connect(&m_watchDelay, &QTimer::timeout, this, &HygProjectHandler::checkDisk);
}

HygProjectHandler::~HygProjectHandler() {
    disconnect(m_undoStack, nullptr, this, nullptr);
    m_undoStack->clear(); // commands know this handler
    std::erase(instances, this);
}

HygProjectHandler * HygProjectHandler::instance() {
    return instances.empty() ? nullptr : instances.back();
}

const HYGRION::Project & HygProjectHandler::project() const {
    static const HYGRION::Project EMPTY;
    return m_project ? *m_project : EMPTY;
}

QString HygProjectHandler::projectFile() const {
    return m_project ? QString::fromStdString(m_project->m_fileName) : QString();
}

void HygProjectHandler::setUndoLimit(unsigned int steps) {
    m_undoLimit = steps;
    if (m_undoStack->count() == 0)
        m_undoStack->setUndoLimit(static_cast<int>(steps));
}

void HygProjectHandler::setModified(int modificationType, void * data) {
    setIsModified(true);
    m_journal->note();
    emit modified(modificationType, data);
}

void HygProjectHandler::setIsModified(bool isModified) {
    if (m_isModified == isModified)
        return;
    m_isModified = isModified;
    if (!isModified)
        m_journal->clear();
    emit modifiedChanged(isModified);
}

void HygProjectHandler::countChanges() {
    const int index = m_undoStack->index();
    const QUndoCommand * last = index > 0 ? m_undoStack->command(index - 1) : nullptr;
    const int moved = index - std::exchange(m_undoIndex, index);
    const bool isNew = std::exchange(m_lastCommand, last) != last;
    if (m_undoStack->cleanIndex() >= 0)
        m_journal->setChanges(std::abs(index - m_undoStack->cleanIndex()));
    else // the state of the file lies beyond the history, which may be full
        m_journal->setChanges(std::max(1, m_journal->changes() + (moved == 0 && isNew ? 1 : moved)));
}

void HygProjectHandler::fail(const KOR::Exception & story) {
    story.report();
    emit failed(HygCoreMessages::translated(QString::fromUtf8(story.what())));
}

// ---- opening and closing

std::unique_ptr<HygProjectLock> HygProjectHandler::lockFor(const QString & path) const {
    if (m_lock && m_lock->isHeld() && HygProjectLock::lockPath(path) == HygProjectLock::lockPath(projectFile()))
        return nullptr; // it is ours already
    auto lock = std::make_unique<HygProjectLock>(path);
    lock->acquire();
    return lock;
}

/// \param lock of the project's file; nullptr keeps the present one
void HygProjectHandler::replaceProject(std::unique_ptr<HYGRION::Project> project,
                                       std::unique_ptr<HygProjectLock> lock) {
    setIsModified(false);
    m_journal->stop();
    m_undoStack->clear();
    m_undoStack->setUndoLimit(static_cast<int>(m_undoLimit));
    m_project = std::move(project);
    if (!m_project || lock)
        m_lock = std::move(lock);
    m_readOnlyReason = m_lock ? m_lock->problem() : QString();
    if (m_project) {
        takeOverFile(projectFile());
        if (m_readOnlyReason.isEmpty() && m_diskState.exists && !QFileInfo(projectFile()).isWritable())
            m_readOnlyReason = tr("The file is protected against writing.");
        m_journal->start(m_journalDirectory, projectFile());
    } else if (!m_watcher.files().isEmpty() || !m_watcher.directories().isEmpty()) {
        m_watcher.removePaths(m_watcher.files() + m_watcher.directories());
    }
    setIsModified(false);
    emit modified(HygModification::ProjectReplaced, nullptr);
}

bool HygProjectHandler::createProject(const QString & path) {
    HYGRION::Project project;
    project.m_projectInfo.m_created = now();
    project.m_projectInfo.m_lastEdited = project.m_projectInfo.m_created;
    project.m_projectInfo.m_projectName = QFileInfo(path).completeBaseName().toStdString();
    // A year, and the state in which most begin, both to be seen in their forms.
    using Start = HYGRION::Init::defaultInitialCondition_t;
    project.m_init.m_interval.m_para.set(HYGRION::Interval::para_t::Duration, 365, "d");
    for (const Start start : {Start::DefaultTemperature, Start::DefaultRelativeHumidity}) {
        const KOR::Parameter standard = project.m_init.parameter(start);
        project.m_init.m_defaultInitialCondition.set(start, standard.ioValue(), standard.ioUnit());
    }
    try {
        HygProjectLock lock(path);
        if (QFileInfo::exists(path) && HygProjectLock::lockPath(path) != HygProjectLock::lockPath(projectFile()) &&
            !lock.acquire())
            throw KOR::Exception(lock.problem().toStdString(), "[HygProjectHandler::createProject]");
        KOR::writeFile(path.toStdString(), project.text());
    } catch (const KOR::Exception & ex) {
        fail(KOR::Exception(ex, tr("Cannot write the new project '%1'.").arg(shown(path)).toStdString(),
                            "[HygProjectHandler::createProject]"));
        return false;
    }
    return openProject(path);
}

bool HygProjectHandler::openProject(const QString & path) {
    const bool isRead = read(path, false);
    emit projectFileChanged(projectFile());
    return isRead;
}

bool HygProjectHandler::reload() {
    return m_project && read(projectFile(), true);
}

bool HygProjectHandler::read(const QString & path, bool isReload) {
    const std::string file = QFileInfo(path).absoluteFilePath().toStdString();
    try {
        if (!QFileInfo::exists(path))
            throw KOR::Exception(tr("The project file '%1' does not exist.").arg(shown(path)).toStdString(),
                                 "[HygProjectHandler::openProject]");
        const auto result = std::make_shared<ReadProject>();
        std::unique_ptr<HygProjectLock> lock = lockFor(path);
        if (!HygBackground::runCancellable(tr("Reading project '%1'…").arg(QFileInfo(path).fileName()),
                                           [result, file] { *result = readFile(file); }))
            return false;
        result->project->m_fileName = file;
        replaceProject(std::move(result->project), std::move(lock));
        if (result->isNewer)
            m_readOnlyReason = tr("It was written by a newer version of the program.");
    } catch (const KOR::Exception & ex) {
        fail(KOR::Exception(ex, tr("Cannot open project '%1'.").arg(shown(path)).toStdString(),
                            "[HygProjectHandler::openProject]"));
        return false;
    }
    KOR::message(KOR::text(isReload ? "Project '%1' read again."
                                    : "Project '%1' opened: %2 x %3 x %4 cells, %5 materials, "
                                      "%6 assignments.",
                           file, m_project->m_disc.nx(), m_project->m_disc.ny(), m_project->m_disc.nz(),
                           m_project->m_materials.size(), m_project->m_assignments.size()),
                 KOR::MSG_INFORMATION, "[HygProjectHandler::openProject]");
    if (isReadOnly())
        emit noticed(tr("Project '%1' can only be read, or saved as another file. %2")
                         .arg(QFileInfo(path).fileName(), m_readOnlyReason));
    return true;
}

bool HygProjectHandler::openRecovered(const HygJournal::Entry & entry) {
    bool isOpen = false;
    try {
        const auto project = std::make_shared<HYGRION::Project>();
        const QString journal = entry.journalFile;
        HygBackground::run(tr("Reading unsaved changes…"),
                           [project, journal] { *project = HygJournal::read(journal); });
        replaceProject(std::make_unique<HYGRION::Project>(std::move(*project)), lockFor(entry.projectFile));
        m_journal->adopt(entry);
        m_undoStack->resetClean();
        setIsModified(true);
        isOpen = true;
        if (isReadOnly())
            emit noticed(tr("Project '%1' can only be read, or saved as another file. %2")
                             .arg(QFileInfo(entry.projectFile).fileName(), m_readOnlyReason));
    } catch (const KOR::Exception & ex) {
        fail(KOR::Exception(
            ex, tr("Cannot open the unsaved changes of project '%1'.").arg(shown(entry.projectFile)).toStdString(),
            "[HygProjectHandler::openRecovered]"));
    }
    emit projectFileChanged(projectFile());
    return isOpen;
}

void HygProjectHandler::closeProject() {
    replaceProject(nullptr, nullptr);
    emit projectFileChanged({});
}

// ---- saving

bool HygProjectHandler::write(const QString & path) {
    const KOR::Path::Placeholders known = m_project->placeholders(); // those of the databases as well
    for (const std::string & name : m_project->undefinedPlaceholders())
        if (!known.contains(name))
            KOR::message(
                KOR::text("Placeholder '%1' is being used in one or more referenced files, but not defined within "
                          "the placeholder section",
                          name),
                KOR::MSG_WARNING, "[HygProjectHandler::write]");
    try {
        // The GUI thread does not touch the project meanwhile.
        HygBackground::run(tr("Saving project '%1'…").arg(QFileInfo(path).fileName()),
                           [this, file = path.toStdString()] { writeProject(*m_project, file); });
        return true;
    } catch (const std::exception & ex) {
        const auto * cause = dynamic_cast<const KOR::Exception *>(&ex);
        fail(KOR::Exception(
            cause != nullptr ? *cause : KOR::Exception(ex.what(), "[HygProjectHandler::write]"),
            tr("The project could not be saved as '%1'. Nothing is lost: it is still open, with all changes.")
                .arg(shown(path))
                .toStdString(),
            "[HygProjectHandler::write]"));
        return false;
    }
}

bool HygProjectHandler::save() {
    if (!m_project)
        return false;
    const auto refuse = [this](const QString & reason) {
        fail(KOR::Exception(KOR::Exception(reason.toStdString(), "[HygProjectHandler::save]"),
                            tr("Project '%1' has not been saved.").arg(shown(projectFile())).toStdString(),
                            "[HygProjectHandler::save]"));
        return false;
    };
    if (m_lock && !m_lock->isHeld() && !isChangedOnDisk() && m_lock->acquire())
        m_readOnlyReason.clear(); // who held it has closed it and changed nothing
    if (isReadOnly())
        return refuse(m_readOnlyReason);
    if (diskState(projectFile()).exists && isChangedOnDisk())
        return refuse(tr("Another program has changed the file in the meantime."));
    const std::string lastEdited = std::exchange(m_project->m_projectInfo.m_lastEdited, now());
    if (!write(projectFile())) {
        // A save that failed at its very end has replaced the file: that was no other program.
        if (isChangedOnDisk() && isContentOf(*m_project, m_project->m_fileName))
            takeOverFile(projectFile());
        m_project->m_projectInfo.m_lastEdited = lastEdited;
        return false;
    }
    takeOverFile(projectFile());
    m_undoStack->setClean();
    setIsModified(false);
    m_journal->saved(); // the file is another one even if nothing had changed
    emit projectFileChanged(projectFile());
    return true;
}

bool HygProjectHandler::saveAs(const QString & path) {
    if (!m_project)
        return false;
    if (HygProjectLock::lockPath(path) == HygProjectLock::lockPath(projectFile())) {
        keepOverDisk();
        return save();
    }
    std::unique_ptr<HygProjectLock> lock = lockFor(path);
    if (!lock->isHeld() && QFileInfo::exists(path)) {
        fail(KOR::Exception(
            KOR::Exception(lock->problem().toStdString(), "[HygProjectHandler::saveAs]"),
            tr("The project could not be saved as '%1'. Nothing is lost: it is still open, with all changes.")
                .arg(shown(path))
                .toStdString(),
            "[HygProjectHandler::saveAs]"));
        return false;
    }
    HYGRION::Project before = *m_project;
    const std::string file = QFileInfo(path).absoluteFilePath().toStdString();
    const bool hasMovedPaths = rebasePaths(*m_project, file);
    m_project->m_fileName = file;
    m_project->m_projectInfo.m_lastEdited = now();
    if (!write(path)) {
        *m_project = std::move(before);
        return false;
    }
    m_lock = std::move(lock);
    m_readOnlyReason.clear();
    takeOverFile(path);
    if (hasMovedPaths)
        m_undoStack->clear(); // the commands hold paths from the old place
    m_undoStack->setClean();
    setIsModified(false);
    m_journal->start(m_journalDirectory, path);
    if (hasMovedPaths)
        emit modified(HygModification::ProjectReplaced, nullptr);
    emit projectFileChanged(projectFile());
    return true;
}

bool HygProjectHandler::saveCopy(const QString & path) {
    if (!m_project || HygProjectLock::lockPath(path) == HygProjectLock::lockPath(projectFile()))
        return save();
    HYGRION::Project before = *m_project;
    rebasePaths(*m_project, QFileInfo(path).absoluteFilePath().toStdString());
    const bool isWritten = write(path);
    *m_project = std::move(before);
    return isWritten;
}

// ---- the file on the disk

HygProjectHandler::DiskState HygProjectHandler::diskState(const QString & path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return {true, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ino};
}

void HygProjectHandler::takeOverFile(const QString & path) {
    m_diskState = diskState(path);
    if (!m_watcher.files().isEmpty() || !m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.files() + m_watcher.directories());
    // A file that is replaced drops out of the watch; its directory does not.
    m_watcher.addPaths({path, QFileInfo(path).absolutePath()});
}

bool HygProjectHandler::isChangedOnDisk() const {
    return m_project && diskState(projectFile()) != m_diskState;
}

void HygProjectHandler::keepOverDisk() {
    if (m_project)
        takeOverFile(projectFile());
}

void HygProjectHandler::checkDisk() {
    if (!isChangedOnDisk())
        return;
    if (HygBackground::isBusy())
        return m_watchDelay.start();
    emit changedOnDisk(diskState(projectFile()).exists);
}
