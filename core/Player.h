#pragma once

#include "core/GameState.h"

namespace zorva {

/// Decides the move of CurrentColour with MoveCount squares at its playing level. First come the options
/// about leaving the box, which allow one move only; otherwise the legal move with the best score is
/// chosen, the lowest piece number among equals. No chance is involved. Sets BestPiece (0 = no legal
/// move), BestFrom, BestTo, LegalMoveCount, MovablePieces and, for the exit of two pieces,
/// SecondMovePending.
void ChooseComputerMove(GameState& state, const Settings& settings);

/// The score, in points, of a legal move of that piece of CurrentColour with MoveCount squares: the
/// SquareValue of the square reached less that of the square left, times ten and times the playing level
/// / 100, plus the terms of core/ScoreTerms.h that count at this level.
double ScoreOfMove(const GameState& state, const Settings& settings, Short piece);

/// The value, in points, of `square` to the piece `code`: the steps walked by the rivals that it could
/// capture from there with one die, less its risk. For each rival that could capture it there with one
/// throw the risk is the steps that the piece has walked so far and the 20 squares of the rival's bonus.
/// 0 in the box.
double SquareValue(const GameState& state, PieceCode code, Square square);

}  // namespace zorva
