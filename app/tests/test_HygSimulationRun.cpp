#include "HygSettings.h"
#include "document/HygProjectHandler.h"
#include "results/HygResultChart.h"
#include "results/HygResultFile.h"
#include "results/HygResultTree.h"
#include "results/HygResultsView.h"
#include "simulation/HygInitForm.h"
#include "simulation/HygRunList.h"
#include "simulation/HygRunLive.h"
#include "simulation/HygScreenLogView.h"
#include "simulation/HygSimulationChecks.h"
#include "simulation/HygSimulationOptions.h"
#include "simulation/HygSimulationRunRequestDialog.h"
#include "simulation/HygSimulationStartWidget.h"
#include "simulation/HygSimulationView.h"
#include "simulation/HygSolverProcess.h"
#include "undo/HygEditing.h"
#include "undo/HygUndoSections.h"

#include <QtExt/ValueEdit.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTranslator>
#include <QUndoStack>

#include <gmock/gmock.h>

namespace {

using Start = HygSimulationStartWidget;
using State = HygRunMonitor::state_t;
using testing::HasSubstr;

constexpr int LONG = 120000; ///< [ms] for a solver without optimisation on a busy machine

/// The example of a brick wall, some days of it, and the real solver.
class HygSimulationRunTest : public testing::Test {
protected:
    HygSimulationRunTest() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        m_settings.setDefaults();
        m_settings.setInstallationDirectory(HYG_BINARY_DIR);
        m_settings.setDirectory("UserData", m_directory.path());
    }
    ~HygSimulationRunTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    void open(const char * name = "wall.h6p", double days = 40) {
        const QString path = m_directory.filePath(name);
        ASSERT_TRUE(QFile::copy(HYG_BINARY_DIR "/examples/Brick wall.h6p", path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        ASSERT_TRUE(m_projects.openProject(path));
        HYGRION::Init init = m_projects.project().m_init;
        init.m_interval.m_para.set(HYGRION::Interval::para_t::Duration, days, "d");
        m_projects.undoStack().push(new HygUndoInit("days", init));
    }
    static bool waitFor(const HygRunMonitor & run, const std::function<bool()> & condition) {
        return QTest::qWaitFor([&] { return condition() || !run.isActive(); }, LONG) && condition();
    }
    /// Values of all records of a result file, one after the other.
    static std::vector<double> all(const QString & path) {
        HygResultFile file(path);
        std::vector<double> values;
        for (std::size_t t = 0; t < file.timeCount(); ++t) {
            values.push_back(file.time(t));
            values.insert(values.end(), file.values(t).begin(), file.values(t).end());
        }
        return values;
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygSettings m_settings{"KOR", "HygSimulationRunTest"};
    HygProjectHandler m_projects;
};

TEST_F(HygSimulationRunTest, WholeRoad) {
    open();
    // A layer is changed and changed back.
    const HYGRION::Project before = m_projects.project();
    m_projects.undoStack().push(HygEditing::widthCommand("Layer", before, HYGRION::Disc::X, 9, 12, 5.0).release());
    EXPECT_NE(m_projects.project(), before);
    m_projects.undoStack().undo();
    EXPECT_EQ(m_projects.project(), before);

    HygSimulationView view(&m_projects);
    ASSERT_TRUE(view.startWidget().start(Start::Normal));
    EXPECT_FALSE(m_projects.isModified()); // saved first
    HygRunMonitor * run = view.runs().at(0);
    ASSERT_TRUE(waitFor(*run, [&] { return run->progress().time > 86400; })) << run->problem().toStdString();
    EXPECT_EQ(run->state(), State::Running);
    EXPECT_GT(run->progress().speed, 0);
    EXPECT_GT(run->progress().left, 0);

    // A second start finds the directory taken.
    QTimer closer;
    QString told;
    QObject::connect(&closer, &QTimer::timeout, [&told] {
        if (QWidget * box = QApplication::activeModalWidget()) {
            told = box->property("text").toString();
            box->close();
        }
    });
    closer.start(20);
    EXPECT_FALSE(view.startWidget().start(Start::Normal));
    EXPECT_THAT(told.toStdString(), HasSubstr("is in use by another run"));

    run->pause();
    EXPECT_TRUE(waitFor(*run, [&] { return run->state() == State::Paused; }));
    {
        // An editor that is opened now finds the run.
        HygRunList later(m_directory.filePath("runs.json"));
        later.attach(m_projects.projectFile());
        ASSERT_NE(later.at(0), nullptr);
        later.at(0)->poll();
        EXPECT_EQ(later.at(0)->state(), State::Paused);
    }
    run->resume();
    run->stop();
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Interrupted; }))
        << HygRunList::stateText(run->state()).toStdString();
    EXPECT_LT(run->progress().time, 40 * 86400.0);

