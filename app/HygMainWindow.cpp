#include "HygMainWindow.h"

#include "HygIconEngine.h"
#include "HygSettings.h"
#include "dialogs/HygAboutDialog.h"
#include "dialogs/HygPreferencesDialog.h"
#include "ui_HygMainWindow.h"
#include "views/HygLogView.h"
#include "views/HygNavigationButton.h"
#include "views/HygStartView.h"

#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <QActionGroup>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMetaMethod>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QUndoStack>
#include <QUrl>

namespace {

struct ViewRow {
    const char * title;
    const char * icon;
};
constexpr ViewRow VIEWS[] = {
    {QT_TRANSLATE_NOOP("HygMainWindow", "Start"),        "start"       },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Construction"), "construction"},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Conditions"),   "conditions"  },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Outputs"),      "outputs"     },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Simulation"),   "simulation"  },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Results"),      "results"     },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Reports"),      "reports"     },
};
static_assert(std::size(VIEWS) == HygMainWindow::NUM_VIEWS, "view table and enumeration disagree");

struct ChoiceRow {
    const char * value;
    const char * text;
};
// A language is named in itself, so that who cannot read the present one finds the way back.
constexpr ChoiceRow LANGUAGES[] = {
    {"en", "English"},
    {"de", "Deutsch"},
};
constexpr ChoiceRow THEMES[] = {
    {QtExt::Palette::SYSTEM, QT_TRANSLATE_NOOP("HygMainWindow", "As the &system")},
    {QtExt::Palette::LIGHT,  QT_TRANSLATE_NOOP("HygMainWindow", "&Light")        },
    {QtExt::Palette::DARK,   QT_TRANSLATE_NOOP("HygMainWindow", "&Dark")         },
};

constexpr const char * PROJECT_SUFFIX = "h6p";
constexpr int STATE_VERSION = 1;
constexpr int LOG_HEIGHT = 226;

} // namespace

HygMainWindow::HygMainWindow(HygSettings & settings, QtExt::LanguageHandler & languages, HygLogModel & messages)
    : m_settings(settings), m_languages(languages), m_messages(messages), m_ui(new Ui::HygMainWindow),
      m_undoStack(new QUndoStack(this)) {
    m_undoStack->setUndoLimit(static_cast<int>(m_settings.m_maxNumUndoSteps));
    m_ui->setupUi(this);
    m_projectLabel = new QLabel(this);
    m_projectLabel->setObjectName(QStringLiteral("projectFile"));
    m_ui->statusBar->addPermanentWidget(m_projectLabel);
    setUpViews();
    setUpLog();
    setUpActions();
    setUpChoices();
    updateOffers();
    updateRecentProjects();
    retranslate();
    showView(Start);

    resize(size().boundedTo(screen()->availableSize()));
    restoreGeometry(m_settings.m_mainWindowGeometry);
    if (!restoreState(m_settings.m_mainWindowState, STATE_VERSION))
        resizeDocks({m_ui->logDock}, {LOG_HEIGHT}, Qt::Vertical);
    m_problemsSeen = 0;
    updateBadge();

    if (!m_settings.m_initialProjectFile.isEmpty())
        QMetaObject::invokeMethod(
            this, [this] { openProject(m_settings.m_initialProjectFile); }, Qt::QueuedConnection);
}

HygMainWindow::~HygMainWindow() {
    // The base class hides the children when our own members are gone already.
    disconnect(m_ui->logDock, nullptr, this, nullptr);
    disconnect(&m_messages, nullptr, this, nullptr);
}

void HygMainWindow::setUpViews() {
    m_startView = new HygStartView(this);
    m_startView->setExamplesDirectory(m_settings.directory(HygSettings::DIR_EXAMPLES));
    addView(Start, m_startView);
    connect(m_ui->navigationBar, &HygNavigationBar::selected, this,
            [this](int id) { showView(static_cast<view_t>(id)); });
    connect(m_startView, &HygStartView::newProjectRequested, this, &HygMainWindow::chooseNewProject);
    connect(m_startView, &HygStartView::chooseProjectRequested, this, &HygMainWindow::chooseProject);
    connect(m_startView, &HygStartView::openProjectRequested, this, &HygMainWindow::openProject);
    connect(m_startView, &HygStartView::removeRecentRequested, this,
            [this](const QString & path) { removeRecent({path}); });
    connect(m_startView, &HygStartView::removeMissingRequested, this, [this] {
        QStringList missing;
        for (const QString & path : m_settings.m_recentProjects)
            if (!QFileInfo(path).isFile())
                missing << path;
        removeRecent(missing);
    });
}

