#pragma once

#include "simulation/HygOutputDirectory.h"

#include <QDateTime>
#include <QObject>

class QTimer;

/// Follows one run by what the solver leaves on the disk, so that it makes no difference who started it and when.
class HygRunMonitor : public QObject {
    Q_OBJECT
public:
    enum state_t { Starting, Running, Paused, Finished, Interrupted, Failed, Lost, NUM_STATES };

    struct Run {
        QString projectFile;
        QString directory; ///< output directory
        QDateTime started; ///< what is older there belongs to earlier runs
        bool isTest = false;
        qint64 process = 0;      ///< as the system named it at the start; 0: unknown
        QString outputFile = {}; ///< what it writes on the screen, removed at its end; may be empty
    };
    struct Progress {
        double time = 0;     ///< simulated [s]
        double wallTime = 0; ///< [s]
        double percent = 0;
        double speed = 0; ///< simulated [s] in a second
        double left = 0;  ///< [s]
        qint64 steps = 0;
    };

    explicit HygRunMonitor(Run run, QObject * parent = nullptr);

    const Run & run() const { return m_run; }
    const HygOutputDirectory & directory() const { return m_directory; }
    state_t state() const { return m_state; }
    bool isActive() const { return m_state <= Paused; }
    const Progress & progress() const { return m_progress; }
    /// Why it ended, outermost message last; empty if there is nothing to tell.
    const QString & problem() const { return m_problem; }
    /// Seconds since the simulated time last moved while it is running.
    double idleSeconds() const;
    bool isStopping() const { return m_stopAsked.isValid() && isActive(); }

    /// Looks at the files now; done by itself twice a second while the run is active.
    void poll();
    void pause();
    void resume();
    /// Lets it write a restart file and end.
    void stop();
    /// Ends it at once, for a run that does not react.
    void kill();

    /// The last complete line of a progress file; false if there is none.
    static bool readProgress(const QString & path, Progress & progress);

signals:
    /// State or progress are others now.
    void changed();
    /// It is no longer active.
    void ended();

private:
    qint64 process() const;
    /// Whether a file was written by this run and no earlier one.
    bool isNew(const QString & path) const;
    void readEnd();
    /// The last errors that the solver told, in its log or on the screen.
    QString lastErrors() const;

    Run m_run;
    HygOutputDirectory m_directory;
    QTimer * m_timer;
    state_t m_state = Starting;
    Progress m_progress;
    QString m_problem;
    qint64 m_owner = 0; ///< process that holds or held the directory
    QDateTime m_moved;  ///< when the simulated time last changed
    QDateTime m_stopAsked;
};
