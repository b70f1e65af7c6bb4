#include "core/Outlook.h"

#include <bit>

#include "core/Board.h"
#include "core/Rules.h"
#include "core/ScoreTerms.h"

namespace zorva {
namespace {

using RingSet = std::uint64_t;

constexpr int ringSteps = 64;
constexpr int goalStep = StepsToGoal;
// Behind the goal: from there no way is open, nothing is attacked and nothing threatens.
constexpr int boxStep = Standing::InBox;
constexpr int quarter = LastRingSquare / ColourCount;  // from one colour's exit to the next one's
constexpr int reach = 12;                              // squares that one throw can count at most

constexpr std::uint64_t Lowest(int count) {
    return (std::uint64_t{1} << count) - 1;
}

// --------------------------------------------------------------------- tables, made by the compiler

template <typename Value>
using BySquare = PerColour<std::array<Value, LastSquare + 1>>;
template <typename Value>
using ByStep = std::array<Value, boxStep + 1>;

constexpr Square SquareOfStep(Colour colour, int step) {
    return step == boxStep ? Square{0}
                           : AdvanceSquare(ExitSquare[colour], static_cast<Short>(step), colour);
}

constexpr PerColour<ByStep<std::uint8_t>> MakeSquares() {
    PerColour<ByStep<std::uint8_t>> squares{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step <= boxStep; ++step) {
            squares[colour][step] = static_cast<std::uint8_t>(SquareOfStep(colour, step));
        }
    }
    return squares;
}

constexpr BySquare<std::int8_t> MakeSteps() {
    BySquare<std::int8_t> steps{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step <= boxStep; ++step) {
            steps[colour][SquareOfStep(colour, step)] = static_cast<std::int8_t>(step);
        }
    }
    return steps;
}

// The bit of a piece in the ring set of its colour; none in the box and in the home column.
constexpr BySquare<RingSet> MakeRingBits() {
    BySquare<RingSet> bits{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step < ringSteps; ++step) {
            bits[colour][SquareOfStep(colour, step)] = RingSet{1} << step;
        }
    }
    return bits;
}

// The same of its home column, from the first square on; the goal has room for all.
constexpr BySquare<std::uint8_t> MakeColumnBits() {
    BySquare<std::uint8_t> bits{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = ringSteps; step < goalStep; ++step) {
            bits[colour][SquareOfStep(colour, step)] =
                static_cast<std::uint8_t>(1U << (step - ringSteps));
        }
    }
    return bits;
}

// What is true of a square of yellow's way is true of the same step of every other: the board looks
// alike from each exit.
template <typename Value, typename Fact>
constexpr ByStep<Value> MakeByStep(Fact fact) {
    ByStep<Value> values{};
    for (int step = 0; step <= boxStep; ++step) values[step] = fact(step, SquareOfStep(1, step));
    return values;
}

constexpr RingSet MakeUnsafe() {
    RingSet unsafe = 0;
    for (int step = 0; step < ringSteps; ++step) {
        if (!IsSafeSquare(SquareOfStep(1, step))) unsafe |= RingSet{1} << step;
    }
    return unsafe;
}

// How far a rival's set, one step on, has to be shifted so that the squares behind a step of ours end
// in the highest bits, distance 1 in bit 63. A step where the rival never comes leaves nothing.
constexpr auto MakeShifts() {
    std::array<ByStep<std::uint8_t>, ColourCount> shifts{};
    for (int turns = 1; turns < ColourCount; ++turns) {
        for (int step = 0; step <= boxStep; ++step) {
            const int theirs = (step - quarter * turns + LastRingSquare) % LastRingSquare;
            const bool meets = step < ringSteps && theirs < ringSteps;
            shifts[turns][step] = static_cast<std::uint8_t>(meets ? ringSteps - 1 - theirs : 63);
        }
    }
    return shifts;
}

constexpr auto MakeBitCounts() {
    std::array<std::uint8_t, std::size_t{1} << reach> counts{};
    for (unsigned set = 0; set < counts.size(); ++set) {
        counts[set] = static_cast<std::uint8_t>(std::popcount(set));
    }
    return counts;
}

// Quotients are looked up: a division takes longer than all else that is asked of a square.
template <int Most>
constexpr auto MakeQuotients(double divisor) {
    std::array<double, Most + 1> quotients{};
    for (int value = 0; value <= Most; ++value) quotients[value] = value / divisor;
    return quotients;
}

constexpr int mostAttack = 6 * (ringSteps - 1);
constexpr int mostRisk = (ColourCount - 1) * PiecesPerColour * (CaptureBonus + StepsToGoal);

