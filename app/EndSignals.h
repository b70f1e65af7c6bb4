#pragma once

#include <functional>

namespace zorva {

/// Holds back the signals with which the system ends a program (SIGTERM, SIGINT, SIGHUP). Has to be
/// called before any thread is started: they all inherit it, and one that did not would let the signal
/// kill the program. Nothing on systems without signals.
void HoldBackEndSignals();

/// Calls that, in the event loop, when such a signal has come.
void OnEndSignal(std::function<void()> called);

}  // namespace zorva
