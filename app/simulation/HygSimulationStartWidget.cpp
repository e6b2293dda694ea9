#include "HygSimulationStartWidget.h"

#include "HygIconEngine.h"
#include "HygOutputDirectory.h"
#include "HygSettings.h"
#include "HygSimulationRunRequestDialog.h"
#include "HygSolverProcess.h"
#include "document/HygProjectHandler.h"

#include <QtExt/Palette.h>
#include <QtExt/ValueEdit.h>
#include <SOLVER/RestartFile.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryFile>

namespace {

constexpr const char * VERBOSITY[] = {
    QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Minimum"),
    QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Normal"),
    QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Detailed"),
    QT_TRANSLATE_NOOP("HygSimulationStartWidget", "Very Detailed"),
};
constexpr const char * CLASSICAL_SOLVER = "/HygrionSolver.exe";
constexpr const char * MODERN_SOLVER = "/HygrionSolverUI.exe";
constexpr int COMMAND_LINES = 4; ///< shown at once

/// Simulated time [s] from which a run can be continued; nothing when it cannot.
std::optional<double> restartTime(const HygOutputDirectory & directory) {
    if (!directory.canContinue())
        return std::nullopt;
    try {
        return SOLVER::RestartFile::read(directory.restartFile().toStdString()).time;
    } catch (const KOR::Exception &) {
        return std::nullopt;
    }
}

/// A file for what a solver writes on the screen.
QString newOutputFile() {
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/hygrion_solver_XXXXXX.txt"));
    file.setAutoRemove(false);
    return file.open() ? file.fileName() : QString();
}

} // namespace

HygSimulationStartWidget::HygSimulationStartWidget(HygProjectHandler & projects, HygSettings & settings,
                                                   QWidget * parent)
    : QWidget(parent), m_projects(projects), m_settings(settings), m_group(new QGroupBox(this)),
      m_classicalSolver(new QRadioButton(this)), m_modernSolver(new QRadioButton(this)),
      m_verbosityLabel(new QLabel(this)), m_verbosity(new QComboBox(this)), m_restartLabel(new QLabel(this)),
      m_restartPeriod(new QtExt::ValueEdit(this)), m_threadsLabel(new QLabel(this)), m_threads(new QLineEdit(this)),
      m_commandLineLabel(new QLabel(this)), m_commandLine(new QPlainTextEdit(this)), m_start(new QPushButton(this)),
      m_test(new QPushButton(this)), m_showScreenLog(new QPushButton(this)) {
    setUpControls();

    connect(m_classicalSolver, &QRadioButton::toggled, this, &HygSimulationStartWidget::updateCommandLine);
    for (const QCheckBox * flag : m_flags)
        connect(flag, &QCheckBox::toggled, this, &HygSimulationStartWidget::updateCommandLine);
    connect(m_verbosity, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &HygSimulationStartWidget::onVerbosityLevelChanged);
    connect(m_restartPeriod, &QtExt::ValueEdit::valueChanged, this, &HygSimulationStartWidget::updateCommandLine);
    connect(m_threads, &QLineEdit::textChanged, this, &HygSimulationStartWidget::updateThreads);
    connect(m_start, &QPushButton::clicked, this, [this] { start(Normal); });
    connect(m_test, &QPushButton::clicked, this, [this] { start(TestInit); });
    connect(m_showScreenLog, &QPushButton::clicked, this,
            &HygSimulationStartWidget::on_pushButtonShowScreenLog_clicked);
    connect(&m_projects, &HygProjectHandler::projectFileChanged, this, &HygSimulationStartWidget::updateCommandLine);
    retranslate();
    updateThreads();
}

