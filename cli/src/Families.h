#pragma once

#include "Commands.h"

/// One function a source file; main.cpp lists them in the order of the help.
namespace CMD {

void addClimate(Commands & program);
void addMaterial(Commands & program);
void addProject(Commands & program);
void addResults(Commands & program);
void addRun(Commands & program);
void addUnits(Commands & program);
void addVary(Commands & program);

} // namespace CMD
