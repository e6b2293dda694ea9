#pragma once

#include <QString>

class HygMainWindow;

/// Material database and material editor. \param suffix of the files: language and theme
void drawMaterialPictures(HygMainWindow & window, const QString & target, const QString & suffix);
