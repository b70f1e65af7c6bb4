#pragma once

#include "core/GameState.h"

namespace zorva {

/// Decides the move of CurrentColour with MoveCount squares, by its playing level: the options that
/// leave no choice first, then the best of the scores of all legal moves, the lowest piece number
/// among equals. No chance is involved. Sets BestPiece (0 = no legal move), BestFrom, BestTo,
/// LegalMoveCount, MovablePieces and, for the exit of two pieces, SecondMovePending.
void ChooseComputerMove(GameState& state, const Settings& settings);

/// The score of a legal move of that piece of CurrentColour with MoveCount squares.
double ScoreOfMove(const GameState& state, const Settings& settings, Short piece);

/// What standing on `square` is worth to a piece that has come `progress` squares: the rivals it
/// could attack from there less the risk of being captured there. 0 in the box.
double SquareValue(const GameState& state, Colour colour, PieceCode code, Square square);

}  // namespace zorva
