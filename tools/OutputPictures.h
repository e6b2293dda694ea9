#pragma once

#include <QString>

/// Draws the view of the outputs with an example project, and its dialog, into a directory.
/// \param suffix behind the name of each picture, with the extension
void drawOutputPictures(const QString & target, const QString & suffix);
