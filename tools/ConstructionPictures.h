#pragma once

#include <QString>

/// Draws the construction view with the example projects, and its dialogs, into a directory.
/// \param suffix behind the name of each picture, with the extension
void drawConstructionPictures(const QString & target, const QString & suffix);
