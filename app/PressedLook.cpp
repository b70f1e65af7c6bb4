#include "app/PressedLook.h"

#include <QTimer>
#include <QWidget>

namespace zorva {
namespace {

// Somewhat more than the 60 that are promised: the window system may take longer to show the press than
// to show the release.
constexpr int seenMilliseconds = 70;

}  // namespace

void PressedLook::Show(QWidget& control, bool pressed) {
    if (held_ == pressed) return;
    held_ = pressed;
    if (pressed) {
        control.repaint();
        seenUntil_.setRemainingTime(seenMilliseconds, Qt::PreciseTimer);
    } else {
        QTimer::singleShot(static_cast<int>(seenUntil_.remainingTime()), Qt::PreciseTimer, &control,
                           [&control] { control.update(); });
    }
}

}  // namespace zorva