constexpr auto squares = MakeSquares();
constexpr auto stepsOf = MakeSteps();
constexpr auto ringBits = MakeRingBits();
constexpr auto columnBits = MakeColumnBits();
constexpr auto unsafeSteps = MakeUnsafe();
constexpr auto shifts = MakeShifts();
constexpr auto bitCounts = MakeBitCounts();
constexpr auto attackValues = MakeQuotients<mostAttack>(terms::attackPerPoint);
constexpr auto riskValues = MakeQuotients<mostRisk>(terms::riskPerPoint);
constexpr auto progressOf =
    MakeByStep<std::uint8_t>([](int step, Square) { return step == boxStep ? 0 : step; });
constexpr auto progressTerms = MakeByStep<double>(
    [](int step, Square) { return (step == boxStep ? 0 : step) / terms::progressPerPoint; });
constexpr auto nearHomeTerms = MakeByStep<double>(
    [](int, Square from) { return terms::IsNearHome(1, from) ? terms::nearHome : 0; });
constexpr auto leavingShelterTerms = MakeByStep<double>(
    [](int, Square from) { return terms::IsShelter(1, from) ? terms::leavingShelter : 0; });
// The square left counts by its number, so the colours differ; it matters where the move ends in the
// home column alone, and nobody leaves the box for that.
constexpr PerColour<ByStep<std::uint8_t>> MakeComesEarly() {
    PerColour<ByStep<std::uint8_t>> early{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step <= boxStep; ++step) {
            const Square from = SquareOfStep(colour, step);
            early[colour][step] = terms::ReachesShelter(colour, from, FirstColumnSquare[colour]);
        }
    }
    return early;
}

constexpr auto comesEarly = MakeComesEarly();
// [whether the square left comes early][the square reached]
constexpr std::array<ByStep<double>, 2> reachingShelterTerms{
    MakeByStep<double>([](int, Square to) {
        return terms::ReachesShelter(1, LastRingSquare, to) ? terms::reachingShelter : 0;
    }),
    MakeByStep<double>([](int, Square to) {
        return terms::ReachesShelter(1, ExitSquare[1], to) ? terms::reachingShelter : 0;
    })};

// ------------------------------------------------------------------------------------------ sets

// A rival's set in one's own steps; what stands beyond one's home entry falls out.
RingSet Turned(RingSet set, int turns) {
    return set << (quarter * turns) | set >> (LastRingSquare - quarter * turns);
}

// The distances that one throw can count, with a piece in the box and without: bit 64 - d for distance
// d.
std::array<RingSet, 2> ThrowsWithSix(Short sixValue) {
    constexpr RingSet oneToFive = Lowest(5) << (ringSteps - 5);
    return {oneToFive | RingSet{1} << (ringSteps - sixValue), oneToFive | RingSet{1} << (ringSteps - 6)};
}

int CountWithin(RingSet set, int shift, RingSet throws) {
    return bitCounts[(set << shift & throws) >> (ringSteps - reach)];
}

}  // namespace

void Standings::Read(Standing& standing, Colour colour, const PerPiece<Square>& positions) {
    std::uint64_t pieces = 0, pairs = 0;
    unsigned column = 0, columnPairs = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const Square square = positions[piece];
        standing.steps[piece] = stepsOf[colour][square];
        pairs |= pieces & ringBits[colour][square];
        pieces |= ringBits[colour][square];
        columnPairs |= column & columnBits[colour][square];
        column |= columnBits[colour][square];
    }
    standing.pieces = pieces;
    standing.pairs = pairs;
    standing.columnPairs = static_cast<std::uint8_t>(columnPairs);
}

// The rivals are taken in, and what stands on the ring together with them.
struct Outlook::Ring {
    RingSet pairs, mixed, theirs;
};

template <int Turns>
void Outlook::AddRival(GameState& state, const std::array<RingSet, 2>& throws, Ring& ring) {
    const Colour rival =
        static_cast<Colour>((static_cast<unsigned>(colour_) - 1 + Turns) % ColourCount + 1);
    const Standing& standing = state.Seen.Of(rival, state.PiecePosition[rival]);
    rivals_[Turns] = {standing.pieces << 1, standing.pairs << 1, throws[state.PiecesInBox[rival] > 0]};
    const RingSet here = Turned(standing.pieces, Turns);
    ring.mixed |= (own_.pieces | ring.theirs) & here;
    ring.theirs |= here;
    ring.pairs |= Turned(standing.pairs, Turns);
}

Outlook::Outlook(GameState& state)
    : state_(state),
      colour_(state.CurrentColour),
      own_(state.Seen.Of(colour_, state.PiecePosition[colour_])) {
    const std::array<RingSet, 2> throws = ThrowsWithSix(state.SixValue);
    Ring ring{own_.pairs, 0, 0};
    AddRival<1>(state, throws, ring);
    AddRival<2>(state, throws, ring);
    AddRival<3>(state, throws, ring);
    full_ = ring.pairs | ring.mixed;
    barriers_ = WaySet(ring.pairs, own_.columnPairs);
    // Out of the box one count alone is open, unless two own pieces stand on the exit.
    const std::uint64_t exitOpen = ~own_.pairs & 1;
    closed_ =
        WaySet(full_, own_.columnPairs | ~Lowest(boxStep - ringSteps), ~(exitOpen << (ExitCount - 1)));
    preys_ = WaySet(ring.theirs & unsafeSteps & ~full_, 0);
}

