#include "core/Rules.h"

#include "core/Board.h"

namespace zorva {
namespace {

bool MayLeaveBox(const GameState& state, Colour colour, Short steps) {
    if (steps != ExitCount) return false;
    const auto& occupants = state.SquareOccupants[ExitSquare[colour]];
    return ColourOf(occupants[1]) != colour || ColourOf(occupants[2]) != colour;
}

bool IsFull(const GameState& state, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    return occupants[1] != 0 && occupants[2] != 0;
}

// Two pieces of one colour, which no piece walks past.
bool IsBarrier(const GameState& state, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    return occupants[1] != 0 && ColourOf(occupants[1]) == ColourOf(occupants[2]);
}

// Whether a barrier stands strictly between the start and the target; IsFull looks at the target.
bool IsBarred(const GameState& state, Colour colour, Short steps, Square square) {
    for (Short step = 1; step < steps; ++step) {
        square = AdvanceSquare(square, 1, colour);
        if (IsBarrier(state, square)) return true;
    }
    return false;
}

}  // namespace

bool IsMoveLegal(const GameState& state, Colour colour, Short steps, Square square) {
    if (square == 0) return MayLeaveBox(state, colour, steps);
    const Square target = AdvanceSquare(square, steps, colour);
    const Square goal = GoalSquare[colour];
    if (target > goal) return false;
    if (target != goal && IsFull(state, target)) return false;
    return !IsBarred(state, colour, steps, square);
}

Square DestinationOf(Colour colour, Short steps, Square square) {
    return square == 0 ? ExitSquare[colour] : AdvanceSquare(square, steps, colour);
}

PieceCode CapturableOn(const GameState& state, Colour colour, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    if (IsSafeSquare(square) || occupants[2] != 0) return 0;
    return ColourOf(occupants[1]) != colour ? occupants[1] : PieceCode{0};
}

Capture CaptureOn(const GameState& state, Colour colour, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    if (occupants[2] == 0) return {};  // the newcomer is alone
    if (!IsSafeSquare(square) && ColourOf(occupants[1]) != colour) return {1, occupants[1]};
    if (square == ExitSquare[colour] && occupants[3] != 0) {
        const bool ownInSecond = ColourOf(occupants[2]) == colour;
        return {2, ownInSecond ? occupants[1] : occupants[2]};
    }
    return {};
}

PieceCode VictimOf(const GameState& state, Colour colour, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    // A piece may land on a full square only when it comes out of its box.
    if (square != ExitSquare[colour] || occupants[2] == 0) return CapturableOn(state, colour, square);
    return ColourOf(occupants[2]) == colour ? occupants[1] : occupants[2];
}

PieceCode CapturedPieceOn(const GameState& state, Square square) {
    return state.SquareOccupants[square][state.CaptureReport == 1 ? 1 : 3];
}

}  // namespace zorva
