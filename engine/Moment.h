#pragma once

#include "core/Turns.h"
#include "engine/MoveChoice.h"
#include "engine/Position.h"

namespace zorva::engine {

/// A point of a game from which it can be played on (Game.h): where the pieces stand, whose turn it is
/// and what is due. That is a throw, the move of a throw made, or a bonus move. What follows by itself
/// has been carried out: a captured piece is in its box, a second piece has left the box with an opening
/// five, a third six has ended the turn.
struct Moment {
    /// The start of a turn.
    Moment(const Position& where, Seat onTurn) : position(where), seat(onTurn) {}

    /// The moment of a game that is played by the core: one that PositionReached (core/Outside.h) has
    /// handed over, or the live state while the driver waits for a throw or for a person's move.
    explicit Moment(const GameState& state);

    bool IsThrowDue() const { return due.count == 0; }
    /// Whether the seat on turn has won: nothing is due.
    bool IsWon() const { return position.SideOf(seat).Home() == PiecesPerColour; }

    Position position;
    Seat seat;                       ///< on turn
    Throw due{0, 0};                 ///< the move that is due; its count is 0 when a throw is
    unsigned sixes = 0;              ///< sixes in a row in this turn, 0..2, that of `due` included
    unsigned thrownPiece = NoPiece;  ///< moved by the latest throw; a third six sends it back
    int moves = 0;                   ///< move records so far: LongestGame of them end a game
    /// Throws by seat since the game began, or since any other moment: how far the seats have read the
    /// dice of a play-out (PlayOutDice.h).
    std::array<unsigned, SeatCount> throws{};
};

}  // namespace zorva::engine
