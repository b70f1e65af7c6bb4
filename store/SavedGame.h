#pragma once

#include "core/GameState.h"

namespace zorva {

/// Completes a state whose stored parts were read: finds the codes that an earlier game left in slot
/// 3 of the goals.
void RecogniseLeftovers(GameState& state);

/// Whether the state is one that the game itself writes: the board, the positions and the counts say
/// the same, and, while a game is in progress, the records lead from the boxes to exactly these
/// tables and fit the turn. Expects every number within its range and the leftovers recognised; the
/// records need not have been looked at.
bool IsSound(const GameState& state);

}  // namespace zorva
