#pragma once

#include "undo/HygUndoTemplates.h"

/// The commands that exchange a section of the project; all take the command's text and the new section.

class HygUndoSolverSettings : public HygUndoTemplates::SwapCommand<HygUndoRows::SolverSettings> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoInit : public HygUndoTemplates::SwapCommand<HygUndoRows::Init> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoProjectDescription : public HygUndoTemplates::SwapCommand<HygUndoRows::ProjectDescription> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoProjectInformation : public HygUndoTemplates::SwapCommand<HygUndoRows::ProjectInformation> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoAssessmentSettings : public HygUndoTemplates::SwapCommand<HygUndoRows::AssessmentSettings> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoOutputs : public HygUndoTemplates::SwapCommand<HygUndoRows::Outputs> {
public:
    using SwapCommand::SwapCommand;
};
class HygUndoLocationParameter : public HygUndoTemplates::SwapCommand<HygUndoRows::LocationParameter> {
public:
    using SwapCommand::SwapCommand;
};
/// Exchanges the whole project; its file stays the one that is open.
class HygUndoProject : public HygUndoTemplates::SwapCommand<HygUndoRows::Project> {
public:
    using SwapCommand::SwapCommand;
};
