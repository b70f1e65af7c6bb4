#pragma once

#include "core/Outside.h"

namespace zorva {

/// Faces of one throw: nine that roll by, and the throw itself.
inline constexpr Short FacesOfAThrow = 10;

/// Throws the die of CurrentColour: shows its faces one after another, with their sounds and pauses, and
/// leaves the last one, the throw, in DieValue. Two faces in a row always differ. The throw is still
/// each of the six faces with the same chance, and independent of earlier throws, because the first face
/// may be any of the six.
void ThrowDie(const GameContext& game);

}  // namespace zorva
