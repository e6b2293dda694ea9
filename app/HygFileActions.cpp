#include "HygFileActions.h"

#include "HygSettings.h"
#include "document/HygProjectHandler.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

HygFileActions::HygFileActions(QWidget & window, HygProjectHandler & projects, HygSettings & settings)
    : QObject(&window), m_window(window), m_projects(projects), m_settings(settings) {}

bool HygFileActions::settle() {
    if (!m_projects.isModified())
        return true;
    QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(),
                    tr("Save the changes of project '%1'?").arg(QFileInfo(m_projects.projectFile()).completeBaseName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &m_window);
    box.setObjectName(QStringLiteral("unsavedChanges"));
    box.setInformativeText(tr("Changes that are not saved are lost when the project is closed."));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return m_projects.save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

bool HygFileActions::open(const QString & path) {
    return settle() && m_projects.openProject(path);
}

QString HygFileActions::choose(const char * name, const QString & title, const QString & start, bool isForSaving) {
    const QString suffix = QLatin1String(HYGRION::Project::FILE_EXTENSION);
    QFileDialog dialog(&m_window, title, m_settings.m_lastFileOpenDirectory, tr("Hygrion projects (*.%1)").arg(suffix));
    dialog.setObjectName(QLatin1String(name));
    dialog.setFileMode(isForSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(isForSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setDefaultSuffix(suffix);
    dialog.setOption(QFileDialog::DontUseNativeDialog, m_settings.m_dontUseNativeDialogs);
    if (!start.isEmpty())
        dialog.selectFile(start);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString path = dialog.selectedFiles().constFirst();
    m_settings.m_lastFileOpenDirectory = QFileInfo(path).absolutePath();
    return path;
}

void HygFileActions::chooseNew() {
    if (!settle())
        return;
    const QString path = choose("newProjectDialog", tr("New project"), {}, true);
    if (!path.isEmpty())
        m_projects.createProject(path);
}

void HygFileActions::chooseOpen() {
    const QString path = choose("openProjectDialog", tr("Open project"), {}, false);
    if (!path.isEmpty())
        open(path);
}

void HygFileActions::save() {
    m_projects.save();
}

void HygFileActions::saveAs() {
    const QString path = choose("saveProjectDialog", tr("Save project as"), m_projects.projectFile(), true);
    if (!path.isEmpty())
        m_projects.saveAs(path);
}

void HygFileActions::saveCopy() {
    const QString path = choose("saveCopyDialog", tr("Save a copy"), m_projects.projectFile(), true);
    if (!path.isEmpty())
        m_projects.saveCopy(path);
}

void HygFileActions::close() {
    if (settle())
        m_projects.closeProject();
}
