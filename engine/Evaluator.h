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

    void FindEnds(unsigned count);
    void AddAttacks();
    unsigned EndsIn(RingSet set) const;
    int ProgressOfRivalAt(unsigned step) const;
    int AttackFrom(const SeatView::TrackSet& capturable, unsigned step) const;
    unsigned ThreatsTo(unsigned step) const;
    double Gain(unsigned piece) const;
    bool HoldsCapturable(unsigned step) const;
    bool CanAnyWalk(unsigned count, unsigned exceptPiece) const;
    double CaptureTerm(unsigned to) const;
    void AddExitTerms(double& score) const;

    const SeatView& view_;
    const Short level_;
    const unsigned movable_;
    std::array<const Side*, SeatCount> rivals_;      // [1] the next seat to [3]
    RingSet exposed_;                                // unsafe, and not full
    RingSet capturable_;                             // a lone rival stands there and can be captured
    std::array<std::uint8_t, endCount> steps_;       // where each end lies
    std::array<std::uint16_t, endCount> attacks_{};  // squares that rivals ahead of each end could lose
};

}  // namespace zorva::engine
