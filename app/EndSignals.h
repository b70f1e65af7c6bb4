#pragma once

#include <functional>

namespace zorva {

/// Holds back the signals with which the system ends a program (SIGTERM, SIGINT, SIGHUP). Call it before
/// any thread is started: threads inherit the block, and one without it would let the signal kill the
/// program. Does nothing on systems other than Linux.
void HoldBackEndSignals();

/// Calls `called` from the event loop when such a signal has come. The application must exist. When the
/// system cannot tell about signals, they end the program as usual.
void OnEndSignal(std::function<void()> called);

}  // namespace zorva
