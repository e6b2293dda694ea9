#pragma once

#include "undo/HygUndoGrid.h"

#include <HYGRION/GridEdit.h>

#include <memory>

class QUndoStack;

/// Makes commands out of what HYGRION::edit does to copies; for views and dialogs, which hold the project as const.
/// All throw what the operation throws; nothing has been pushed or changed then.
namespace HygEditing {

/// One command for a change of the grid with the assignments that follow.
/// \param change called as change(HYGRION::Disc &, HYGRION::Assignments &) with copies
template <typename Change>
std::unique_ptr<HygUndoModifyGrid> gridCommand(const QString & text, const HYGRION::Project & project,
                                               const Change & change) {
    HYGRION::Disc disc = project.m_disc;
    HYGRION::Assignments assignments = project.m_assignments;
    change(disc, assignments);
    return std::make_unique<HygUndoModifyGrid>(text, std::move(disc), std::move(assignments));
}

/// One command for a change of the assignments.
/// \param change called as change(HYGRION::Assignments &) with a copy
template <typename Change>
std::unique_ptr<HygUndoAssignments> assignmentsCommand(const QString & text, const HYGRION::Project & project,
                                                       const Change & change) {
    HYGRION::Assignments assignments = project.m_assignments;
    change(assignments);
    return std::make_unique<HygUndoAssignments>(text, std::move(assignments));
}

/// Gives the columns or rows first..last a width, in the unit of their list: one of them by HygUndoCellDimension, which
/// lets views redraw it alone, several or stack planes by HygUndoModifyGrid.
std::unique_ptr<HygUndoCommandBase> widthCommand(const QString & text, const HYGRION::Project & project,
                                                 unsigned int dir, std::size_t first, std::size_t last, double width);

/// Pushes a command that removes a definition; where assignments name it, a macro that takes them off first.
/// Output files are removed through HygUndoOutputs, solution definitions through HygUndoProject.
void removeDefinition(QUndoStack & stack, const QString & text, const HYGRION::Project & project,
                      HYGRION::definition_t kind, unsigned int index);

} // namespace HygEditing
