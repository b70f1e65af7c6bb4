#pragma once

#include <QDeadlineTimer>

class QWidget;

namespace zorva {

/// Whether a key looks pressed. Once pressed it looks so for at least 60 milliseconds, however soon the
/// game releases it, so that the player sees it at every speed. The game goes on meanwhile.
class PressedLook {
public:
    /// Paints the control that shows the key: pressed before the function returns, released when the
    /// time is over and events run.
    void Show(QWidget& control, bool pressed);

    /// Whether the control has to paint the key pressed now.
    bool IsPressed() const { return held_ || !seenUntil_.hasExpired(); }

private:
    bool held_ = false;
    QDeadlineTimer seenUntil_;  // expired from the start
};

}  // namespace zorva