    ASSERT_TRUE(view.startWidget().start(Start::Continue));
    run = view.runs().at(0);
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Finished; })) << run->problem().toStdString();
    EXPECT_EQ(run->progress().percent, 100);

    // The same without an interruption.
    ASSERT_TRUE(QFile::copy(m_projects.projectFile(), m_directory.filePath("straight.h6p")));
    QProcess straight;
    straight.start(HYG_BINARY_DIR "/HygrionSolver.exe", {m_directory.filePath("straight.h6p")});
    ASSERT_TRUE(straight.waitForFinished(LONG));
    EXPECT_EQ(straight.exitCode(), 0);
    const QDir results(m_directory.filePath("straight/results"));
    const QStringList names = results.entryList({"*.h6b"});
    EXPECT_EQ(names.size(), 7);
    for (const QString & name : names) {
        const auto a = all(results.filePath(name)), b = all(m_directory.filePath("wall/results/") + name);
        ASSERT_EQ(a.size(), b.size()) << name.toStdString();
        for (std::size_t i = 0; i < a.size(); ++i)
            // The steps differ behind the restart: within the tolerance of the integrator.
            ASSERT_NEAR(a[i], b[i], 2e-3 * std::max(1.0, std::abs(a[i]))) << name.toStdString() << ' ' << i;
    }

    HygResultsView resultsView(&m_projects);
    EXPECT_EQ(resultsView.tree().topLevelItem(0)->childCount(), 7);
    resultsView.tree().choose({m_directory.filePath("wall/results/") + names[0]});
    EXPECT_TRUE(resultsView.chart().problems().isEmpty()) << resultsView.chart().problems().toStdString();
    EXPECT_GT(resultsView.chart().timeCount(), 30u);
}

TEST_F(HygSimulationRunTest, ATestOfTheSetUpLeavesNothingBehind) {
    open();
    HygSimulationView view(&m_projects);
    ASSERT_TRUE(view.startWidget().start(Start::TestInit));
    HygRunMonitor * run = view.runs().at(0);
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Finished; })) << run->problem().toStdString();
    EXPECT_FALSE(QFileInfo::exists(m_directory.filePath("wall")));
    // With a fault: it is told, and nothing is left either.
    HYGRION::Project broken = m_projects.project();
    broken.m_init.m_climateDataFilePath = KOR::Path("gone.c6b");
    m_projects.undoStack().push(new HygUndoProject("break", broken));
    ASSERT_TRUE(view.startWidget().start(Start::TestInit));
    run = view.runs().at(0);
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Failed; }));
    EXPECT_THAT(run->problem().toStdString(), HasSubstr("gone.c6b"));
    EXPECT_FALSE(QFileInfo::exists(m_directory.filePath("wall")));
}

TEST_F(HygSimulationRunTest, ASolverThatIsKilledIsToldAndCanBeContinued) {
    open();
    HygSimulationView view(&m_projects);
    ASSERT_TRUE(view.startWidget().start(Start::Normal));
    HygRunMonitor * run = view.runs().at(0);
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Running && run->progress().time > 0; }));
    run->kill();
    ASSERT_TRUE(waitFor(*run, [&] { return run->state() == State::Lost; }));
    EXPECT_THAT(run->problem().toStdString(), HasSubstr("restart file"));
    EXPECT_TRUE(HygOutputDirectory(m_directory.filePath("wall")).canContinue());
}