void HygMainWindow::setUpLog() {
    m_logView = new HygLogView(m_messages, m_ui->logDock);
    m_ui->logDock->setWidget(m_logView);
    QAction * toggle = m_ui->logDock->toggleViewAction();
    toggle->setIcon(HygIconEngine::icon(QStringLiteral("log")));
    toggle->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    m_ui->menuView->insertAction(m_ui->menuAppearance->menuAction(), toggle);
    m_ui->menuView->insertSeparator(m_ui->menuAppearance->menuAction());

    m_logButton = &m_ui->navigationBar->addTool(QStringLiteral("log"));
    m_logButton->setObjectName(QStringLiteral("logButton"));
    connect(m_logButton, &QAbstractButton::clicked, this, [this] { showMessages(!m_ui->logDock->isVisible()); });
    connect(m_ui->logDock, &QDockWidget::visibilityChanged, this, &HygMainWindow::updateBadge);
    connect(&m_messages, &HygLogModel::countsChanged, this, &HygMainWindow::updateBadge);
}

void HygMainWindow::setUpActions() {
    struct ActionRow {
        QAction * action;
        const char * icon;
        void (HygMainWindow::*slot)();
    };
    const ActionRow rows[] = {
        {m_ui->actionNew,         "new",         &HygMainWindow::chooseNewProject},
        {m_ui->actionOpen,        "open",        &HygMainWindow::chooseProject   },
        {m_ui->actionPreferences, "preferences", &HygMainWindow::showPreferences },
        {m_ui->actionOpenLogFile, "logfile",     &HygMainWindow::openLogFile     },
    };
    for (const ActionRow & row : rows) {
        row.action->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        connect(row.action, &QAction::triggered, this, row.slot);
    }
    m_ui->actionQuit->setIcon(HygIconEngine::icon(QStringLiteral("quit")));
    m_ui->actionFindInLog->setIcon(HygIconEngine::icon(QStringLiteral("search")));
    m_ui->actionFullScreen->setIcon(HygIconEngine::icon(QStringLiteral("fullscreen")));
    m_ui->actionOpenDataFolder->setIcon(HygIconEngine::icon(QStringLiteral("folder")));
    m_ui->actionAbout->setIcon(HygIconEngine::icon(QStringLiteral("information")));
    m_ui->menuRecent->setIcon(HygIconEngine::icon(QStringLiteral("recent")));
    m_ui->menuLanguage->setIcon(HygIconEngine::icon(QStringLiteral("language")));

    connect(m_ui->actionQuit, &QAction::triggered, this, &QWidget::close);
    connect(m_ui->actionFindInLog, &QAction::triggered, this, [this] {
        showMessages(true);
        m_logView->startSearch();
    });
    connect(m_ui->actionFullScreen, &QAction::toggled, this, &HygMainWindow::setFullScreen);
    connect(m_ui->actionOpenDataFolder, &QAction::triggered, this,
            [this] { openPath(m_settings.directory(HygSettings::DIR_USER_DATA)); });
    connect(m_ui->actionAbout, &QAction::triggered, this, [this] { HygAboutDialog(this).exec(); });
    connect(m_ui->actionAboutQt, &QAction::triggered, qApp, &QApplication::aboutQt);

    m_preferencesButton = &m_ui->navigationBar->addTool(QStringLiteral("preferences"));
    m_preferencesButton->setObjectName(QStringLiteral("preferencesButton"));
    connect(m_preferencesButton, &QAbstractButton::clicked, this, &HygMainWindow::showPreferences);
}

void HygMainWindow::setUpChoices() {
    m_languageChoice = new QActionGroup(this);
    m_themeChoice = new QActionGroup(this);
    const auto fill = [](QActionGroup & group, QMenu & menu, auto & rows) {
        for (const ChoiceRow & row : rows) {
            QAction * action = group.addAction(QLatin1String(row.text));
            action->setCheckable(true);
            action->setData(QLatin1String(row.value));
            menu.addAction(action);
        }
    };
    fill(*m_languageChoice, *m_ui->menuLanguage, LANGUAGES);
    fill(*m_themeChoice, *m_ui->menuAppearance, THEMES);
    connect(m_languageChoice, &QActionGroup::triggered, this,
            [this](const QAction * action) { setLanguage(action->data().toString()); });
    connect(m_themeChoice, &QActionGroup::triggered, this,
            [this](const QAction * action) { setTheme(action->data().toString()); });
}

void HygMainWindow::addView(view_t id, QWidget * view) {
    m_ui->views->addWidget(view);
    m_views[id] = view;
    m_viewButtons[id] = &m_ui->navigationBar->addView(id, QLatin1String(VIEWS[id].icon));

    auto * action = new QAction(HygIconEngine::icon(QLatin1String(VIEWS[id].icon)), QString(), this);
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(id + 1)));
    connect(action, &QAction::triggered, this, [this, id] { showView(id); });
    const auto place = m_viewActions.emplace(id, action).first;
    const auto next = std::next(place);
    m_ui->menuView->insertAction(next != m_viewActions.end()
                                     ? next->second
                                     : m_ui->menuView->actions().value(static_cast<int>(m_viewActions.size()) - 1),
                                 action);
    retranslate();
}

