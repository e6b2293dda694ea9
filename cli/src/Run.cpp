#include "Families.h"
#include "RunTable.h"

#include <SOLVER/CheckProject.h>
#include <SOLVER/SimulationRun.h>

#include <KOR/Exception.h>

#include <nlohmann/json.hpp>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <ostream>

namespace CMD {

namespace {

using KOR::text;

std::atomic<bool> stop = false;
static_assert(std::atomic<bool>::is_always_lock_free); // so that a handler may set it

/// The first one ends the run in order, a second one at once.
extern "C" void onSignal(int number) {
    stop = true;
    std::signal(number, SIG_DFL);
}

struct Run : SOLVER::SolverOptions {
    std::string writtenDuration;
};

void define(CLI::App & app, Run & run) {
    app.add_option("FILE", run.project, "The project file.")->required();
    app.add_option("--duration", run.writtenDuration, "Duration instead of the project's, as in \"30 d\".")
        ->type_name("TIME")
        ->each([&run](const std::string & written) {
            try {
                run.duration = SOLVER::SolverOptions::parseDuration(written);
            } catch (const KOR::Exception &) {
                throw CLI::ValidationError(text("It takes a time as in \"30 d\", not '%1'.", written));
            }
        });
    app.add_option("--output-dir", run.outputDirectory,
                   "Directory for logs, results and restart file instead of the project's own.")
        ->type_name("DIR");
    app.add_flag("--restart", run.restart, "Go on from where an earlier run was interrupted.");
    app.add_flag("--test-init", run.testInit, "Set up and check the simulation without running it.");
    app.add_flag("--step-stats", run.stepStats, "Write statistics for each step (log/steps.tsv).");
    app.add_option("--verbosity-level", run.verbosityLevel, "Detail of the messages.")->check(CLI::Range(0, 3));
    app.add_option("--parallel-threads", run.parallelThreads, "Number of threads.")->check(CLI::Range(1, 1024));
}

/// Lines and definitions of the project's faults, of which the calculation names only the first.
void tellFaults(const std::string & path, Output & output) {
    HYGRION::Project project;
    if (std::filesystem::is_regular_file(path))
        for (const HYGRION::ProjectCheck::Finding & finding : SOLVER::checkFile(path, project))
            if (finding.severity == HYGRION::ProjectCheck::FAULT)
                output.notes() << path << ": error: " << finding.text() << '\n';
}

void perform(const Run & run, Output & output) {
    constexpr const char * WHERE = "[CMD::run]";
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    std::signal(SIGXFSZ, SIG_IGN);
    switch (SOLVER::simulate(run, stop)) { // which tells itself what went wrong
    case SOLVER::exit_t::FINISHED:
        break;
    case SOLVER::exit_t::INTERRUPTED:
        throw Interrupted(text("The simulation of '%1' was interrupted; --restart goes on with it.", run.project),
                          WHERE);
    default:
        tellFaults(run.project, output);
        throw KOR::Exception(text("The simulation of '%1' failed.", run.project), WHERE);
    }
    const std::string directory = SOLVER::runDirectory(run);
    if (run.testInit) {
        output.text() << (output.isJson() ? "{}\n" : "The simulation is set up without errors.\n");
        return;
    }
    const nlohmann::ordered_json summary = readRun(directory);
    if (output.isJson()) {
        output.json(summary);
        return;
    }
    printRun(summary, output.text());
    output.text() << text("Results:        %1/results\n", directory);
}

} // namespace

void addRun(Commands & program) {
    program.command<Run>(
        {
            "run",
            "Calculates a project and tells what its layers went through.",
            {"run \"Brick wall.h6p\"# results in \"Brick wall/results\"",
              "run wall.h6p --duration 30d --output-dir /tmp/wall# a month, elsewhere", "run wall.h6p --restart# after Ctrl-C or a power failure"}
    },
        define, perform);
}

} // namespace CMD
