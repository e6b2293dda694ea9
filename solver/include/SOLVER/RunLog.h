#pragma once

#include <SOLVER/RunDirectory.h>
#include <SOLVER/Simulation.h>
#include <SOLVER/SolverOptions.h>

#include <condition_variable>
#include <fstream>
#include <mutex>
#include <thread>

namespace SOLVER {

/// What a run tells while it goes on: lines of progress on console and in log/screenlog.txt, log/progress.txt at least
/// every second whatever a step takes, log/steps.tsv on demand, log/summary.json at the end.
class RunLog {
public:
    enum class status_t { FINISHED, INTERRUPTED, FAILED };

    /// Opens screenlog.txt; a continued run goes on in it.
    RunLog(const RunDirectory & directory, const SolverOptions & options);
    ~RunLog();
    RunLog(const RunLog &) = delete;
    RunLog & operator=(const RunLog &) = delete;

    /// Begins with the progress of a simulation.
    void start(const Simulation & simulation);
    /// Called after each step.
    void step(const Simulation & simulation);
    /// Stops the lines of progress, after a last one.
    void stop();
    /// Writes log/summary.json. \param summary nullptr if the run has not begun \param error what went wrong, or empty
    /// Never throws: a run does not fail for its summary.
    void writeSummary(status_t status, const RunSummary * summary, const std::vector<std::string> & results,
                      const std::string & error) noexcept;

private:
    void watch();
    void report(const Simulation::Progress & progress, bool toConsole);

    const RunDirectory & m_directory;
    SolverOptions m_options;
    std::ofstream m_progressFile;
    std::ofstream m_stepFile;

    std::mutex m_mutex; ///< guards the following
    std::condition_variable m_wake;
    Simulation::Progress m_progress;
    bool m_isRunning = false;
    std::thread m_watcher;

    double m_startShare = 0;
    std::int64_t m_wallStart = 0; ///< [ns] of the steady clock
    int m_lines = 0;
};

} // namespace SOLVER
