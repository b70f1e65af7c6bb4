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

/// The piece that a seat moves by its playing level where no rule about leaving the box decides. NoPiece
/// when none may walk `count` squares, 1..20.
unsigned BestPiece(const Position& position, const GameRules& rules, Seat seat, unsigned count);

/// Decides the move of a seat by its playing level, as ChooseComputerMove (core/Player.h) defines it.
MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown);

// In the header, to be inlined. Returned by a call, a choice is stored field by field and loaded as a
// whole at once, for which the processor has to wait (5 %).

inline MoveChoice FirstOut(const GameRules& rules, Throw thrown) {
    const bool bringsTwo = rules.fiveBringsTwo && thrown.face == ExitCount;
    return {0, bringsTwo ? 0 : thrown.count, bringsTwo};
}

inline MoveChoice HighestOut(const Side& side) {
    unsigned piece = PiecesPerColour - 1;
    while (side.StepOf(piece) != BoxStep) --piece;
    return {piece, 0};
}

inline MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown) {
    const Side& side = position.SideOf(seat);
    if (side.InBox() == PiecesPerColour && rules.countsFromFirstThrow) return FirstOut(rules, thrown);
    const bool isExitOpen = (side.Pairs() & 1) == 0;
    if (thrown.face == ExitCount && rules.fiveMustLeave && side.InBox() > 0 && isExitOpen) {
        return HighestOut(side);
    }
    const unsigned piece = BestPiece(position, rules, seat, thrown.count);
    if (piece == NoPiece) return {};
    return {piece, StepAfter(side.StepOf(piece), thrown.count)};
}

}  // namespace zorva::engine
