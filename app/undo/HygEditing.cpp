#include "undo/HygEditing.h"

#include "undo/HygUndoDefinitions.h"
#include "undo/HygUndoSections.h"

#include <QUndoStack>

namespace {

template <typename List> void removeItem(List & list, unsigned int index) {
    if (index >= list.size())
        throw KOR::Exception(KOR::text("Definition index %1 out of range.", index), "[HygEditing::removeDefinition]");
    list.erase(list.begin() + index);
}

std::unique_ptr<QUndoCommand> removeCommand(const QString & text, const HYGRION::Project & project,
                                            HYGRION::definition_t kind, unsigned int index) {
    using enum HYGRION::definition_t;
    const auto definition = [&](HygModification::definition_t which) {
        return HygUndoRemoveDefinition::createRemoveDefinitionAction(text, which, index);
    };
    switch (kind) {
    case Material:
        return HygUndoRemoveMaterial::createUndoAction(text, index);
    case Interface:
        return HygUndoRemoveInterface::createRemoveDefinitionAction(text, index);
    case InitialCondition:
        return definition(HygModification::InitialCondition);
    case FieldCondition:
        return definition(HygModification::FieldCondition);
    case ContactCondition:
        return definition(HygModification::ContactCondition);
    case BoundaryCondition:
        return HygUndoRemoveBoundaryCond::createUndoAction(text, index);
    case ClimateCondition:
        return HygUndoRemoveClimateCond::createUndoAction(text, index);
    case Schedule:
        return HygUndoRemoveSchedule::createUndoAction(text, index);
    case OutputGrid:
        return HygUndoRemoveOutputGrid::createUndoAction(text, index);
    case OutputFile: {
        HYGRION::Outputs outputs = project.m_outputs;
        removeItem(outputs.m_outputFiles, index);
        return std::make_unique<HygUndoOutputs>(text, std::move(outputs));
    }
    case SolutionDefinition:
        break;
    }
    HYGRION::Project changed = project;
    removeItem(changed.m_conditions.m_solutionDefinitions, index);
    return std::make_unique<HygUndoProject>(text, std::move(changed));
}

} // namespace

std::unique_ptr<HygUndoCommandBase> HygEditing::widthCommand(const QString & text, const HYGRION::Project & project,
                                                             unsigned int dir, std::size_t first, std::size_t last,
                                                             double width) {
    const HYGRION::Disc & disc = project.m_disc;
    if (first == last && dir == HYGRION::Disc::X && !disc.m_ySteps.empty())
        return std::make_unique<HygUndoCellDimension>(text, static_cast<unsigned int>(first), 0u, width,
                                                      disc.m_ySteps.m_data.front());
    if (first == last && dir == HYGRION::Disc::Y && !disc.m_xSteps.empty())
        return std::make_unique<HygUndoCellDimension>(text, 0u, static_cast<unsigned int>(first),
                                                      disc.m_xSteps.m_data.front(), width);
    HYGRION::Disc changed = disc;
    HYGRION::edit::setWidths(changed, dir, first, last, width);
    return std::make_unique<HygUndoModifyGrid>(text, std::move(changed));
}

void HygEditing::removeDefinition(QUndoStack & stack, const QString & text, const HYGRION::Project & project,
                                  HYGRION::definition_t kind, unsigned int index) {
    std::unique_ptr<QUndoCommand> removal = removeCommand(text, project, kind, index);
    std::string name;
    HYGRION::forEachDefinitionList(project, [&](HYGRION::definition_t listKind, const auto & list) {
        if (listKind == kind)
            name = list[index].m_name;
    });
    HYGRION::Assignments assignments = project.m_assignments;
    const auto taken = std::erase_if(assignments.m_list, [&](const HYGRION::Assignment & assignment) {
        return HYGRION::referencedKind(assignment) == kind && assignment.m_reference == name;
    });
    if (taken == 0) {
        stack.push(removal.release());
        return;
    }
    stack.beginMacro(text);
    stack.push(new HygUndoAssignments(text, std::move(assignments)));
    stack.push(removal.release());
    stack.endMacro();
}
