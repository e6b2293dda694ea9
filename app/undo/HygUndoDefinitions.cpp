#include "undo/HygUndoDefinitions.h"

namespace {

constexpr const char * CONDITION = "Condition index %1 out of range.";
constexpr const char * DEFINITION = "Definition index %1 out of range.";

} // namespace

// The constructors are private: std::make_unique cannot reach them.

std::unique_ptr<HygUndoRemoveInterface> HygUndoRemoveInterface::createRemoveDefinitionAction(const QString & text,
                                                                                             unsigned int index) {
    return std::unique_ptr<HygUndoRemoveInterface>(
        new HygUndoRemoveInterface(text, HygUndoRows::Interfaces::KIND, index, "Interface index %1 out of range.",
                                   "[HygUndoRemoveInterface::createRemoveDefinitionAction]"));
}

std::unique_ptr<HygUndoRemoveDefinition>
HygUndoRemoveDefinition::createRemoveDefinitionAction(const QString & text, HygModification::definition_t kind,
                                                      unsigned int index) {
    constexpr const char * WHERE = "[HygUndoRemoveDefinition::createRemoveDefinitionAction]";
    const char * message = nullptr;
    if (kind == HygModification::InitialCondition)
        message = "Initial condition index %1 out of range.";
    else if (kind == HygModification::FieldCondition)
        message = "Field condition index %1 out of range.";
    else if (kind == HygModification::ContactCondition)
        message = "Contact condition index %1 out of range.";
    else
        throw KOR::Exception(KOR::text("There is no command that removes a definition of kind %1.", int{kind}), WHERE);
    return std::unique_ptr<HygUndoRemoveDefinition>(new HygUndoRemoveDefinition(text, kind, index, message, WHERE));
}

std::unique_ptr<HygUndoRemoveClimateCond> HygUndoRemoveClimateCond::createUndoAction(const QString & text,
                                                                                     unsigned int index) {
    return std::unique_ptr<HygUndoRemoveClimateCond>(new HygUndoRemoveClimateCond(
        text, HygUndoRows::ClimateConditions::KIND, index, CONDITION, "[HygUndoRemoveClimateCond::createUndoAction]"));
}

std::unique_ptr<HygUndoRemoveBoundaryCond> HygUndoRemoveBoundaryCond::createUndoAction(const QString & text,
                                                                                       unsigned int index) {
    return std::unique_ptr<HygUndoRemoveBoundaryCond>(
        new HygUndoRemoveBoundaryCond(text, HygUndoRows::BoundaryConditions::KIND, index, CONDITION,
                                      "[HygUndoRemoveBoundaryCond::createUndoAction]"));
}

std::unique_ptr<HygUndoRemoveSchedule> HygUndoRemoveSchedule::createUndoAction(const QString & text,
                                                                               unsigned int index) {
    return std::unique_ptr<HygUndoRemoveSchedule>(new HygUndoRemoveSchedule(
        text, HygUndoRows::Schedules::KIND, index, DEFINITION, "[HygUndoRemoveSchedule::createUndoAction]"));
}

std::unique_ptr<HygUndoRemoveOutputGrid> HygUndoRemoveOutputGrid::createUndoAction(const QString & text,
                                                                                   unsigned int index) {
    return std::unique_ptr<HygUndoRemoveOutputGrid>(new HygUndoRemoveOutputGrid(
        text, HygUndoRows::OutputGrids::KIND, index, DEFINITION, "[HygUndoRemoveOutputGrid::createUndoAction]"));
}

std::unique_ptr<HygUndoRemoveMaterial> HygUndoRemoveMaterial::createUndoAction(const QString & text,
                                                                               unsigned int index) {
    return std::unique_ptr<HygUndoRemoveMaterial>(
        new HygUndoRemoveMaterial(text, HygUndoRows::Materials::KIND, index, "Material index %1 out of range.",
                                  "[HygUndoRemoveMaterial::createUndoAction]"));
}
