#pragma once

#include "core/Outlook.h"

namespace zorva {

/// The scores of the moves that the colour on turn may make, as its level of play sees them. It answers
/// as ScoreOfMove and SquareValue do, to the last bit; they say what the answers mean.
class Appraisal {
public:
    /// `outlook` has to outlive it.
    Appraisal(const Outlook& outlook, Short level);

    /// What ScoreOfMove says of a legal move of that piece with MoveCount squares.
    double ScoreOfMove(Short piece) const;

    /// What SquareValue says of a piece and a square of its way, which may be the one it stands on.
    double SquareValue(Short piece, Square square) const;

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
    double ContestedValueAt(int step, RingSet shelters, int perThreat) const;
    double ValueAt(int step, RingSet shelters, int perThreat) const;
    bool HoldsPrey(int step) const;
    double CaptureTerm(int to) const;
    void AddExitTerms(double& score) const;

    const Outlook& outlook_;
    const Short level_;
    std::array<Rival, ColourCount> rivals_;  // [1] the colour that follows in number, to [3]
    Outlook::WaySet preys_;                  // a lone rival on an unsafe square
    RingSet contested_;  // where a throw of a rival may capture, or with a prey ahead; elsewhere worth 0
};

}  // namespace zorva
