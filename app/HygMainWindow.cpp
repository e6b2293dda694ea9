#include "HygMainWindow.h"

#include "HygDebugApplication.h"
#include "HygFileActions.h"
#include "HygIconEngine.h"
#include "HygSettings.h"
#include "construction/HygConstructionPlaces.h"
#include "dialogs/HygAboutDialog.h"
#include "dialogs/HygCommandSearch.h"
#include "dialogs/HygHelpWindow.h"
#include "dialogs/HygPreferencesDialog.h"
#include "document/HygBackground.h"
#include "document/HygProjectHandler.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialView.h"
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
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QUndoStack>
#include <QUndoView>
#include <QUrl>

namespace {

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

constexpr int STATE_VERSION = 2;
constexpr int NOTICE_MS = 15'000;
constexpr int LOG_HEIGHT = 226;
constexpr int HISTORY_WIDTH = 230;

} // namespace

HygMainWindow::HygMainWindow(HygSettings & settings, QtExt::LanguageHandler & languages, HygLogModel & messages)
    : m_settings(settings), m_languages(languages), m_messages(messages), m_ui(new Ui::HygMainWindow),
      m_projects(new HygProjectHandler(this)), m_files(new HygFileActions(*this, *m_projects, settings)) {
    m_projects->setUndoLimit(m_settings.m_maxNumUndoSteps);
    m_projects->setJournalDirectory(m_settings.directory(HygSettings::DIR_USER_DATA) + QStringLiteral("/journal"));
    m_ui->setupUi(this);
    setAcceptDrops(true);
    qApp->installEventFilter(this);
    m_projectLabel = new QLabel(this);
    m_projectLabel->setObjectName(QStringLiteral("projectFile"));
    m_projectLabel->setTextFormat(Qt::PlainText);
    m_ui->statusBar->addPermanentWidget(m_projectLabel);
    setUpViews();
    setUpLog();
    setUpActions();
    setUpUndo();
    setUpHistory();
    setUpChoices();
    takeOverProject({});
    retranslate();
    showView(HygViewTable::Start);

    resize(size().boundedTo(screen()->availableSize()));
    restoreGeometry(m_settings.m_mainWindowGeometry);
    if (!restoreState(m_settings.m_mainWindowState, STATE_VERSION)) {
        resizeDocks({m_ui->logDock}, {LOG_HEIGHT}, Qt::Vertical);
        m_ui->logDock->hide(); // its button tells when something is wrong
    }
    m_problemsSeen = 0;
    updateBadge();

    QMetaObject::invokeMethod(this, &HygMainWindow::startWork, Qt::QueuedConnection);
}

void HygMainWindow::startWork() {
    if (!m_settings.m_initialProjectFile.isEmpty())
        openProject(m_settings.m_initialProjectFile);
    if (!m_projects->hasProject())
        m_files->offerRecovery();
    for (const auto & [id, view] : m_views)
        if (m_settings.m_initialView == QLatin1String(view.row->icon))
            showView(id);
}

HygMainWindow::~HygMainWindow() {
    // The base class hides the children when our own members are gone already.
    disconnect(m_ui->logDock, nullptr, this, nullptr);
    disconnect(m_projects, nullptr, this, nullptr);
    disconnect(&undoStack(), nullptr, this, nullptr);
    disconnect(&m_messages, nullptr, this, nullptr);
}

QUndoStack & HygMainWindow::undoStack() {
    return m_projects->undoStack();
}

void HygMainWindow::setUpViews() {
    m_startView = new HygStartView(this);
    for (const HygViewTable::Row & row : HygViewTable::rows())
        if (row.view == HygViewTable::Start)
            addView(row, m_startView);
        else if (row.create != nullptr)
            addView(row, row.create(m_projects));
    connect(m_ui->navigationBar, &HygNavigationBar::selected, this,
            [this](int id) { showView(static_cast<view_t>(id)); });
    connect(m_ui->views, &QStackedWidget::currentChanged, this, &HygMainWindow::updateViewMenu);
    setUpStartView();
}

