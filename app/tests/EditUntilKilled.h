#pragma once

/// The part of an editor that a test kills: edits the project wall.h6p in a folder and tells each change on standard output
/// as "<number> <milliseconds since 1970>". \param mode "edit", or "save" to save after each change
int editUntilKilled(const char * mode, const char * folder);
