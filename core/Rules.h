#pragma once

#include "core/GameState.h"

namespace zorva {

/// Squares of the extra move that a capture earns.
inline constexpr Short CaptureBonus = 20;
/// Squares of the extra move that a piece earns by reaching its goal.
inline constexpr Short ArrivalBonus = 10;

/// Whether a piece of that colour standing on `square` (0 = in its box) may walk `steps` squares
/// (1..20). Says nothing of the options that make a piece leave, or leave without a five.
bool IsMoveLegal(const GameState& state, Colour colour, Short steps, Square square);

/// Whether slots 1 and 2 of the square hold two pieces of one colour; nobody passes those.
inline bool IsBarrier(const GameState& state, Square square) {
    const auto& occupants = state.SquareOccupants[square];
    return occupants[2] != 0 && ColourOf(occupants[1]) == ColourOf(occupants[2]);
}

/// Where a move of `steps` squares from `square` ends: out of the box it is the exit square.
Square DestinationOf(Colour colour, Short steps, Square square);

/// The piece that a piece of `colour` would capture by walking to `square`: a lone rival where none is
/// safe; 0 when there is none.
PieceCode CapturableOn(const GameState& state, Colour colour, Square square);

/// What landing on a square did.
struct Capture {
    Short report = 0;      ///< 0 nothing, 1 ordinary capture, 2 capture on one's own exit square
    PieceCode victim = 0;  ///< the piece that goes home; 0 when nothing was captured
};

/// The capture by a piece of `colour` that has just been put down on `square`.
Capture CaptureOn(const GameState& state, Colour colour, Square square);

}  // namespace zorva
