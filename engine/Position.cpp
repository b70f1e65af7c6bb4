#include "engine/Position.h"

#include <utility>

namespace zorva::engine {

Position::Position(unsigned sixValue)
    : sides_{Side(sixValue), Side(sixValue), Side(sixValue), Side(sixValue)} {}

Position::Position(const GameState& state) : Position(static_cast<unsigned>(state.SixValue)) {
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
            const Square square = state.PiecePosition[ColourAt(seat)][piece + 1];
            if (square != 0) sides_[seat].Move(piece, StepOf(seat, square));
        }
    }
    for (Square square = 1; square <= LastRingSquare; ++square) {
        const auto& slots = state.SquareOccupants[square];
        occupants_[square] = {OccupantOf(slots[1]), OccupantOf(slots[2])};
    }
}

Occupant Position::Move(Seat seat, unsigned piece, unsigned to) {
    LeaveSquare(seat, piece);
    sides_[seat].Move(piece, to);
    if (to >= RingSteps) return 0;
    const bool isSafe = (UnsafeSteps >> to & 1) == 0;
    const Occupant victim = Land(occupants_[SquareAt(seat, to)], OccupantOf(seat, piece), isSafe);
    if (victim != 0) PutIntoBox(victim);
    return victim;
}

void Position::SendToBox(Seat seat, unsigned piece) {
    LeaveSquare(seat, piece);
    PutIntoBox(OccupantOf(seat, piece));
}

void Position::PutIntoBox(Occupant occupant) {
    sides_[SeatOfOccupant(occupant)].Move(PieceOfOccupant(occupant), BoxStep);
}

// A piece that stays moves up to the first place.
void Position::LeaveSquare(Seat seat, unsigned piece) {
    const unsigned step = sides_[seat].StepOf(piece);
    if (step >= RingSteps) return;
    const Occupants here = occupants_[SquareAt(seat, step)];
    const bool isFirst = here.first == OccupantOf(seat, piece);
    occupants_[SquareAt(seat, step)] = {isFirst ? here.second : here.first, 0};
}

Occupant Position::Land(Occupants& here, Occupant newcomer, bool isSafe) {
    if (here.second != 0) return LandAsThird(here, newcomer, isSafe);
    const bool isEmpty = here.first == 0;
    const bool captures = !isEmpty & !isSafe & (SeatOfOccupant(here.first) != SeatOfOccupant(newcomer));
    const Occupant victim = captures ? here.first : Occupant{0};
    here = (isEmpty | captures) ? Occupants{newcomer, 0} : Occupants{here.first, newcomer};
    return victim;
}

// Only a piece out of its box comes to a full square. If the square is unsafe, a count began with all
// pieces in the box: the two are rivals, and the first to have come goes. If it is safe, it is the exit.
Occupant Position::LandAsThird(Occupants& here, Occupant newcomer, bool isSafe) {
    if (!isSafe) return std::exchange(here.first, std::exchange(here.second, newcomer));
    const bool isSecondOwn = SeatOfOccupant(here.second) == SeatOfOccupant(newcomer);
    return std::exchange(isSecondOwn ? here.first : here.second, newcomer);
}

}  // namespace zorva::engine
