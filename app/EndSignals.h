#pragma once

#include <chrono>
#include <functional>

namespace zorva {

/// The program ends at the latest this long after a signal, even if a call hangs.
inline constexpr std::chrono::milliseconds longestEnd{700};

/// Holds back the signals with which the system ends a program (SIGTERM, SIGINT, SIGHUP). Call it before
/// any thread is started: threads inherit the block, and one without it would let the signal kill the
/// program. Does nothing on systems other than Linux.
void HoldBackEndSignals();

/// Calls `called` from the event loop when such a signal has come; it shall save and end the program. A
/// thread ends the program after `longestEnd` in any case. The application must exist. When the system
/// cannot tell about signals, they end the program as usual.
void OnEndSignal(std::function<void()> called);

/// Calls `called` when the session manager tells the program to end (or another part of the system does
/// so through Qt). Without it Qt would ask the board to close, and the board would ask the player.
/// Programs that end of themselves call QCoreApplication::exit, which is not reported.
void OnQuitRequest(std::function<void()> called);

}  // namespace zorva
