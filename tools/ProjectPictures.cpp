#include "ProjectPictures.h"

#include "HygMainWindow.h"
#include "dialogs/HygCommandSearch.h"
#include "dialogs/HygHelpWindow.h"
#include "dialogs/HygRecoveryDialog.h"
#include "document/HygProjectHandler.h"
#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoSections.h"

#include <KOR/Exception.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

#include <cstdio>

namespace {

void save(QWidget & widget, const QString & path) {
    QTest::qWait(80);
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[pictures]");
    std::printf("%s\n", qPrintable(path));
}

/// Draws a modal dialog, which \p open shows, and closes it.
void saveModal(HygMainWindow & window, const char * name, const QString & path, const std::function<void()> & open,
               const std::function<void(QWidget &)> & prepare = {}) {
    QTimer::singleShot(200, &window, [&] {
        auto * dialog = window.findChild<QDialog *>(QLatin1String(name));
        if (prepare)
            prepare(*dialog);
        save(*dialog, path);
        dialog->reject();
    });
    open();
}

} // namespace

void drawProjectPictures(HygMainWindow & window, const QString & project, const QString & target,
                         const QString & suffix) {
    // A date that does not change with the day on which the pictures are drawn.
    const QDateTime saved(QDate(2026, 11, 20), QTime(16, 42, 10));
    QFile stamp(project);
    if (stamp.open(QIODevice::ReadWrite))
        stamp.setFileTime(saved, QFileDevice::FileModificationTime);
    stamp.close();
    const QString folder = QFileInfo(project).path();
    HygRecoveryDialog recovery(
        {
            {"1", project,               saved.addSecs(-900), saved.addSecs(2400), 38},
            {"2", folder + "/Attic.h6p", saved,               saved.addDays(-3),   2 }
    },
        &window);
    recovery.show();
    save(recovery, target + "/recovery" + suffix);
    recovery.close();

    window.openProject(project);
    HYGRION::MaterialReference brick;
    for (const char * name : {"Brick", "Lime plaster", "Calcium silicate"}) {
        brick.m_name = name;
        window.undoStack().push(
            new HygUndoAddMaterial(QApplication::translate("HygConstructionEditor", "Add material"), brick));
    }
    auto * history = window.findChild<QDockWidget *>("historyDock");
    history->show();
    window.undoStack().undo();
    // No path of this computer: neither in the messages nor in the status bar nor in the list of recent projects.
    auto & log = *window.findChild<QDockWidget *>("logDock");
    log.hide();
    window.findChild<QMenu *>("menuRecent")->clear();
    window.findChild<QLabel *>("projectFile")->setText(QFileInfo(project).fileName());
    save(window, target + "/history" + suffix);
    history->hide();
    saveModal(window, "unsavedChanges", target + "/unsaved" + suffix,
              [&] { window.findChild<QAction *>("actionClose")->trigger(); });
    saveModal(
        window, "commandSearch", target + "/commands" + suffix,
        [&] { window.findChild<QAction *>("actionFindCommand")->trigger(); },
        [](QWidget & dialog) { dialog.findChild<QLineEdit *>("commandField")->setText("p"); });
    log.show();
    window.undoStack().setIndex(0);
    window.projects().closeProject();
    window.showHelp("projects");
    auto * help = window.findChild<HygHelpWindow *>();
    save(*help, target + "/help" + suffix);
    help->close();
}
