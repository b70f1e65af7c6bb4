#pragma once

#include "core/Outside.h"

namespace zorva {

/// How StartGame ended.
enum class StartOutcome { Played, Cancelled };

/// Begins a new game and plays it: puts the pieces into their boxes, asks, draws the colour that begins
/// and runs the turns. Returns when the game is no longer in progress. Cancelled: the players answered
/// that they want to change settings first; the pieces stay in their boxes.
StartOutcome StartGame(const GameContext& game);

/// Forgets the old game: sets the positions, the turn fields and the records as a new game needs them.
/// Slot 3 of each goal keeps its code, which GoalLeftover then repeats.
void ResetGame(const GameContext& game);

/// Draws the colour that begins into CurrentColour: the highest throw wins, and those who tie throw
/// again among themselves. Returns at once when a handler abandons the game during the message about a
/// tie.
void DrawFirstPlayer(const GameContext& game);

/// Plays a game that ResetGame has prepared, from the first turn, which the colour `first` has, to the
/// end.
void PlayFrom(const GameContext& game, Colour first);

/// Continues a game as it was read from its file, in which MoveRecordCount is the number of the
/// unfinished move: puts the pieces on their squares and runs the turns, or ends the game if it is won.
/// Fatal unless a game with at
/// least one finished move is in progress.
void ContinueGame(const GameContext& game);

}  // namespace zorva
