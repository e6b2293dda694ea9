#pragma once

#include <HYGRION/Project.h>

namespace CMD {

/// A part of the project that two projects do not have alike.
struct Difference {
    std::string place;                ///< "interface 'Outside'", "Discretization"
    std::vector<std::string> removed; ///< lines of the file that only the first project has
    std::vector<std::string> added;   ///< lines that only the second has
};

/// What differs, definition by definition. The order of definitions does not count, that of assignments does.
std::vector<Difference> difference(const HYGRION::Project & first, const HYGRION::Project & second);

} // namespace CMD
