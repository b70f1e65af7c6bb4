#include "engine/Position.h"

namespace zorva::engine {
namespace {

// The steps on which nobody is captured. The home column is among them, although IsSafeSquare says no
// there: no rival ever enters it.
constexpr auto isSafe = MakeByStep<bool>(
    [](unsigned step, Square square) { return step >= RingSteps || IsSafeSquare(square); });

}  // namespace

Position::Position(unsigned sixValue)
    : sides_{Side(sixValue), Side(sixValue), Side(sixValue), Side(sixValue)} {}

Position::Position(const GameState& state) : Position(static_cast<unsigned>(state.SixValue)) {
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
            const Square square = state.PiecePosition[ColourAt(seat)][piece + 1];
            if (square != 0) sides_[seat].Move(piece, StepOf(seat, square));
        }
    }
    for (Square square = 1; square <= LastSquare; ++square) {
        if (IsGoal(square)) continue;
        const auto& slots = state.SquareOccupants[square];
        occupants_[square] = Pair(OccupantOf(slots[1]), OccupantOf(slots[2]));
    }
}

Occupant Position::Move(Seat seat, unsigned piece, unsigned to) {
    LeaveSquare(seat, piece);
    sides_[seat].Move(piece, to);
    if (to == GoalStep) return 0;
    const Occupant victim = Land(occupants_[SquareAt(seat, to)], OccupantOf(seat, piece), isSafe[to]);
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

// A piece that stays moves up to the first place. For the box and the goal nothing changes: their entry
// in the table is always empty.
void Position::LeaveSquare(Seat seat, unsigned piece) {
    Occupants& here = occupants_[SquareAt(seat, sides_[seat].StepOf(piece))];
    const bool isFirst = First(here) == OccupantOf(seat, piece);
    here = isFirst ? Second(here) : First(here);
}

Occupant Position::Land(Occupants& here, Occupant newcomer, bool onSafe) {
    if (Second(here) != 0) return LandAsThird(here, newcomer, onSafe);
    const Occupant first = First(here);
    const bool isEmpty = first == 0;
    const bool captures = !isEmpty & !onSafe & (SeatOfOccupant(first) != SeatOfOccupant(newcomer));
    const Occupants beside = Pair(first, newcomer);
    here = (isEmpty | captures) ? newcomer : beside;
    return captures ? first : Occupant{0};
}

// Only a piece that comes out of its box can land on a full square. If the square is unsafe, the piece
// walked on from its exit (countsFromFirstThrow): both pieces there are rivals, and the one that came
// first is captured. If it is safe, it is the exit.
Occupant Position::LandAsThird(Occupants& here, Occupant newcomer, bool onSafe) {
    const Occupant first = First(here), second = Second(here);
    if (!onSafe) {
        here = Pair(second, newcomer);
        return first;
    }
    const bool isSecondOwn = SeatOfOccupant(second) == SeatOfOccupant(newcomer);
    here = isSecondOwn ? Pair(newcomer, second) : Pair(first, newcomer);
    return isSecondOwn ? first : second;
}

}  // namespace zorva::engine
