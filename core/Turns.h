#pragma once

#include "core/Outside.h"

namespace zorva {

/// No turn begins in a game with that many moves, since they are numbered with 16 bits: it is told and
/// ends without a winner.
inline constexpr Short LongestGame = 32'700;

/// Plays a game from the position in the table to its end, turn after turn. Returns when
/// GameInProgress has become false: the game ended, or a handler abandoned it during a wait. Handlers
/// run in the waits only; everywhere else the tables are in the middle of something.
void RunTurns(const GameContext& game);

/// Passes the turn to the next colour taking part, in the direction of play.
void NextColour(const GameContext& game);

/// Passes the turn back, so that the NextColour that follows comes to the same colour again.
void PreviousColour(const GameContext& game);

/// Shows the move found for the colour on turn.
void ShowChosenMove(const GameContext& game);

/// Takes the advised move as the person's own and ends the wait for it.
void TakeAdvisedMove(GameState& state);

}  // namespace zorva