inline std::uint64_t Outlook::Beyond(const WaySet& set, int step) {
    static constexpr auto windows = MakeByStep<Window>([](int at, Square) {
        if (at == boxStep) return Window{2, 0};
        return at < 31 ? Window{0, static_cast<std::uint8_t>(at + 1)}
                       : Window{1, static_cast<std::uint8_t>(at - 31)};
    });
    return set.words[windows[step].word] >> windows[step].shift;
}

bool Outlook::IsMoveLegal(int count, Short piece) const {
    const int step = own_.steps[piece];
    const std::uint64_t passed = Beyond(barriers_, step) & Lowest(count - 1);
    const std::uint64_t reached = Beyond(closed_, step) >> (count - 1) & 1;
    return (passed | reached) == 0;
}

bool Outlook::CanAnyWalk(int count, Short exceptPiece) const {
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        if (piece != exceptPiece && IsMoveLegal(count, piece)) return true;
    }
    return false;
}

int Outlook::ProgressOfPreyAt(int step) const {
    const Square square = squares[colour_][step];
    return stepsOf[ColourOf(state_.SquareOccupants[square][1])][square];
}

// A barrier ends all longer walks. Past the home entry there are no rivals.
int Outlook::AttackFrom(int step) const {
    const std::uint64_t barriers = Beyond(barriers_, step);
    const std::uint64_t reached = Lowest(6) & ((barriers & (0 - barriers)) - 1);
    int attack = 0;
    for (std::uint64_t victims = Beyond(preys_, step) & reached; victims != 0; victims &= victims - 1) {
        attack += ProgressOfPreyAt(step + 1 + std::countr_zero(victims));
    }
    return attack;
}

// The squares behind a step as each rival counts them. Whoever turns into its home column before is not
// among them: in its own steps the squares do not meet.
int Outlook::ThreatsTo(int step) const {
    int threats = 0;
    for (int turns = 1; turns < ColourCount; ++turns) {
        const Rival& rival = rivals_[turns];
        const int shift = shifts[turns][step];
        threats += CountWithin(rival.pieces, shift, rival.throws);
        threats += CountWithin(rival.pairs, shift, rival.throws);
    }
    return threats;
}

double Outlook::ValueAt(int step, RingSet shelters, int perThreat) const {
    const int exposed = static_cast<int>((~shelters & unsafeSteps) >> (step % ringSteps) & 1);
    const int threats = exposed * ThreatsTo(step);
    return attackValues[AttackFrom(step)] - riskValues[threats * perThreat];
}

double Outlook::SquareValue(Short piece, Square square) const {
    const int step = stepsOf[colour_][square];
    const RingSet shelters = step == own_.steps[piece] ? full_ : full_ | own_.pieces;
    return ValueAt(step, shelters, CaptureBonus + progressOf[own_.steps[piece]]);
}

bool Outlook::HoldsPrey(int step) const {
    return step < ringSteps && (preys_.words[0] >> step & 1) != 0;
}

double Outlook::CaptureTerm(int to) const {
    const int factor = CanAnyWalk(CaptureBonus, 0) ? terms::withBonus : terms::withoutBonus;
    return ProgressOfPreyAt(to) / terms::capturePerPoint * factor;
}

void Outlook::AddExitTerms(double& score) const {
    score += terms::exit;
    if (state_.PiecesInBox[colour_] == 1) score += terms::exitOfTheLast;
    if ((full_ & 1) != 0) score += terms::exitWithCapture;
}

double Outlook::ScoreOfMove(Short level, Short piece) const {
    const int from = own_.steps[piece];
    const int to = from == boxStep ? 0 : from + state_.MoveCount;
    const int perThreat = CaptureBonus + progressOf[from];
    const double gain = ValueAt(to, full_ | own_.pieces, perThreat) - ValueAt(from, full_, perThreat);
    double score = gain * 10 * level / 100;
    score += progressTerms[from];
    if (level >= terms::captureLevel && HoldsPrey(to)) score += CaptureTerm(to);
    if (level >= terms::arrivalLevel && to == goalStep && CanAnyWalk(ArrivalBonus, piece)) {
        score += terms::arrival;
    }
    if (level >= terms::nearHomeLevel) score += nearHomeTerms[from];
    if (level >= terms::leavingShelterLevel) score += leavingShelterTerms[from];
    if (level >= terms::reachingShelterLevel) {
        score += reachingShelterTerms[comesEarly[colour_][from]][to];
    }
    if (level >= terms::exitLevel && from == boxStep) AddExitTerms(score);
    return score;
}

}  // namespace zorva
