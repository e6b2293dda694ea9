#include "SimulationPictures.h"

#include "document/HygProjectHandler.h"
#include "results/HygAnimation.h"
#include "results/HygResultTree.h"
#include "results/HygResultsView.h"
#include "results/HygTimeBar.h"
#include "simulation/HygRunList.h"
#include "simulation/HygRunLive.h"
#include "simulation/HygSimulationRunRequestDialog.h"
#include "simulation/HygSimulationView.h"
#include "solverui/HygSolverWindow.h"
#include "undo/HygUndoSections.h"

#include <KOR/Exception.h>
#include <KOR/Time.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <cstdio>

namespace {

constexpr QSize VIEW(1200, 720);
constexpr int RUN_MS = 600000;
constexpr QSize FILM(640, 400);
constexpr int FRAMES = 48;

void save(QWidget & widget, const QString & path) {
    QTest::qWait(200); // readers in other threads
    if (!widget.grab().save(path))
        throw KOR::Exception(KOR::text("Cannot write '%1'.", path.toStdString()), "[SimulationPictures]");
    std::printf("%s\n", qPrintable(path));
}

/// A copy of an example of some days, calculated; once for all languages and looks.
QString calculated(const QString & folder, const char * example, const char * name, double days, double step_h) {
    const QString project = folder + '/' + QLatin1String(name) + QStringLiteral(".h6p");
    HygProjectHandler projects;
    if (!projects.openProject(QStringLiteral(HYG_SOURCE_DIR "/examples/") + QLatin1String(example) + ".h6p"))
        throw KOR::Exception("Cannot open the example.", "[SimulationPictures]");
    HYGRION::Project changed = projects.project();
    changed.m_init.m_interval.m_para.set(HYGRION::Interval::para_t::Duration, days, "d");
    for (HYGRION::OutputGrid & grid : changed.m_outputs.m_outputGrids)
        for (HYGRION::Interval & interval : grid.m_intervals)
            interval.m_para.set(HYGRION::Interval::para_t::StepSize, step_h, "h");
    if (!changed.writeXML(project.toStdString()))
        throw KOR::Exception("Cannot write the example.", "[SimulationPictures]");
    QProcess solver;
    solver.start(QCoreApplication::applicationDirPath() + "/HygrionSolver.exe", {project});
    if (!solver.waitForFinished(RUN_MS) || solver.exitCode() != 0)
        throw KOR::Exception("The solver failed: " + solver.readAll().toStdString(), "[SimulationPictures]");
    return project;
}

QString copied(const QString & project, const char * name) {
    const QString copy = QFileInfo(project).path() + '/' + QLatin1String(name) + QStringLiteral(".h6p");
    QFile::copy(project, copy);
    return copy;
}

struct Examples {
    QTemporaryDir folder;
    QString wall = calculated(folder.path(), "Brick wall", "West facade", 120, 6);
    QString other = copied(wall, "North facade"); // for the solver window, which calculates anew
    QString slab = calculated(folder.path(), "Floor slab edge", "Floor slab edge", 60, 24);
};

QString resultOf(const QString & project, const char * name) {
    return project.chopped(4) + "/results/" + QLatin1String(name) + ".h6b";
}

/// The pictures hold no path of this computer.
void hidePaths(HygSimulationView & view, const Examples & examples) {
    auto * line = view.findChild<QPlainTextEdit *>(QStringLiteral("commandLine"));
    line->setPlainText(line->toPlainText()
                           .replace(QCoreApplication::applicationDirPath(), QStringLiteral("/opt/hygrion"))
                           .replace(examples.folder.path(), QStringLiteral("/home/anna/projects")));
}

void drawSimulation(const Examples & examples, const QString & target, const QString & suffix) {
    HygProjectHandler projects;
    HygSimulationView view(&projects);
    view.resize(VIEW);
    projects.openProject(examples.wall);
    view.runs().add({examples.wall, examples.wall.chopped(4), QDateTime::currentDateTime().addDays(-1), false, 0});
    view.runs().at(0)->poll();
    view.show();
    view.selectRun(0);
    hidePaths(view, examples);
    view.live().choose({QStringLiteral("Humidity field"), QStringLiteral("Inner surface temperature")});
    QTest::qWait(1500); // the checks
    save(view, target + QStringLiteral("/simulation_run") + suffix);
    auto * tabs = view.findChild<QTabWidget *>(QStringLiteral("simulationTabs"));
    for (const auto & [tab, name] : {std::pair(1, "model"), std::pair(2, "solver"), std::pair(3, "performance")}) {
        tabs->setCurrentIndex(tab);
        save(view, target + QStringLiteral("/simulation_") + QLatin1String(name) + suffix);
    }
    HygSimulationRunRequestDialog question(57.25 * KOR::SECONDS_PER_DAY, false);
    question.show();
    save(question, target + QStringLiteral("/simulation_question") + suffix);
}

void drawSolverWindow(const Examples & examples, const QString & target, const QString & suffix) {
    SOLVER::SolverOptions options;
    const QString directory = QDir::currentPath();
    QDir::setCurrent(examples.folder.path()); // a name without a path of this computer
    options.project = QFileInfo(examples.other).fileName().toStdString();
    options.verbosityLevel = 0;
    HygSolverWindow window(options);
    window.show();
    window.start();
    const auto isFarEnough = [&window] { return !window.isRunning() || window.share() > 0.3; };
    if (!QTest::qWaitFor(isFarEnough, RUN_MS))
        throw KOR::Exception("The solver does not get on.", "[SimulationPictures]");
    QTest::qWait(1200); // the chart follows every second
    save(window, target + QStringLiteral("/solver_window") + suffix);
    window.stop();
    window.waitForEnd();
    QDir::setCurrent(directory);
}

void drawResults(const Examples & examples, const QString & target, const QString & suffix) {
    HygProjectHandler projects;
    HygResultsView view(&projects);
    view.resize(VIEW);
    view.show();
    projects.openProject(examples.wall);
    view.tree().choose({resultOf(examples.wall, "Temperature field"), resultOf(examples.wall, "Humidity field")});
    for (const char * flag : {"dewPoint", "mouldLimit"})
        view.findChild<QCheckBox *>(QLatin1String(flag))->setChecked(true);
    view.timeBar().setIndex(view.timeBar().count() * 2 / 3);
    save(view, target + QStringLiteral("/results_profile") + suffix);

    if (HygAnimation::formats().contains(QStringLiteral("*.gif")) && suffix == QLatin1String("_en_light.png")) {
        HygAnimation film(view.chart(), target + QStringLiteral("/run.gif"), FILM, FRAMES);
        QString problem = QStringLiteral("it took too long");
        QObject::connect(&film, &HygAnimation::finished, [&problem](const QString & told) { problem = told; });
        if (!QTest::qWaitFor([&problem] { return problem.isEmpty(); }, RUN_MS))
            throw KOR::Exception("The film failed: " + problem.toStdString(), "[SimulationPictures]");
    }

    view.tree().choose({resultOf(examples.wall, "Inner surface humidity")});
    view.findChild<QCheckBox *>(QStringLiteral("dates"))->setChecked(true);
    view.findChild<QLineEdit *>(QStringLiteral("threshold"))->setText(QStringLiteral("55"));
    save(view, target + QStringLiteral("/results_course") + suffix);

    projects.openProject(examples.slab);
    view.findChild<QLineEdit *>(QStringLiteral("threshold"))->clear();
    QStringList fields;
    const QDir results(examples.slab.chopped(4) + "/results");
    for (const QString & name : results.entryList({QStringLiteral("*.h6b")}, QDir::Files))
        if (HygResultFile(results.filePath(name)).isField())
            fields << results.filePath(name);
    view.tree().choose(fields.mid(0, 1));
    for (const char * flag : {"smooth", "isolines"})
        view.findChild<QCheckBox *>(QLatin1String(flag))->setChecked(true);
    view.findChild<QComboBox *>(QStringLiteral("cut"))->setCurrentIndex(HygResultChart::AlongX);
    view.timeBar().setIndex(view.timeBar().count() - 1);
    save(view, target + QStringLiteral("/results_field") + suffix);
}

} // namespace

void drawSimulationPictures(const QString & target, const QString & suffix) {
    static const Examples examples;
    drawSimulation(examples, target, suffix);
    drawResults(examples, target, suffix);
    drawSolverWindow(examples, target, suffix);
}
