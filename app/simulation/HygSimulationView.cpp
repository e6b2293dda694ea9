#include "HygSimulationView.h"

#include "HygIconEngine.h"
#include "HygRunList.h"
#include "HygRunLive.h"
#include "HygRunPanel.h"
#include "HygScreenLogView.h"
#include "HygSettings.h"
#include "HygSimulationChecks.h"
#include "HygSimulationOptions.h"
#include "HygSimulationStartWidget.h"
#include "HygSolverProcess.h"
#include "document/HygBackground.h"
#include "document/HygProjectHandler.h"

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QThread>

namespace {

enum tab_t { RUN, MODEL, SOLVER, PERFORMANCE };
constexpr const char * TABS[] = {
    QT_TRANSLATE_NOOP("HygSimulationView", "Run Simulation"),
    QT_TRANSLATE_NOOP("HygSimulationView", "Model Options"),
    QT_TRANSLATE_NOOP("HygSimulationView", "Solver Options"),
    QT_TRANSLATE_NOOP("HygSimulationView", "Performance Options"),
};
constexpr QSize LOG_SIZE{900, 560};
constexpr int START_WIDTH = 380;      ///< [px], at least
constexpr std::size_t MAX_ERRORS = 8; ///< in the question before the start
constexpr int MAX_WAITS = 50;         ///< of 20 ms, for a process that was ended

QString runsFile() {
    const QString folder = HygSettings::instance().directory(HygSettings::DIR_USER_DATA);
    return folder.isEmpty() ? QString() : folder + "/runs.json";
}

} // namespace

HygSimulationView::HygSimulationView(HygProjectHandler * projects)
    : m_projects(*projects), m_tabs(new QTabWidget(this)), m_startAction(new QAction(this)),
      m_testAction(new QAction(this)), m_runs(new HygRunList(runsFile(), this)),
      m_panel(new HygRunPanel(*m_runs, this)), m_live(new HygRunLive(this)),
      m_start(new HygSimulationStartWidget(*projects, HygSettings::instance(), this)),
      m_checks(new HygSimulationChecks(*projects, this)) {
    setObjectName(QStringLiteral("HygSimulationView"));
    m_tabs->setObjectName(QStringLiteral("simulationTabs"));
    m_start->setSaveProject([projects] { return projects->saveIfModified(); });
    m_start->setConfirm([this] { return confirmErrors(); });

    auto * startArea = new QScrollArea(this);
    startArea->setWidget(m_start);
    startArea->setWidgetResizable(true);
    startArea->setFrameShape(QFrame::NoFrame);
    auto * page = new QSplitter(Qt::Horizontal, this);
    page->addWidget(startArea);
    auto * right = new QSplitter(Qt::Vertical, this);
    right->addWidget(m_checks);
    right->addWidget(m_panel);
    right->addWidget(m_live);
    right->setChildrenCollapsible(false);
    right->setStretchFactor(2, 1);
    right->setSizes({110, 150, 400});
    m_live->hide(); // until there is a run to look at
    page->addWidget(right);
    page->setStretchFactor(1, 1);
    page->setChildrenCollapsible(false);
    startArea->setMinimumWidth(START_WIDTH);
    page->setSizes({m_start->sizeHint().width() + 24, 2 * START_WIDTH});

    m_tabs->addTab(page, QString());
    m_tabs->addTab(new HygSimulationModelOptions(*projects, this), QString());
    m_tabs->addTab(new HygSimulationSolverOptions(*projects, this), QString());
    m_tabs->addTab(new HygSimulationPerformanceOptions(*projects, this), QString());
    auto * layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);

    // In the menu of the view, for the keyboard.
    m_startAction->setShortcut(QKeySequence(Qt::Key_F5));
    m_startAction->setIcon(HygIconEngine::icon(QStringLiteral("simulation")));
    m_testAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+F5")));
    m_testAction->setIcon(HygIconEngine::icon(QStringLiteral("progress")));
    addActions({m_startAction, m_testAction});
    for (const auto & [action, mode] : {std::pair(m_startAction, HygSimulationStartWidget::Normal),
                                        std::pair(m_testAction, HygSimulationStartWidget::TestInit)}) {
        action->setProperty("isForAllViews", true);
        connect(action, &QAction::triggered, this, [this, mode = mode] {
            emit placeRequested(QStringLiteral("Simulation")); // from whichever view
            m_tabs->setCurrentIndex(RUN);
            m_start->start(mode);
        });
    }

    connect(m_start, &HygSimulationStartWidget::screenLogRequested, this, &HygSimulationView::showScreenLog);
    connect(m_checks, &HygSimulationChecks::placeRequested, this, &HygSimulationView::goTo);
    connect(m_start, &HygSimulationStartWidget::aboutToStart, this, &HygSimulationView::prepare);
    connect(m_start, &HygSimulationStartWidget::started, this, &HygSimulationView::follow);
    connect(m_panel, &HygRunPanel::screenLogRequested, this, &HygSimulationView::showScreenLog);
    connect(m_panel, &HygRunPanel::currentChanged, this, [this](const HygRunMonitor * run) {
        const bool isShown = run != nullptr && !run->run().isTest;
        m_live->setDirectory(isShown ? run->run().directory : QString());
        m_live->setVisible(isShown);
    });
    connect(m_runs, &HygRunList::runEnded, this, &HygSimulationView::finish);
    const auto attach = [this](const QString & projectFile) {
        m_runs->attach(projectFile);
        if (!projectFile.isEmpty())
            if (const int row = m_runs->rowOf(HygOutputDirectory::ofProject(projectFile).path()); row >= 0)
                m_panel->select(row); // the last run of this project, so that it can be looked at
    };
    connect(projects, &HygProjectHandler::projectFileChanged, this, attach);
    attach(projects->projectFile());
    retranslate();
}

