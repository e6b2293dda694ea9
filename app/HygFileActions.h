#pragma once

#include <QObject>
#include <QString>

class HygProjectHandler;
class HygSettings;
class QFileDialog;
class QWidget;

/// What the menu File does with the project of the handler, with the questions that go with it.
class HygFileActions : public QObject {
    Q_OBJECT
public:
    /// \param window parent of all dialogs
    HygFileActions(QWidget & window, HygProjectHandler & projects, HygSettings & settings);

    /// Asks what is to become of unsaved changes, if there are any. True to go on: they have been saved or given up.
    bool settle();
    /// Opens a project file in place of the present project. False if it is not open then.
    bool open(const QString & path);

    void chooseNew();
    void chooseOpen();
    void save();
    void saveAs();
    void saveCopy();
    void close();

private:
    /// A file chosen by the user, empty if none. \param name object name of the dialog \param start what it proposes
    QString choose(const char * name, const QString & title, const QString & start, bool isForSaving);

    QWidget & m_window;
    HygProjectHandler & m_projects;
    HygSettings & m_settings;
};
