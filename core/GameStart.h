#pragma once

#include "core/Outside.h"

namespace zorva {

/// How a new game came out.
enum class StartOutcome { Played, Cancelled };

/// Begins a new game and plays it: puts the pieces into their boxes, asks, draws the colour that begins
/// and runs the turns. Returns when the game is no longer in progress. Cancelled: the players want to
/// change settings first, the pieces stay in their boxes.
StartOutcome StartGame(const GameContext& game);

/// Forgets the old game: positions, turn fields and records are those of a game about to begin. Slot 3
/// of every square keeps what it holds.
void ResetGame(const GameContext& game);

/// Draws the colour that begins into CurrentColour: the highest throw wins, and those who tie throw
/// again among themselves.
void DrawFirstPlayer(const GameContext& game);

/// Plays a game that has been reset, from the first turn of that colour to its end.
void PlayFrom(const GameContext& game, Colour first);

/// Plays on a game as it was read from its file, where MoveRecordCount is the number of the unfinished
/// move: puts the pieces on their squares and runs the turns. Fatal when no game with a move in it is in
/// progress.
void ContinueGame(const GameContext& game);

}  // namespace zorva
