#pragma once

#include "core/Outlook.h"

namespace zorva {

/// The moves of the colour on turn as its level of play sees them. It answers as ScoreOfMove does, to
/// the last bit, which says what the answers mean.
class Appraisal {
public:
    /// `outlook` has to outlive it.
    Appraisal(const Outlook& outlook, Short level);

    /// Both ends of the moves with MoveCount squares: [n] where piece n stands, [target + n] where it
    /// comes to. The values are those of the pieces asked for; elements of no piece are not set.
    struct Ends {
        static constexpr unsigned target = 8;
        std::array<std::uint8_t, target + PiecesPerColour + 1> steps;
        std::array<double, target + PiecesPerColour + 1> values;
    };

    /// The ends of the legal moves of some pieces, told by bits 1..4.
    Ends EndsOf(unsigned movable) const;

    /// What ScoreOfMove says of the move of one of them.
    double ScoreOfMove(const Ends& ends, Short piece) const;

    /// The piece whose legal move scores most, of those that bits 1..4 stand for, at least one; the
    /// lowest number when several do.
    Short BestOf(unsigned movable) const;

private:
    using RingSet = Outlook::RingSet;

    /// What can capture, told by the steps of the colour it belongs to, each square one step on.
    struct Rival {
        RingSet pieces;  ///< squares with at least one piece
        RingSet pairs;   ///< ... with two
        RingSet throws;  ///< the distances one throw can count: bit 64 - d for distance d
    };

    template <int Turns>
    void AddRival(RingSet& reached);
    bool CanAnyWalk(int count, Short exceptPiece) const;
    int ProgressOfPreyAt(int step) const;
    int AttackFrom(int step) const;
    int ThreatsTo(int step) const;
    bool HoldsPrey(int step) const;
    double CaptureTerm(int to) const;
    void AddExitTerms(double& score) const;

    const Outlook& outlook_;
    const Short level_;
    std::array<Rival, ColourCount> rivals_;  // [1] the colour that follows in number, to [3]
    Outlook::WaySet preys_;                  // a lone rival on an unsafe square
    RingSet hunting_;                        // a prey stands one to six squares ahead
    RingSet threatened_;                     // one throw of a rival captures a lone piece there
};

}  // namespace zorva
