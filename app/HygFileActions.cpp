#include "HygFileActions.h"

#include "HygSettings.h"
#include "dialogs/HygRecoveryDialog.h"
#include "document/HygBackground.h"
#include "document/HygProjectHandler.h"
#include "document/HygProjectPackage.h"

#include <KOR/Exception.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>

#include <atomic>
#include <memory>

namespace {

constexpr const char * PROJECT_SUFFIX = HYGRION::Project::FILE_EXTENSION;
constexpr const char * PACKAGE_SUFFIX = HygProjectPackage::FILE_EXTENSION;
constexpr HygFileActions::FileKind PROJECTS = {PROJECT_SUFFIX,
                                               QT_TRANSLATE_NOOP("HygFileActions", "Hygrion projects (*.%1)")};
constexpr HygFileActions::FileKind PACKAGES = {PACKAGE_SUFFIX,
                                               QT_TRANSLATE_NOOP("HygFileActions", "Hygrion project packages (*.%1)")};

bool hasSuffix(const QString & path, const char * suffix) {
    return QFileInfo(path).suffix().compare(QLatin1String(suffix), Qt::CaseInsensitive) == 0;
}

/// The project without its folder and suffix, as the user calls it.
QString nameOf(const QString & path) {
    return QFileInfo(path).completeBaseName();
}

} // namespace

HygFileActions::HygFileActions(QWidget & window, HygProjectHandler & projects, HygSettings & settings)
    : QObject(&window), m_window(window), m_projects(projects), m_settings(settings) {
    connect(&m_projects, &HygProjectHandler::changedOnDisk, this, &HygFileActions::answerDiskChange);
}

bool HygFileActions::settle() {
    if (!m_projects.isModified())
        return true;
    QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(),
                    tr("Save the changes of project '%1'?").arg(nameOf(m_projects.projectFile())),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &m_window);
    box.setObjectName(QStringLiteral("unsavedChanges"));
    box.setInformativeText(tr("Changes that are not saved are lost when the project is closed."));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        save();
        return !m_projects.isModified();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

bool HygFileActions::isOpenable(const QString & path) {
    return hasSuffix(path, PROJECT_SUFFIX) || hasSuffix(path, PACKAGE_SUFFIX);
}

bool HygFileActions::open(const QString & path) {
    emit opening();
    if (hasSuffix(path, PACKAGE_SUFFIX))
        return unpack(path);
    if (!settle())
        return false;
    return offerRecovery(path) || m_projects.openProject(path);
}

bool HygFileActions::offerRecovery(const QString & projectFile) {
    std::vector<HygJournal::Entry> entries = HygJournal::orphans(m_projects.journalDirectory(), projectFile);
    if (entries.empty())
        return false;
    HygRecoveryDialog dialog(std::move(entries), &m_window);
    connect(&dialog, &HygRecoveryDialog::discarded, &HygJournal::discard);
    dialog.exec();
    switch (dialog.choice()) {
    case HygRecoveryDialog::OpenRecovered:
        return m_projects.openRecovered(dialog.entry());
    case HygRecoveryDialog::OpenBoth:
        return openBoth(dialog.entry());
    case HygRecoveryDialog::OpenFile:
        return m_projects.openProject(dialog.entry().projectFile);
    case HygRecoveryDialog::Later:
        break;
    }
    return false;
}

bool HygFileActions::openBoth(const HygJournal::Entry & entry) {
    if (!m_projects.openRecovered(entry))
        return false;
    if (!QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                 {QStringLiteral("--no-splash=true"), entry.projectFile}))
        emit noticed(tr("The second window could not be opened."));
    return true;
}

QString HygFileActions::choose(const char * name, const QString & title, const QString & start, bool isForSaving,
                               const FileKind & kind) {
    const QString suffix = QLatin1String(kind.suffix);
    const QString directory = m_settings.m_lastFileOpenDirectory.isEmpty() && !m_projects.projectFile().isEmpty()
                                  ? QFileInfo(m_projects.projectFile()).absolutePath()
                                  : m_settings.m_lastFileOpenDirectory;
    QFileDialog dialog(&m_window, title, directory, tr(kind.name).arg(suffix));
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
    const QString path = choose("newProjectDialog", tr("New project"), {}, true, PROJECTS);
    if (!path.isEmpty())
        m_projects.createProject(path);
}

void HygFileActions::chooseOpen() {
    const QString path = choose("openProjectDialog", tr("Open project"), {}, false, PROJECTS);
    if (!path.isEmpty())
        open(path);
}

void HygFileActions::save() {
    if (m_projects.isReadOnly())
        return saveAs();
    if (!m_projects.isChangedOnDisk() || !QFileInfo::exists(m_projects.projectFile())) {
        m_projects.save();
        return;
    }
    QMessageBox box(
        QMessageBox::Warning, QCoreApplication::applicationName(),
        tr("Another program has changed the file of project '%1'. Overwrite it?").arg(nameOf(m_projects.projectFile())),
        QMessageBox::NoButton, &m_window);
    box.setObjectName(QStringLiteral("overwriteChanged"));
    box.setInformativeText(tr("The changes that the other program made are lost then."));
    const QPushButton * overwrite = box.addButton(tr("&Overwrite"), QMessageBox::AcceptRole);
    const QPushButton * other = box.addButton(tr("Save &as…"), QMessageBox::ActionRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() == overwrite) {
        m_projects.keepOverDisk();
        m_projects.save();
    } else if (box.clickedButton() == other) {
        saveAs();
    }
}

