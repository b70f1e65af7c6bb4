#pragma once

#include <array>
#include <cstdint>

#include "engine/Position.h"

namespace zorva::engine {

/// The board as one seat sees it: the sets of all seats in the steps of that seat, made for one
/// decision, which asks many questions about one position. What the answers mean is defined by
/// IsMoveLegal and DestinationOf in core/Rules.h. A snapshot: it does not follow the moves.
class SeatView {
public:
    SeatView(const Position& position, Seat seat);

    /// Whether a piece of the seat may walk `count` squares, 1..20; defined by IsMoveLegal.
    bool IsMoveLegal(unsigned piece, unsigned count) const;

    /// The pieces that may walk so far: bit n stands for piece n.
    unsigned MovablePieces(unsigned count) const;

private:
    friend class Evaluator;

    /// A set of the steps 0..159, laid out so that the steps ahead of any place are one shift of one
    /// word: word n holds the steps from 32 n to 32 n + 63. Every word and the one after it overlap by
    /// half.
    using TrackSet = std::array<std::uint64_t, 4>;

    /// Of a set, the 31 steps or more that follow `step`: bit 0 stands for step + 1.
    static std::uint64_t Ahead(const TrackSet& set, unsigned step) {
        return set[step / 32] >> (step % 32 + 1);
    }

    template <unsigned Turns>
    void AddRival(RingSet& mixed);

    const Position& position_;
    const Seat seat_;
    const Side& own_;
    RingSet barriers_;       // two pieces of one seat: nobody passes
    RingSet rivals_ = 0;     // at least one piece of another seat
    RingSet full_;           // two pieces: nobody ends a move there
    TrackSet barrierSteps_;  // the barriers of the ring and the seat's own column
    TrackSet closedSteps_;   // where no move may end: full squares, and all that lies past the goal
};

// In the header, to be inlined: a decision makes a view and reads it at once (2 %).

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
    // A piece in its box walks 5 to step 128, which stands for the exit: bit 32 of the last word. Two
    // own pieces on the exit close it, whatever else stands there does not.
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
