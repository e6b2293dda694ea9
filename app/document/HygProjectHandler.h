#pragma once

#include "document/HygJournal.h"

#include <HYGRION/Project.h>

#include <KOR/Exception.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class HygProjectLock;
class QUndoCommand;
class QUndoStack;

/// Owns the project of the session, its file and the undo stack. Views get the project as const and push commands; what
/// is wrong with a file is told by signal, and the project that was open stays.
class HygProjectHandler : public QObject {
    Q_OBJECT
public:
    explicit HygProjectHandler(QObject * parent = nullptr);
    ~HygProjectHandler() override;

    /// The handler constructed last, nullptr without one: whose project the undo commands change.
    static HygProjectHandler * instance();

    bool hasProject() const { return m_project != nullptr; }
    /// An empty one without a project.
    const HYGRION::Project & project() const;
    /// Empty without a project.
    QString projectFile() const;

    /// Every change of the project is pushed here.
    QUndoStack & undoStack() { return *m_undoStack; }
    /// A stack that holds commands keeps its limit until it is emptied. \param steps 0: no limit
    void setUndoLimit(unsigned int steps);
    /// Where unsaved changes are kept for the case of a crash; empty (as it is at first) keeps none.
    void setJournalDirectory(const QString & directory) { m_journalDirectory = directory; }
    const QString & journalDirectory() const { return m_journalDirectory; }

    // All that read or write files do it off the GUI thread. They return false, and failed() is emitted, when it cannot be
    // done; the project stays as it was then.

    /// Writes a new project of one cell into \p path and opens it.
    bool createProject(const QString & path);
    /// Reads a project in place of the present one. What another editor holds, what cannot be written and what a newer
    /// version wrote is opened to be read only.
    bool openProject(const QString & path);
    /// Opens what a crash left, as unsaved changes of its file.
    bool openRecovered(const HygJournal::Entry & entry);
    /// Reads the project's file once more and gives up what is not saved.
    bool reload();
    /// Refused when another program has changed the file; see isChangedOnDisk().
    bool save();
    /// Writes the project into another file, which is its file from then on. Paths that begin at the project's directory
    /// still lead to the same files; if there are any, the history of undo begins anew.
    bool saveAs(const QString & path);
    /// Writes the project into another file; its own stays what it is.
    bool saveCopy(const QString & path);
    /// True if the file holds the project: nothing was to be saved, or it has been saved.
    bool saveIfModified() { return !m_isModified || save(); }
    /// Gives up what is not saved.
    void closeProject();

    /// Whether the project differs from its file.
    bool isModified() const { return m_isModified; }
    /// Marks the project as modified and tells the views; called by the undo commands.
    /// \param modificationType HygModification::code_t
    /// \param data see HygModification
    void setModified(int modificationType, void * data);

    /// Whether the project cannot be saved into its file; it can be changed and saved as another one.
    bool isReadOnly() const { return !m_readOnlyReason.isEmpty(); }
    const QString & readOnlyReason() const { return m_readOnlyReason; }

    /// Whether another program has changed or removed the file.
    bool isChangedOnDisk() const;
    /// Goes on with the project that is open; it may be saved over the changed file.
    void keepOverDisk();
    /// Emits changedOnDisk() if so: for file systems that tell nothing.
    void checkDisk();

    /// Logs a failure that concerns the project's files and emits failed().
    void fail(const KOR::Exception & story);

    /// Keeps what is not saved so that it is offered at the next start: the program is being ended.
    void keepForRecovery() { m_journal->flush(); }

signals:
    /// What has changed, delivered directly; see HygModification. A project that was opened or closed is a
    /// ProjectReplaced too.
    void modified(int modificationType, void * data);
    /// Whether there is something to save.
    void modifiedChanged(bool isModified);
    /// After every attempt: the file of the project that is open now.
    void projectFileChanged(const QString & path);
    /// The user looks for a definition: views that show its kind select it. \param kind HYGRION::definition_t
    void definitionRequested(int kind, const QString & name);
    /// Another program has changed the file, or removed it.
    void changedOnDisk(bool exists);
    /// The whole story, outermost message first, one a line.
    void failed(const QString & story);
    /// Something that the user should know, such as why a project can be read only.
    void noticed(const QString & text);

private:
    friend class HygUndoCommandBase; // nobody else changes the project
    HYGRION::Project & mutableProject() { return *m_project; }

    /// What the file system says of a file; equal while nobody has written it.
    struct DiskState {
        bool exists = false;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;
        quint64 node = 0;
        bool operator==(const DiskState &) const = default;
    };
    static DiskState diskState(const QString & path);

    void setIsModified(bool isModified);
    /// Tells the journal how many steps of undo lie between the project and its file.
    void countChanges();
    void replaceProject(std::unique_ptr<HYGRION::Project> project, std::unique_ptr<HygProjectLock> lock);
    std::unique_ptr<HygProjectLock> lockFor(const QString & path) const;
    bool read(const QString & path, bool isReload);
    bool write(const QString & path);
    void takeOverFile(const QString & path);

    std::unique_ptr<HYGRION::Project> m_project;
    std::unique_ptr<HygProjectLock> m_lock;
    QString m_readOnlyReason;
    QUndoStack * m_undoStack;
    unsigned int m_undoLimit = 0;
    int m_undoIndex = 0;                          ///< as it was counted last
    const QUndoCommand * m_lastCommand = nullptr; ///< to be compared only: the one before the index
    bool m_isModified = false;
    QString m_journalDirectory;
    HygJournal * m_journal;
    DiskState m_diskState; ///< of the file as it was read or written last, or as it was when the user kept the project
    QFileSystemWatcher m_watcher;
    QTimer m_watchDelay;
};
