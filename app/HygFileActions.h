#pragma once

#include "document/HygJournal.h"

#include <QObject>
#include <QString>

class HygProjectHandler;
class HygSettings;
class QWidget;

/// What the menu File does with the project of the handler, with the questions that go with it.
class HygFileActions : public QObject {
    Q_OBJECT
public:
    /// A kind of file for the dialogs.
    struct FileKind {
        const char * suffix;
        const char * name; ///< with %1 for the suffix
    };

    /// \param window parent of all dialogs
    HygFileActions(QWidget & window, HygProjectHandler & projects, HygSettings & settings);

    /// Asks what is to become of unsaved changes, if there are any. True to go on: they have been saved or given up.
    bool settle();
    /// Opens a project, or unpacks a project package and opens what is in it. False if it is not open then.
    bool open(const QString & path);
    /// Whether open() knows what to do with a file of this name.
    static bool isOpenable(const QString & path);
    /// Offers what crashes left; nothing happens if there is nothing.
    /// \param projectFile of this project only, unless it is empty
    /// \return whether a project has been opened, or the user was asked and wants none
    bool offerRecovery(const QString & projectFile = {});

    void chooseNew();
    void chooseOpen();
    /// A project that can be read only is saved as another file.
    void save();
    void saveAs();
    void saveCopy();
    void exportPackage();
    void importPackage();
    void close();

signals:
    /// A project is being opened; what was told about others is history.
    void opening();
    /// Something went well that the user should know of.
    void noticed(const QString & text);

private:
    /// A file chosen by the user, empty if none. \param name object name of the dialog \param start what it proposes
    QString choose(const char * name, const QString & title, const QString & start, bool isForSaving,
                   const FileKind & kind);
    void answerDiskChange(bool exists);
    bool unpack(const QString & package);
    bool openBoth(const HygJournal::Entry & entry);

    QWidget & m_window;
    HygProjectHandler & m_projects;
    HygSettings & m_settings;
    bool m_isAsking = false;
};
