#pragma once

#include <QString>

/// Draws simulation view, solver window and results view into a directory; runs two examples for it.
/// \param suffix behind the name of each picture, with the extension
void drawSimulationPictures(const QString & target, const QString & suffix);
