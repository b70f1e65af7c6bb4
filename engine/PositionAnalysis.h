#pragma once

#include "engine/PlayOuts.h"

namespace zorva::engine {

/// The chances at one moment and, when a move is due, what each legal move is worth. All moves are
/// played on with common dice, so that their differences are sharp.
class PositionAnalysis {
public:
    PositionAnalysis(const Moment& moment, const Settings& settings, std::uint64_t seed);

    /// The games to be played on. Estimates are read with their tally.
    const PlayOuts& Games() const { return games_; }

    /// What the seat on turn could choose from if it were a person's; empty when a throw is due, when
    /// the seat passes and when the game is won.
    const std::vector<MoveChoice>& Moves() const { return moves_; }

    /// The chance of a seat to win when the seat on turn chooses at its own level.
    Estimate ChanceOf(Seat seat, const Tally& tally) const { return games_.Of(tally, seat); }
    /// The chance of the seat on turn after one of Moves.
    Estimate ChanceAfter(std::size_t move, const Tally& tally) const;
    /// By how much one of Moves is better than another.
    Estimate Difference(std::size_t move, std::size_t other, const Tally& tally) const;
    /// The first of the best of Moves, of which there must be one.
    std::size_t BestMove(const Tally& tally) const;

private:
    void AddFigures(Seat onTurn, std::size_t expected);
    std::size_t FigureOf(std::size_t move, std::size_t other) const;

    PlayOuts games_;
    std::vector<MoveChoice> moves_;
};

}  // namespace zorva::engine
