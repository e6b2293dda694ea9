#pragma once

#include <HYGRION/Project.h>

class QUndoStack;

/// What most engineers look at first, ready to be calculated.
namespace HygStandardOutputs {

struct Sections {
    HYGRION::Outputs outputs;
    HYGRION::Assignments assignments;
};

/// The outputs and assignments of a project with those added that it does not have by name: the temperature and humidity of
/// all cells, the moisture in the construction, and at every interface temperature, humidity and the fluxes of heat and
/// moisture. Without moisture in the balances there are none of moisture, without heat none of heat. Fields are written
/// every hour for small constructions, else every day; all else every hour.
Sections of(const HYGRION::Project & project);

/// Adds them in one step of undo. \return false if the project has them all
bool add(QUndoStack & stack, const HYGRION::Project & project);

} // namespace HygStandardOutputs