void HygMainWindow::setUpStartView() {
    m_startView->setExamplesDirectory(m_settings.directory(HygSettings::DIR_EXAMPLES));
    m_startView->setOffers(true, true);
    connect(m_startView, &HygStartView::newProjectRequested, m_files, &HygFileActions::chooseNew);
    connect(m_startView, &HygStartView::chooseProjectRequested, m_files, &HygFileActions::chooseOpen);
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
    const std::pair<QAction *, const char *> icons[] = {
        {m_ui->actionNew,            "new"        },
        {m_ui->actionOpen,           "open"       },
        {m_ui->actionSave,           "save"       },
        {m_ui->actionSaveAs,         "saveas"     },
        {m_ui->actionSaveCopy,       "copy"       },
        {m_ui->actionExportPackage,  "package"    },
        {m_ui->actionImportPackage,  "unpack"     },
        {m_ui->actionClose,          "close"      },
        {m_ui->actionQuit,           "quit"       },
        {m_ui->actionUndo,           "undo"       },
        {m_ui->actionRedo,           "redo"       },
        {m_ui->actionFindCommand,    "search"     },
        {m_ui->actionFindInLog,      "search"     },
        {m_ui->actionHelp,           "help"       },
        {m_ui->actionPreferences,    "preferences"},
        {m_ui->actionFullScreen,     "fullscreen" },
        {m_ui->actionOpenLogFile,    "logfile"    },
        {m_ui->actionOpenDataFolder, "folder"     },
        {m_ui->actionAbout,          "information"},
    };
    for (const auto & [action, icon] : icons)
        action->setIcon(HygIconEngine::icon(QLatin1String(icon)));
    const std::pair<QAction *, void (HygFileActions::*)()> files[] = {
        {m_ui->actionNew,           &HygFileActions::chooseNew    },
        {m_ui->actionOpen,          &HygFileActions::chooseOpen   },
        {m_ui->actionSave,          &HygFileActions::save         },
        {m_ui->actionSaveAs,        &HygFileActions::saveAs       },
        {m_ui->actionSaveCopy,      &HygFileActions::saveCopy     },
        {m_ui->actionExportPackage, &HygFileActions::exportPackage},
        {m_ui->actionImportPackage, &HygFileActions::importPackage},
        {m_ui->actionClose,         &HygFileActions::close        },
    };
    for (const auto & [action, slot] : files)
        connect(action, &QAction::triggered, m_files, slot);
    connect(m_ui->actionPreferences, &QAction::triggered, this, &HygMainWindow::showPreferences);
    connect(m_ui->actionFindCommand, &QAction::triggered, this, &HygMainWindow::searchCommands);
    connect(m_ui->actionHelp, &QAction::triggered, this, &HygMainWindow::showHelpOfFocus);
    connect(m_ui->actionGuide, &QAction::triggered, this, [this] { showHelp(QStringLiteral("index")); });
    connect(m_ui->actionOpenLogFile, &QAction::triggered, this, &HygMainWindow::openLogFile);
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

void HygMainWindow::setUpUndo() {
    QUndoStack & stack = undoStack();
    connect(m_ui->actionUndo, &QAction::triggered, &stack, &QUndoStack::undo);
    m_ui->actionRedo->setShortcuts({m_ui->actionRedo->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+Z"))});
    connect(m_ui->actionRedo, &QAction::triggered, &stack, &QUndoStack::redo);
    connect(&stack, &QUndoStack::indexChanged, this, &HygMainWindow::updateUndo);
    connect(&stack, &QUndoStack::undoTextChanged, this, &HygMainWindow::updateUndo);
    connect(&stack, &QUndoStack::redoTextChanged, this, &HygMainWindow::updateUndo);
    connect(m_projects, &HygProjectHandler::modifiedChanged, this, &QWidget::setWindowModified);
    connect(m_projects, &HygProjectHandler::projectFileChanged, this, &HygMainWindow::takeOverProject);
    connect(m_projects, &HygProjectHandler::failed, this, &HygMainWindow::showProblem);
    connect(m_projects, &HygProjectHandler::noticed, this, &HygMainWindow::showProblem);
    connect(m_files, &HygFileActions::opening, m_ui->messageBar, &HygMessageBar::clear);
    connect(m_files, &HygFileActions::noticed, this,
            [this](const QString & text) { m_ui->statusBar->showMessage(text, NOTICE_MS); });
}

void HygMainWindow::setUpHistory() {
    auto * history = new QUndoView(&undoStack(), m_ui->historyDock);
    history->setObjectName(QStringLiteral("history"));
    history->setCleanIcon(HygIconEngine::icon(QStringLiteral("save")));
    history->setMinimumWidth(HISTORY_WIDTH);
    m_ui->historyDock->setWidget(history);
    m_ui->historyDock->hide();
    QAction * toggle = m_ui->historyDock->toggleViewAction();
    toggle->setIcon(HygIconEngine::icon(QStringLiteral("recent")));
    toggle->setShortcut(QKeySequence(QStringLiteral("Ctrl+H")));
    m_ui->menuView->insertAction(m_ui->logDock->toggleViewAction(), toggle);
}

void HygMainWindow::addView(const HygViewTable::Row & row, QWidget * widget) {
    m_ui->views->addWidget(widget);
    HygNavigationButton & button = m_ui->navigationBar->addView(row.view, QLatin1String(row.icon));
    auto * action = new QAction(HygIconEngine::icon(QLatin1String(row.icon)), QString(), this);
    connect(action, &QAction::triggered, this, [this, id = row.view] { showView(id); });
    m_views[row.view] = {&row, widget, &button, action};
    // A view that can lead to a definition in another one says so by this signal.
    if (widget->metaObject()->indexOfSignal("placeRequested(QString)") >= 0)
        connect(widget, SIGNAL(placeRequested(QString)), this, SLOT(showPlace(QString)));

    // What a view offers everywhere has its keys while another view is shown.
    for (QAction * own : widget->actions())
        if (own->property("isForAllViews").toBool())
            addAction(own);

    // In the order of the navigation, before all else.
    const QList<QAction *> others = m_ui->menuView->actions();
    QAction * before = *std::find_if(others.begin(), others.end(), [this](const QAction * entry) {
        return std::none_of(m_views.begin(), m_views.end(),
                            [&](const auto & view) { return view.second.action == entry; });
    });
    int number = 0;
    for (const auto & [id, view] : m_views) {
        m_ui->menuView->insertAction(before, view.action);
        view.action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(++number)));
    }
}

void HygMainWindow::showPlace(const QString & place) {
    // As long as there is no view of its own for a definition, the cells that it concerns tell the most.
    const auto made = m_views.find(HygViewTable::viewOfPlace(place));
    const auto view = made != m_views.end() ? made : m_views.find(HygViewTable::Construction);
    showView(view->first);
    // A view that can lead to any place has this slot; others may know definitions.
    if (view->second.widget->metaObject()->indexOfSlot("showPlace(QString)") >= 0)
        QMetaObject::invokeMethod(view->second.widget, "showPlace", Q_ARG(QString, place));
    else if (const auto definition = HygConstructionPlaces::definitionOf(m_projects->project(), place))
        emit m_projects->definitionRequested(static_cast<int>(definition->kind),
                                             QString::fromStdString(definition->name));
}

void HygMainWindow::updateViewMenu() {
    m_ui->menuOfView->clear();
    const View & view = m_views.at(currentView());
    m_ui->menuOfView->setTitle(tr(view.row->title));
    m_ui->menuOfView->addActions(view.widget->actions());
    m_ui->menuOfView->menuAction()->setVisible(!view.widget->actions().isEmpty());
}

void HygMainWindow::showView(view_t id) {
    const auto view = m_views.find(id);
    if (view == m_views.end() || !view->second.action->isEnabled())
        return;
    const bool isOther = m_ui->views->currentWidget() != view->second.widget;
    m_ui->views->setCurrentWidget(view->second.widget);
    m_ui->navigationBar->setCurrent(id);
    if (isOther && view->second.widget->focusProxy() != nullptr)
        view->second.widget->setFocus(); // the keys belong to what is shown
}

HygMainWindow::view_t HygMainWindow::currentView() const {
    for (const auto & [id, view] : m_views)
        if (view.widget == m_ui->views->currentWidget())
            return id;
    return HygViewTable::Start;
}

bool HygMainWindow::openProject(const QString & path) {
    return m_files->open(path);
}

void HygMainWindow::takeOverProject(const QString & path) {
    if (!path.isEmpty())
        m_settings.addRecentProject(path);
    m_settings.writeOrLog();
    const bool hasProject = m_projects->hasProject();
    for (QAction * action :
         {m_ui->actionSave, m_ui->actionSaveAs, m_ui->actionSaveCopy, m_ui->actionExportPackage, m_ui->actionClose})
        action->setEnabled(hasProject);
    for (const auto & [id, view] : m_views)
        if (view.row->needsProject) {
            view.action->setEnabled(hasProject);
            view.button->setEnabled(hasProject);
        }
    if (!m_views.at(currentView()).action->isEnabled())
        showView(HygViewTable::Start);
    else if (hasProject && path != m_shownProject && currentView() == HygViewTable::Start)
        showView(HygViewTable::Construction); // to work rather than to choose again
    m_shownProject = path;
    updateRecentProjects();
    updateTitle();
    updateUndo();
}

void HygMainWindow::updateUndo() {
    const QUndoStack & stack = undoStack();
    m_ui->actionUndo->setEnabled(stack.canUndo());
    m_ui->actionRedo->setEnabled(stack.canRedo());
    m_ui->actionUndo->setText(stack.canUndo() ? tr("&Undo: %1").arg(stack.undoText()) : tr("&Undo"));
    m_ui->actionRedo->setText(stack.canRedo() ? tr("&Redo: %1").arg(stack.redoText()) : tr("&Redo"));
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
    const QString path = m_projects->projectFile();
    const QString name = QFileInfo(path).completeBaseName();
    const QString program = QCoreApplication::applicationName();
    setWindowTitle(path.isEmpty()             ? program
                   : m_projects->isReadOnly() ? tr("%1 (read only)[*] – %2").arg(name, program)
                                              : tr("%1[*] – %2").arg(name, program));
    m_projectLabel->setText(path.isEmpty() ? tr("No project") : QDir::toNativeSeparators(path));
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
    m_projects->setUndoLimit(m_settings.m_maxNumUndoSteps);
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
    for (const auto & [id, view] : m_views) {
        view.button->setText(tr(view.row->title));
        view.action->setText(tr(view.row->title));
    }
    updateViewMenu();
    updateUndo();
    m_ui->historyDock->toggleViewAction()->setText(tr("&History"));
    m_ui->historyDock->toggleViewAction()->setStatusTip(tr("Show or hide the changes that can be taken back"));
    if (auto * history = m_ui->historyDock->findChild<QUndoView *>()) {
        history->setEmptyLabel(tr("As opened"));
        history->setAccessibleName(m_ui->historyDock->windowTitle());
        history->setToolTip(tr("Choose a line to go back or forth to that state"));
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
        takeNoteOfFiles();
}

bool HygMainWindow::eventFilter(QObject * watched, QEvent * event) {
    // A field takes the keys of Undo for itself, even if it has nothing to undo.
    if (event->type() == QEvent::ShortcutOverride)
        if (const auto * field = qobject_cast<QLineEdit *>(watched)) {
            auto * key = static_cast<QKeyEvent *>(event);
            if ((key->matches(QKeySequence::Undo) && !field->isUndoAvailable()) ||
                (key->matches(QKeySequence::Redo) && !field->isRedoAvailable())) {
                event->ignore();
                return true;
            }
        }
    return QMainWindow::eventFilter(watched, event);
}

void HygMainWindow::takeNoteOfFiles() {
    updateRecentProjects(); // they may have come or gone in the meantime
    m_projects->checkDisk();
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
    if (HygDebugApplication::isTerminating()) {
        m_projects->keepForRecovery(); // there may be no time for an answer
    } else if (HygBackground::isBusy() || !m_files->settle()) {
        event->ignore();
        return;
    } else {
        m_projects->closeProject();
    }
    m_settings.m_mainWindowGeometry = saveGeometry();
    m_settings.m_mainWindowState = saveState(STATE_VERSION); // written at the program's end
    event->accept();
}

// ---- files that are dropped

namespace {

/// The file that is being dropped, if it is one that can be opened.
QString droppedFile(const QMimeData * data) {
    const QList<QUrl> urls = data->urls();
    const QString path = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    return HygFileActions::isOpenable(path) ? path : QString();
}

} // namespace

void HygMainWindow::dragEnterEvent(QDragEnterEvent * event) {
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void HygMainWindow::dropEvent(QDropEvent * event) {
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // The program that the file comes from waits until this event has been answered.
    QMetaObject::invokeMethod(
        this, [this, path] { openProject(path); }, Qt::QueuedConnection);
}

// ---- finding things

void HygMainWindow::showHelp(const QString & page) {
    if (m_help == nullptr)
        m_help = new HygHelpWindow(m_settings.directory(HygSettings::DIR_INSTALLATION) + QStringLiteral("/user-guide"),
                                   this);
    m_help->showPage(page, m_languages.langId());
    m_help->show();
    m_help->raise();
}

void HygMainWindow::showHelpOfFocus() {
    // While the window system has not made a window active, nothing has the focus.
    const QWidget * focused = QApplication::focusWidget();
    for (const QWidget * widget = focused == nullptr ? this : focused; widget != nullptr;
         widget = widget->parentWidget()) {
        const QString page = widget->property(HygHelpWindow::PAGE_PROPERTY).toString();
        if (!page.isEmpty())
            return showHelp(page);
    }
    showHelp(QLatin1String(m_views.at(currentView()).row->helpPage));
}

namespace {

/// A kind of definition: how it is called, and the views that show it, the best first.
struct KindRow {
    const char * word;
    HygViewTable::view_t view;
};
constexpr KindRow KINDS[] = {
    {QT_TRANSLATE_NOOP("HygMainWindow", "Material"),           HygViewTable::Construction},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Interface"),          HygViewTable::Construction},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Initial condition"),  HygViewTable::Construction},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Field condition"),    HygViewTable::Construction},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Contact condition"),  HygViewTable::Construction},
    {QT_TRANSLATE_NOOP("HygMainWindow", "Boundary condition"), HygViewTable::Conditions  },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Climate condition"),  HygViewTable::Conditions  },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Schedule"),           HygViewTable::Conditions  },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Output file"),        HygViewTable::Outputs     },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Output grid"),        HygViewTable::Outputs     },
    {QT_TRANSLATE_NOOP("HygMainWindow", "Solution"),           HygViewTable::Conditions  },
};
static_assert(std::size(KINDS) == HYGRION::DEFINITION_KINDS, "table and enumeration disagree");

