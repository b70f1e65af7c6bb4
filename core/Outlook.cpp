#include "core/Outlook.h"

#include "core/Rules.h"
#include "core/WayTables.h"

namespace zorva {
namespace {

using way::Lowest;
using way::RingSet;

// Where a set of the whole way holds the steps beyond one.
struct Window {
    std::uint8_t word;
    std::uint8_t shift;
};

constexpr auto windows = way::MakeByStep<Window>([](int step, Square) {
    if (step > way::goalStep) return Window{2, 0};
    return step < 31 ? Window{0, static_cast<std::uint8_t>(step + 1)}
                     : Window{1, static_cast<std::uint8_t>(step - 31)};
});

std::array<std::uint64_t, 3> WayOf(RingSet ring, std::uint64_t rest, std::uint64_t fromBox) {
    return {ring, ring >> 32 | rest << 32, fromBox};
}

// What stands on the ring, rival by rival taken in.
struct Ring {
    RingSet pairs;      // of one colour
    RingSet mixed = 0;  // two colours
    RingSet theirs = 0;

    template <int Turns>
    void Add(const Standing& rival, RingSet own) {
        const RingSet here = way::Turned<Turns>(rival.pieces);
        mixed |= (own | theirs) & here;
        theirs |= here;
        pairs |= way::Turned<Turns>(rival.pairs);
    }
};

}  // namespace

Outlook::Outlook(GameState& state)
    : state_(state),
      colour_(state.CurrentColour),
      own_(state.Seen.Of(colour_, state.PiecePosition[colour_])) {
    for (int turns = 1; turns < ColourCount; ++turns) {
        const Colour rival = way::ColourAfter(colour_, turns);
        rivals_[turns] = &state.Seen.Of(rival, state.PiecePosition[rival]);
    }
    Ring ring{own_.pairs};
    ring.Add<1>(*rivals_[1], own_.pieces);
    ring.Add<2>(*rivals_[2], own_.pieces);
    ring.Add<3>(*rivals_[3], own_.pieces);
    theirs_ = ring.theirs;
    full_ = ring.pairs | ring.mixed;
    barriers_ = WayOf(ring.pairs, own_.columnPairs, 0);
    // Out of the box one count alone is open, unless two own pieces stand on the exit.
    const std::uint64_t exitOpen = ~own_.pairs & 1;
    closed_ = WayOf(full_, own_.columnPairs | ~Lowest(way::goalStep + 1 - way::ringSteps),
                    ~(exitOpen << (ExitCount - 1)));
}

std::uint64_t Outlook::Beyond(const WaySet& set, int step) {
    return set[windows[step].word] >> windows[step].shift;
}

bool Outlook::IsMoveLegal(int count, Short piece) const {
    const int step = own_.steps[piece];
    const std::uint64_t target = std::uint64_t{1} << (count - 1);
    const std::uint64_t passed = Beyond(barriers_, step) & (target - 1);
    const std::uint64_t reached = Beyond(closed_, step) & target;
    return (passed | reached) == 0;
}

unsigned Outlook::MovablePieces(int count) const {
    unsigned movable = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        movable |= static_cast<unsigned>(IsMoveLegal(count, piece)) << piece;
    }
    return movable;
}

Square Outlook::DestinationOf(int count, Short piece) const {
    return way::squares[colour_][(own_.steps[piece] + count) % Standing::StepCount];
}

}  // namespace zorva
