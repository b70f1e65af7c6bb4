#include "engine/Position.h"

#include <algorithm>
#include <bit>
#include <cstring>
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

// A one for each of the distances 1 to 5, in the first five of eight bytes.
constexpr std::array<std::uint8_t, 8> nearThrows{1, 1, 1, 1, 1};

}  // namespace

Side::Side(unsigned sixValue) : sixValue_(static_cast<std::uint8_t>(sixValue)) {
    for (const unsigned step : steps_) ChangeThreats(step, true);
}

int Side::Walked() const {
    int walked = 0;
    for (const unsigned step : steps_) walked += step == BoxStep ? 0 : static_cast<int>(step);
    return walked;
}

// The distances 1 to 5 are changed in one addition: eight neighbouring counts read as one number. None
// of them ever carries into the next.
void Side::ChangeThreats(unsigned step, bool comes) {
    std::uint8_t* const near = &threats_[step + 1];
    const auto ones = std::bit_cast<std::uint64_t>(nearThrows);
    std::uint64_t counts = 0;
    std::memcpy(&counts, near, sizeof counts);
    counts += comes ? ones : 0 - ones;
    std::memcpy(near, &counts, sizeof counts);
    std::uint8_t& far = threats_[step + six_];
    far = static_cast<std::uint8_t>(comes ? far + 1 : far - 1);
}

void Side::SetSix(std::uint8_t six) {
    for (const unsigned step : steps_) {
        --threats_[step + six_];
        ++threats_[step + six];
    }
    six_ = six;
}

void Side::Move(unsigned piece, unsigned to) {
    const unsigned from = steps_[piece];
    const StepBits& left = stepBits[from];
    const StepBits& reached = stepBits[to];
    ChangeThreats(from, false);
    Remove(pieces_, pairs_, left.ring);
    Remove(column_, columnPairs_, left.column);
    steps_[piece] = static_cast<std::uint8_t>(to);
    ChangeThreats(to, true);
    Add(pieces_, pairs_, reached.ring);
    Add(column_, columnPairs_, reached.column);
    home_ = static_cast<std::uint8_t>(home_ + (to == GoalStep));
    if (from == BoxStep || to == BoxStep) CountBox();
}

void Side::CountBox() {
    inBox_ = static_cast<std::uint8_t>(std::count(steps_.begin(), steps_.end(), BoxStep));
    SetSix(inBox_ == 0 ? sixValue_ : std::uint8_t{6});
}

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
