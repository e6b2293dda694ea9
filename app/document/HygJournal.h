#pragma once

#include <HYGRION/Project.h>

#include <QDateTime>
#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>
#include <vector>

class QLockFile;

/// Keeps the unsaved state of a project in a file of its own, which outlives the program: written shortly after a change,
/// off the GUI thread, atomically and flushed to the disk; one file a project, replaced each time.
class HygJournal : public QObject {
    Q_OBJECT
public:
    /// The state that a program left which ended without saving or giving it up.
    struct Entry {
        QString journalFile;
        QString projectFile;
        QDateTime fileDate;    ///< of the project file when it was read or saved last; invalid if there was none
        QDateTime journalDate; ///< of the last change kept
        int changes = 0;       ///< since then, as steps of undo
    };

    /// What a change waits until it is written, so that a drag writes once [ms].
    static constexpr int DELAY_MS = 400;

    /// \param project the state to keep, called on the GUI thread; the copy it gives is taken over
    HygJournal(std::function<HYGRION::Project()> project, QObject * parent);
    ~HygJournal() override;

    /// Begins to keep a project, nothing of which is unsaved. \param directory of all journals; empty keeps nothing
    void start(const QString & directory, const QString & projectFile);
    /// Goes on with the journal of a program that is gone.
    void adopt(const Entry & entry);
    /// The project has changed.
    void note();
    /// How many changes what is kept differs by from the project's file.
    void setChanges(int changes) { m_changes = changes; }
    /// Nothing is unsaved any more: the file is removed.
    void clear();
    /// The project's file has been written.
    void saved();
    /// Ends keeping the project and leaves the file.
    void stop();
    /// Writes at once what is not written yet, on this thread.
    void flush();
    int changes() const { return m_changes; }
    QString file() const { return m_file; }

    /// The journals whose programs are gone, newest first. Very old ones, and more than a bounded number, are removed.
    /// \param projectFile only those of this project, unless it is empty
    static std::vector<Entry> orphans(const QString & directory, const QString & projectFile = {});
    /// The project as it was kept; its file name is that of the project file. Throws ("[HygJournal::read]").
    static HYGRION::Project read(const QString & journalFile);
    /// Removes a journal for good.
    static void discard(const Entry & entry);

signals:
    /// It could not be written; told once until it can be again.
    void failed(const QString & story);

private:
    struct Job;

    void write();
    void takeOverResult();
    std::shared_ptr<Job> makeJob();

    std::function<HYGRION::Project()> m_project;
    QString m_projectFile;
    QString m_file; ///< empty: nothing is kept
    std::unique_ptr<QLockFile> m_lock;
    QDateTime m_fileDate;
    QDateTime m_changeDate;
    int m_changes = 0;
    bool m_isPending = false; ///< something is not written yet
    bool m_hasFailed = false;
    QTimer m_timer;
    std::shared_ptr<Job> m_job; ///< the last one, under way or done
    QFutureWatcher<void> m_watcher;
};
