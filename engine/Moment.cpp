#include "engine/Moment.h"

#include "core/Records.h"

namespace zorva::engine {
namespace {

// The piece that a third six would send back.
unsigned LatestThrownPiece(const GameState& state) {
    const Short latest = LatestMoveNoBonus(state, state.CurrentColour, state.MoveRecordCount);
    const Short piece = state.MoveRecords[latest].Piece;
    return piece == 0 ? NoPiece : static_cast<unsigned>(piece - 1);
}

}  // namespace

Moment::Moment(const GameState& state) : Moment(Position(state), SeatOf(state.CurrentColour)) {
    sixes = static_cast<unsigned>(state.SixesInRow);
    moves = state.MoveRecordCount - 1;
    if (sixes == 2) thrownPiece = LatestThrownPiece(state);
    if (state.ThrowNext && !state.WaitingForMove) return;
    due = {static_cast<unsigned>(state.DieValue), static_cast<unsigned>(state.MoveCount)};
}

}  // namespace zorva::engine
