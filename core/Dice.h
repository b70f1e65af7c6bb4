#pragma once

#include "core/Outside.h"

namespace zorva {

/// Faces shown one after another until the die lies still.
inline constexpr Short RollsOfAThrow = 10;

/// Ten faces shown one after another; two in a row always differ. The tenth stays in DieValue.
void ShowThrow(const Table& table);

/// Rolls the die of CurrentColour into DieValue: as ShowThrow does, or one face when nobody watches.
inline void ThrowDie(const Table& table) {
    if (table.show.IsWatched()) {
        ShowThrow(table);
    } else {
        table.state.DieValue = table.outside.RollFace();
    }
}

}  // namespace zorva
