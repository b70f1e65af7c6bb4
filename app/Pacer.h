#pragma once

#include <functional>

class QObject;

namespace zorva {

/// Waits by the monotonic clock. While it waits, the windows are painted, timers run and the processor
/// rests; what the mouse and the keyboard do stays queued, in order, until the wait is over. A close
/// request of the window manager is queued too, so waits have to be short.
class Pacer {
public:
    /// Called about sixty times a second with the part of the wait that has passed, 0..1.
    using Frame = std::function<void(double progress)>;

    /// Waits that many milliseconds; returns at once when there are none. The last frame has
    /// progress 1, also when there was nothing to wait for.
    void Wait(double milliseconds, const Frame& frame = {});

    /// Whether a wait is on.
    bool IsWaiting() const { return waitsOn_ > 0; }

    /// Calls `called` as soon as no wait is on: now, or some hundredths of a second after the last wait
    /// has ended, unless `context` has been deleted by then. For what does not come through the queue of
    /// the mouse and the keyboard, such as a press by a screen reader. As a press of the mouse it is
    /// lost while a window waits for an answer.
    void AfterWait(QObject* context, const std::function<void()>& called);

private:
    int waitsOn_ = 0;  // waits in progress, one inside another
};

}  // namespace zorva
