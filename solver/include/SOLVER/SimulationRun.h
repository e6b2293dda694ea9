#pragma once

#include <SOLVER/SolverOptions.h>

#include <atomic>
#include <functional>

namespace SOLVER {

class Simulation;

/// How a run ends; the exit codes of the solver programs.
enum class exit_t { FINISHED = 0, FAILED = 1, USAGE = 2, INTERRUPTED = 3 };

/// The directory of logs, results and restart file: the one that the options name, or the project file's path without
/// its extension. Throws ("[SOLVER::runDirectory]") when there is no project file or it has no extension.
std::string runDirectory(const SolverOptions & options);

/// A whole run as the solver programs do it: reads the project, sets up, steps to the end, keeps logs, results and the
/// restart file. Failures are reported as messages and end with FAILED; nothing is thrown.
/// \param stop may be set at any time, also by a signal handler: a restart file is written and the run ends
/// \param observe called after each step, by the thread that calculates
exit_t simulate(const SolverOptions & options, const std::atomic<bool> & stop,
                const std::function<void(const Simulation &)> & observe = {});

} // namespace SOLVER
