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

MoveChoice BestMove(const Position& position, const GameRules& rules, Seat seat, unsigned count) {
    const SeatView view(position, seat);
    const unsigned movable = view.MovablePieces(count);
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
