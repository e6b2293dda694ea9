#pragma once

#include <QStringList>

/// The solver as a process of its own, which goes on when the editor closes.
namespace HygSolverProcess {

/// Tells a solver with a window the language of the editor.
constexpr const char * LANGUAGE_VARIABLE = "HYGRION_LANGUAGE";

/// Starts a program with below-normal priority and does not wait for it. It keeps a log.
/// \param outputFile takes what it writes on the screen, for the case that it cannot keep its log; may be empty
/// \return its process number, 0 if it could not be started
qint64 start(const QString & program, const QStringList & arguments, const QString & outputFile = {});

/// Whether the process is there and not only waiting to be collected.
bool isAlive(qint64 process);
bool isPaused(qint64 process);
/// All return whether the system took the order.
bool pause(qint64 process);
bool resume(qint64 process);
/// Asks it to write a restart file and to end; one that is paused goes on to do so.
bool stop(qint64 process);
/// Ends it at once; what it has not written is lost.
bool kill(qint64 process);

} // namespace HygSolverProcess