void HygMainWindow::showView(view_t id) {
    if (const auto view = m_views.find(id); view != m_views.end()) {
        m_ui->views->setCurrentWidget(view->second);
        m_ui->navigationBar->setCurrent(id);
    }
}

HygMainWindow::view_t HygMainWindow::currentView() const {
    for (const auto & [id, view] : m_views)
        if (view == m_ui->views->currentWidget())
            return id;
    return Start;
}

bool HygMainWindow::openProject(const QString & path) {
    const QFileInfo info(path);
    if (!info.isFile()) {
        const QString problem = tr("The project file '%1' does not exist.").arg(QDir::toNativeSeparators(path));
        KOR::message(problem.toStdString(), KOR::MSG_ERROR, "[HygMainWindow::openProject]");
        showProblem(problem);
        updateRecentProjects();
        return false;
    }
    m_projectFile = info.absoluteFilePath();
    m_settings.addRecentProject(m_projectFile);
    m_settings.writeOrLog();
    updateRecentProjects();
    updateTitle();
    emit openProjectRequested(m_projectFile);
    return true;
}

void HygMainWindow::chooseProject() {
    const QString folder = m_settings.m_lastFileOpenDirectory;
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open project"), folder, tr("Hygrion projects (*.%1)").arg(QLatin1String(PROJECT_SUFFIX)), nullptr,
        m_settings.m_dontUseNativeDialogs ? QFileDialog::DontUseNativeDialog : QFileDialog::Options());
    if (path.isEmpty())
        return;
    m_settings.m_lastFileOpenDirectory = QFileInfo(path).absolutePath();
    openProject(path);
}

