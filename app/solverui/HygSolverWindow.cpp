#include "HygSolverWindow.h"

#include "HygCoreMessages.h"
#include "HygFormat.h"
#include "simulation/HygOutputDirectory.h"
#include "simulation/HygRunLive.h"
#include "simulation/HygRunMonitor.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QThread>
#include <QTimer>

namespace {

constexpr int PERIOD_MS = 250;
constexpr int PER_MILLE = 1000;
constexpr std::size_t STACK = 16 << 20; ///< [bytes] as the main thread of the console program has it

using Statistics = SOLVER::IntegratorStatistics;
struct CounterRow {
    const char * label;
    long Statistics::*counter;
    const char * toolTip;
};
constexpr CounterRow COUNTERS[] = {
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Steps"),                     &Statistics::steps,
     QT_TRANSLATE_NOOP("HygSolverWindow", "Time steps of the integrator")                                       },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Evaluations"),               &Statistics::rightHandSides,
     QT_TRANSLATE_NOOP("HygSolverWindow", "How often the balances of all cells were evaluated")                 },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Matrices"),                  &Statistics::jacobians,
     QT_TRANSLATE_NOOP("HygSolverWindow", "How often the matrix of derivatives was made")                       },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Nonlinear iterations"),      &Statistics::nonlinearIterations,
     QT_TRANSLATE_NOOP("HygSolverWindow", "Iterations within the steps; two for each step are usual")           },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Linear iterations"),         &Statistics::linearIterations,
     QT_TRANSLATE_NOOP("HygSolverWindow", "Iterations of the iterative solvers of the linear equations")        },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Steps too inaccurate"),      &Statistics::errorTestFailures,
     QT_TRANSLATE_NOOP("HygSolverWindow", "Steps that were taken again because their error was too large")      },
    {QT_TRANSLATE_NOOP("HygSolverWindow", "Steps without convergence"), &Statistics::nonlinearFailures,
     QT_TRANSLATE_NOOP("HygSolverWindow", "Steps that were taken again because the iterations did not converge")},
};
constexpr int LAST_STEP = std::size(COUNTERS);
constexpr int LIMIT = LAST_STEP + 1;

QString days(double seconds) {
    return HygFormat::locale().toString(seconds / KOR::SECONDS_PER_DAY, 'f', 2);
}
QString duration(double seconds) {
    return HygFormat::duration(seconds);
}

} // namespace

HygSolverWindow::HygSolverWindow(SOLVER::SolverOptions options, QWidget * parent)
    : QWidget(parent), m_options(std::move(options)), m_heading(new QLabel(this)), m_progress(new QProgressBar(this)),
      m_times(new QLabel(this)), m_statistics(new QTableWidget(LIMIT + 1, 2, this)), m_live(new HygRunLive(this)),
      m_button(new QPushButton(this)), m_timer(new QTimer(this)) {
    const QString project = QString::fromStdString(m_options.project);
    setWindowTitle(QFileInfo(project).completeBaseName() + QStringLiteral(" - HygrionSolver"));
    m_heading->setText(project);
    m_heading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_heading->setWordWrap(true);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setRange(0, PER_MILLE);
    m_progress->setFormat(QStringLiteral("0 %"));
    m_times->setObjectName(QStringLiteral("times"));
    m_times->setWordWrap(true);
    m_times->setText(tr("The project is being read…"));
    m_statistics->setObjectName(QStringLiteral("statistics"));
    m_statistics->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_statistics->setSelectionMode(QAbstractItemView::NoSelection);
    m_statistics->setFocusPolicy(Qt::NoFocus);
    m_statistics->verticalHeader()->hide();
    m_statistics->horizontalHeader()->hide();
    m_statistics->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_statistics->horizontalHeader()->setStretchLastSection(true);
    m_statistics->setShowGrid(false);
    m_statistics->setWordWrap(true);
    m_statistics->setAccessibleName(tr("Work of the integrator"));
    const auto addRow = [this](int row, const QString & label, const QString & toolTip) {
        auto * item = new QTableWidgetItem(label);
        item->setToolTip(toolTip);
        m_statistics->setItem(row, 0, item);
        m_statistics->setItem(row, 1, new QTableWidgetItem);
    };
    for (int row = 0; row < LAST_STEP; ++row)
        addRow(row, tr(COUNTERS[row].label), tr(COUNTERS[row].toolTip));
    addRow(LAST_STEP, tr("Last step"), tr("Length of the last time step"));
    addRow(LIMIT, tr("Limited by"), tr("The place whose error limited the last step"));
    m_button->setObjectName(QStringLiteral("stop"));
    m_button->setText(tr("Stop"));
    m_button->setToolTip(tr("Writes a restart file and ends; the run can be continued later"));

    auto * left = new QWidget(this);
    auto * column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_heading);
    column->addWidget(m_progress);
    column->addWidget(m_times);
    column->addWidget(m_statistics, 1);
    column->addWidget(m_button);
    auto * splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(left);
    splitter->addWidget(m_live);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({340, 620});
    auto * layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    resize(980, 560);

    m_timer->setInterval(PERIOD_MS);
    connect(m_timer, &QTimer::timeout, this, &HygSolverWindow::showState);
    connect(m_button, &QPushButton::clicked, this, [this] { isRunning() ? stop() : static_cast<void>(close()); });
}