TEST_F(HygSimulationRunTest, RunsAreRememberedAndReadAgain) {
    QDir().mkpath(m_directory.filePath("wall/log"));
    KOR::writeFile(m_directory.filePath("wall/log/summary.json").toStdString(),
                   R"({"status": "failed", "error": "The wall melted.", "time_s": 86400})");
    const QString store = m_directory.filePath("runs.json");
    {
        HygRunList runs(store);
        runs.add({m_directory.filePath("wall.h6p"), m_directory.filePath("wall"),
                  QDateTime::currentDateTime().addSecs(-60), false, 0});
    }
    HygRunList runs(store);
    ASSERT_EQ(runs.rowCount(), 1);
    EXPECT_EQ(runs.at(0)->state(), State::Failed);
    EXPECT_EQ(runs.at(0)->problem(), "The solver ended with an error at 1.00 d.\nThe wall melted.");
    EXPECT_EQ(runs.data(runs.index(0, HygRunList::Simulated), Qt::DisplayRole).toString(), "1.0 d");
    KOR::writeFile(store.toStdString(), "[{\"directory\": 5}, nonsense");
    EXPECT_EQ(HygRunList(store).rowCount(), 0);
}

TEST_F(HygSimulationRunTest, WhatASolverSaidBeforeItWasLostIsTold) {
    const QString screen = m_directory.filePath("screen.txt"), log = m_directory.filePath("wall/log/screenlog.txt");
    const std::string lines =
        "Hygrion solver\n[Error   ] [DataWriter::flush]\tCannot write result file 'T.h6b': No space left on "
        "device\n[Error   ] [Simulation::step]\tThe run ended.\n";
    QDir().mkpath(m_directory.filePath("wall/log"));
    for (const QString & path : {screen, log}) {
        KOR::writeFile(path.toStdString(), lines);
        HygRunMonitor run(
            {"wall.h6p", m_directory.filePath("wall"), QDateTime::currentDateTime().addSecs(-60), false, 0, screen});
        run.poll();
        EXPECT_EQ(run.state(), State::Lost);
        EXPECT_EQ(run.problem().toStdString(),
                  "The solver ended with an error and could not write the end of its log.\nCannot write result file "
                  "'T.h6b': No space left on device\nThe run ended.");
        EXPECT_FALSE(QFileInfo::exists(screen)); // of no use any more
    }
}

TEST_F(HygSimulationRunTest, ProgressIsTheLastCompleteLine) {
    const QString path = m_directory.filePath("progress.txt");
    HygRunMonitor::Progress progress;
    KOR::writeFile(path.toStdString(), "simulated time [s]\twall time [s]\tdone [%]\tspeed [s/s]\tleft [s]\tsteps\n");
    EXPECT_FALSE(HygRunMonitor::readProgress(path, progress));
    KOR::writeFile(path.toStdString(), "t\n3600\t2\t50\t1800\t2\t17\n7200\t4\t1");
    EXPECT_TRUE(HygRunMonitor::readProgress(path, progress));
    EXPECT_EQ(progress.time, 3600);
    EXPECT_EQ(progress.percent, 50);
    EXPECT_EQ(progress.steps, 17);
    EXPECT_FALSE(HygRunMonitor::readProgress(m_directory.filePath("none"), progress));
}

