#include "undo/HygUndoGrid.h"

#include <KOR/Exception.h>

#include <cmath>

void HygAssignmentsChange::exchange(HYGRION::Assignments & assignments) {
    if (m_whole) {
        m_change = {assignments.m_list, std::move(m_whole->m_list)};
        m_whole.reset();
    }
    m_change.exchange(assignments.m_list);
}

void HygAssignmentsChange::absorb(const HygAssignmentsChange & later, const HYGRION::Assignments & now) {
    if (later.isNothing())
        return;
    HYGRION::Assignments before = now;
    HygAssignmentsChange(later).exchange(before);
    exchange(before);
    m_change = {now.m_list, std::move(before.m_list)};
}

HygUndoAssignments::HygUndoAssignments(const QString & text, HYGRION::Assignments assignments)
    : HygUndoCommandBase(text), m_assignments(std::move(assignments)) {}

void HygUndoAssignments::redo() {
    m_assignments.exchange(theProject().m_assignments);
    announce(HygModification::AssignmentsReplaced);
}

bool HygUndoAssignments::absorb(const HygUndoCommandBase & later) {
    m_assignments.absorb(static_cast<const HygUndoAssignments &>(later).m_assignments, theProject().m_assignments);
    return true;
}

HygUndoModifyGrid::HygUndoModifyGrid(const QString & text, HYGRION::Disc disc)
    : HygUndoCommandBase(text), m_disc(std::move(disc)) {}

HygUndoModifyGrid::HygUndoModifyGrid(const QString & text, HYGRION::Disc disc, HYGRION::Assignments assignments)
    : HygUndoCommandBase(text), m_disc(std::move(disc)), m_assignments(std::move(assignments)) {}

void HygUndoModifyGrid::redo() {
    std::swap(theProject().m_disc, m_disc);
    m_assignments.exchange(theProject().m_assignments);
    announce(HygModification::GridModified);
}

bool HygUndoModifyGrid::absorb(const HygUndoCommandBase & later) {
    m_assignments.absorb(static_cast<const HygUndoModifyGrid &>(later).m_assignments, theProject().m_assignments);
    return true;
}

bool HygUndoModifyGrid::isNothing() const {
    return m_disc == theProject().m_disc && m_assignments.isNothing();
}

HygUndoCellDimension::HygUndoCellDimension(const QString & text, unsigned int column, unsigned int row, double width,
                                           double height)
    : HygUndoCommandBase(text), m_cell{column, row, width, height} {
    constexpr const char * WHERE = "[HygUndoCellDimension::HygUndoCellDimension]";
    if (column >= theProject().m_disc.nx() || row >= theProject().m_disc.ny())
        throw KOR::Exception(KOR::text("Cell %1, %2 lies outside of the grid.", column, row), WHERE);
    for (const double size : {width, height})
        if (!(size > 0) || !std::isfinite(size))
            throw KOR::Exception("A cell must have a positive width.", WHERE);
}

HygUndoCellDimension::HygUndoCellDimension(const QString & text, unsigned int column, unsigned int row, double width,
                                           double height, HYGRION::Assignments assignments)
    : HygUndoCellDimension(text, column, row, width, height) {
    m_assignments = HygAssignmentsChange(std::move(assignments));
}

void HygUndoCellDimension::redo() {
    HYGRION::Disc & disc = theProject().m_disc;
    std::swap(disc.m_xSteps.m_data.at(m_cell.column), m_cell.width);
    std::swap(disc.m_ySteps.m_data.at(m_cell.row), m_cell.height);
    m_assignments.exchange(theProject().m_assignments);
    announce(HygModification::CellDimensionChanged, &m_cell);
}

bool HygUndoCellDimension::isSameTarget(const HygUndoCommandBase & later) const {
    const CellData & cell = static_cast<const HygUndoCellDimension &>(later).m_cell;
    return cell.column == m_cell.column && cell.row == m_cell.row;
}

bool HygUndoCellDimension::absorb(const HygUndoCommandBase & later) {
    m_assignments.absorb(static_cast<const HygUndoCellDimension &>(later).m_assignments, theProject().m_assignments);
    return true;
}

bool HygUndoCellDimension::isNothing() const {
    const HYGRION::Disc & disc = theProject().m_disc;
    return disc.m_xSteps.m_data.at(m_cell.column) == m_cell.width &&
           disc.m_ySteps.m_data.at(m_cell.row) == m_cell.height && m_assignments.isNothing();
}