HygSolverWindow::~HygSolverWindow() {
    waitForEnd();
}

SOLVER::exit_t HygSolverWindow::waitForEnd() {
    m_stop = true;
    if (m_thread != nullptr)
        m_thread->wait();
    return m_result;
}

void HygSolverWindow::start() {
    m_started = QDateTime::currentDateTime();
    m_thread = QThread::create([this] {
        m_result = SOLVER::simulate(m_options, m_stop, [this](const SOLVER::Simulation & now) { observe(now); });
    });
    m_thread->setParent(this);
    m_thread->setStackSize(STACK);
    connect(m_thread, &QThread::finished, this, &HygSolverWindow::finish);
    m_thread->start();
    m_timer->start();
    try {
        m_live->setDirectory(QString::fromStdString(SOLVER::runDirectory(m_options)));
    } catch (const KOR::Exception &) {
        // The run ends with the same failure and tells it.
    }
}

void HygSolverWindow::stop() {
    m_stop = true;
    m_button->setEnabled(false);
    m_times->setText(tr("The solver is asked to end…"));
}

void HygSolverWindow::observe(const SOLVER::Simulation & simulation) {
    // Steps can be many; the window cannot show more than the last one anyway.
    const std::unique_lock lock(m_mutex, std::try_to_lock);
    if (lock.owns_lock())
        m_state = {simulation.progress(), simulation.statistics(), simulation.lastLimit(), true};
}

double HygSolverWindow::share() {
    const std::lock_guard lock(m_mutex);
    return m_state.hasBegun ? m_state.progress.share() : 0;
}

void HygSolverWindow::showState() {
    State state;
    {
        const std::lock_guard lock(m_mutex);
        state = m_state;
    }
    if (!state.hasBegun)
        return;
    const double share = state.progress.share();
    if (m_startShare < 0)
        m_startShare = share;
    m_progress->setValue(static_cast<int>(PER_MILLE * share));
    m_progress->setFormat(HygFormat::locale().toString(100 * share, 'f', 1) + QStringLiteral(" %"));
    const double wall = 1e-3 * static_cast<double>(m_started.msecsTo(QDateTime::currentDateTime()));
    const double done = share - m_startShare;
    QString text = tr("Simulated: %1 of %2 d").arg(days(state.progress.time), days(state.progress.endTime));
    if (done > 0 && isRunning()) {
        const double span = state.progress.endTime - state.progress.startTime;
        const double left = (1 - share) / done * wall;
        text += '\n' + tr("Speed: %1 per s").arg(duration(done * span / wall));
        text += '\n' + tr("Ends in %1, at %2")
                           .arg(duration(left),
                                HygFormat::dateTime(QDateTime::currentDateTime().addSecs(static_cast<qint64>(left))));
    }
    if (m_stop && isRunning())
        text += '\n' + tr("The solver is asked to end…");
    m_times->setText(text);
    for (int row = 0; row < LAST_STEP; ++row)
        m_statistics->item(row, 1)->setText(QString::number(state.statistics.*COUNTERS[row].counter));
    m_statistics->item(LAST_STEP, 1)->setText(duration(state.progress.step));
    m_statistics->item(LIMIT, 1)->setText(HygCoreMessages::translated(QString::fromStdString(state.limit)));
    m_statistics->resizeRowToContents(LIMIT);
}

void HygSolverWindow::finish() {
    m_thread->deleteLater();
    m_thread = nullptr;
    m_timer->stop();
    showState();
    m_live->refresh();
    QString text = m_times->text();
    if (m_result == SOLVER::exit_t::FINISHED) {
        text = m_options.testInit ? tr("The simulation is set up without errors.") : text + '\n' + tr("Finished.");
    } else if (m_result == SOLVER::exit_t::INTERRUPTED) {
        text += '\n' + tr("Interrupted; the run can be continued.");
    } else {
        QFile log(HygOutputDirectory::ofProject(QString::fromStdString(m_options.project))
                      .log(QStringLiteral("summary.json")));
        const QString story = log.open(QIODevice::ReadOnly)
                                  ? QJsonDocument::fromJson(log.readAll()).object().value("error").toString()
                                  : QString();
        text = HygCoreMessages::told(tr("The run failed."), story);
    }
    m_times->setText(text);
    m_button->setText(tr("Close"));
    m_button->setToolTip(tr("Closes the window; the results stay"));
    m_button->setEnabled(true);
    emit ended();
    if (m_options.closeOnExit)
        close();
}

void HygSolverWindow::closeEvent(QCloseEvent * event) {
    if (!isRunning())
        return event->accept();
    stop(); // and closes when the restart file is written
    m_options.closeOnExit = true;
    event->ignore();
}
