#include "app/KeyRepeats.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace zorva {

bool KeyRepeats::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyRelease) {
        releasedKey_ = key.nativeScanCode();
        releasedAt_ = key.timestamp();
        return false;
    }
    const bool repeats = key.nativeScanCode() == releasedKey_ && key.timestamp() == releasedAt_;
    if (key.isAutoRepeat() || !repeats || releasedKey_ == 0 || releasedAt_ == 0) return false;
    // An event cannot be changed into a repeat: a copy goes in its place.
    QKeyEvent repeat(QEvent::KeyPress, key.key(), key.modifiers(), key.nativeScanCode(),
                     key.nativeVirtualKey(), key.nativeModifiers(), key.text(), true,
                     static_cast<quint16>(key.count()));
    repeat.setTimestamp(key.timestamp());
    QCoreApplication::sendEvent(watched, &repeat);
    return true;
}

}  // namespace zorva
