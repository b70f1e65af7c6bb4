#include "engine/Side.h"

#include <algorithm>

namespace zorva::engine {

// The ring steps that one piece threatens, as a row of 0 and 1. From(step) is that row for a piece on
// `step`: entry n is 1 if one throw can take the piece from there to step n. All these rows are windows
// of one long row, which has a 1 at each distance that one throw can count. For a piece off the ring the
// window has only zeros.
class ThrowPattern {
public:
    constexpr explicit ThrowPattern(unsigned six) {
        for (const unsigned distance : {1U, 2U, 3U, 4U, 5U, six}) row_[StepCount + distance] = 1;
    }

    constexpr const std::uint8_t* From(unsigned step) const { return &row_[StepCount - step]; }

private:
    std::array<std::uint8_t, StepCount + RingSteps> row_{};
};

namespace {

constexpr ThrowPattern withSix(6), withSeven(7), withTwelve(12);

struct StepBits {
    RingSet ring = 0;
    ColumnSet column = 0;
};

// The bit of a step in the set that holds it. The box and the goal have none, because any number of the
// seat's pieces may stand there.
constexpr auto stepBits = MakeByStep<StepBits>([](unsigned step, Square) {
    if (step < RingSteps) return StepBits{RingSet{1} << step, 0};
    if (step < GoalStep) return StepBits{0, ColumnSet{1} << (step - RingSteps)};
    return StepBits{};
});

}  // namespace

void StepSet::Move(std::uint64_t left, std::uint64_t reached) {
    const std::uint64_t pieces = pieces_ & (~left | pairs_);
    const std::uint64_t pairs = pairs_ & ~left;
    pairs_ = pairs | (pieces & reached);
    pieces_ = pieces | reached;
}

Side::Side(unsigned sixValue)
    : throws_(&withSix), throwsWithNoneInBox_(sixValue == 7 ? &withSeven : &withTwelve) {}

int Side::Walked() const {
    int walked = 0;
    for (const unsigned step : steps_) walked += step == BoxStep ? 0 : static_cast<int>(step);
    return walked;
}

// Adds and subtracts complete rows instead of the few entries that differ: the compiler then handles
// sixteen bytes at a time.
void Side::ChangeThreats(unsigned left, unsigned reached) {
    const std::uint8_t* const gone = throws_->From(left);
    const std::uint8_t* const come = throws_->From(reached);
    for (unsigned step = 0; step < RingSteps; ++step) {
        threats_[step] = static_cast<std::uint8_t>(threats_[step] + come[step] - gone[step]);
    }
}

void Side::Move(unsigned piece, unsigned to) {
    const unsigned from = steps_[piece];
    steps_[piece] = static_cast<std::uint8_t>(to);
    ring_.Move(stepBits[from].ring, stepBits[to].ring);
    column_.Move(stepBits[from].column, stepBits[to].column);
    home_ = static_cast<std::uint8_t>(home_ + (to == GoalStep));
    ChangeThreats(from, to);
    if (from == BoxStep || to == BoxStep) CountBox();
}

// When the last piece leaves the box, or the first one returns, a six counts another number of squares.
void Side::CountBox() {
    inBox_ = static_cast<std::uint8_t>(std::count(steps_.begin(), steps_.end(), BoxStep));
    const ThrowPattern* const throws = inBox_ == 0 ? throwsWithNoneInBox_ : &withSix;
    if (throws == throws_) return;
    throws_ = throws;
    threats_.fill(0);
    for (const unsigned step : steps_) ChangeThreats(BoxStep, step);
}

}  // namespace zorva::engine
