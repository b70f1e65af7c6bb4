#pragma once

#include "core/Settings.h"

namespace zorva {

/// The same settings, but the computer plays every colour and no throw waits for a click: a game with
/// these settings runs to its end by itself.
inline Settings WithoutPeople(Settings settings) {
    settings.PlayerType.fill(1);     // the computer
    settings.PauseBetweenMoves = 2;  // do not wait
    return settings;
}

}  // namespace zorva
