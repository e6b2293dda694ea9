#pragma once

class HygMainWindow;
class QString;

/// Draws the dialogs that belong to project files. \param window shows any view \param project an existing file
void drawProjectPictures(HygMainWindow & window, const QString & project, const QString & target,
                         const QString & suffix);
