#pragma once

#include <functional>

#include "app/Layout.h"
#include "core/Sound.h"

namespace zorva {

class Artwork;
class Pacer;
class Cursors;

/// What every window of the program draws and sounds with. Owned by the board window's maker; a
/// window that is opened gets a reference and keeps nothing longer than it lives.
struct Services {
    Artwork& artwork;
    Cursors& cursors;
    Layout layout;                         ///< of the screen the board is on
    double devicePixelRatio = 1;           ///< device pixels per pixel of Qt
    std::function<void(Sound)> PlaySound;  ///< plays a sound if sound is on
    std::function<void(Short n)> Pause;    ///< hundredths of a second at speed 0
    Pacer* pacer = nullptr;                ///< of all waits; null where nothing is waited for

    /// Pixels of Qt for that many pixels of the layout.
    double ToLogical(double pixels) const { return pixels * layout.Unit / devicePixelRatio; }
};

}  // namespace zorva
