#pragma once

#include "core/GameState.h"

// The squares of the board and the track of each colour: from its exit square once round the ring to its
// home entry (63 steps), then up its home column to the goal (8 more).

namespace zorva {

/// Where a colour's pieces enter the ring from the box.
inline constexpr PerColour<Square> ExitSquare{0, 5, 22, 39, 56};
/// The last ring square before a colour's home column.
inline constexpr PerColour<Square> HomeEntrySquare{0, 68, 17, 34, 51};
/// The first square of a colour's home column.
inline constexpr PerColour<Square> FirstColumnSquare{0, 69, 77, 85, 93};
/// The eighth and last square of a colour's home column.
inline constexpr PerColour<Square> GoalSquare{0, 76, 84, 92, 100};
/// Squares on which a piece that walks there captures nothing: the exits, the home entries and 12, 29,
/// 46, 63. Only a piece that comes out of its box may capture on its own exit (CaptureOn in
/// core/Rules.h).
inline constexpr std::array<Square, 12> SafeSquares{5, 12, 17, 22, 29, 34, 39, 46, 51, 56, 63, 68};

/// Steps from the exit square to the goal: 63 round the ring, 8 up the home column.
inline constexpr Short StepsToGoal = 71;

/// The square reached by walking `steps` single steps from `square`; `square` itself when steps is
/// below 1. Past the goal the result is a number above the goal: no bound is checked.
///
/// Distances are always walked step by step: subtracting square numbers would miss the wrap after 68 and
/// the turn into the home column.
constexpr Square AdvanceSquare(Square square, Short steps, Colour colour) {
    for (; steps > 0; --steps) {
        ++square;
        if (colour == 1) continue;  // yellow walks from 68 straight on into its column
        if (square == LastRingSquare + 1) square = 1;
        if (square == HomeEntrySquare[colour] + 1) square = FirstColumnSquare[colour];
    }
    return square;
}

/// Whether the square is one of SafeSquares. False for the home columns, although nobody can be captured
/// there either: no rival ever enters one.
constexpr bool IsSafeSquare(Square square) {
    for (const Square safe : SafeSquares) {
        if (square == safe) return true;
    }
    return false;
}

/// Whether the square is the goal of one of the colours.
constexpr bool IsGoal(Square square) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (square == GoalSquare[colour]) return true;
    }
    return false;
}

/// Steps from the colour's exit square to a square of its own track: 0 on the exit and in the box, 63 on
/// the home entry, 71 on the goal; -1 for a square off the track.
constexpr Short StepsToSquare(Colour colour, Square square) {
    if (square == 0) return 0;
    Square reached = ExitSquare[colour];
    for (Short steps = 0; steps <= StepsToGoal; ++steps) {
        if (reached == square) return steps;
        reached = AdvanceSquare(reached, 1, colour);
    }
    return -1;
}

/// Whether the square lies on the track of that colour, from its exit to its goal. The box does not.
constexpr bool IsOnTrack(Colour colour, Square square) {
    return square > 0 && StepsToSquare(colour, square) >= 0;
}

/// The steps 0..71 that the piece 1..4 has walked from its exit: StepsToSquare of its square.
inline Short StepsFromExit(const GameState& state, Colour colour, Short piece) {
    return StepsToSquare(colour, state.PiecePosition[colour][piece]);
}

/// The steps that all pieces of a colour have to walk: 4 x 71.
inline constexpr Short StepsOfColour = PiecesPerColour * StepsToGoal;

/// The steps 0..StepsOfColour that the colour's pieces have walked together. A piece in its box has
/// walked as many as one on its exit.
inline Short StepsWalked(const GameState& state, Colour colour) {
    int steps = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece)
        steps += StepsFromExit(state, colour, piece);
    return ToShort(steps);
}

/// The slot 1..3 of `square` in which the piece `code` stands, 0 when it stands in none.
inline Short SlotOf(const GameState& state, Square square, PieceCode code) {
    for (Short slot = 1; slot <= 3; ++slot) {
        if (state.SquareOccupants[square][slot] == code) return slot;
    }
    return 0;
}

}  // namespace zorva