/// A text of a menu without the marks of keys and dots.
QString plain(QString text) {
    return text.remove('&').remove(QStringLiteral("…"));
}

void collectActions(const QList<QAction *> & actions, const QString & place,
                    std::vector<HygCommandSearch::Command> & commands) {
    for (QAction * action : actions) {
        if (!action->isVisible() || action->isSeparator())
            continue;
        if (action->menu() != nullptr) {
            const QString name = plain(action->text());
            collectActions(action->menu()->actions(), place.isEmpty() ? name : place + QStringLiteral(" › ") + name,
                           commands);
        } else if (action->isEnabled()) {
            commands.push_back({plain(action->text()), place, action->shortcut().toString(QKeySequence::NativeText),
                                action->icon(), [action] { action->trigger(); }});
        }
    }
}

} // namespace

void HygMainWindow::searchCommands() {
    std::vector<HygCommandSearch::Command> commands;
    collectActions(m_ui->menuBar->actions(), {}, commands);
    for (const auto & [id, view] : m_views) { // those of the other views, which they need to be shown for
        if (view.widget == m_ui->views->currentWidget() || !view.action->isEnabled())
            continue;
        for (QAction * action : view.widget->actions())
            if (action->isVisible() && !action->isSeparator())
                commands.push_back({plain(action->text()), tr(view.row->title),
                                    action->shortcut().toString(QKeySequence::NativeText), action->icon(),
                                    [this, id = id, action] {
                                        showView(id);
                                        if (action->isEnabled())
                                            action->trigger();
                                    }});
    }
    if (m_views.size() > 1) // something that can show a definition
        HYGRION::forEachDefinitionList(m_projects->project(), [&](HYGRION::definition_t kind, const auto & list) {
            const int number = static_cast<int>(kind);
            for (const auto & item : list) {
                const QString name = QString::fromStdString(item.m_name);
                const HygViewTable::view_t view = KINDS[number].view;
                const QIcon icon = m_views.count(view) > 0 ? m_views.at(view).action->icon() : QIcon();
                commands.push_back(
                    {name, tr(KINDS[number].word), {}, icon, [this, number, name] { showDefinition(number, name); }});
            }
        });
    HygCommandSearch search(std::move(commands), this);
    const std::shared_ptr<HygMaterialDB> database = HygMaterialDB::shared();
    const auto offer = [&] {
        std::vector<HygCommandSearch::Command> materials;
        const HygMaterialDBTableModel & model = database->model();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.entry(row).isReadable())
                materials.push_back({model.name(row),
                                     tr("Material database"),
                                     {},
                                     m_views.at(HygViewTable::Materials).action->icon(),
                                     [this, path = model.entry(row).path] { showMaterial(path); }});
        search.setMore(materials);
    };
    connect(&database->updater(), &HygThreadMaterialDBUpdater::updated, &search, offer);
    offer();
    database->start(); // at the first time the materials come a moment later
    search.exec();
}

void HygMainWindow::showMaterial(const QString & path) {
    showView(HygViewTable::Materials);
    static_cast<HygMaterialView *>(m_views.at(HygViewTable::Materials).widget)->showMaterial(path);
}

void HygMainWindow::showDefinition(int kind, const QString & name) {
    const HygViewTable::view_t view = KINDS[kind].view;
    showView(m_views.count(view) > 0 ? view : HygViewTable::Construction);
    emit m_projects->definitionRequested(kind, name);
}
