#pragma once

/// Lets one of the system calls with which files are written fail: EIO, once. The test program is linked so that the calls
/// of all our libraries come by here.
namespace FailingCalls {

/// Counts from now on. \param failing number of the call that is to fail, from 1; 0 for none
void arm(int failing);
/// \return number of the calls since arm()
int disarm();

} // namespace FailingCalls
