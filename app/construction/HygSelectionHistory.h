#pragma once

#include "construction/HygGridMap.h"
#include "construction/HygGridSelection.h"

#include <map>
#include <optional>
#include <vector>

class QUndoCommand;
class QUndoStack;

/// What was selected before and after each change of the cells, so that undo and redo bring it back.
class HygSelectionHistory {
public:
    /// The cells are about to change, or have just changed. \param selection as it was before; the first one counts
    void begin(const HygGridSelection & selection);
    /// What becomes of the cells; several in a row are one change.
    void plan(const HygGridMap & map) { m_maps.push_back(map); }
    /// After the index of the stack has changed. \return what is to be selected; nothing if it stays as it is
    std::optional<HygGridSelection> follow(const QUndoStack & stack);

private:
    struct Step {
        HygGridSelection before;
        HygGridSelection after;
    };
    std::map<const QUndoCommand *, Step> m_steps;
    std::optional<HygGridSelection> m_before;
    std::vector<HygGridMap> m_maps;
    int m_index = 0;
};
