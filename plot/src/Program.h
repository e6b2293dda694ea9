#pragma once

#include <string>
#include <vector>

namespace PLOT {

/// How the program ends.
enum exit_t { EXIT_DONE = 0, EXIT_FAILED = 1, EXIT_USAGE = 2 };

/// Runs the command line, without the program's path. Needs a QApplication. Failures go to the error stream, the
/// outermost message first.
exit_t run(std::vector<std::string> arguments);

} // namespace PLOT
