#pragma once

#include <atomic>

namespace zorva::test {

/// What goes wrong when a test writes files. Stands between the game and the system: as soon as a test
/// program mentions one of these, the calls with which files are written go through FaultyFiles.cpp.
enum class Fault {
    None,
    Once,       ///< one call fails
    FromNowOn,  ///< that call and all later ones fail, as on a full disk
    IsShort,    ///< the first write from that call on writes a half, and all later calls fail
    Kill,       ///< the process ends before that call
};

/// Arms a fault for the n-th call of this thread from now on (open, write, close, rename); the next use
/// replaces it.
void FailAt(int call, Fault fault);

/// How many calls of fsync were made, by any thread; what they return (an error number, or 0); and
/// whether they hang.
inline std::atomic<int> flushes = 0, flushError = 0;
inline std::atomic<bool> flushHangs = false;

}  // namespace zorva::test
