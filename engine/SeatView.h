#pragma once

#include <array>
#include <cstdint>

#include "engine/Position.h"

namespace zorva::engine {

/// The board as one seat sees it: the sets of all seats, converted to the steps of that seat. It is made
/// for one decision and does not follow later moves of the position. IsMoveLegal and DestinationOf in
/// core/Rules.h define the rules that it applies.
class SeatView {
public:
    SeatView(const Position& position, Seat seat);

    /// Whether a piece of the seat may walk `count` squares, 1..20; defined by IsMoveLegal.
    bool IsMoveLegal(unsigned piece, unsigned count) const;

    /// The pieces that may walk `count` squares, 1..20: bit n stands for piece n.
    unsigned MovablePieces(unsigned count) const;

private:
    friend class Evaluator;

    /// A set of the steps 0..159, stored so that the steps ahead of any step are found by one shift of
    /// one word: word n holds the steps from 32 n to 32 n + 63, and so shares half of them with word
    /// n + 1.
    using TrackSet = std::array<std::uint64_t, 4>;

    /// The next 32 steps or more of a set after `step`: bit 0 stands for step + 1.
    static std::uint64_t Ahead(const TrackSet& set, unsigned step) {
        return set[step / 32] >> (step % 32 + 1);
    }

    template <unsigned Turns>
    void AddRival(RingSet& mixed);

    const Position& position_;
    const Seat seat_;
    const Side& own_;
    RingSet barriers_;       // two pieces of one seat: nobody walks past them
    RingSet rivals_ = 0;     // at least one piece of another seat
    RingSet full_;           // two pieces: nobody ends a move there
    TrackSet barrierSteps_;  // the barriers of the ring and the seat's own column
    TrackSet closedSteps_;   // where no move may end: full squares, and all that lies past the goal
};

// In the header, so that these are inlined: a decision makes a view and uses it at once. Out of line,
// games were 2 % slower.

template <unsigned Turns>
void SeatView::AddRival(RingSet& mixed) {
    const Side& rival = position_.SideOf(SeatAfter(seat_, Turns));
    const RingSet pieces = Rotated<Turns>(rival.Pieces());
    mixed |= (own_.Pieces() | rivals_) & pieces;
    rivals_ |= pieces;
    barriers_ |= Rotated<Turns>(rival.Pairs());
}

inline SeatView::SeatView(const Position& position, Seat seat)
    : position_(position), seat_(seat), own_(position.SideOf(seat)), barriers_(own_.Pairs()) {
    RingSet mixed = 0;  // two pieces of different seats
    AddRival<1>(mixed);
    AddRival<2>(mixed);
    AddRival<3>(mixed);
    full_ = barriers_ | mixed;
    const std::uint64_t pastGoal = ~Lowest(GoalStep + 1 - RingSteps);
    const ColumnSet columnClosed = own_.ColumnPairs() | pastGoal;
    barrierSteps_ = {barriers_, barriers_ >> 32 | own_.ColumnPairs() << 32, own_.ColumnPairs(), 0};
    // Leaving the box is a walk of 5 from step 123 (BoxStep) to step 128, which stands for the exit and
    // is bit 32 of the last word. Only two own pieces close the exit.
    const std::uint64_t exitOpen = (~own_.Pairs() & 1) << 32;
    closedSteps_ = {full_, full_ >> 32 | columnClosed << 32, columnClosed, ~exitOpen};
}

inline bool SeatView::IsMoveLegal(unsigned piece, unsigned count) const {
    const unsigned step = own_.StepOf(piece);
    const std::uint64_t target = std::uint64_t{1} << (count - 1);
    const std::uint64_t passed = Ahead(barrierSteps_, step) & (target - 1);
    const std::uint64_t reached = Ahead(closedSteps_, step) & target;
    return (passed | reached) == 0;
}

inline unsigned SeatView::MovablePieces(unsigned count) const {
    unsigned movable = 0;
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        movable |= static_cast<unsigned>(IsMoveLegal(piece, count)) << piece;
    }
    return movable;
}

}  // namespace zorva::engine
