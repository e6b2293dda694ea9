#pragma once

#include "undo/HygUndoTemplates.h"

/// The commands on the lists of the project: materials, conditions, interfaces, schedules, outputs. All take the command's
/// text; the constructors of the add commands then the item, those of the modify commands index and new item.
/// Remove commands come from their creator functions, which refuse an index outside of the list.

class HygUndoAddInterface : public HygUndoTemplates::AddCommand<HygUndoRows::Interfaces> {
public:
    using AddCommand::AddCommand;
};
class HygUndoAddInitialCond : public HygUndoTemplates::AddCommand<HygUndoRows::InitialConditions> {
public:
    using AddCommand::AddCommand;
};
class HygUndoAddFieldCond : public HygUndoTemplates::AddCommand<HygUndoRows::FieldConditions> {
public:
    using AddCommand::AddCommand;
};
class HygUndoAddContactCond : public HygUndoTemplates::AddCommand<HygUndoRows::ContactConditions> {
public:
    using AddCommand::AddCommand;
};
class HygUndoAddOutput : public HygUndoTemplates::AddCommand<HygUndoRows::OutputFiles> {
public:
    using AddCommand::AddCommand;
};
/// Takes a climate condition, a boundary condition, a schedule or an output grid.
class HygUndoAddListItem
    : public HygUndoTemplates::AddCommand<HygUndoRows::ClimateConditions, HygUndoRows::BoundaryConditions,
                                          HygUndoRows::Schedules, HygUndoRows::OutputGrids> {
public:
    using AddCommand::AddCommand;
};
class HygUndoAddMaterial : public HygUndoTemplates::AddCommand<HygUndoRows::Materials> {
public:
    using AddCommand::AddCommand;
};

class HygUndoModifyInterface : public HygUndoTemplates::ModifyCommand<HygUndoRows::Interfaces> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyInitialCond : public HygUndoTemplates::ModifyCommand<HygUndoRows::InitialConditions> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyFieldCond : public HygUndoTemplates::ModifyCommand<HygUndoRows::FieldConditions> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyContactCond : public HygUndoTemplates::ModifyCommand<HygUndoRows::ContactConditions> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyOutput : public HygUndoTemplates::ModifyCommand<HygUndoRows::OutputFiles> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyClimateCond : public HygUndoTemplates::ModifyCommand<HygUndoRows::ClimateConditions> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyBoundaryCond : public HygUndoTemplates::ModifyCommand<HygUndoRows::BoundaryConditions> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifySchedule : public HygUndoTemplates::ModifyCommand<HygUndoRows::Schedules> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyOutputGrid : public HygUndoTemplates::ModifyCommand<HygUndoRows::OutputGrids> {
public:
    using ModifyCommand::ModifyCommand;
};
class HygUndoModifyMaterial : public HygUndoTemplates::ModifyCommand<HygUndoRows::Materials> {
public:
    using ModifyCommand::ModifyCommand;
};

class HygUndoRemoveInterface : public HygUndoTemplates::RemoveCommand<HygUndoRows::Interfaces> {
public:
    /// Throws "Interface index %1 out of range." ("[HygUndoRemoveInterface::createRemoveDefinitionAction]").
    static std::unique_ptr<HygUndoRemoveInterface> createRemoveDefinitionAction(const QString & text,
                                                                                unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveDefinition
    : public HygUndoTemplates::RemoveCommand<HygUndoRows::InitialConditions, HygUndoRows::FieldConditions,
                                             HygUndoRows::ContactConditions> {
public:
    /// \param kind InitialCondition, FieldCondition or ContactCondition
    /// Throws ("[HygUndoRemoveDefinition::createRemoveDefinitionAction]") "Initial condition index %1 out of range.",
    /// "Field condition index %1 out of range.", "Contact condition index %1 out of range." and for any other kind
    /// "There is no command that removes a definition of kind %1.".
    static std::unique_ptr<HygUndoRemoveDefinition>
    createRemoveDefinitionAction(const QString & text, HygModification::definition_t kind, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveClimateCond : public HygUndoTemplates::RemoveCommand<HygUndoRows::ClimateConditions> {
public:
    /// Throws "Condition index %1 out of range." ("[HygUndoRemoveClimateCond::createUndoAction]").
    static std::unique_ptr<HygUndoRemoveClimateCond> createUndoAction(const QString & text, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveBoundaryCond : public HygUndoTemplates::RemoveCommand<HygUndoRows::BoundaryConditions> {
public:
    /// Throws "Condition index %1 out of range." ("[HygUndoRemoveBoundaryCond::createUndoAction]").
    static std::unique_ptr<HygUndoRemoveBoundaryCond> createUndoAction(const QString & text, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveSchedule : public HygUndoTemplates::RemoveCommand<HygUndoRows::Schedules> {
public:
    /// Throws "Definition index %1 out of range." ("[HygUndoRemoveSchedule::createUndoAction]").
    static std::unique_ptr<HygUndoRemoveSchedule> createUndoAction(const QString & text, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveOutputGrid : public HygUndoTemplates::RemoveCommand<HygUndoRows::OutputGrids> {
public:
    /// Throws "Definition index %1 out of range." ("[HygUndoRemoveOutputGrid::createUndoAction]").
    static std::unique_ptr<HygUndoRemoveOutputGrid> createUndoAction(const QString & text, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
class HygUndoRemoveMaterial : public HygUndoTemplates::RemoveCommand<HygUndoRows::Materials> {
public:
    /// Throws "Material index %1 out of range." ("[HygUndoRemoveMaterial::createUndoAction]").
    static std::unique_ptr<HygUndoRemoveMaterial> createUndoAction(const QString & text, unsigned int index);

private:
    using RemoveCommand::RemoveCommand;
};
