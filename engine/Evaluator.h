#pragma once

#include "engine/GameRules.h"
#include "engine/SeatView.h"

namespace zorva::engine {

/// Scores the legal moves of one seat with one count at its playing level. ScoreOfMove and SquareValue
/// in core/Player.h define the score to the last bit. Here the same doubles are added in the same order,
/// but their parts are found with sets of steps instead of walks over the board.
class Evaluator {
public:
    /// Each piece in `movable` (bit n stands for piece n) must have a legal move of `count` squares.
    /// `view` has to outlive the evaluator.
    Evaluator(const SeatView& view, const GameRules& rules, unsigned count, unsigned movable);

    /// The score, in points, of the move of one of the movable pieces.
    double ScoreOfMove(unsigned piece) const;

    /// The piece whose move has the best score, the lowest number among equals. At least one piece must
    /// be movable.
    unsigned BestPiece() const;

private:
    /// The two ends of each piece's move: in the arrays of ends, steps_ and attacks_, [piece] is the
    /// square left and [reached + piece] the square reached.
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
    std::array<const Side*, SeatCount>
        rivals_;          // [n] is n seats further round the table; [0] is not used
    RingSet exposed_;     // unsafe, and not full
    RingSet capturable_;  // a lone rival stands there and can be captured
    std::array<std::uint8_t, endCount> steps_;       // the step of each end
    std::array<std::uint16_t, endCount> attacks_{};  // steps that rivals ahead of each end would lose
};

}  // namespace zorva::engine
