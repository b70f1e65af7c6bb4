#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

namespace zorva {

/// Holds off the desktop's screen saver while there is something to watch: pieces that move although
/// nobody touches mouse or keyboard. It asks over D-Bus, at the first move; where no desktop answers it
/// does not ask again. When the program ends, the desktop forgets the hold by itself.
class ScreenSaver : public QObject {
public:
    /// The hold ends when no piece has moved for `rest`.
    explicit ScreenSaver(std::chrono::milliseconds rest = std::chrono::minutes(1));

    /// A piece moves: the hold begins, or lasts for another `rest`.
    void HoldOff();

private:
    enum class Hold { None, Asked, Held, Refused };

    void Ask();
    void Answered(bool granted, uint cookie);
    void LetGo();

    QTimer rest_;
    Hold hold_ = Hold::None;
    uint cookie_ = 0;  // what the desktop knows the hold by
};

}  // namespace zorva
