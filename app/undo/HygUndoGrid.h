#pragma once

#include "undo/HygUndoCommandBase.h"

#include <HYGRION/ListChange.h>

#include <optional>

/// The assignments of a command: whole until they have been exchanged for the first time, from then on only what differs.
class HygAssignmentsChange {
public:
    HygAssignmentsChange() = default;
    explicit HygAssignmentsChange(HYGRION::Assignments assignments) : m_whole(std::move(assignments)) {}

    /// Undo and redo are the same.
    void exchange(HYGRION::Assignments & assignments);
    /// Takes over a later change that has been made already. \param now the assignments after it
    void absorb(const HygAssignmentsChange & later, const HYGRION::Assignments & now);
    /// After the first exchange: whether the assignments were the same before.
    bool isNothing() const { return !m_whole && m_change.empty(); }
    /// Number of assignments kept.
    std::size_t size() const { return m_whole ? m_whole->size() : m_change.size(); }

private:
    std::optional<HYGRION::Assignments> m_whole;
    HYGRION::ListChange<HYGRION::Assignment> m_change;
};

/// Exchanges the assignments.
class HygUndoAssignments : public HygUndoCommandBase {
public:
    HygUndoAssignments(const QString & text, HYGRION::Assignments assignments);
    void redo() override;
    void undo() override { redo(); }
    /// Number of assignments that the command keeps.
    std::size_t keptAssignments() const { return m_assignments.size(); }

protected:
    bool isSameTarget(const HygUndoCommandBase &) const override { return true; }
    bool absorb(const HygUndoCommandBase & later) override;
    bool isNothing() const override { return m_assignments.isNothing(); }

private:
    HygAssignmentsChange m_assignments;
};

/// Exchanges the grid and, if they are given, the assignments that follow it: one change, one announcement.
class HygUndoModifyGrid : public HygUndoCommandBase {
public:
    HygUndoModifyGrid(const QString & text, HYGRION::Disc disc);
    HygUndoModifyGrid(const QString & text, HYGRION::Disc disc, HYGRION::Assignments assignments);
    void redo() override;
    void undo() override { redo(); }

protected:
    bool isSameTarget(const HygUndoCommandBase &) const override { return true; }
    bool absorb(const HygUndoCommandBase & later) override;
    bool isNothing() const override;

private:
    HYGRION::Disc m_disc;
    HygAssignmentsChange m_assignments;
};

/// Exchanges the widths of one column and of one row, and the assignments if other ones are given.
class HygUndoCellDimension : public HygUndoCommandBase {
public:
    /// What the notification points to.
    struct CellData {
        unsigned int column = 0;
        unsigned int row = 0;
        double width = 0;  ///< of the column, in the unit of the x-steps; in the notification: before the change
        double height = 0; ///< of the row, in the unit of the y-steps; likewise
    };

    /// Throws "Cell %1, %2 lies outside of the grid." and "A cell must have a positive width."
    /// ("[HygUndoCellDimension::HygUndoCellDimension]").
    HygUndoCellDimension(const QString & text, unsigned int column, unsigned int row, double width, double height);
    HygUndoCellDimension(const QString & text, unsigned int column, unsigned int row, double width, double height,
                         HYGRION::Assignments assignments);
    void redo() override;
    void undo() override { redo(); }

protected:
    bool isSameTarget(const HygUndoCommandBase & later) const override;
    bool absorb(const HygUndoCommandBase & later) override;
    bool isNothing() const override;

private:
    CellData m_cell;
    HygAssignmentsChange m_assignments;
};