TEST_F(HygSimulationRunTest, ChecksNameWhatStopsTheRun) {
    open();
    const std::atomic<bool> goOn = false;
    const auto messages = [&](const HYGRION::Project & project) {
        std::string all;
        for (const auto & found : HygSimulationChecks::check(project, goOn))
            all += (found.severity == HygSimulationChecks::Finding::ERROR ? "E " : "W ") + found.place.toStdString() +
                   ": " + found.message.toStdString() + '\n';
        return all;
    };
    const HYGRION::Project good = m_projects.project();
    EXPECT_EQ(messages(good), "");
    struct Row {
        void (*spoil)(HYGRION::Project &);
        const char * expected;
    };
    const Row rows[] = {
        {[](auto & p) { p.m_init.m_climateDataFilePath = KOR::Path(); },                                             "E Init: There is no climate data file"                 },
        {[](auto & p) { p.m_init.m_climateDataFilePath = KOR::Path("x.epw"); },                                      "E Init: The climate data file"                         },
        {[](auto & p) { p.m_init.m_interval.m_para.clear(); },                                                       "E Init: The simulation has no end"                     },
        {[](auto & p) { p.m_materials[1].m_filename = KOR::Path("x.m6"); },
         "E material 'Solid clay brick': The file '"                                                                                                                         },
        {[](auto & p) { p.m_assignments.m_list.erase(p.m_assignments.m_list.begin()); },
         "W Assignments: 9 of 49 cells"                                                                                                                                      },
        {[](auto & p) { p.m_outputs.m_outputFiles.clear(); },                                                        "W Outputs: No outputs are defined"                     },
        {[](auto & p) { p.m_assignments.m_list.pop_back(); },                                                        "W output file 'Inner moisture flux': The output is not"},
        {[](auto & p) { p.m_init.m_solverSettings.m_para.set(HYGRION::SolverSettings::para_t::RelTol, -1, "---"); },
         "E Init: "                                                                                                                                                          },
    };
    for (const Row & row : rows) {
        HYGRION::Project bad = good;
        row.spoil(bad);
        EXPECT_THAT(messages(bad), HasSubstr(row.expected));
    }
    // A click leads to the place.
    HygSimulationChecks view(m_projects);
    QSignalSpy checked(&view, &HygSimulationChecks::checked);
    QSignalSpy requested(&view, &HygSimulationChecks::placeRequested);
    view.show();
    ASSERT_TRUE(checked.wait(LONG));
    EXPECT_TRUE(view.findings().empty());
    HYGRION::Project bad = good;
    bad.m_outputs.m_outputFiles.clear();
    m_projects.undoStack().push(new HygUndoProject("spoil", bad));
    ASSERT_TRUE(checked.wait(LONG));
    auto * list = view.findChild<QListWidget *>("checks");
    emit list->itemClicked(list->item(list->count() - 1));
    ASSERT_EQ(requested.count(), 1);
    EXPECT_EQ(requested[0][0].toString(), "Outputs");
}

TEST_F(HygSimulationRunTest, AClickOnACheckLeadsToTheFieldOfTheSetting) {
    open();
    HygSimulationView view(&m_projects);
    view.show();
    auto * tabs = view.findChild<QTabWidget *>("simulationTabs");
    auto * checks = view.findChild<HygSimulationChecks *>();
    struct Row {
        void (*spoil)(HYGRION::Init &);
        const char * field;
        int tab;
    };
    using P = HYGRION::SolverSettings::para_t;
    const Row rows[] = {
        {[](auto & i) { i.m_climateDataFilePath = KOR::Path("x.epw"); },              "ClimateDataFilePath", 1},
        {[](auto & i) { i.m_sourceModules.emplace_back().m_name = "Geysir"; },        "SourceModules",       1},
        {[](auto & i) { i.m_interval.m_para.clear(); },                               "Duration",            1},
        {[](auto & i) { i.m_solverSettings.m_para.set(P::RelTol, -1, "---"); },       "RelTol",              2},
        {[](auto & i) { i.m_solverSettings.m_para.set(P::MaxKrylovDim, -5, "---"); }, "MaxKrylovDim",        3},
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(row.field);
        HYGRION::Init bad = m_projects.project().m_init;
        row.spoil(bad);
        tabs->setCurrentIndex(0); // checks are made while they are in view
        QSignalSpy checked(checks, &HygSimulationChecks::checked);
        m_projects.undoStack().push(new HygUndoInit("spoil", bad));
        ASSERT_TRUE(checked.wait(LONG));
        auto * list = view.findChild<QListWidget *>("checks");
        emit list->itemActivated(list->item(0));
        EXPECT_EQ(tabs->currentIndex(), row.tab);
        EXPECT_EQ(tabs->currentWidget()->focusWidget(), view.findChild<QWidget *>(row.field));
        m_projects.undoStack().undo();
    }
}

