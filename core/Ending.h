#pragma once

#include <string>
#include <vector>

#include "core/GameState.h"

namespace zorva {

struct GameContext;

/// What the players are told of a finished game, and what the history keeps.
struct GameResult {
    Colour winner = 0;
    std::vector<Colour> losers;  ///< in colour order
    Short points = 0;            ///< hundredths of a point, 0..999

    bool operator==(const GameResult&) const = default;
};

/// The result of a game that CurrentColour has won. The points say how far the losers still were from
/// home: the steps left to a loser on average, in thousandths of the whole track of a colour (4 pieces x
/// 71 steps), rounded half to even and never above 999. They are read as hundredths of a point. A game
/// without losers is worth 0.
GameResult ResultOf(const GameState& state, const Settings& settings);

/// The points of a game with so many losers, whose pieces have walked that many steps in all.
Short PointsOf(int losers, int walked);

/// Hundredths as points: 250 reads "2.50".
std::string PointsText(Short hundredths);

/// What the result window says.
std::string ResultText(const GameResult& result, const Settings& settings);

/// Celebrates the winner with four blinks, shows the result, offers it to the history and ends the game.
/// CurrentColour must have its four pieces home.
void EndOfGame(const GameContext& game);

}  // namespace zorva
