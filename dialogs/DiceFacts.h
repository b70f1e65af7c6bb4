#pragma once

#include <array>

#include "core/GameState.h"

namespace zorva {

/// How often an outcome that has one chance in six came.
struct DiceCount {
    int count = 0;
    int tries = 0;

    bool operator==(const DiceCount&) const = default;
};

/// The counts that lie within the limits of chance, the two included.
struct NormalRange {
    int low = 0;
    int high = 0;

    bool Holds(int count) const { return low <= count && count <= high; }
    bool operator==(const NormalRange&) const = default;
};

/// The range in which 99 of 100 such counts of a fair die lie, or more: at most one of 200 lies below
/// it, and at most one of 200 above. It is exact for few throws, too. `tries` is at least 0.
NormalRange NormalRangeOf(int tries);

/// What one colour has thrown in a game.
struct DiceOfColour {
    /// Rows of counts: the faces 1 to 6 among all throws, then a second six among the throws that follow
    /// a six, and a third six among those that follow two.
    static constexpr std::size_t Rows = 8;
    std::array<DiceCount, Rows> counts{};

    int Throws() const { return counts[0].tries; }
    /// The rows whose count is no normal one.
    int Unusual() const;
};

/// The throws on the records of a game. `game` is a game in progress, or won, as PositionReached
/// (core/Outside.h) hands it over. A third six that left no record counts, too: the turn that passed
/// after a second six shows it, if more than one colour plays.
PerColour<DiceOfColour> DiceOfGame(const GameState& game);

}  // namespace zorva
