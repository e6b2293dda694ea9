#include <SOLVER/SimulationRun.h>

#include <SOLVER/RunLog.h>
#include <SOLVER/Simulation.h>

#include <KOR/Exception.h>
#include <KOR/MessageHandler.h>

#include <omp.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <system_error>

namespace SOLVER {

using KOR::Exception;
using KOR::message;
using KOR::text;

namespace {

constexpr const char * WHERE = "[SOLVER::simulate]";

HYGRION::Project readProject(const SolverOptions & options) {
    HYGRION::Project project;
    project.readXML(options.project);
    if (options.duration) {
        using Para = HYGRION::Interval::para_t;
        auto & interval = project.m_init.m_interval.m_para;
        interval.erase(Para::End);
        interval.set(Para::Duration, *options.duration, "s");
    }
    return project;
}

std::optional<RestartFile> readRestart(const RunDirectory & directory, const SolverOptions & options) {
    if (!options.restart)
        return {};
    if (!std::filesystem::exists(directory.restartFile())) {
        message("There is no restart file; the simulation starts from the beginning.", KOR::MSG_WARNING, WHERE);
        return {};
    }
    try {
        return RestartFile::read(directory.restartFile());
    } catch (const Exception & ex) {
        throw Exception(ex, "The interrupted run cannot be continued; without --restart it starts from the beginning.",
                        WHERE);
    }
}

/// What helps where the disk had no room for a file.
void tellRemedy(const Exception & failure, const RunDirectory * directory) {
    const std::string all = failure.what();
    constexpr int FULL[] = {ENOSPC, EDQUOT, EFBIG};
    if (std::none_of(std::begin(FULL), std::end(FULL), [&all](int error) {
            return all.find(std::generic_category().message(error)) != std::string::npos;
        }))
        return;
    const bool canContinue = directory != nullptr && std::filesystem::exists(directory->restartFile());
    message(canContinue ? "Make room, then go on with --restart; results are complete up to the last record that found "
                          "room."
                        : "Make room, then start again.",
            KOR::MSG_ERROR, WHERE);
}

void tell(const Construction & construction, const SolverOptions & options) {
    const ModelInput & input = construction.input;
    message(text("Project '%1': %2 cells, %3 surfaces, from %4 d to %5 d.", options.project, input.cells.size(),
                 input.surfaces.size(), KOR::toString(construction.startTime / 86400, 8),
                 KOR::toString(construction.endTime / 86400, 8)),
            KOR::MSG_PROGRESS, WHERE);
}

void tell(const RunSummary & summary) {
    const IntegratorStatistics & s = summary.statistics;
    message(text("%1 steps, %2 iterations, %3 right-hand sides, %4 s.", s.steps, s.nonlinearIterations,
                 s.rightHandSides, KOR::toString(summary.wallTime, 4)),
            KOR::MSG_PROGRESS, WHERE);
    const auto balance = [](const char * what, const RunSummary::Balance & b, const char * unit) {
        if (b.isSolved)
            message(text("Balance of %1: gained %2 %5, came in %3 %5, error %4 of what was exchanged.", what,
                         KOR::toString(b.gained, 7), KOR::toString(b.cameIn, 7), KOR::toString(b.relativeError(), 2),
                         unit),
                    KOR::MSG_PROGRESS, WHERE);
    };
    balance("energy", summary.energy, "J");
    balance("moisture", summary.moisture, "kg");
}

/// The loop of a run, with what is to be left behind.
class Run {
public:
    Run(const SolverOptions & options, const std::atomic<bool> & stop, const RunDirectory & directory, RunLog & log,
        const std::function<void(const Simulation &)> & observe)
        : m_options(options), m_stop(stop), m_directory(directory), m_log(log), m_observe(observe) {}

    exit_t perform() {
        try {
            const HYGRION::Project project = readProject(m_options);
            Construction construction = buildConstruction(project);
            tell(construction, m_options);
            const std::optional<RestartFile> restart =
                m_options.testInit ? std::nullopt : readRestart(m_directory, m_options);
            if (!restart && !m_options.testInit)
                std::remove(m_directory.restartFile().c_str()); // never that of another run
            m_simulation = std::make_unique<Simulation>(std::move(construction), project,
                                                        m_options.testInit ? std::string() : m_directory.results(),
                                                        restart ? &*restart : nullptr);
            if (restart)
                message(text("Continued from %1 d.", KOR::toString(m_simulation->time() / 86400, 8)), KOR::MSG_PROGRESS,
                        WHERE);
            if (m_options.testInit) {
                message("The simulation is set up without errors.", KOR::MSG_PROGRESS, WHERE);
                return exit_t::FINISHED;
            }
            return loop();
        } catch (const Exception & ex) {
            return fail(ex);
        } catch (const std::bad_alloc &) {
            return fail(Exception("Out of memory.", WHERE));
        } catch (const std::exception & ex) {
            return fail(Exception(ex.what(), WHERE));
        }
    }

private:
    exit_t loop() {
        writeCheckpoint();
        m_log.start(*m_simulation);
        const bool isPerOutput = m_options.restartPeriod <= 0;
        long outputs = m_simulation->outputCount();
        while (!m_simulation->isAtEnd()) {
            if (m_stop)
                return interrupt();
            m_simulation->step();
            m_log.step(*m_simulation);
            if (m_observe)
                m_observe(*m_simulation);
            showResults();
            if (m_options.disablePeriodicRestart)
                continue;
            const bool isDue = isPerOutput ? m_simulation->outputCount() > outputs : isRestartDue();
            if (isDue)
                writeCheckpoint();
            outputs = m_simulation->outputCount();
        }
        m_log.stop();
        writeRestart();
        const RunSummary summary = m_simulation->summary();
        tell(summary);
        message(text("Results: %1", m_directory.results()), KOR::MSG_PROGRESS, WHERE);
        m_log.writeSummary(RunLog::status_t::FINISHED, &summary, m_simulation->outputs().paths(), {});
        return exit_t::FINISHED;
    }

