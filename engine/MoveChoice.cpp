#include "engine/MoveChoice.h"

#include <bit>

#include "engine/Evaluator.h"
#include "engine/SeatView.h"

namespace zorva::engine {
namespace {

// The pieces that share their step with a piece of a lower number: bit n stands for piece n. Their moves
// have the same scores, and among equals the lowest number moves, so they need no score.
unsigned Doubles(const Side& side) {
    const unsigned a = side.StepOf(0), b = side.StepOf(1), c = side.StepOf(2), d = side.StepOf(3);
    const unsigned second = b == a;
    const unsigned third = (c == a) | (c == b);
    const unsigned fourth = (d == a) | (d == b) | (d == c);
    return second << 1 | third << 2 | fourth << 3;
}

}  // namespace

unsigned BestPiece(const Position& position, const GameRules& rules, Seat seat, unsigned count) {
    const SeatView view(position, seat);
    const unsigned movable = view.MovablePieces(count) & ~Doubles(position.SideOf(seat));
    if (movable == 0) return NoPiece;
    // A single movable piece moves without being scored.
    const bool isSingle = (movable & (movable - 1)) == 0;
    return isSingle ? static_cast<unsigned>(std::countr_zero(movable))
                    : Evaluator(view, rules, count, movable).BestPiece();
}

std::vector<MoveChoice> LegalMoves(const Position& position, const GameRules& rules, Seat seat,
                                   Throw thrown) {
    if (const auto only = OnlyMove(position, rules, seat, thrown)) return {*only};
    const SeatView view(position, seat);
    std::vector<MoveChoice> moves;
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        if (!view.IsMoveLegal(piece, thrown.count)) continue;
        moves.push_back({piece, StepAfter(position.SideOf(seat).StepOf(piece), thrown.count)});
    }
    return moves;
}

}  // namespace zorva::engine
