#pragma once

#include <QString>

#include <functional>

/// Work off the GUI thread that the GUI waits for: windows go on being drawn, what the user types and clicks waits, and
/// after a moment a box tells what is going on.
namespace HygBackground {

/// Runs \p work in another thread and returns when it is done. What it throws is thrown here.
/// \param text what is going on, for the box
void run(const QString & text, const std::function<void()> & work);

/// The same with a button to cancel. False if the user did so: the work then goes on unheeded, hence it must own all that
/// it touches.
bool runCancellable(const QString & text, const std::function<void()> & work);

/// Whether such work is under way.
bool isBusy();

} // namespace HygBackground
