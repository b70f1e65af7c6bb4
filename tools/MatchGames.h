#pragma once

#include <cstdint>
#include <optional>
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

/// What the games of a match have in common. The computer plays all colours, even those that the
/// settings give to a person.
struct GamesPlan {
    Settings settings;
    std::uint64_t seed = 0;
    std::optional<GameInFile> start =
        std::nullopt;    ///< the game that is played on; without it they are new ones
    Colour thinker = 0;  ///< the colour that chooses by play-outs, in games of the engine; 0 for none
    std::uint64_t playOuts = 0;  ///< of each of its legal moves
};

/// The games of a match. Each can be played by the engine, which is fast, or by the core, which defines
/// the rules; the results are the same. The computer plays all colours that take part.
class MatchGames {
public:
    explicit MatchGames(const GamesPlan& plan);

    /// Plays game `number`. Its chance comes from the seed and the number alone: the first thing drawn
    /// for a new game is the colour that begins, each taking part as likely as the others, then one face
    /// for each throw.
    GameTotals PlayByEngine(std::uint64_t number) const;
    GameTotals PlayByTheBook(std::uint64_t number) const;

private:
    Colour DrawFirst(Chance& chance) const;
    engine::Moment Start(Chance& chance) const;
    Short PointsOfWinner(const engine::Position& position, engine::Seat winner) const;

    engine::MoveChoice BestByPlayOuts(const engine::Moment& now, std::uint64_t seed) const;

    const GamesPlan plan_;
    const Settings settings_;
    const engine::GameRules rules_;
    std::vector<Colour> takingPart_;
};

}  // namespace zorva
