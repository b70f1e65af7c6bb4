#pragma once

#include <string>
#include <vector>

#include "core/GameState.h"

namespace zorva {

struct GameContext;

/// What is told and kept of a finished game.
struct GameResult {
    Colour winner = 0;
    std::vector<Colour> losers;  ///< in colour order
    Short points = 0;            ///< hundredths of a point, 0..999

    bool operator==(const GameResult&) const = default;
};

/// The result of a game that CurrentColour has won. The points say how far the losers still were
/// from home: their average remaining way in thousandths of the whole way, 4 pieces x 71 steps,
/// rounded half to even and never above 999. A game without losers is worth 0.
GameResult ResultOf(const GameState& state, const Settings& settings);

/// The points of a game with so many losers, whose pieces have walked that many steps in all.
Short PointsOf(int losers, int walked);

/// Hundredths as points: 250 reads "2.50".
std::string PointsText(Short hundredths);

/// What the result window says.
std::string ResultText(const GameResult& result, const Settings& settings);

/// Celebrates the winner, tells the result, offers it to the history and ends the game.
void EndOfGame(const GameContext& game);

}  // namespace zorva