void HygSimulationStartWidget::setUpControls() {
    const std::pair<QWidget *, const char *> names[] = {
        {m_classicalSolver, "classicalSolver"        },
        {m_modernSolver,    "modernSolver"           },
        {m_verbosity,       "verbosityLevel"         },
        {m_restartPeriod,   "restartPeriod"          },
        {m_threads,         "parallelThreads"        },
        {m_commandLine,     "commandLine"            },
        {m_start,           "pushButtonStart"        },
        {m_test,            "pushButtonTestInit"     },
        {m_showScreenLog,   "pushButtonShowScreenLog"},
    };
    for (const auto & [widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    (m_settings.m_useModernSolver ? m_modernSolver : m_classicalSolver)->setChecked(true);
    for ([[maybe_unused]] const char * level : VERBOSITY)
        m_verbosity->addItem(QString());
    m_verbosity->setCurrentIndex(m_runOptions.verbosityLevel);
    m_restartPeriod->setParameter(
        KOR::Parameter("RestartPeriod", HygRunOptions::DEFAULT_RESTART_PERIOD, KOR::Unit("s")));
    m_restartPeriod->setMinimum(0, KOR::Unit("s"));
    if (m_settings.m_numParallelThreads > 0)
        m_threads->setText(QString::number(m_settings.m_numParallelThreads));
    m_commandLine->setReadOnly(true);
    m_commandLine->setTabChangesFocus(true);
    m_commandLine->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_commandLine->setFixedHeight(m_commandLine->fontMetrics().lineSpacing() * COMMAND_LINES + 14);
    m_commandLine->setWordWrapMode(QTextOption::WrapAnywhere);
    m_start->setIcon(HygIconEngine::icon(QStringLiteral("simulation")));
    m_test->setIcon(HygIconEngine::icon(QStringLiteral("progress")));
    m_showScreenLog->setIcon(HygIconEngine::icon(QStringLiteral("logfile")));
    QFont bold = m_start->font();
    bold.setBold(true);
    m_start->setFont(bold);
    for (QPushButton * button : {m_start, m_test, m_showScreenLog})
        button->setAutoDefault(true);

    auto * box = new QVBoxLayout(m_group);
    auto * buttons = new QHBoxLayout; // first, so that they are in view in every window
    buttons->addWidget(m_start, 1);
    buttons->addWidget(m_test, 1);
    box->addLayout(buttons);
    box->addWidget(m_showScreenLog);
    box->addSpacing(6);
    box->addWidget(m_classicalSolver);
    box->addWidget(m_modernSolver);
    box->addSpacing(6);
    for (const HygRunOptions::FlagRow & row : HygRunOptions::flags()) {
        auto * flag = new QCheckBox(this);
        flag->setObjectName(QLatin1String(row.objectName));
        m_flags.push_back(flag);
        box->addWidget(flag);
    }
    auto * form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(m_verbosityLabel, m_verbosity);
    form->addRow(m_restartLabel, m_restartPeriod);
    form->addRow(m_threadsLabel, m_threads);
    m_verbosityLabel->setBuddy(m_verbosity);
    m_restartLabel->setBuddy(m_restartPeriod);
    m_threadsLabel->setBuddy(m_threads);
    m_commandLineLabel->setBuddy(m_commandLine);
    box->addLayout(form);
    box->addSpacing(6);
    box->addWidget(m_commandLineLabel);
    box->addWidget(m_commandLine);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_group);
    layout->addStretch(1);
}

void HygSimulationStartWidget::updateThreads() {
    m_runOptions.parallelThreads = m_threads->text();
    const bool isWrong = m_runOptions.threadCount() == 0 && !m_threads->text().trimmed().isEmpty();
    QPalette colours;
    if (isWrong)
        colours.setColor(QPalette::Base, QtExt::Palette::color(QtExt::Palette::ERROR_BASE));
    m_threads->setPalette(colours);
    m_threads->setToolTip(
        isWrong ? tr("A number from 1 to 1024 is needed here; without one the solver chooses itself.")
                : tr("Number of parallel threads, should be less or equal to the number of physical CPU cores."));
    if (!isWrong)
        m_settings.m_numParallelThreads = m_runOptions.threadCount();
    updateCommandLine();
}

void HygSimulationStartWidget::onVerbosityLevelChanged(int level) {
    m_runOptions.verbosityLevel = level;
    updateCommandLine();
}

void HygSimulationStartWidget::updateCommandLine() {
    for (std::size_t i = 0; i < m_flags.size(); ++i)
        m_runOptions.*HygRunOptions::flags()[i].member = m_flags[i]->isChecked();
    m_runOptions.restartPeriod = m_restartPeriod->parameter().get_value("s");
    m_settings.m_useModernSolver = m_modernSolver->isChecked();
    m_solverExecutable = m_settings.directory(HygSettings::DIR_INSTALLATION) +
                         QLatin1String(m_settings.m_useModernSolver ? MODERN_SOLVER : CLASSICAL_SOLVER);
    m_options = m_runOptions.arguments();
    m_commandLine->setPlainText(HygRunOptions::commandLine(m_solverExecutable, m_options, m_projects.projectFile()));
    updateOffers();
}

void HygSimulationStartWidget::updateOffers() {
    for (QPushButton * button : {m_start, m_test, m_showScreenLog})
        button->setEnabled(m_projects.hasProject());
}

bool HygSimulationStartWidget::refuse(const QString & text) {
    QMessageBox::critical(this, tr("Solver error"), text);
    return false;
}

bool HygSimulationStartWidget::prepareResults(mode_t & mode) {
    const auto directory = HygOutputDirectory::ofProject(m_projects.projectFile());
    if (directory.isBlocked())
        return refuse(tr("There is already a file with the name of the output directory to be created '%1'. Please "
                         "remove this file or save the project with a new name!")
                          .arg(directory.path()));
    if (const qint64 owner = directory.owner(); owner != 0)
        return refuse(tr("The output directory '%1' is in use by another run (process %2). Wait until it has finished "
                         "or stop it.")
                          .arg(directory.path())
                          .arg(owner));
    if (!directory.isWritable())
        return refuse(
            tr("Nothing can be written into the output directory '%1'. Are its rights and those of the disk as they "
               "should be?")
                .arg(directory.path()));
    if (mode == Continue || !directory.hasResults())
        return true;
    HygSimulationRunRequestDialog dialog(restartTime(directory), m_settings.m_clearResultDirBeforeStart, this);
    const auto answer = dialog.ask();
    if (answer == HygSimulationRunRequestDialog::Cancel)
        return false;
    if (answer == HygSimulationRunRequestDialog::Continue) {
        mode = Continue;
        return true;
    }
    m_settings.m_clearResultDirBeforeStart = dialog.clearResultDirectory();
    if (dialog.clearResultDirectory() && !directory.clearResults())
        return refuse(
            tr("Cannot remove result directory '%1', maybe files are still being used?").arg(directory.results()));
    return true;
}

bool HygSimulationStartWidget::start(mode_t mode) {
    if (!m_projects.hasProject() || (mode != TestInit && m_confirm && !m_confirm()) ||
        (m_saveProject && !m_saveProject()))
        return false;
    updateCommandLine();
    if (!QFileInfo(m_solverExecutable).isFile())
        return refuse(tr("Cannot find solver executable '%1'.").arg(m_solverExecutable));
    if (mode != TestInit && !prepareResults(mode))
        return false;
    if (mode == Continue)
        m_options << QStringLiteral("--restart");
    if (mode == TestInit)
        m_options << QStringLiteral("--test-init");
    const QString project = m_projects.projectFile();
    m_commandLine->setPlainText(HygRunOptions::commandLine(m_solverExecutable, m_options, project));

    const QString directory = HygOutputDirectory::ofProject(project).path();
    emit aboutToStart(directory, mode);
    const QString outputFile = newOutputFile();
    const qint64 process = HygSolverProcess::start(m_solverExecutable, m_options + QStringList(project), outputFile);
    emit started(directory, mode, process, outputFile);
    if (process == 0)
        QFile::remove(outputFile);
    if (process == 0)
        QMessageBox::critical(this, tr("Error running solver"),
                              tr("Could not start solver executable '%1'.").arg(m_solverExecutable));
    return process != 0;
}

void HygSimulationStartWidget::on_pushButtonShowScreenLog_clicked() {
    emit screenLogRequested(HygOutputDirectory::ofProject(m_projects.projectFile()).screenLog());
}

void HygSimulationStartWidget::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygSimulationStartWidget::retranslate() {
    m_group->setTitle(tr("Start simulation:"));
    m_classicalSolver->setText(tr("Classical console solver"));
    m_classicalSolver->setToolTip(tr("The solver runs unseen; its progress is shown here."));
    m_modernSolver->setText(tr("Modern solver (graphical interface)"));
    m_modernSolver->setToolTip(tr("The solver opens a window with progress, fields and the work of the integrator."));
    for (std::size_t i = 0; i < m_flags.size(); ++i) {
        m_flags[i]->setText(tr(HygRunOptions::flags()[i].label));
        m_flags[i]->setToolTip(tr(HygRunOptions::flags()[i].toolTip));
    }
    m_verbosityLabel->setText(tr("Solver message detail:"));
    for (int i = 0; i < m_verbosity->count(); ++i)
        m_verbosity->setItemText(i, tr(VERBOSITY[i]));
    m_verbosity->setToolTip(tr("How much the solver writes into its log; \"Normal\" is enough unless a run fails."));
    m_restartLabel->setText(tr("Write restart file period in s"));
    m_restartPeriod->setToolTip(
        tr("Time period in s for writing restart file. 0 s means writing for each output step."));
    m_threadsLabel->setText(tr("Number of parallel threads:"));
    m_threads->setPlaceholderText(tr("auto (using OMP_NUM_THREADS if set)"));
    m_commandLineLabel->setText(tr("Command line:"));
    m_commandLine->setToolTip(tr("What is started; to be copied for runs without the editor."));
    m_start->setText(tr("Start Simulation"));
    m_start->setToolTip(tr("Saves the project and starts the solver as a process of its own."));
    m_test->setText(tr("Test simulation setup"));
    m_test->setToolTip(tr("Lets the solver read and check everything without calculating; takes a few seconds."));
    m_showScreenLog->setText(tr("Show log file..."));
    m_showScreenLog->setToolTip(tr("What the solver has to say about this project's run."));
    m_commandLine->setAccessibleName(m_commandLineLabel->text());
    updateThreads();
}
