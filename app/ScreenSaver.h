#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

namespace zorva {

/// The desktop's screen saver, which is held off while there is something to watch: pieces that move
/// although nobody touches mouse or keyboard. Nothing is looked for before the first call, and where no
/// desktop listens nothing happens. When the program ends, the desktop forgets the hold by itself.
class ScreenSaver : public QObject {
public:
    /// The hold ends when no piece has moved for `rest`.
    explicit ScreenSaver(std::chrono::milliseconds rest = std::chrono::minutes(1));

    /// A piece moves.
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
