#pragma once

#include <cstdint>
#include <functional>

#include "tools/MatchGames.h"

namespace zorva {

/// What a colour has won in a match.
struct ColourTotals {
    std::uint64_t wins = 0;
    std::uint64_t points = 0;  ///< hundredths, summed over the games won

    bool operator==(const ColourTotals&) const = default;
};

/// What is counted over the games of a match. Whole numbers only: sums do not depend on the order
/// in which the threads finish their games.
struct MatchTotals {
    PerColour<ColourTotals> colours{};
    /// Wins by turn: of the colours that begin, of those whose turn is next, and so on.
    std::array<std::uint64_t, ColourCount> winsByTurn{};
    std::uint64_t games = 0;
    std::uint64_t moves = 0;      ///< move records, passes and ways home of captured pieces included
    std::uint64_t captures = 0;   ///< captured pieces sent home
    std::uint64_t decisions = 0;  ///< moves that the computer player decided, passes included

    MatchTotals& operator+=(const MatchTotals& other);
    bool operator==(const MatchTotals&) const = default;
};

/// A match to be played.
struct MatchPlan : GamesPlan {
    std::uint64_t games = 0;
    unsigned threads = 1;
    bool byTheBook = false;  ///< played by the core, whose rules define the game, not by the engine
};

/// Plays the games 0 .. games - 1 on the given number of threads; the totals are the same for any number
/// of them. `progress`, when there is one, is called a few times a second with the number of games
/// finished.
MatchTotals PlayMatch(const MatchPlan& plan, const std::function<void(std::uint64_t)>& progress);

}  // namespace zorva
