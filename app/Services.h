#pragma once

#include <functional>

#include "app/Layout.h"

namespace zorva {

class Artwork;
class Pacer;
class Pointers;

/// What every window of the program draws and sounds with. Owned by the board window's maker; a
/// window that is opened gets a reference and keeps nothing longer than it lives.
struct Services {
    Artwork& artwork;
    Pointers& pointers;
    Layout layout;                            ///< of the screen the board is on
    double devicePixelRatio = 1;              ///< device pixels per pixel of the toolkit
    std::function<void(Short id)> PlaySound;  ///< plays a sound by its id if sound is on
    std::function<void(Short n)> Pause;       ///< hundredths of a second at speed 0
    Pacer* pacer = nullptr;                   ///< of all waits; null where nothing is waited for

    /// Pixels of the toolkit for that many pixels of the layout.
    double ToToolkit(double pixels) const { return pixels * layout.Unit / devicePixelRatio; }
};

}  // namespace zorva
