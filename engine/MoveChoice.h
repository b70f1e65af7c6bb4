#pragma once

#include "engine/GameRules.h"
#include "engine/Position.h"

namespace zorva::engine {

/// Stands for a piece 0..3 where there is none.
inline constexpr unsigned NoPiece = PiecesPerColour;

/// What a seat has to move with.
struct Throw {
    unsigned face;   ///< 1..6, 0 for a bonus move
    unsigned count;  ///< squares to walk
};

/// A decision of the computer player.
struct MoveChoice {
    unsigned piece = NoPiece;  ///< 0..3, NoPiece when none may move
    unsigned to = 0;           ///< the step it reaches
    bool bringsTwo = false;    ///< piece 1 comes out to the exit as well, as a second move
};

/// Decides the move of a seat by its playing level, as ChooseComputerMove (core/Player.h) defines it.
MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown);

}  // namespace zorva::engine
