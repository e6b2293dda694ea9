#include "HygSettings.h"
#include "document/HygProjectHandler.h"
#include "simulation/HygOutputDirectory.h"
#include "simulation/HygRunOptions.h"
#include "simulation/HygSimulationRunRequestDialog.h"
#include "simulation/HygSimulationStartWidget.h"
#include "simulation/HygSolverProcess.h"

#include <QtExt/ValueEdit.h>
#include <SOLVER/RestartFile.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>

namespace {

/// An installation whose solver writes down its arguments and waits, and a project.
class HygSimulationStartTest : public testing::Test {
protected:
    HygSimulationStartTest() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        m_settings.setDefaults();
        m_settings.setInstallationDirectory(m_directory.filePath("bin"));
        EXPECT_TRUE(QDir(m_directory.path()).mkpath("bin"));
        EXPECT_TRUE(m_projects.createProject(m_directory.filePath("Süd wand.h6p")));
        m_widget.updateCommandLine();
    }
    ~HygSimulationStartTest() override {
        for (const QVariantList & call : m_started)
            HygSolverProcess::kill(call[2].toLongLong());
        KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr);
    }

    QString outputDirectory() const { return m_directory.filePath("Süd wand"); }
    void makeSolver(const char * name = "HygrionSolver.exe") const {
        const QString path = m_directory.filePath("bin/") + name;
        KOR::writeFile(path.toStdString(), "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.tmp\"\nmv \"$0.tmp\" \"$0.args\"\n"
                                           "exec sleep 60\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void makeFile(const QString & name) const {
        const QString path = m_directory.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        KOR::writeFile(path.toStdString(), "content");
    }
    QStringList argumentsSeen() const {
        QFile file(m_directory.filePath("bin/HygrionSolver.exe.args"));
        return QTest::qWaitFor([&file] { return file.open(QIODevice::ReadOnly); })
                   ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
                   : QStringList();
    }
    /// Starts and closes the message box that comes; its title and text.
    QStringList messageOf(HygSimulationStartWidget::mode_t mode) {
        QStringList seen;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&seen] {
            if (auto * box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                EXPECT_EQ(box->icon(), QMessageBox::Critical);
                seen << box->windowTitle() << box->text();
                box->accept();
            }
        });
        timer.start(20);
        EXPECT_FALSE(m_widget.start(mode));
        return seen;
    }
    /// Starts and answers the question about existing results by pressing a button.
    bool startAnswering(const char * button, bool clear) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto * dialog = qobject_cast<HygSimulationRunRequestDialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            EXPECT_TRUE(dialog->findChild<QLabel *>("restartTime")->text().contains("1.5 d"));
            dialog->findChild<QCheckBox *>("checkBoxClear")->setChecked(clear);
            if (auto * chosen = dialog->findChild<QPushButton *>(QLatin1String(button)))
                chosen->click();
            else
                dialog->reject();
        });
        timer.start(20);
        return m_widget.start(HygSimulationStartWidget::Normal);
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygSettings m_settings{"KOR", "HygSimulationStartTest"};
    HygProjectHandler m_projects;
    HygSimulationStartWidget m_widget{m_projects, m_settings};
    QSignalSpy m_started{&m_widget, &HygSimulationStartWidget::started};
};

TEST_F(HygSimulationStartTest, ControlsMakeTheirOptions) {
    struct Row {
        const char * control;
        const char * entry; ///< "x" for a check box, an index for a list, a text for a field
        const char * expected;
    };
    const Row rows[] = {
        {"disableHeaders",         "x",      "--disable-headers --verbosity-level=1"                      },
        {"stepStats",              "x",      "--step-stats --verbosity-level=1"                           },
        {"closeOnExit",            "x",      "--close-on-exit --verbosity-level=1"                        },
        {"disablePeriodicRestart", "x",      "--disable-periodic-restart-file-writing --verbosity-level=1"},
        {"verbosityLevel",         "0",      "--verbosity-level=0"                                        },
        {"verbosityLevel",         "3",      "--verbosity-level=3"                                        },
        {"restartPeriod",          "300",    "--verbosity-level=1"                                        },
        {"restartPeriod",          "300.5",  "--verbosity-level=1 --restart-realtime-dt=300.5"            },
        {"restartPeriod",          "0",      "--verbosity-level=1 --restart-realtime-dt=0"                },
        {"restartPeriod",          "10 min", "--verbosity-level=1 --restart-realtime-dt=600"              },
        {"parallelThreads",        "",       "--verbosity-level=1"                                        },
        {"parallelThreads",        "  ",     "--verbosity-level=1"                                        },
        {"parallelThreads",        "2.9",    "--verbosity-level=1 --parallel-threads=2"                   },
        {"parallelThreads",        "two",    "--verbosity-level=1"                                        },
        {"parallelThreads",        "0",      "--verbosity-level=1"                                        },
    };
    for (const Row & row : rows) {
        SCOPED_TRACE(std::string(row.control) + " " + row.entry);
        HygSettings settings("KOR", "HygSimulationStartTest");
        settings.setDefaults();
        HygSimulationStartWidget widget(m_projects, settings);
        auto * control = widget.findChild<QWidget *>(row.control);
        ASSERT_NE(control, nullptr);
        if (auto * box = qobject_cast<QCheckBox *>(control)) {
            box->click();
        } else if (auto * list = qobject_cast<QComboBox *>(control)) {
            list->setCurrentIndex(atoi(row.entry));
        } else {
            static_cast<QLineEdit *>(control)->selectAll();
            QTest::keyClick(control, Qt::Key_Delete);
            QTest::keyClicks(control, row.entry);
            QTest::keyClick(control, Qt::Key_Return);
        }
        EXPECT_EQ(widget.commandLineOptions().join(' ').toStdString(), row.expected);
    }
}

