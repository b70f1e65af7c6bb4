#include "engine/MoveChoice.h"

#include <bit>

#include "engine/Evaluator.h"
#include "engine/SeatView.h"

namespace zorva::engine {
namespace {

MoveChoice FirstOut(const GameRules& rules, Throw thrown) {
    const bool bringsTwo = rules.fiveBringsTwo && thrown.face == ExitCount;
    return {0, bringsTwo ? 0 : thrown.count, bringsTwo};
}

MoveChoice HighestOut(const Side& side) {
    unsigned piece = PiecesPerColour - 1;
    while (side.StepOf(piece) != BoxStep) --piece;
    return {piece, 0};
}

// The pieces that share their step with one of a lower number. Both have the same moves and scores, and
// the lower number is moved.
unsigned Doubles(const Side& side) {
    const unsigned a = side.StepOf(0), b = side.StepOf(1), c = side.StepOf(2), d = side.StepOf(3);
    const unsigned second = b == a;
    const unsigned third = (c == a) | (c == b);
    const unsigned fourth = (d == a) | (d == b) | (d == c);
    return second << 1 | third << 2 | fourth << 3;
}

MoveChoice BestMove(const Position& position, const GameRules& rules, Seat seat, unsigned count) {
    const SeatView view(position, seat);
    const unsigned movable = view.MovablePieces(count) & ~Doubles(position.SideOf(seat));
    if (movable == 0) return {};
    // A single one is taken whatever its score.
    const bool isSingle = (movable & (movable - 1)) == 0;
    const unsigned piece = isSingle ? static_cast<unsigned>(std::countr_zero(movable))
                                    : Evaluator(view, rules, count, movable).BestPiece();
    return {piece, StepAfter(position.SideOf(seat).StepOf(piece), count)};
}

}  // namespace

MoveChoice ChooseMove(const Position& position, const GameRules& rules, Seat seat, Throw thrown) {
    const Side& side = position.SideOf(seat);
    if (side.InBox() == PiecesPerColour && rules.countsFromFirstThrow) return FirstOut(rules, thrown);
    const bool isExitOpen = (side.Pairs() & 1) == 0;
    if (thrown.face == ExitCount && rules.fiveMustLeave && side.InBox() > 0 && isExitOpen) {
        return HighestOut(side);
    }
    return BestMove(position, rules, seat, thrown.count);
}

}  // namespace zorva::engine
