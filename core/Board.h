#pragma once

#include "core/BoardTables.h"
#include "core/GameState.h"

namespace zorva {

/// Whether the number stands for a square or the box.
constexpr bool IsSquare(Square square) {
    return square >= 0 && square <= LastSquare;
}

/// The square reached by walking `steps` single steps from `square`; `square` itself when steps is
/// below 1. Past the goal the result is a number above the goal: no bound is checked.
constexpr Square AdvanceSquare(Square square, Short steps, Colour colour) {
    if (steps < 1) return square;
    if (IsSquare(square) && steps <= LongestWalk) return tables::walks[colour][square][steps];
    for (; steps > 0; --steps) square = NextSquare(square, colour);
    return square;
}

/// The squares reached from a square or the box by 0, 1, 2 ... LongestWalk steps: what AdvanceSquare
/// says of each, for loops that look at all of a walk.
constexpr const tables::Walk& WalkFrom(Square square, Colour colour) {
    return tables::walks[colour][square];
}

/// Whether no piece can be captured there: the exits, the home entries and 12, 29, 46, 63.
constexpr bool IsSafeSquare(Square square) {
    return IsSquare(square) && tables::safeSquares[square];
}

/// Steps from the colour's exit square to a square of its own track: 0 on the exit and in the
/// box, 63 on the home entry, 71 on the goal; -1 off the track.
constexpr Short StepsToSquare(Colour colour, Square square) {
    return IsSquare(square) ? tables::distances[colour][square] : Short{-1};
}

/// How far a piece has come: StepsToSquare of where it stands.
inline Short StepsFromExit(const GameState& state, Colour colour, Short piece) {
    return StepsToSquare(colour, state.PiecePosition[colour][piece]);
}

/// Whether the square belongs to the way of that colour from its exit to its goal.
constexpr bool IsOnTrack(Colour colour, Square square) {
    return square > 0 && StepsToSquare(colour, square) >= 0;
}

}  // namespace zorva
