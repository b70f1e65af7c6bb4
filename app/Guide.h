#pragma once

#include <QString>
#include <vector>

#include "app/BoardView.h"
#include "core/GameState.h"

namespace zorva {

// What the table tells about a game beside the board itself, read off the game: nothing of it is kept.

/// The cards of the colours that take part, in the order of play from the first of them on.
std::vector<BoardView::Card> CardsOf(const GameState& state, const Settings& settings, Colour onTurn);

/// The last move that has changed the place of a piece; piece 0 when there is none. While the recorder
/// is on, it is the one before the position on the tape.
BoardView::LastMove LastMoveOf(const GameState& state);

}  // namespace zorva
