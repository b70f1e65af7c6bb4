#pragma once

#include <QString>
#include <functional>

#include "app/Layout.h"
#include "core/Sound.h"

class QWidget;

namespace zorva {

class Artwork;
class Pacer;
class Cursors;

/// What every window of the program draws and sounds with. It belongs to the board window; each dialog
/// gets a reference, which outlives the dialog.
struct Services {
    Artwork& artwork;
    Cursors& cursors;
    Layout layout;                         ///< of the board window as it is now
    double devicePixelRatio = 1;           ///< device pixels per logical pixel of Qt
    std::function<void(Sound)> PlaySound;  ///< plays a sound if sound is on
    std::function<void(Short n)> Pause;    ///< hundredths of a second at speed 0
    Pacer* pacer = nullptr;                ///< of the program's waits; null in tests that never wait
    /// Opens the manual over a window and returns when the player has left it.
    std::function<void(QWidget* over)> ShowManual = {};
    /// Says a sentence at once to a player who hears the game through a screen reader; nothing without
    /// one.
    std::function<void(const QString& sentence)> Say = [](const QString&) {};
    /// Silences the sounds or brings them back, and tells the player so.
    std::function<void()> SwitchSound = [] {};

    /// Logical pixels of Qt for that many layout pixels.
    double ToLogical(double pixels) const { return pixels * layout.Unit / devicePixelRatio; }
};

}  // namespace zorva