TEST_F(HygSimulationStartTest, CommandLineNamesSolverOptionsAndProjectInOrder) {
    for (const char * flag : {"disablePeriodicRestart", "closeOnExit", "stepStats", "disableHeaders"})
        m_widget.findChild<QCheckBox *>(flag)->click();
    m_widget.findChild<QLineEdit *>("parallelThreads")->setText("4");
    m_widget.findChild<QRadioButton *>("modernSolver")->click();
    EXPECT_EQ(m_widget.findChild<QPlainTextEdit *>("commandLine")->toPlainText(),
              '"' + m_directory.filePath("bin/HygrionSolverUI.exe") +
                  "\" --disable-headers --step-stats --close-on-exit --disable-periodic-restart-file-writing "
                  "--verbosity-level=1 --parallel-threads=4 \"" +
                  m_directory.filePath("Süd wand.h6p") + '"');
    EXPECT_TRUE(m_settings.m_useModernSolver);
    EXPECT_EQ(m_settings.m_numParallelThreads, 4);
    EXPECT_EQ(HygRunOptions::commandLine("/opt/s.exe", {"-o"}, "/m/Müller's \"Häuser\" & $1`/x.h6p"),
              "\"/opt/s.exe\" -o \"/m/Müller's \\\"Häuser\\\" & \\$1\\`/x.h6p\"")
        << "a shell takes it for one path";
}

TEST_F(HygSimulationStartTest, RunsWithLowPriorityAndWithoutWaiting) {
    makeSolver();
    ASSERT_TRUE(m_widget.start(HygSimulationStartWidget::Normal));
    EXPECT_EQ(argumentsSeen(), QStringList({"--verbosity-level=1", m_projects.projectFile()}));
    const qint64 process = m_started.value(0).value(2).toLongLong();
    EXPECT_TRUE(HygSolverProcess::isAlive(process));
    EXPECT_GT(getpriority(PRIO_PROCESS, static_cast<id_t>(process)), getpriority(PRIO_PROCESS, 0));
    EXPECT_TRUE(HygSolverProcess::pause(process));
    EXPECT_TRUE(QTest::qWaitFor([&] { return HygSolverProcess::isPaused(process); }));
    EXPECT_TRUE(HygSolverProcess::stop(process)); // a paused one too
    EXPECT_TRUE(QTest::qWaitFor([&] { return !HygSolverProcess::isAlive(process); }));
}

TEST_F(HygSimulationStartTest, StartsNothingUnlessTheProjectIsSaved) {
    makeSolver();
    m_widget.setSaveProject([] { return false; });
    EXPECT_FALSE(m_widget.start(HygSimulationStartWidget::Normal));
    EXPECT_EQ(m_started.count(), 0);
}

TEST_F(HygSimulationStartTest, WhatStandsInTheWayIsTold) {
    using Start = HygSimulationStartWidget;
    EXPECT_EQ(messageOf(Start::Normal),
              QStringList({"Solver error",
                           "Cannot find solver executable '" + m_directory.filePath("bin/HygrionSolver.exe") + "'."}));
    makeFile("bin/HygrionSolver.exe"); // no program
    EXPECT_EQ(messageOf(Start::TestInit),
              QStringList({"Error running solver", "Could not start solver executable '" +
                                                       m_directory.filePath("bin/HygrionSolver.exe") + "'."}));
    makeSolver();
    makeFile("Süd wand");
    EXPECT_EQ(messageOf(Start::Normal),
              QStringList({"Solver error",
                           "There is already a file with the name of the output directory to be created '" +
                               outputDirectory() + "'. Please remove this file or save the project with a new name!"}));
    EXPECT_TRUE(m_widget.start(Start::TestInit)); // which looks for itself
}

TEST_F(HygSimulationStartTest, AsksWhatBecomesOfResults) {
    struct Row {
        const char * button;
        bool clear;
        bool starts;
        const char * lastOption;
        bool keepsResults;
    };
    const Row rows[] = {
        {"none",               true,  false, "",                    true },
        {"pushButtonStart",    false, true,  "--verbosity-level=1", true },
        {"pushButtonContinue", true,  true,  "--restart",           true },
        {"pushButtonStart",    true,  true,  "--verbosity-level=1", false},
    };
    makeSolver();
    makeFile("Süd wand/results/Temperature.h6b");
    QDir().mkpath(outputDirectory() + "/var");
    SOLVER::RestartFile restart;
    restart.time = 1.5 * 86400;
    restart.write((outputDirectory() + "/var/restart.h6r").toStdString());
    for (const Row & row : rows) {
        SCOPED_TRACE(row.button);
        QFile::remove(m_directory.filePath("bin/HygrionSolver.exe.args"));
        EXPECT_EQ(startAnswering(row.button, row.clear), row.starts);
        if (row.starts) {
            const QStringList seen = argumentsSeen();
            EXPECT_EQ(seen.value(seen.size() - 2), row.lastOption);
        }
        EXPECT_EQ(QFileInfo::exists(outputDirectory() + "/results"), row.keepsResults);
    }
}

