#include "construction/HygSelectionHistory.h"

#include <QUndoStack>

#include <set>
#include <utility>

void HygSelectionHistory::begin(const HygGridSelection & selection) {
    if (!m_before)
        m_before = selection;
}

std::optional<HygGridSelection> HygSelectionHistory::follow(const QUndoStack & stack) {
    const std::optional<HygGridSelection> before = std::exchange(m_before, std::nullopt);
    const std::vector<HygGridMap> maps = std::exchange(m_maps, {});
    const int from = std::exchange(m_index, stack.index());
    // Commands that are gone; their addresses may come again.
    std::set<const QUndoCommand *> alive;
    for (int n = 0; n < stack.count(); ++n)
        alive.insert(stack.command(n));
    std::erase_if(m_steps, [&](const auto & step) { return !alive.contains(step.first); });

    const auto known = [&](int index) {
        const auto found = index < 0 || index >= stack.count() ? m_steps.end() : m_steps.find(stack.command(index));
        return found == m_steps.end() ? nullptr : &found->second;
    };
    for (int n = m_index; n < from; ++n)
        if (const Step * step = known(n)) // undone
            return step->before;
    for (int n = m_index - 1; n >= from; --n)
        if (const Step * step = known(n)) // redone
            return step->after;
    if (!before || m_index == 0 || m_index < from)
        return std::nullopt;
    if (Step * last = known(m_index - 1)) {
        last->after = *before; // merged with a change of the same widths
        return std::nullopt;
    }
    Step step{*before, *before};
    for (const HygGridMap & map : maps)
        step.after.setBlocks(map.mapped(step.after.blocks()));
    m_steps[stack.command(m_index - 1)] = step;
    if (maps.empty())
        return std::nullopt;
    return step.after;
}
