#pragma once

#include "Commands.h"

namespace PLOT {

/// Draws the table of --reference as points. Throws KOR::Exception ("[PLOT::reference]").
void addReference(SCI::Chart & chart, const Common & common);

} // namespace PLOT
