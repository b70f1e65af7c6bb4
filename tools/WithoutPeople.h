#pragma once

#include "core/Settings.h"

namespace zorva {

/// The settings with every colour played by the computer and no wait before a throw: such a game
/// runs from beginning to end by itself.
inline Settings WithoutPeople(Settings settings) {
    settings.PlayerType.fill(1);
    settings.PauseBetweenMoves = 2;
    return settings;
}

}  // namespace zorva