    exit_t interrupt() {
        m_log.stop();
        writeCheckpoint();
        const RunSummary summary = m_simulation->summary();
        message(text("Interrupted at %1 d; option --restart goes on from %2 d.",
                     KOR::toString(m_simulation->time() / 86400, 8),
                     KOR::toString(m_simulation->checkpoint().time / 86400, 8)),
                KOR::MSG_PROGRESS, WHERE, 0);
        m_log.writeSummary(RunLog::status_t::INTERRUPTED, &summary, m_simulation->outputs().paths(), {});
        return exit_t::INTERRUPTED;
    }

    exit_t fail(const Exception & failure) {
        m_log.stop();
        failure.report();
        tellRemedy(failure, &m_directory);
        std::optional<RunSummary> summary;
        if (m_simulation) {
            try {
                m_simulation->flush();
                // A step that failed leaves the last state whole; a result file that failed does not.
                if (failure.chain().back().where == "[Simulation::step]")
                    writeRestart();
                summary = m_simulation->summary();
            } catch (const std::exception & ex) {
                message(ex.what(), KOR::MSG_WARNING, WHERE);
            }
        }
        m_log.writeSummary(RunLog::status_t::FAILED, summary ? &*summary : nullptr,
                           m_simulation ? m_simulation->outputs().paths() : std::vector<std::string>(), failure.what());
        return exit_t::FAILED;
    }

    /// Lets others see what has been written, while it goes on.
    void showResults() {
        constexpr auto PERIOD = std::chrono::seconds(1);
        if (std::chrono::steady_clock::now() - m_lastShown < PERIOD)
            return;
        m_simulation->flush();
        m_lastShown = std::chrono::steady_clock::now();
    }

    /// At first more often than the period, so that who loses a run after a minute does not lose the minute.
    bool isRestartDue() const {
        constexpr double SOON = 5; ///< [s]
        const auto now = std::chrono::steady_clock::now();
        const auto seconds = [now](auto since) { return std::chrono::duration<double>(now - since).count(); };
        return seconds(m_lastRestart) >= std::min(m_options.restartPeriod, std::max(SOON, seconds(m_begin) / 3));
    }

    /// The last state itself, at an end from which nobody goes on as if nothing had happened.
    void writeRestart() { m_simulation->restartState().write(m_directory.restartFile()); }

    /// From where a run goes on with the very results of this one.
    void writeCheckpoint() {
        m_lastRestart = std::chrono::steady_clock::now();
        const RestartFile & checkpoint = m_simulation->checkpoint();
        if (checkpoint.time == m_writtenTime)
            return;
        m_simulation->flush();
        checkpoint.write(m_directory.restartFile());
        m_writtenTime = checkpoint.time;
    }

    const SolverOptions & m_options;
    const std::atomic<bool> & m_stop;
    const RunDirectory & m_directory;
    RunLog & m_log;
    const std::function<void(const Simulation &)> & m_observe;
    std::unique_ptr<Simulation> m_simulation;
    double m_writtenTime = std::numeric_limits<double>::quiet_NaN(); ///< of the checkpoint in the file [s]
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now(), m_lastRestart, m_lastShown;
};

} // namespace

std::string runDirectory(const SolverOptions & options) {
    constexpr const char * HERE = "[SOLVER::runDirectory]";
    if (!options.outputDirectory.empty())
        return options.outputDirectory;
    if (!KOR::Path(options.project).isFile())
        throw Exception(text("There is no project file '%1'.", options.project), HERE);
    std::string path = KOR::Path(options.project).withoutExtension().str();
    if (path == options.project)
        throw Exception(text("Project file '%1' needs an extension, its name without it is the directory of the "
                             "results.",
                             options.project),
                        HERE);
    return path;
}

exit_t simulate(const SolverOptions & options, const std::atomic<bool> & stop,
                const std::function<void(const Simulation &)> & observe) {
    if (options.parallelThreads > 0)
        omp_set_num_threads(options.parallelThreads);
    try {
        const RunDirectory directory(runDirectory(options));
        RunLog log(directory, options);
        return Run(options, stop, directory, log, observe).perform();
    } catch (const Exception & ex) {
        ex.report();
        tellRemedy(ex, nullptr);
    } catch (const std::exception & ex) {
        Exception(ex.what(), WHERE).report();
    }
    return exit_t::FAILED;
}

} // namespace SOLVER
