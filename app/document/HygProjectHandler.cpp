#include "document/HygProjectHandler.h"

#include "undo/HygModification.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

namespace {

/// In the order of their construction.
std::vector<HygProjectHandler *> instances; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

std::string now() {
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

} // namespace

HygProjectHandler::HygProjectHandler(QObject * parent) : QObject(parent), m_undoStack(new QUndoStack(this)) {
    instances.push_back(this);
    connect(m_undoStack, &QUndoStack::cleanChanged, this, [this](bool isClean) { setIsModified(!isClean); });
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
    emit modified(modificationType, data);
}

void HygProjectHandler::setIsModified(bool isModified) {
    if (m_isModified == isModified)
        return;
    m_isModified = isModified;
    emit modifiedChanged(isModified);
}

void HygProjectHandler::replaceProject(std::unique_ptr<HYGRION::Project> project) {
    m_undoStack->clear();
    m_undoStack->setUndoLimit(static_cast<int>(m_undoLimit));
    m_project = std::move(project);
    setIsModified(false);
    emit modified(HygModification::ProjectReplaced, nullptr);
}

void HygProjectHandler::fail(const QString & problem) {
    emit failed(problem);
}

bool HygProjectHandler::createProject(const QString & path) {
    HYGRION::Project project;
    project.m_projectInfo.m_created = now();
    project.m_projectInfo.m_lastEdited = project.m_projectInfo.m_created;
    project.m_projectInfo.m_projectName = QFileInfo(path).completeBaseName().toStdString();
    // The reason is in the messages: the writer reports it there.
    if (!project.writeXML(path.toStdString())) {
        fail(tr("Cannot write the new project '%1'.").arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return openProject(path);
}

bool HygProjectHandler::openProject(const QString & path) {
    const std::string file = QFileInfo(path).absoluteFilePath().toStdString();
    bool isRead = false;
    try {
        if (!QFileInfo::exists(path))
            throw KOR::Exception(
                tr("The project file '%1' does not exist.").arg(QDir::toNativeSeparators(path)).toStdString(),
                "[HygProjectHandler::openProject]");
        KOR::removeLeftovers(file);
        auto project = std::make_unique<HYGRION::Project>();
        project->readXML(file);
        replaceProject(std::move(project));
        isRead = true;
        KOR::message(KOR::text("Project '%1' opened: %2 x %3 x %4 cells, %5 materials, %6 assignments.", file,
                               m_project->m_disc.nx(), m_project->m_disc.ny(), m_project->m_disc.nz(),
                               m_project->m_materials.size(), m_project->m_assignments.size()),
                     KOR::MSG_INFORMATION, "[HygProjectHandler::openProject]");
    } catch (const KOR::Exception & ex) {
        const KOR::Exception story(ex, KOR::text("Cannot open project '%1'.", file),
                                   "[HygProjectHandler::openProject]");
        story.report();
        fail(QString::fromUtf8(story.what()));
    }
    emit projectFileChanged(projectFile());
    return isRead;
}

bool HygProjectHandler::write(const QString & path) {
    if (m_project->writeXML(path.toStdString()))
        return true;
    fail(tr("The project could not be saved as '%1'. Nothing is lost: it is still open, with all changes.")
             .arg(QDir::toNativeSeparators(path)));
    return false;
}

bool HygProjectHandler::save() {
    return saveAs(projectFile());
}

bool HygProjectHandler::saveAs(const QString & path) {
    if (!m_project)
        return false;
    const std::string lastEdited = std::exchange(m_project->m_projectInfo.m_lastEdited, now());
    const std::string fileName = std::exchange(m_project->m_fileName, path.toStdString());
    if (!write(path)) {
        m_project->m_projectInfo.m_lastEdited = lastEdited;
        m_project->m_fileName = fileName;
        return false;
    }
    m_undoStack->setClean();
    setIsModified(false);
    emit projectFileChanged(path);
    return true;
}

bool HygProjectHandler::saveCopy(const QString & path) {
    return m_project && write(path);
}

void HygProjectHandler::closeProject() {
    replaceProject(nullptr);
    emit projectFileChanged({});
}
