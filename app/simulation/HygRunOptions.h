#pragma once

#include <QStringList>

#include <span>

/// What the user chooses for a run, and the options of the solver's command line that follow.
struct HygRunOptions {
    /// The solver's own period for restart files; it needs no option.
    static constexpr double DEFAULT_RESTART_PERIOD = 300;

    bool disableHeaders = false;
    bool stepStats = false;
    bool closeOnExit = false;
    bool disablePeriodicRestart = false;
    int verbosityLevel = 1;                        ///< 0 to 3
    double restartPeriod = DEFAULT_RESTART_PERIOD; ///< [s]
    QString parallelThreads;                       ///< as typed; empty leaves the number to the solver

    /// A switch: the member, its option and what the user reads.
    struct FlagRow {
        bool HygRunOptions::*member;
        const char * option;
        const char * objectName;
        const char * label;
        const char * toolTip;
    };
    static std::span<const FlagRow> flags();

    /// The options in the order of the controls.
    QStringList arguments() const;
    /// The number of threads if the entry can be used, truncated; else 0.
    int threadCount() const;

    /// Executable and project file in double quotation marks, the options between them.
    static QString commandLine(const QString & executable, const QStringList & arguments, const QString & projectFile);
};
