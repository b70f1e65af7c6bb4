#pragma once

#include <optional>
#include <vector>

#include "engine/GameRules.h"
#include "engine/Position.h"

namespace zorva::engine {

/// In place of a piece 0..3: no piece.
inline constexpr unsigned NoPiece = PiecesPerColour;

/// The throw, or the bonus, that a seat is about to move with.
struct Throw {
    unsigned face;   ///< 1..6, 0 for a bonus move
    unsigned count;  ///< squares to walk
};

/// A decision of the computer player.
struct MoveChoice {
    unsigned piece = NoPiece;  ///< 0..3, NoPiece when none may move
    unsigned to = 0;           ///< the step that the piece reaches
    bool bringsTwo = false;    ///< piece 1, the second one, leaves the box in a move of its own

    bool operator==(const MoveChoice&) const = default;
};

/// The piece that a seat moves at its playing level when no option about leaving the box decides.
/// NoPiece when none may walk `count` squares, 1..20.
unsigned BestPiece(const Position& position, const GameRules& rules, Seat seat, unsigned count);

/// Decides the move of a seat at its playing level, as ChooseComputerMove (core/Player.h) defines it.
MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown);

/// The moves that a person could choose from, in the order of the pieces: MovablePieces of
/// ChooseComputerMove. None when the seat has to pass.
std::vector<MoveChoice> LegalMoves(const Position& position, const GameRules& rules, Seat seat,
                                   Throw thrown);

// In the header, so that it is inlined. A call would store the returned choice field by field, and the
// caller would load it in one piece, for which the processor has to wait: games were 5 % slower.

inline MoveChoice FirstOut(const GameRules& rules, Throw thrown) {
    const bool bringsTwo = rules.fiveBringsTwo && thrown.face == ExitCount;
    return {0, bringsTwo ? 0 : thrown.count, bringsTwo};
}

inline MoveChoice HighestOut(const Side& side) {
    unsigned piece = PiecesPerColour - 1;
    while (side.StepOf(piece) != BoxStep) --piece;
    return {piece, 0};
}

/// The move that the options about leaving the box demand; nothing when they leave the choice.
inline std::optional<MoveChoice> OnlyMove(const Position& position, const GameRules& rules, Seat seat,
                                          Throw thrown) {
    const Side& side = position.SideOf(seat);
    if (side.InBox() == PiecesPerColour && rules.countsFromFirstThrow) return FirstOut(rules, thrown);
    const bool isExitOpen = (side.Pairs() & 1) == 0;
    if (thrown.face == ExitCount && rules.fiveMustLeave && side.InBox() > 0 && isExitOpen) {
        return HighestOut(side);
    }
    return std::nullopt;
}

inline MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown) {
    if (const auto only = OnlyMove(position, rules, seat, thrown)) return *only;
    const unsigned piece = BestPiece(position, rules, seat, thrown.count);
    if (piece == NoPiece) return {};
    return {piece, StepAfter(position.SideOf(seat).StepOf(piece), thrown.count)};
}

}  // namespace zorva::engine
