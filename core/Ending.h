#pragma once

#include <string>
#include <vector>

#include "core/GameState.h"

namespace zorva {

struct GameContext;

/// What the players learn about a finished game, and what the history keeps.
struct GameResult {
    Colour winner = 0;
    std::vector<Colour> losers;  ///< in colour order
    Short points = 0;            ///< hundredths of a point, 0..999

    bool operator==(const GameResult&) const = default;
};

/// Whether the colour on turn has won: its four pieces are home.
inline bool HasWon(const GameState& state) {
    return state.PiecesHome[state.CurrentColour] == PiecesPerColour;
}

/// The result of a game that CurrentColour has won; PointsOf says what it is worth.
GameResult ResultOf(const GameState& state, const Settings& settings);

/// The points of a game in hundredths, 0..999. `losers` is their number, `walked` the steps that all
/// their pieces together have walked. A colour has 4 x 71 steps to walk; the points are 10 times the
/// share of them that was left to a loser on average, rounded half to even to hundredths and at most
/// 9.99. A game without losers is worth 0.
Short PointsOf(int losers, int walked);

/// Hundredths 0..999 as text: 250 gives "2.50".
std::string PointsText(Short hundredths);

/// What the result window says.
std::string ResultText(const GameResult& result, const Settings& settings);

/// Celebrates the winner, CurrentColour, with four blinks, shows the result, offers it to the history
/// and ends the game. Before that it hands the won position over to be kept: if the program ends while
/// the players have not answered, the next start can ask them again.
void EndOfGame(const GameContext& game);

}  // namespace zorva
