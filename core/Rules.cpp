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

bool IsWayOpen(const GameState& state, Colour colour, Short steps, Square square) {
    const auto& walk = WalkFrom(square, colour);
    for (Short step = 1; step < steps; ++step) {
        if (IsBarrier(state, walk[step])) return false;
    }
    return true;
}

}  // namespace

bool IsMoveLegal(const GameState& state, Colour colour, Short steps, Square square) {
    if (square == 0) return MayLeaveBox(state, colour, steps);
    if (steps > LongestWalk) return false;  // nothing counts that far
    const Square target = AdvanceSquare(square, steps, colour);
    const Square goal = GoalSquare[colour];
    if (target > goal) return false;
    if (target != goal && IsFull(state, target)) return false;
    return IsWayOpen(state, colour, steps, square);
}

Square DestinationOf(Colour colour, Short steps, Square square) {
    return square == 0 ? ExitSquare[colour] : AdvanceSquare(square, steps, colour);
}

PieceCode CapturableOn(const GameState& state, Colour colour, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    const bool isOpen = square <= LastRingSquare && !IsSafeSquare(square) && occupants[2] == 0;
    return isOpen && ColourOf(occupants[1]) != colour ? occupants[1] : PieceCode{0};
}

Capture CaptureOn(const GameState& state, Colour colour, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    if (occupants[2] == 0) return {};  // the newcomer is alone
    if (!IsSafeSquare(square) && square <= LastRingSquare && ColourOf(occupants[1]) != colour) {
        return {1, occupants[1]};
    }
    if (square == ExitSquare[colour] && occupants[3] != 0) {
        const bool ownInSecond = ColourOf(occupants[2]) == colour;
        return {2, ownInSecond ? occupants[1] : occupants[2]};
    }
    return {};
}

}  // namespace zorva