TEST_F(HygSimulationRunTest, FieldsThatAreLeftShowWhatIsInForce) {
    QLocale::setDefault(QLocale::c());
    open();
    HygSimulationModelOptions model(m_projects);
    model.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&model));
    model.activateWindow();
    auto * duration = model.findChild<QtExt::ValueEdit *>("Duration");
    auto * other = model.findChild<QWidget *>("StartYear");
    const auto inForce = [this] {
        return m_projects.project().m_init.m_interval.m_para.find(HYGRION::Interval::para_t::Duration)->valueText();
    };
    struct Row {
        const char * typed;
        bool isValid;
        const char * after;
        const char * inForce;
    };
    const Row rows[] = {
        {"soon",       false, "40 d",  "40 d" },
        {"0",          false, "40 d",  "40 d" },
        {"1 h 30 min", true,  "1.5 h", "1.5 h"},
        {"2 d 5 kg",   false, "1.5 h", "1.5 h"},
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(row.typed);
        duration->setFocus();
        duration->selectAll();
        QTest::keyClicks(duration, row.typed);
        EXPECT_EQ(duration->isValid(), row.isValid);
        other->setFocus();
        EXPECT_TRUE(duration->isValid());
        EXPECT_EQ(duration->text(), row.after);
        EXPECT_EQ(inForce(), row.inForce);
        if (!row.isValid) {
            EXPECT_THAT(QToolTip::text().toStdString(), HasSubstr("The value before is in force."));
        }
    }
}

TEST_F(HygSimulationRunTest, ErrorsInTheChecksAreAskedAboutBeforeTheStart) {
    open();
    HYGRION::Init bad = m_projects.project().m_init;
    bad.m_sourceModules.emplace_back().m_name = "Geysir";
    m_projects.undoStack().push(new HygUndoInit("spoil", bad));
    HygSimulationView view(&m_projects);
    view.show();
    const auto startAnswering = [&](const char * button) {
        QString told;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto * box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            told = box->informativeText();
            for (QAbstractButton * each : box->buttons())
                if (each->text().remove('&') == QLatin1String(button))
                    each->click();
        });
        timer.start(20);
        const bool isStarted = view.startWidget().start(Start::Normal);
        EXPECT_THAT(told.toStdString(), HasSubstr("Geysir"));
        return isStarted;
    };
    EXPECT_FALSE(startAnswering("Cancel"));
    EXPECT_TRUE(m_projects.isModified()); // nothing has been done
    EXPECT_FALSE(startAnswering("Show"));
    EXPECT_EQ(view.findChild<QTabWidget *>("simulationTabs")->currentIndex(), 1);
    EXPECT_EQ(view.runs().rowCount(), 0);
    EXPECT_TRUE(startAnswering("Start all the same"));
    HygRunMonitor * run = view.runs().at(0);
    EXPECT_TRUE(waitFor(*run, [&] { return run->state() == State::Failed; }));
}

TEST_F(HygSimulationRunTest, SolversKnowTheLanguageOfTheEditor) {
    QTranslator german;
    ASSERT_TRUE(german.load("hygrion_de", HYG_BINARY_DIR "/translations"));
    QCoreApplication::installTranslator(&german);
    const QString said = m_directory.filePath("environment.txt");
    const qint64 process = HygSolverProcess::start("/usr/bin/env", {}, said);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !HygSolverProcess::isAlive(process); }));
    QCoreApplication::removeTranslator(&german);
    EXPECT_THAT(KOR::readFile(said.toStdString(), 1 << 20),
                HasSubstr(std::string(HygSolverProcess::LANGUAGE_VARIABLE) + "=de"));
}