HygSimulationView::~HygSimulationView() {
    if (!m_beforeTest)
        return;
    // A test is of no use to anybody without the editor, and what it writes is to be taken away.
    HygSolverProcess::kill(m_testProcess);
    for (int i = 0; i < MAX_WAITS && HygSolverProcess::isAlive(m_testProcess); ++i)
        QThread::msleep(20);
    m_beforeTest->restore();
}

bool HygSimulationView::confirmErrors() {
    using Finding = HygSimulationChecks::Finding;
    const auto findings = std::make_shared<std::vector<Finding>>();
    if (!HygBackground::runCancellable(tr("Checking the project…"), [findings, project = m_projects.project()] {
            const std::atomic<bool> isStopped = false;
            *findings = HygSimulationChecks::check(project, isStopped);
        }))
        return false;
    std::erase_if(*findings, [](const Finding & finding) { return finding.severity != Finding::ERROR; });
    if (findings->empty())
        return true;
    QStringList lines;
    for (std::size_t i = 0; i < std::min(findings->size(), MAX_ERRORS); ++i)
        lines << QStringLiteral("• ") + HygSimulationChecks::text((*findings)[i]);
    if (findings->size() > MAX_ERRORS)
        lines << tr("and %n more", nullptr, static_cast<int>(findings->size() - MAX_ERRORS));
    QMessageBox box(QMessageBox::Warning, tr("Start Simulation"),
                    tr("%n error(s) would stop the run.", nullptr, static_cast<int>(findings->size())),
                    QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("errorsBeforeStart"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(lines.join('\n'));
    const auto * start = box.addButton(tr("Start all the same"), QMessageBox::AcceptRole);
    auto * show = box.addButton(tr("Show"), QMessageBox::ActionRole);
    box.setDefaultButton(show);
    box.exec();
    if (box.clickedButton() == show)
        goTo(findings->front().place, findings->front().setting);
    return box.clickedButton() == start;
}

void HygSimulationView::selectRun(int row) {
    m_panel->select(row);
}

void HygSimulationView::prepare(const QString & directory, int mode) {
    m_launched = QDateTime::currentDateTime();
    if (mode == HygSimulationStartWidget::TestInit)
        m_beforeTest.emplace(HygOutputDirectory(directory));
}

void HygSimulationView::follow(const QString & directory, int mode, qint64 process, const QString & outputFile) {
    const bool isTest = mode == HygSimulationStartWidget::TestInit;
    if (process == 0) {
        m_beforeTest.reset();
        return;
    }
    if (isTest)
        m_testProcess = process;
    m_panel->select(m_runs->add({m_projects.projectFile(), directory, m_launched, isTest, process, outputFile}));
}

void HygSimulationView::finish(HygRunMonitor * run) {
    if (!run->run().isTest || !m_beforeTest)
        return;
    constexpr qint64 MAX_LOG = 4 << 20;
    QFile file(run->directory().screenLog());
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(MAX_LOG)) : QString();
    file.close();
    m_beforeTest->restore();
    m_beforeTest.reset();
    if (run->state() == HygRunMonitor::Finished)
        return;
    log().setText(tr("Test of the set-up of %1").arg(run->run().projectFile), text);
    showLog();
}

HygScreenLogView & HygSimulationView::log() {
    if (!m_log) {
        m_log = std::make_unique<HygScreenLogView>();
        m_log->setWindowTitle(tr("Screen log"));
        m_log->resize(LOG_SIZE);
    }
    return *m_log;
}

void HygSimulationView::showLog() {
    m_log->show();
    m_log->raise();
    m_log->activateWindow();
}

void HygSimulationView::showScreenLog(const QString & path) {
    log().setFile(path);
    showLog();
}

void HygSimulationView::goTo(const QString & place, const QString & setting) {
    if (place != QLatin1String("Init"))
        return emit placeRequested(place);
    m_tabs->setCurrentIndex(MODEL);
    if (setting.isEmpty())
        return;
    for (int tab = MODEL; tab <= PERFORMANCE; ++tab) {
        auto * page = qobject_cast<QScrollArea *>(m_tabs->widget(tab));
        auto * field = page == nullptr ? nullptr : page->findChild<QWidget *>(setting);
        if (field == nullptr)
            continue;
        m_tabs->setCurrentIndex(tab);
        page->ensureWidgetVisible(field);
        field->setFocus(Qt::OtherFocusReason);
        return;
    }
}

void HygSimulationView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygSimulationView::retranslate() {
    m_startAction->setText(tr("Start Simulation"));
    m_testAction->setText(tr("Test simulation setup"));
    for (int i = 0; i < m_tabs->count(); ++i)
        m_tabs->setTabText(i, tr(TABS[i]));
    if (m_log)
        m_log->setWindowTitle(tr("Screen log"));
}
