#pragma once

#include "core/GameState.h"

namespace zorva {

/// Decides the move of CurrentColour with MoveCount squares, by its playing level: the options that
/// leave no choice first, then the best of the scores of all legal moves, the lowest piece number
/// among equals. No chance is involved. Sets BestPiece (0 = no legal move), BestFrom, BestTo,
/// LegalMoveCount, MovablePieces and, for the exit of two pieces, SecondMovePending.
void ChooseComputerMove(GameState& state, const Settings& settings);

/// The score of a legal move of that piece of CurrentColour with MoveCount squares, in points: what the
/// square reached is worth more than the square left (times ten, scaled by the playing level as a
/// percentage), plus the terms of core/ScoreTerms.h that the level sees.
double ScoreOfMove(const GameState& state, const Settings& settings, Short piece);

/// What standing on `square` is worth to the piece `code`, in points: the progress of the rivals it
/// could capture from there with one die, less what it risks there. Each rival that could capture it
/// with one throw risks the piece's own progress and the 20 squares of the bonus. 0 in the box.
double SquareValue(const GameState& state, PieceCode code, Square square);

}  // namespace zorva
