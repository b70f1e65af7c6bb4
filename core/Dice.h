#pragma once

#include "core/Outside.h"

namespace zorva {

/// Faces of one throw: nine that roll by, and the throw itself.
inline constexpr Short FacesOfAThrow = 10;

/// Throws the die of CurrentColour: shows its faces one after another, with their sounds and pauses. Two
/// in a row always differ. The last one, the throw, stays in DieValue.
void ThrowDie(const GameContext& game);

}  // namespace zorva