void HygMainWindow::chooseNewProject() {
    QFileDialog dialog(this, tr("New project"), m_settings.m_lastFileOpenDirectory,
                       tr("Hygrion projects (*.%1)").arg(QLatin1String(PROJECT_SUFFIX)));
    dialog.setObjectName(QStringLiteral("newProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String(PROJECT_SUFFIX));
    dialog.setOption(QFileDialog::DontUseNativeDialog, m_settings.m_dontUseNativeDialogs);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.selectedFiles().constFirst();
    m_settings.m_lastFileOpenDirectory = QFileInfo(path).absolutePath();
    emit newProjectRequested(path);
}

void HygMainWindow::setProjectFile(const QString & path) {
    m_projectFile = path;
    if (!path.isEmpty()) {
        m_settings.addRecentProject(path);
        m_settings.writeOrLog();
        updateRecentProjects();
    }
    updateTitle();
}

void HygMainWindow::removeRecent(const QStringList & paths) {
    for (const QString & path : paths)
        m_settings.removeRecentProject(path);
    m_settings.writeOrLog();
    updateRecentProjects();
}

void HygMainWindow::updateRecentProjects() {
    m_startView->setRecentProjects(m_settings.m_recentProjects);
    m_ui->menuRecent->clear();
    for (const QString & path : m_settings.m_recentProjects) {
        QAction * action =
            m_ui->menuRecent->addAction(QDir::toNativeSeparators(path), this, [this, path] { openProject(path); });
        action->setEnabled(QFileInfo(path).isFile());
    }
    m_ui->menuRecent->setEnabled(!m_settings.m_recentProjects.isEmpty());
}

void HygMainWindow::updateTitle() {
    setWindowTitle(
        m_projectFile.isEmpty()
            ? QCoreApplication::applicationName()
            : tr("%1[*] – %2").arg(QFileInfo(m_projectFile).completeBaseName(), QCoreApplication::applicationName()));
    m_projectLabel->setText(m_projectFile.isEmpty() ? tr("No project") : QDir::toNativeSeparators(m_projectFile));
}

void HygMainWindow::updateOffers() {
    const bool canCreate = isSignalConnected(QMetaMethod::fromSignal(&HygMainWindow::newProjectRequested));
    const bool canOpen = isSignalConnected(QMetaMethod::fromSignal(&HygMainWindow::openProjectRequested));
    m_startView->setOffers(canCreate, canOpen);
    m_ui->actionNew->setVisible(canCreate);
    m_ui->actionOpen->setVisible(canOpen);
    m_ui->menuRecent->menuAction()->setVisible(canOpen);
}

void HygMainWindow::connectNotify(const QMetaMethod &) {
    if (m_startView != nullptr)
        updateOffers();
}

void HygMainWindow::disconnectNotify(const QMetaMethod &) {
    // A receiver that is being destroyed still counts as connected.
    if (m_startView != nullptr)
        QTimer::singleShot(0, this, &HygMainWindow::updateOffers);
}

void HygMainWindow::showProblem(const QString & text) {
    m_ui->messageBar->showMessage(text);
}

void HygMainWindow::showMessages(bool on) {
    m_ui->logDock->setVisible(on);
    if (on)
        m_ui->logDock->raise();
}

void HygMainWindow::updateBadge() {
    const int problems = m_messages.count(HygLogModel::Warning) + m_messages.count(HygLogModel::Error);
    if (m_ui->logDock->isVisible() || problems < m_problemsSeen)
        m_problemsSeen = problems;
    m_logButton->setBadge(problems - m_problemsSeen);
}

void HygMainWindow::setFullScreen(bool on) {
    setWindowState(on ? windowState() | Qt::WindowFullScreen : windowState() & ~Qt::WindowFullScreen);
}

void HygMainWindow::openPath(const QString & path) {
    if (!QFileInfo::exists(path) || !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        showProblem(tr("Cannot open '%1'.").arg(QDir::toNativeSeparators(path)));
}

void HygMainWindow::openLogFile() {
    const QString path = m_settings.directory(HygSettings::DIR_USER_DATA) + QStringLiteral("/Hygrion6.log");
    const QString editor = m_settings.m_textEditorExecutable;
    if (editor.isEmpty() || !QProcess::startDetached(editor, {path}))
        openPath(path);
}

void HygMainWindow::setLanguage(const QString & langId) {
    m_settings.m_langId = langId;
    m_settings.setLangIdOfRun({});
    m_settings.writeOrLog();
    if (m_languages.langId() != langId)
        m_languages.installTranslator(langId);
}

void HygMainWindow::setTheme(const QString & theme) {
    m_settings.m_theme = theme;
    m_settings.writeOrLog();
    QtExt::Palette::apply(theme);
    updateChoices();
}

void HygMainWindow::showPreferences() {
    HygPreferencesDialog dialog(m_settings, &m_languages, this);
    connect(&dialog, &HygPreferencesDialog::settingsChanged, this, &HygMainWindow::takeOverSettings);
    dialog.exec();
}

void HygMainWindow::takeOverSettings() {
    KOR::MessageHandler & handler = KOR::MessageHandlerRegistry::instance().messageHandler();
    handler.setConsoleLogLevel(m_settings.m_userLogLevelConsole);
    handler.setLogfileLogLevel(m_settings.m_userLogLevelLogfile);
    updateRecentProjects();
    updateChoices();
}

void HygMainWindow::updateChoices() {
    for (QAction * action : m_themeChoice->actions())
        action->setChecked(action->data().toString() == m_settings.m_theme);
    for (QAction * action : m_languageChoice->actions())
        action->setChecked(action->data().toString() == m_languages.langId());
}

void HygMainWindow::retranslate() {
    m_ui->retranslateUi(this);
    m_ui->logDock->toggleViewAction()->setText(tr("&Messages"));
    m_ui->logDock->toggleViewAction()->setStatusTip(tr("Show or hide the messages of this run"));
    if (m_logButton != nullptr) {
        m_logButton->setText(tr("Messages"));
        m_logButton->setToolTip(tr("Show or hide the messages of this run"));
    }
    if (m_preferencesButton != nullptr)
        m_preferencesButton->setText(tr("Preferences"));
    for (const auto & [id, button] : m_viewButtons) {
        button->setText(tr(VIEWS[id].title));
        m_viewActions[id]->setText(tr(VIEWS[id].title));
    }
    if (m_themeChoice != nullptr) {
        const QList<QAction *> actions = m_themeChoice->actions();
        for (int i = 0; i < actions.size(); ++i)
            actions[i]->setText(tr(THEMES[i].text));
        updateChoices();
    }
    updateTitle();
}

void HygMainWindow::changeEvent(QEvent * event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::ActivationChange && isActiveWindow())
        updateRecentProjects(); // files may have come or gone in the meantime
}

void HygMainWindow::paintEvent(QPaintEvent * event) {
    QMainWindow::paintEvent(event);
    if (m_isPainted)
        return;
    m_isPainted = true;
    // The children are painted within this event.
    QTimer::singleShot(0, this, [] { KOR::message("Main window shown.\n", KOR::MSG_PROGRESS, "[HygMainWindow]", 3); });
}

void HygMainWindow::closeEvent(QCloseEvent * event) {
    m_settings.m_mainWindowGeometry = saveGeometry();
    m_settings.m_mainWindowState = saveState(STATE_VERSION); // written at the program's end
    event->accept();
}
