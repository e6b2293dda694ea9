#pragma once

#include "views/HygLogModel.h"

#include <QMainWindow>

#include <map>
#include <memory>

namespace QtExt {
class LanguageHandler;
}
namespace Ui {
class HygMainWindow;
}
class HygLogView;
class HygNavigationButton;
class HygSettings;
class HygStartView;
class QActionGroup;
class QLabel;
class QUndoStack;

/// The one window of the editor: navigation bar, views, log view, menus. It owns the views; settings, language handler
/// and messages outlive it.
class HygMainWindow : public QMainWindow {
    Q_OBJECT
public:
    /// In the order of the navigation bar. A view that is not added has no button.
    enum view_t { Start, Construction, Conditions, Outputs, Simulation, Results, Reports, NUM_VIEWS };

    /// Opens the project file of the command line once it is constructed.
    HygMainWindow(HygSettings & settings, QtExt::LanguageHandler & languages, HygLogModel & messages);
    ~HygMainWindow() override;

    /// The window owns the view from here on.
    void addView(view_t id, QWidget * view);
    void showView(view_t id);
    view_t currentView() const;

    /// Takes the file as the window's project and puts it on top of the recent ones, then asks for it to be read.
    /// A file that is missing is named in the message bar. Returns whether the file is there.
    bool openProject(const QString & path);
    /// The project that is open now, for title and status bar; none if empty.
    void setProjectFile(const QString & path);
    /// A message that stays in view until the user closes it.
    void showProblem(const QString & text);

    /// Every change of the project is pushed here. Limited by the settings while it is empty.
    QUndoStack & undoStack() { return *m_undoStack; }

signals:
    /// Who handles projects connects here; what nobody is connected to is not offered.
    void newProjectRequested(const QString & path);
    void openProjectRequested(const QString & path);

protected:
    void changeEvent(QEvent * event) override;
    void closeEvent(QCloseEvent * event) override;
    void paintEvent(QPaintEvent * event) override;
    void connectNotify(const QMetaMethod & signal) override;
    void disconnectNotify(const QMetaMethod & signal) override;

private:
    void setUpViews();
    void setUpLog();
    void setUpActions();
    void setUpChoices();
    void retranslate();
    void updateOffers();
    void updateRecentProjects();
    void updateTitle();
    void updateBadge();
    void chooseProject();
    void chooseNewProject();
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
    HygStartView * m_startView = nullptr;
    HygLogView * m_logView = nullptr;
    std::map<view_t, QWidget *> m_views;
    std::map<view_t, HygNavigationButton *> m_viewButtons;
    std::map<view_t, QAction *> m_viewActions;
    HygNavigationButton * m_logButton = nullptr;
    HygNavigationButton * m_preferencesButton = nullptr;
    QActionGroup * m_languageChoice = nullptr;
    QActionGroup * m_themeChoice = nullptr;
    QLabel * m_projectLabel = nullptr;
    QUndoStack * m_undoStack;
    QString m_projectFile;
    bool m_isPainted = false;
    int m_problemsSeen = 0; ///< warnings and errors that were there when the log view was last in view
};