TEST_F(HygSimulationRunTest, SeveralChosenResultsAreFollowed) {
    open("wall.h6p", 1);
    ASSERT_TRUE(m_projects.saveIfModified());
    HygRunLive live;
    live.setDirectory(m_directory.filePath("wall"));
    live.choose({"Temperature field", "Humidity field", "Inner surface temperature"});
    EXPECT_TRUE(live.charts().empty()); // nothing is there yet
    auto * empty = live.findChild<QLabel *>("liveEmpty");
    EXPECT_FALSE(empty->isHidden());
    QProcess solver;
    solver.start(HYG_BINARY_DIR "/HygrionSolver.exe", {m_projects.projectFile()});
    ASSERT_TRUE(solver.waitForFinished(LONG));
    live.refresh();
    ASSERT_EQ(live.charts().size(), 3u);
    EXPECT_TRUE(empty->isHidden());
    EXPECT_EQ(live.charts()[1]->files()[0]->name(), "Humidity field");
    EXPECT_EQ(live.charts()[1]->timeIndex() + 1, live.charts()[1]->timeCount());
    // One is taken off in the menu.
    auto * menu = live.findChild<QToolButton *>("liveFiles")->menu();
    emit menu->aboutToShow();
    for (QAction * action : menu->actions())
        if (action->text() == "Humidity field")
            action->trigger();
    EXPECT_EQ(live.chosen(), QStringList({"Temperature field", "Inner surface temperature"}));
    EXPECT_EQ(live.charts().size(), 2u);
    live.setDirectory({});
    EXPECT_TRUE(live.charts().empty());
}

