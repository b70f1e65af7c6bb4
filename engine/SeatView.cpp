#include "engine/SeatView.h"

namespace zorva::engine {

template <unsigned Turns>
void SeatView::AddRival(RingSet& mixed) {
    const Side& rival = position_.SideOf(SeatAfter(seat_, Turns));
    const RingSet pieces = Rotated<Turns>(rival.Pieces());
    mixed |= (own_.Pieces() | rivals_) & pieces;
    rivals_ |= pieces;
    barriers_ |= Rotated<Turns>(rival.Pairs());
}

SeatView::SeatView(const Position& position, Seat seat)
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

bool SeatView::IsMoveLegal(unsigned piece, unsigned count) const {
    const unsigned step = own_.StepOf(piece);
    const std::uint64_t target = std::uint64_t{1} << (count - 1);
    const std::uint64_t passed = Ahead(barrierSteps_, step) & (target - 1);
    const std::uint64_t reached = Ahead(closedSteps_, step) & target;
    return (passed | reached) == 0;
}

unsigned SeatView::MovablePieces(unsigned count) const {
    unsigned movable = 0;
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        movable |= static_cast<unsigned>(IsMoveLegal(piece, count)) << piece;
    }
    return movable;
}

}  // namespace zorva::engine
