#pragma once

#include "core/Outside.h"

namespace zorva {

/// Faces shown one after another until the die lies still.
inline constexpr Short RollsOfAThrow = 10;

/// Ten faces shown one after another; two in a row always differ. The tenth stays in DieValue.
void ShowThrow(const GameContext& game);

/// Rolls the die of CurrentColour into DieValue: as ShowThrow does, or one face when nobody watches.
inline void ThrowDie(const GameContext& game) {
    if (game.show.IsWatched()) {
        ShowThrow(game);
    } else {
        game.state.DieValue = game.outside.RollFace();
    }
}

}  // namespace zorva
