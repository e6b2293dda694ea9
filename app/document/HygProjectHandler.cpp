#include "document/HygProjectHandler.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

HygProjectHandler * theInstance = nullptr; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

} // namespace

HygProjectHandler::HygProjectHandler(QObject * parent) : QObject(parent), m_previous(theInstance) {
    theInstance = this;
}

HygProjectHandler::~HygProjectHandler() {
    if (theInstance == this)
        theInstance = m_previous;
}

HygProjectHandler * HygProjectHandler::instance() {
    return theInstance;
}

void HygProjectHandler::setModified(int modificationType, void * data) {
    m_isModified = true;
    emit modified(modificationType, data);
}

QString HygProjectHandler::projectFile() const {
    return m_project ? QString::fromStdString(m_project->m_fileName) : QString();
}

bool HygProjectHandler::createProject(const QString & path) {
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    HYGRION::Project project;
    project.m_projectInfo.m_created = now.toStdString();
    project.m_projectInfo.m_lastEdited = now.toStdString();
    project.m_projectInfo.m_projectName = QFileInfo(path).completeBaseName().toStdString();
    // The reason is in the messages: the writer reports it there.
    if (!project.writeXML(path.toStdString())) {
        emit failed(tr("Cannot write the new project '%1'.").arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return openProject(path);
}

bool HygProjectHandler::openProject(const QString & path) {
    const std::string file = path.toStdString();
    bool isRead = false;
    try {
        KOR::removeLeftovers(file);
        auto project = std::make_unique<HYGRION::Project>();
        project->readXML(file);
        m_project = std::move(project);
        isRead = true;
        KOR::message(KOR::text("Project '%1' opened: %2 x %3 x %4 cells, %5 materials, %6 assignments.", file,
                               m_project->m_disc.nx(), m_project->m_disc.ny(), m_project->m_disc.nz(),
                               m_project->m_materials.size(), m_project->m_assignments.size()),
                     KOR::MSG_INFORMATION, "[HygProjectHandler::openProject]");
    } catch (const KOR::Exception & ex) {
        const KOR::Exception story(ex, KOR::text("Cannot open project '%1'.", file),
                                   "[HygProjectHandler::openProject]");
        story.report();
        emit failed(QString::fromUtf8(story.what()));
    }
    emit projectFileChanged(projectFile());
    return isRead;
}