void HygFileActions::saveAs() {
    QString proposed = m_projects.projectFile();
    if (m_projects.isReadOnly()) { // its own name cannot be taken
        const QFileInfo file(proposed);
        for (int n = 2; QFileInfo::exists(proposed); ++n)
            proposed = QStringLiteral("%1/%2 (%3).%4")
                           .arg(file.absolutePath(), file.completeBaseName(), QString::number(n), file.suffix());
    }
    const QString path = choose("saveProjectDialog", tr("Save project as"), proposed, true, PROJECTS);
    if (!path.isEmpty())
        m_projects.saveAs(path);
}

void HygFileActions::saveCopy() {
    const QString path = choose("saveCopyDialog", tr("Save a copy"), m_projects.projectFile(), true, PROJECTS);
    if (!path.isEmpty())
        m_projects.saveCopy(path);
}

void HygFileActions::close() {
    if (settle())
        m_projects.closeProject();
}

void HygFileActions::answerDiskChange(bool exists) {
    if (m_isAsking)
        return;
    const QString name = nameOf(m_projects.projectFile());
    if (!exists) {
        emit noticed(
            tr("The file of project '%1' has been removed or renamed. The project is still open; saving writes it "
               "anew.")
                .arg(name));
        return;
    }
    if (!m_projects.isModified()) {
        if (m_projects.reload())
            emit m_projects.noticed(tr("Another program has changed project '%1'; it has been read again.").arg(name));
        else
            m_projects.keepOverDisk(); // what is wrong with it has been told
        return;
    }
    QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(),
                    tr("Another program has changed the file of project '%1'.").arg(name), QMessageBox::NoButton,
                    &m_window);
    box.setObjectName(QStringLiteral("changedOnDisk"));
    box.setInformativeText(tr("You have changes that are not saved. Reading the file again gives them up; keeping them "
                              "leaves the file as it is "
                              "until you save."));
    const QPushButton * read = box.addButton(tr("&Read again"), QMessageBox::DestructiveRole);
    QPushButton * keep = box.addButton(tr("&Keep my changes"), QMessageBox::RejectRole);
    box.setDefaultButton(keep);
    box.setEscapeButton(keep);
    m_isAsking = true;
    box.exec();
    m_isAsking = false;
    if (box.clickedButton() != read || !m_projects.reload())
        m_projects.keepOverDisk();
}

// ---- packages

void HygFileActions::exportPackage() {
    const QString start = QFileInfo(m_projects.projectFile()).dir().filePath(nameOf(m_projects.projectFile()));
    const QString path = choose("exportPackageDialog", tr("Export project package"), start, true, PACKAGES);
    if (path.isEmpty())
        return;
    const auto isStopped = std::make_shared<std::atomic<bool>>(false);
    const auto project = std::make_shared<const HYGRION::Project>(m_projects.project());
    try {
        if (HygBackground::runCancellable(tr("Packing project '%1'…").arg(nameOf(m_projects.projectFile())), [=] {
                HygProjectPackage::write(*project, path, [=] { return isStopped->load(); });
            }))
            emit noticed(tr("The project has been packed as '%1'.").arg(QDir::toNativeSeparators(path)));
        else
            *isStopped = true;
    } catch (const KOR::Exception & ex) {
        m_projects.fail(
            KOR::Exception(ex, tr("The project cannot be packed.").toStdString(), "[HygFileActions::exportPackage]"));
    }
}

void HygFileActions::importPackage() {
    const QString path = choose("importPackageDialog", tr("Import project package"), {}, false, PACKAGES);
    if (!path.isEmpty())
        unpack(path);
}

bool HygFileActions::unpack(const QString & package) {
    if (!settle())
        return false;
    QFileDialog dialog(&m_window, tr("Folder to unpack project '%1' in").arg(nameOf(package)),
                       QFileInfo(package).absolutePath());
    dialog.setObjectName(QStringLiteral("unpackDialog"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::DontUseNativeDialog, m_settings.m_dontUseNativeDialogs);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString folder = dialog.selectedFiles().constFirst();
    const auto isStopped = std::make_shared<std::atomic<bool>>(false);
    const auto project = std::make_shared<QString>();
    try {
        if (!HygBackground::runCancellable(tr("Unpacking '%1'…").arg(QFileInfo(package).fileName()), [=] {
                *project = HygProjectPackage::extract(package, folder, [=] { return isStopped->load(); });
            })) {
            *isStopped = true;
            return false;
        }
    } catch (const KOR::Exception & ex) {
        m_projects.fail(KOR::Exception(
            ex, tr("The package '%1' cannot be opened.").arg(QDir::toNativeSeparators(package)).toStdString(),
            "[HygFileActions::unpack]"));
        return false;
    }
    if (!m_projects.openProject(*project))
        return false;
    emit noticed(
        tr("The package has been unpacked into '%1'.").arg(QDir::toNativeSeparators(QFileInfo(*project).path())));
    return true;
}
