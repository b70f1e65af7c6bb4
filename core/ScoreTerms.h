#pragma once

#include "core/Board.h"

// What the terms of a score are worth, from which level of play on each is seen, and the facts about
// squares that they ask for. Two readers: ScoreOfMove, which defines the score, and Outlook.

namespace zorva::terms {

// The least level that sees a term.
inline constexpr Short captureLevel = 71;
inline constexpr Short arrivalLevel = 61;
inline constexpr Short nearHomeLevel = 81;
inline constexpr Short leavingShelterLevel = 41;
inline constexpr Short reachingShelterLevel = 21;
inline constexpr Short exitLevel = 61;

// What is added.
inline constexpr double arrival = 1.0;
inline constexpr double nearHome = -0.35;
inline constexpr double leavingShelter = -0.12;
inline constexpr double reachingShelter = 0.12;
inline constexpr double exit = 0.25;
inline constexpr double exitOfTheLast = 0.5;
inline constexpr double exitWithCapture = 0.1;

// What is divided by to make points of squares.
inline constexpr double attackPerPoint = 447.0;
inline constexpr double riskPerPoint = 984.0;
inline constexpr double progressPerPoint = 210.0;
inline constexpr double capturePerPoint = 62.0;

// A capture is worth this often what it throws back, when the bonus can be walked and when not.
inline constexpr int withBonus = 5;
inline constexpr int withoutBonus = 2;

/// Whether a piece that leaves the square is almost at home.
constexpr bool IsNearHome(Colour colour, Square from) {
    return from >= GoalSquare[colour] - 5;
}

/// Whether nobody could have captured a piece on the square.
constexpr bool IsShelter(Colour colour, Square from) {
    return IsSafeSquare(from) || from >= GoalSquare[colour] - 7 || from == HomeEntrySquare[colour];
}

/// Whether a move brings a piece out of reach of the others. Plain square numbers: for blue, red and
/// green `from < HomeEntrySquare` is not "before the home entry" along the way. The playing strength
/// was tuned with it; keep it.
constexpr bool ReachesShelter(Colour colour, Square from, Square to) {
    const bool isEarly = from < HomeEntrySquare[colour];
    const bool isAlmostHome = to >= GoalSquare[colour] - 8;
    const bool isEntry = to == HomeEntrySquare[colour];
    // Joined without a branch: either side comes as often as the other.
    return tables::safeSquares[to] | (isEarly & (isAlmostHome | isEntry));
}

}  // namespace zorva::terms
