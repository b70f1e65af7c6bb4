#pragma once

#include "core/Outside.h"

namespace zorva {

/// How a new game came out.
enum class StartOutcome { Played, Cancelled };

/// Begins a new game and plays it: seats the pieces, asks, draws the colour that begins and runs
/// the turns. Returns when the game is no longer in progress. Cancelled: the players want to change
/// settings first, the pieces stay in their boxes.
StartOutcome StartGame(const GameContext& game);

/// Forgets the old game: tables, turn fields and records of a game about to begin. Slot 3 of every
/// square stays as it is.
void ResetGame(const GameContext& game);

/// Draws the colour that begins into CurrentColour; the tied throw again among themselves.
void DrawFirstPlayer(const GameContext& game);

/// Plays a game that has been reset, from the first turn of that colour to its end.
void PlayFrom(const GameContext& game, Colour first);

}  // namespace zorva
