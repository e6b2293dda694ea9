#pragma once

#include "views/HygLogModel.h"
#include "views/HygViewTable.h"

#include <QMainWindow>

#include <map>
#include <memory>

namespace QtExt {
class LanguageHandler;
}
namespace Ui {
class HygMainWindow;
}
class HygFileActions;
class HygHelpWindow;
class HygLogView;
class HygNavigationButton;
class HygProjectHandler;
class HygSettings;
class HygStartView;
class QActionGroup;
class QLabel;
class QUndoStack;

/// The one window of the editor: navigation bar, views, log view, menus. It owns the project handler and the views;
/// settings, language handler and messages outlive it.
class HygMainWindow : public QMainWindow {
    Q_OBJECT
public:
    using view_t = HygViewTable::view_t;

    /// Opens the project file of the command line once it is constructed.
    HygMainWindow(HygSettings & settings, QtExt::LanguageHandler & languages, HygLogModel & messages);
    ~HygMainWindow() override;

    HygProjectHandler & projects() { return *m_projects; }
    /// The undo stack of the project handler.
    QUndoStack & undoStack();

    /// A view that is not there, or cannot be chosen without a project, leaves the present one.
    void showView(view_t id);
    view_t currentView() const;

    /// Opens a project after asking what is to become of unsaved changes. False if it is not open then.
    bool openProject(const QString & path);
    /// A message that stays in view until the user closes it.
    void showProblem(const QString & text);
    /// A page of the user guide, by its name without suffix.
    void showHelp(const QString & page);

public slots:
    /// Shows the view where a definition is edited, see HygViewTable::viewOfPlace.
    void showPlace(const QString & place);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;
    void closeEvent(QCloseEvent * event) override;
    void dragEnterEvent(QDragEnterEvent * event) override;
    void dropEvent(QDropEvent * event) override;
    void paintEvent(QPaintEvent * event) override;

private:
    struct View {
        const HygViewTable::Row * row;
        QWidget * widget;
        HygNavigationButton * button;
        QAction * action;
    };

    void setUpViews();
    void addView(const HygViewTable::Row & row, QWidget * widget);
    void updateViewMenu();
    void setUpStartView();
    void setUpUndo();
    void setUpHistory();
    void startWork();
    void showHelpOfFocus();
    void searchCommands();
    void showDefinition(int kind, const QString & name);
    void showMaterial(const QString & path);
    void setUpLog();
    void setUpActions();
    void setUpChoices();
    void retranslate();
    void updateRecentProjects();
    void takeNoteOfFiles();
    void updateTitle();
    void updateUndo();
    void updateBadge();
    void takeOverProject(const QString & path);
    void removeRecent(const QStringList & paths);
    void showMessages(bool on);
    void setFullScreen(bool on);
    void openPath(const QString & path);
    void openLogFile();
    void setLanguage(const QString & langId);
    void setTheme(const QString & theme);
    void showPreferences();
    void takeOverSettings();
    void updateChoices();

    HygSettings & m_settings;
    QtExt::LanguageHandler & m_languages;
    HygLogModel & m_messages;
    std::unique_ptr<Ui::HygMainWindow> m_ui;
    HygProjectHandler * m_projects;
    HygFileActions * m_files;
    HygStartView * m_startView = nullptr;
    HygLogView * m_logView = nullptr;
    HygHelpWindow * m_help = nullptr;
    std::map<view_t, View> m_views;
    HygNavigationButton * m_logButton = nullptr;
    HygNavigationButton * m_preferencesButton = nullptr;
    QActionGroup * m_languageChoice = nullptr;
    QActionGroup * m_themeChoice = nullptr;
    QLabel * m_projectLabel = nullptr;
    QString m_shownProject; ///< file of the project that the views show
    bool m_isPainted = false;
    int m_problemsSeen = 0; ///< warnings and errors that were there when the log view was last in view
};
