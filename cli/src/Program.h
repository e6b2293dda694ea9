#pragma once

#include "Commands.h"

#include <iosfwd>
#include <span>
#include <string>

namespace CMD {

/// How the program ends.
enum exit_t { EXIT_DONE = 0, EXIT_FAILED = 1, EXIT_USAGE = 2, EXIT_INTERRUPTED = 3 };

/// Adds a family of commands (or a lone command) to the program.
using AddCommands = void (*)(Commands & program);

/// Runs the command line, without the program's path.
/// Failures are written to \p err, the outermost message first. Never throws what a command throws.
exit_t run(std::vector<std::string> arguments, std::span<const AddCommands> families, std::ostream & out,
           std::ostream & err);

} // namespace CMD