TEST_F(HygSimulationStartTest, ResultsThatCannotBeRemovedAreTold) {
    makeSolver();
    makeFile("Süd wand/results/kept/Temperature.h6b");
    namespace fs = std::filesystem;
    const fs::path kept = (outputDirectory() + "/results/kept").toStdString();
    // The rights of directories do not count for root.
    for (const QString & path : {m_directory.path(), outputDirectory(), outputDirectory() + "/results"})
        fs::permissions(path.toStdString(), fs::perms(0777));
    fs::permissions(kept, fs::perms(0555));
    constexpr uid_t NOBODY = 65534;
    const uid_t user = geteuid();
    const bool isRoot = seteuid(NOBODY) == 0;
    QStringList seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&seen] {
        QWidget * modal = QApplication::activeModalWidget();
        if (auto * box = qobject_cast<QMessageBox *>(modal)) {
            seen << box->windowTitle() << box->text();
            box->accept();
        } else if (auto * dialog = qobject_cast<HygSimulationRunRequestDialog *>(modal)) {
            dialog->findChild<QCheckBox *>("checkBoxClear")->setChecked(true);
            dialog->findChild<QPushButton *>("pushButtonStart")->click();
        }
    });
    timer.start(20);
    EXPECT_FALSE(m_widget.start(HygSimulationStartWidget::Normal));
    if (isRoot) {
        ASSERT_EQ(seteuid(user), 0);
    }
    fs::permissions(kept, fs::perms(0755));
    EXPECT_EQ(seen, QStringList({"Solver error", "Cannot remove result directory '" + outputDirectory() +
                                                     "/results', maybe files are still being used?"}));
    EXPECT_EQ(m_started.count(), 0);
    EXPECT_TRUE(QFileInfo::exists(outputDirectory() + "/results/kept/Temperature.h6b"));

    // Neither does a run begin that could not write.
    timer.stop();
    fs::permissions(outputDirectory().toStdString(), fs::perms(0555));
    ASSERT_TRUE(!isRoot || seteuid(NOBODY) == 0);
    EXPECT_EQ(messageOf(HygSimulationStartWidget::Continue),
              QStringList({"Solver error", "Nothing can be written into the output directory '" + outputDirectory() +
                                               "'. Are its rights and those of the disk as they should be?"}));
    ASSERT_TRUE(!isRoot || seteuid(user) == 0);
    fs::permissions(outputDirectory().toStdString(), fs::perms(0755));
}

TEST_F(HygSimulationStartTest, WhatALinkLeadsToIsNeverRemoved) {
    makeFile("elsewhere/precious.h6b");
    QDir().mkpath(outputDirectory());
    ASSERT_TRUE(QFile::link(m_directory.filePath("elsewhere"), outputDirectory() + "/results"));
    const HygOutputDirectory directory(outputDirectory());
    EXPECT_TRUE(directory.hasResults());
    EXPECT_TRUE(directory.clearResults());
    EXPECT_FALSE(QFileInfo(outputDirectory() + "/results").isSymLink());
    EXPECT_TRUE(QFileInfo::exists(m_directory.filePath("elsewhere/precious.h6b")));
}

TEST_F(HygSimulationStartTest, WhatATestOfTheSetUpWroteIsRemoved) {
    const HygOutputDirectory directory(outputDirectory());
    const auto runTest = [&] {
        makeFile("Süd wand/log/screenlog.txt");
        makeFile("Süd wand/log/summary.json");
        makeFile("Süd wand/var/lock");
        QDir().mkpath(outputDirectory() + "/results");
    };
    const HygOutputDirectory::Snapshot nothing(directory);
    runTest();
    nothing.restore();
    EXPECT_FALSE(directory.exists());

    makeFile("Süd wand/results/Temperature.h6b");
    makeFile("Süd wand/notes.txt");
    QDir().mkpath(outputDirectory() + "/log");
    KOR::writeFile(directory.log("screenlog.txt").toStdString(), "of the run");
    const HygOutputDirectory::Snapshot run(directory);
    runTest();
    run.restore();
    EXPECT_EQ(KOR::readFile(directory.log("screenlog.txt").toStdString(), 100), "of the run");
    EXPECT_FALSE(QFileInfo::exists(directory.log("summary.json")));
    EXPECT_FALSE(QFileInfo::exists(outputDirectory() + "/var"));
    EXPECT_TRUE(QFileInfo::exists(outputDirectory() + "/results/Temperature.h6b"));
    EXPECT_TRUE(QFileInfo::exists(outputDirectory() + "/notes.txt"));
}

} // namespace