TEST_F(HygSimulationRunTest, OptionsAreEditedThroughUndo) {
    open();
    m_projects.undoStack().clear();
    HygSimulationModelOptions model(m_projects);
    HygSimulationSolverOptions solver(m_projects);
    HygSimulationPerformanceOptions performance(m_projects);
    struct Row {
        QWidget * page;
        const char * control;
        const char * entry; ///< "x": a click; "#2": an item of a list; else a text
        std::function<std::string(const HYGRION::Init &)> value;
        const char * expected;
    };
    using P = HYGRION::SolverSettings::para_t;
    using I = HYGRION::Init;
    const auto solverValue = [](P key) {
        return [key](const I & i) {
            const auto * given = i.m_solverSettings.m_para.find(key);
            return given == nullptr ? std::string("none") : given->valueText();
        };
    };
    const Row rows[] = {
        {&solver,      "MaxTimeStep",                "1 h",      solverValue(P::MaxTimeStep),                                                "1 h"          },
        {&solver,      "RelTol",                     "1e-6",     solverValue(P::RelTol),                                                     "1e-06 ---"    },
        {&solver,      "Integrator",                 "#2",
         [](const I & i) { return std::to_string(static_cast<int>(i.m_solverSettings.integrator())); },                                      "2"            },
        {&solver,      "UseStabilityLimitDetection", "x",
         [](const I & i) { return std::to_string(i.m_solverSettings.m_flag.size()); },                                                       "1"            },
        {&performance, "LESSolver",                  "#3",
         [](const I & i) { return std::to_string(static_cast<int>(i.m_solverSettings.lesSolver())); },                                       "3"            },
        {&performance, "MaxKrylovDim",               "70",       solverValue(P::MaxKrylovDim),                                               "70 ---"       },
        {&model,       "UseIce",                     "x",        [](const I & i) { return std::to_string(i.isEnabled(I::flag_t::UseIce)); }, "1"            },
        {&model,       "BalanceEquationModule",      "#0",       [](const I & i) { return i.m_balanceEquationModule; },                      "HeatTransport"},
        {&model,       "Duration",                   "2 a",
         [](const I & i) { return i.m_interval.m_para.find(HYGRION::Interval::para_t::Duration)->valueText(); },                             "2 a"          },
        {&model,       "StartYear",                  "2024",
         [](const I & i) { return std::to_string(i.intParameter(I::intpara_t::StartYear)); },                                                "2024"         },
        {&model,       "FluxModules",                "A, B = C", [](const I & i) { return i.m_fluxModules.at(1).m_overrides.value(); },      "C"            },
        {&model,       "MaterialMapping",            "wood==x",
         [](const I & i) { return i.m_modelSettingsVOC.m_materialMapping.at(0).m_voc; },                                                     "x"            },
    };
    const I before = m_projects.project().m_init;
    int count = 0;
    for (const Row & row : rows) {
        SCOPED_TRACE(row.control);
        auto * control = row.page->findChild<QWidget *>(row.control);
        ASSERT_NE(control, nullptr);
        if (auto * flag = qobject_cast<QCheckBox *>(control)) {
            flag->click();
        } else if (auto * list = qobject_cast<QComboBox *>(control)) {
            list->setCurrentIndex(atoi(row.entry + 1));
        } else {
            QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(control, row.entry);
            QTest::keyClick(control, Qt::Key_Return);
        }
        EXPECT_EQ(m_projects.undoStack().count(), ++count);
        EXPECT_EQ(row.value(m_projects.project().m_init), row.expected);
    }
    // What is emptied is left to the default again; what cannot be used changes nothing.
    auto * step = solver.findChild<QtExt::ValueEdit *>("MaxTimeStep");
    QTest::keyClick(step, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(step, Qt::Key_Delete);
    QTest::keyClick(step, Qt::Key_Return);
    EXPECT_EQ(solverValue(P::MaxTimeStep)(m_projects.project().m_init), "none");
    auto * mapping = model.findChild<QLineEdit *>("MaterialMapping");
    const HYGRION::Project unchanged = m_projects.project();
    mapping->setText("wood=x");
    emit mapping->editingFinished();
    EXPECT_EQ(m_projects.project(), unchanged);
    EXPECT_EQ(mapping->text(), "wood==x"); // what is in force stands there
    while (m_projects.undoStack().canUndo())
        m_projects.undoStack().undo();
    EXPECT_EQ(m_projects.project().m_init, before);
    EXPECT_FALSE(model.findChild<QCheckBox *>("UseIce")->isChecked());
}

TEST_F(HygSimulationRunTest, ScreenLogIsFollowed) {
    const QString path = m_directory.filePath("screenlog.txt");
    HygScreenLogView view;
    view.setFile(path);
    auto * text = view.findChild<QPlainTextEdit *>("screenLog");
    EXPECT_EQ(text->toPlainText(), "");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto append = [&](const char * content) {
        file.write(content);
        file.flush();
        view.follow();
    };
    append("one\nhalf of ");
    EXPECT_EQ(text->toPlainText(), "one");
    append("two\n");
    EXPECT_EQ(text->toPlainText(), "one\nhalf of two");
    KOR::writeFile(path.toStdString(), "a new run\n"); // another file in its place
    view.follow();
    EXPECT_EQ(text->toPlainText(), "a new run");
}

TEST_F(HygSimulationRunTest, SolverWithAWindowRunsAndEnds) {
    open("wall.h6p", 2);
    ASSERT_TRUE(m_projects.saveIfModified());
    QProcess solver;
    solver.start(HYG_BINARY_DIR "/HygrionSolverUI.exe", {"--close-on-exit", m_projects.projectFile()});
    ASSERT_TRUE(solver.waitForFinished(LONG));
    EXPECT_EQ(solver.exitCode(), 0) << solver.readAllStandardError().toStdString();
    EXPECT_EQ(HygResultFile(m_directory.filePath("wall/results/Temperature field.h6b")).timeCount(), 3u);
    solver.start(HYG_BINARY_DIR "/HygrionSolverUI.exe", {"--unknown", m_projects.projectFile()});
    ASSERT_TRUE(solver.waitForFinished(LONG));
    EXPECT_EQ(solver.exitCode(), 2);
}

} // namespace
