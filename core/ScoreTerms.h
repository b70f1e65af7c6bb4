#pragma once

#include "core/Board.h"

// The terms of a move's score: their weights, and the playing level from which each counts. ScoreOfMove
// (core/Player.h) adds the terms up; the engine reads the same numbers. The weights were tuned by play.
// Changing one changes the moves that the computer chooses, and with them the figures in
// docs/strength.md and the games in tests/data/games.

namespace zorva::terms {

// The lowest level at which a term counts.
inline constexpr Short captureLevel = 71;
inline constexpr Short arrivalLevel = 61;
inline constexpr Short nearHomeLevel = 81;
inline constexpr Short leavingShelterLevel = 41;
inline constexpr Short reachingShelterLevel = 21;
inline constexpr Short exitLevel = 61;

// Points added.
inline constexpr double arrival = 1.0;
inline constexpr double nearHome = -0.35;
inline constexpr double leavingShelter = -0.12;
inline constexpr double reachingShelter = 0.12;
inline constexpr double exit = 0.25;
inline constexpr double exitOfTheLast = 0.5;
inline constexpr double exitWithCapture = 0.1;

// Squares that make one point.
inline constexpr double attackPerPoint = 447.0;
inline constexpr double riskPerPoint = 984.0;
inline constexpr double progressPerPoint = 210.0;
inline constexpr double capturePerPoint = 62.0;

// The factor on the steps that a captured piece loses: withBonus when some piece can walk the 20 squares
// of the bonus, withoutBonus when none can.
inline constexpr int withBonus = 5;
inline constexpr int withoutBonus = 2;

/// Whether a piece on the square is at most five squares from its goal.
constexpr bool IsNearHome(Colour colour, Square from) {
    return from >= GoalSquare[colour] - 5;
}

/// Whether no rival can capture a piece on the square: a safe square, the home column or the home entry.
constexpr bool IsShelter(Colour colour, Square from) {
    return IsSafeSquare(from) || from >= GoalSquare[colour] - 7 || from == HomeEntrySquare[colour];
}

/// Whether a move brings a piece where no rival can capture it. Plain square numbers: for blue, red and
/// green `from < HomeEntrySquare` does not mean "before the home entry" along the track. The playing
/// strength was tuned with it; keep it.
constexpr bool ReachesShelter(Colour colour, Square from, Square to) {
    if (IsSafeSquare(to)) return true;
    if (from >= HomeEntrySquare[colour]) return false;
    return to >= GoalSquare[colour] - 8 || to == HomeEntrySquare[colour];
}

}  // namespace zorva::terms
