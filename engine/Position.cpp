#include "engine/Position.h"

#include <utility>

namespace zorva::engine {
namespace {

struct StepBits {
    RingSet ring = 0;
    ColumnSet column = 0;
};

// The bit of a step in the set that holds it. The box and the goal have none: they are always open to
// the seat and any number of its pieces stands there.
constexpr auto stepBits = MakeByStep<StepBits>([](unsigned step, Square) {
    if (step < RingSteps) return StepBits{RingSet{1} << step, 0};
    if (step < GoalStep) return StepBits{0, ColumnSet{1} << (step - RingSteps)};
    return StepBits{};
});

// A set and the set of its pairs, when a piece comes and when one goes. Without branches, because
// whether a piece stands alone cannot be predicted.
void Add(std::uint64_t& pieces, std::uint64_t& pairs, std::uint64_t bit) {
    pairs |= pieces & bit;
    pieces |= bit;
}

void Remove(std::uint64_t& pieces, std::uint64_t& pairs, std::uint64_t bit) {
    pieces &= ~bit | pairs;
    pairs &= ~bit;
}

}  // namespace

void Side::PutDown(unsigned piece, unsigned step) {
    const StepBits& bits = stepBits[step];
    steps[piece] = static_cast<std::uint8_t>(step);
    inBox = static_cast<std::uint8_t>(inBox + (step == BoxStep));
    home = static_cast<std::uint8_t>(home + (step == GoalStep));
    Add(pieces, pairs, bits.ring);
    Add(column, columnPairs, bits.column);
}

void Side::Lift(unsigned piece) {
    const StepBits& bits = stepBits[steps[piece]];
    inBox = static_cast<std::uint8_t>(inBox - (steps[piece] == BoxStep));
    Remove(pieces, pairs, bits.ring);
    Remove(column, columnPairs, bits.column);
}

int Side::Walked() const {
    int walked = 0;
    for (const unsigned step : steps) walked += step == BoxStep ? 0 : static_cast<int>(step);
    return walked;
}

Position::Position(const GameState& state) {
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
            const Square square = state.PiecePosition[ColourAt(seat)][piece + 1];
            sides_[seat].Lift(piece);
            sides_[seat].PutDown(piece, StepOf(seat, square));
        }
    }
    for (Square square = 1; square <= LastRingSquare; ++square) {
        const auto& slots = state.SquareOccupants[square];
        occupants_[square] = {OccupantOf(slots[1]), OccupantOf(slots[2])};
    }
}

Occupant Position::Move(Seat seat, unsigned piece, unsigned to) {
    LeaveSquare(seat, piece);
    sides_[seat].Lift(piece);
    sides_[seat].PutDown(piece, to);
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
    Side& side = sides_[SeatOfOccupant(occupant)];
    side.Lift(PieceOfOccupant(occupant));
    side.PutDown(PieceOfOccupant(occupant), BoxStep);
}

// A piece that stays moves up to the first place.
void Position::LeaveSquare(Seat seat, unsigned piece) {
    const unsigned step = sides_[seat].steps[piece];
    if (step >= RingSteps) return;
    Occupants& here = occupants_[SquareAt(seat, step)];
    if (here.first == OccupantOf(seat, piece)) here.first = here.second;
    here.second = 0;
}

Occupant Position::Land(Occupants& here, Occupant newcomer, bool isSafe) {
    if (here.second != 0) return LandAsThird(here, newcomer, isSafe);
    if (here.first == 0) {
        here.first = newcomer;
        return 0;
    }
    if (isSafe || SeatOfOccupant(here.first) == SeatOfOccupant(newcomer)) {
        here.second = newcomer;
        return 0;
    }
    return std::exchange(here.first, newcomer);
}

// Only a piece out of its box comes to a full square. If the square is unsafe, a count began with all
// pieces in the box: the two are rivals, and the first to have come goes. If it is safe, it is the exit.
Occupant Position::LandAsThird(Occupants& here, Occupant newcomer, bool isSafe) {
    if (!isSafe) return std::exchange(here.first, std::exchange(here.second, newcomer));
    const bool isSecondOwn = SeatOfOccupant(here.second) == SeatOfOccupant(newcomer);
    return std::exchange(isSecondOwn ? here.first : here.second, newcomer);
}

}  // namespace zorva::engine
