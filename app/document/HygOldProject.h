#pragma once

#include <string>

/// Project files that this program does not read: those of the older format, which is a text of sections.
namespace HygOldProject {

/// Throws ("[HygOldProject::refuse]") if the file is of the sectioned format: below version 5.8
/// "Minimum supported project version number is 5.8.x (current %1).\n" with the advice which program upgrades it, else that
/// it cannot be converted. Any other content, and a file that cannot be read, passes.
/// \param head the first part of the file
void refuse(const std::string & head);

} // namespace HygOldProject
