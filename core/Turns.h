#pragma once

#include "core/Outside.h"

namespace zorva {

/// The most moves of a game, since moves are numbered with 16 bits. Instead of the next turn the players
/// get a message, and the game ends without a winner.
inline constexpr Short LongestGame = 32'700;

/// Plays the game from its position to its end, turn after turn. Returns when GameInProgress has become
/// false: the game ended, or a handler abandoned it during a wait. Handlers of clicks and keys run in
/// the waits and yields only; everywhere else the tables are in the middle of a change.
void RunTurns(const GameContext& game);

/// Passes the turn to the next colour taking part, in the direction of play.
void NextColour(const GameContext& game);

/// Passes the turn back, so that the NextColour that follows comes to the same colour again.
void PreviousColour(const GameContext& game);

/// Shows the die of the colour on turn ready to be thrown: a five at the start of a turn, a six when the
/// throw follows a six.
void ShowReadyDie(const GameContext& game);

/// Shows the move that ChooseComputerMove found for the colour on turn; nothing when it found none.
void ShowChosenMove(const GameContext& game);

/// Makes the move that ChooseComputerMove found the person's own and ends the wait for it.
void TakeAdvisedMove(GameState& state);

}  // namespace zorva
