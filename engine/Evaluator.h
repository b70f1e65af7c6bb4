#pragma once

#include "engine/GameRules.h"
#include "engine/SeatView.h"

namespace zorva::engine {

/// Scores the legal moves of one seat with one count, as its playing level sees them. What a score is,
/// to the last bit, is defined by ScoreOfMove and SquareValue in core/Player.h. Here the same doubles
/// are added in the same order, but what they are made of is read off sets of steps.
class Evaluator {
public:
    /// Of the pieces in `movable` (bit n stands for piece n) all must have a legal move of `count`
    /// squares. `view` has to outlive the evaluator.
    Evaluator(const SeatView& view, const GameRules& rules, unsigned count, unsigned movable);

    /// The score of the move of one of those pieces.
    double ScoreOfMove(unsigned piece) const;

    /// The piece whose move scores most, the lowest number among equals. One piece at least is movable.
    unsigned BestPiece() const;

private:
    /// The squares that the four pieces leave, [piece], and reach, [reached + piece].
    static constexpr unsigned reached = PiecesPerColour;
    static constexpr unsigned endCount = 2 * PiecesPerColour;

    /// What can capture on this seat's squares: the pieces of one rival, in the rival's own steps but
    /// moved up by one, so that the square before step n is bit n.
    struct Rival {
        RingSet pieces = 0;  ///< squares with at least one piece
        RingSet pairs = 0;   ///< squares with two
        RingSet throws = 0;  ///< the distances that one throw can count: bit 64 - d for distance d
    };

    template <unsigned Turns>
    RingSet AddRival(unsigned sixValue);
    void FindEnds(unsigned count);
    unsigned EndsIn(RingSet whenLeft, RingSet whenReached) const;
    void AddAttacks(unsigned ends);
    void SubtractRisks(unsigned ends);
    int ProgressOfRivalAt(unsigned step) const;
    int AttackFrom(const SeatView::TrackSet& capturable, unsigned step) const;
    int ThreatsTo(unsigned step) const;
    bool CanAnyWalk(unsigned count, unsigned exceptPiece) const;
    bool HoldsCapturable(unsigned step) const;
    double CaptureTerm(unsigned to) const;
    void AddExitTerms(double& score) const;

    const SeatView& view_;
    const Short level_;
    const unsigned movable_;
    RingSet capturable_ = 0;                    // a lone rival on an unsafe square
    std::array<Rival, SeatCount> rivals_;       // [1] the next seat to [3]
    std::array<std::uint8_t, endCount> steps_;  // where each end lies
    std::array<double, endCount> values_;       // SquareValue there; of the movable pieces' ends alone
};

}  // namespace zorva::engine
