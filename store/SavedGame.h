#pragma once

#include "core/GameState.h"

namespace zorva {

/// Sets GoalLeftover, which no file holds, from the board and the positions that were read.
void RecogniseLeftovers(GameState& state);

/// Whether the game itself could have written the state: the board, the positions and the counts agree
/// and, while a game is in progress, its records lead from the boxes to exactly these tables and fit the
/// turn. Every number must be within its range and RecogniseLeftovers must have been called; the
/// records may break the rules.
bool IsSound(const GameState& state);

}  // namespace zorva
