#pragma once

#include "core/Outside.h"

namespace zorva {

/// A game that has this many moves ends without a winner, with a message to the players: moves are
/// numbered with 16 bits. The throw that reaches the number is played to its end first.
inline constexpr Short LongestGame = 32'700;

/// Plays the game from its position to its end, turn after turn; a game that the colour on turn has won
/// already ends at once, as after a winning move. Returns when GameInProgress has become
/// No: the game has ended, or a handler has abandoned it. Handlers of clicks and keys run in
/// WaitForInput, in YieldToEvents with UserInput::Handled, and while a message is open: one of
/// ShowMessage, or one that PositionReached or KeepResult shows when saving fails. They run nowhere
/// else, not in Pause and StepDelay either: the tables may be in the middle of a change there.
void RunTurns(const GameContext& game);

/// Passes the turn to the next colour taking part, in the direction of play.
void NextColour(const GameContext& game);

/// Passes the turn on when its colour does not take part, as a file may have it: such a colour never
/// throws. The next colour begins its turn with a throw.
void SkipAbsentColour(const GameContext& game);

/// Steps back by one colour, so that NextColour at the start of the next turn returns to this colour.
void PreviousColour(const GameContext& game);

/// Shows the die of the colour on turn ready to be thrown: a five at the start of a turn, a six when the
/// throw follows a six.
void ShowReadyDie(const GameContext& game);

/// Shows the move that ChooseComputerMove found for the colour on turn; nothing when it found none.
void ShowChosenMove(const GameContext& game);

/// Adopts the move that ChooseComputerMove found as the move to be made, and ends the wait for the
/// person's choice.
void TakeAdvisedMove(GameState& state);

}  // namespace zorva
