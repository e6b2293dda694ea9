#pragma once

#include <HYGRION/ProjectCheck.h>

#include <string>
#include <vector>

namespace SOLVER {

/// HYGRION::ProjectCheck, and besides it everything that buildConstruction and the outputs refuse because of what
/// definitions and assignments in use say: kinds that cannot be calculated, missing quantities, units, unknown output
/// quantities. Material and climate files are not read. What would have no effect is a warning.
std::vector<HYGRION::ProjectCheck::Finding> checkProject(const HYGRION::Project & project);

/// The same of a file, with its lines. \param project holds what could be read
std::vector<HYGRION::ProjectCheck::Finding> checkFile(const std::string & filename, HYGRION::Project & project);

} // namespace SOLVER
