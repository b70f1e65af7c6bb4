#pragma once

#include <functional>

namespace zorva {

/// Calls that, in the event loop, when the system wants the program to end (SIGTERM, SIGINT, SIGHUP).
/// To be set up before any thread is started. Does nothing on systems without signals.
void OnEndSignal(std::function<void()> called);

}  // namespace zorva
