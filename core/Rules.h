#pragma once

#include "core/GameState.h"

namespace zorva {

/// Squares of the extra move that a capture earns.
inline constexpr Short CaptureBonus = 20;
/// Squares of the extra move that a piece earns by reaching its goal.
inline constexpr Short ArrivalBonus = 10;

/// Whether a piece of that colour standing on `square` (0 = in its box) may walk `steps` squares.
///
/// Out of the box: only with a count of 5, and not onto two pieces of its own on the exit square. On the
/// track: not beyond the goal, not onto a square that holds two pieces (the goal holds any number), and
/// not past a barrier (two pieces of one colour), its own included. The options that make a piece leave
/// the box, or let it leave without a five, are left to the callers.
bool IsMoveLegal(const GameState& state, Colour colour, Short steps, Square square);

/// Where a move of `steps` squares from `square` ends: out of the box it is the exit square.
Square DestinationOf(Colour colour, Short steps, Square square);

/// The piece that a piece of `colour` would capture by walking to `square`: a rival that stands there
/// alone and is not safe. 0 when there is none.
PieceCode CapturableOn(const GameState& state, Colour colour, Square square);

/// What landing on a square did.
struct Capture {
    Short report = 0;      ///< 0 nothing, 1 ordinary capture, 2 capture on one's own exit square
    PieceCode victim = 0;  ///< the piece that is captured; 0 when none is
};

/// The capture by a piece of `colour` that has just been put down on `square`. On an unsafe square it
/// captures the rival in slot 1. On its own exit square, although that is a safe one, it captures when
/// it comes out as the third piece: the piece in slot 2, or that in slot 1 when slot 2 holds its colour.
Capture CaptureOn(const GameState& state, Colour colour, Square square);

/// The piece that a legal move of `colour` to `square` will capture, as CaptureOn finds it once the
/// piece has been put down; 0 when there is none.
PieceCode VictimOf(const GameState& state, Colour colour, Square square);

/// The captured piece that stands on `square` until it returns to its box: in slot 1 after an ordinary
/// capture, in slot 3 after one on an exit square. CaptureReport must not be 0.
PieceCode CapturedPieceOn(const GameState& state, Square square);

}  // namespace zorva
