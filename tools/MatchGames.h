#pragma once

#include <cstdint>
#include <vector>

#include "engine/Chance.h"
#include "tools/GameInFile.h"

namespace zorva {

/// The result of one game of a match.
struct GameTotals {
    Colour winner = 0;  ///< 0 when the game grew too long to be finished
    Colour first = 0;   ///< the colour that began, or was on turn where the game was played on
    Short points = 0;   ///< the winner's, in hundredths
    int moves = 0;      ///< move records made, passes and ways home of captured pieces included
    int captures = 0;   ///< captured pieces sent home
    int decisions = 0;  ///< moves that the computer player decided, passes included

    bool operator==(const GameTotals&) const = default;
};

/// The games of a match. Each can be played by the engine, which is fast, or by the core, which defines
/// the rules; the results are the same. The computer plays all colours that take part.
class MatchGames {
public:
    /// New games, or with `start`, which has to outlive them, games that go on from there.
    MatchGames(const Settings& settings, std::uint64_t seed, const GameInFile* start = nullptr);

    /// Plays game `number`. Its chance comes from the seed and the number alone: the first thing drawn
    /// for a new game is the colour that begins, each taking part as likely as the others, then one face
    /// for each throw.
    GameTotals PlayByEngine(std::uint64_t number) const;
    GameTotals PlayByTheBook(std::uint64_t number) const;

private:
    Colour DrawFirst(Chance& chance) const;
    engine::Moment Start(Chance& chance) const;
    Short PointsOfWinner(const engine::Position& position, engine::Seat winner) const;

    const Settings settings_;
    const engine::GameRules rules_;
    const std::uint64_t seed_;
    const GameInFile* const start_;
    std::vector<Colour> takingPart_;
};

}  // namespace zorva
