#include "core/Appraisal.h"

#include <bit>

#include "core/Rules.h"
#include "core/ScoreTerms.h"
#include "core/WayTables.h"

namespace zorva {
namespace {

using way::RingSet;

constexpr double worstScore = -999;

// --------------------------------------------------------------------- tables, made by the compiler

// How far a rival's set, one step on, has to be shifted so that the squares behind a step of ours end
// in the highest bits, distance 1 in bit 63. A step where the rival never comes leaves nothing.
constexpr auto MakeShifts() {
    std::array<way::ByStep<std::uint8_t>, ColourCount> shifts{};
    for (int turns = 1; turns < ColourCount; ++turns) {
        for (int step = 0; step < Standing::StepCount; ++step) {
            const int theirs = (step - way::quarter * turns + LastRingSquare) % LastRingSquare;
            const bool meets = step < way::ringSteps && theirs < way::ringSteps;
            shifts[turns][step] = static_cast<std::uint8_t>(meets ? way::ringSteps - 1 - theirs : 63);
        }
    }
    return shifts;
}

constexpr auto MakeBitCounts() {
    std::array<std::uint8_t, std::size_t{1} << way::reach> counts{};
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

constexpr int mostAttack = 6 * (way::ringSteps - 1);
constexpr int mostRisk = (ColourCount - 1) * PiecesPerColour * (CaptureBonus + StepsToGoal);

constexpr auto shifts = MakeShifts();
constexpr auto bitCounts = MakeBitCounts();
constexpr auto attackValues = MakeQuotients<mostAttack>(terms::attackPerPoint);
constexpr auto riskValues = MakeQuotients<mostRisk>(terms::riskPerPoint);
// What is asked of the square that a move leaves.
struct Leaving {
    double progress;
    double nearHome;
    double shelter;
    int perThreat;  // what each rival that threatens the piece would win
};

constexpr auto leavings = way::MakeByStep<Leaving>([](int step, Square from) {
    const int progress = step > way::goalStep ? 0 : step;
    return Leaving{progress / terms::progressPerPoint, terms::IsNearHome(1, from) ? terms::nearHome : 0,
                   terms::IsShelter(1, from) ? terms::leavingShelter : 0, CaptureBonus + progress};
});

// The square left counts by its number, so the colours differ; it matters where the move ends in the
// home column alone, and nobody leaves the box for that.
constexpr PerColour<way::ByStep<std::uint8_t>> MakeComesEarly() {
    PerColour<way::ByStep<std::uint8_t>> early{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step < Standing::StepCount; ++step) {
            const Square from = way::SquareOfStep(colour, step);
            early[colour][step] = terms::ReachesShelter(colour, from, FirstColumnSquare[colour]);
        }
    }
    return early;
}

constexpr auto comesEarly = MakeComesEarly();
// [whether the square left comes early][the square reached]
constexpr std::array<way::ByStep<double>, 2> reachingShelterTerms{
    way::MakeByStep<double>([](int, Square to) {
        return terms::ReachesShelter(1, LastRingSquare, to) ? terms::reachingShelter : 0;
    }),
    way::MakeByStep<double>([](int, Square to) {
        return terms::ReachesShelter(1, ExitSquare[1], to) ? terms::reachingShelter : 0;
    })};

// ------------------------------------------------------------------------------------------ sets

// The distances that one throw can count: bit 64 - d for distance d.
RingSet ThrowsWithSix(int six) {
    constexpr RingSet oneToFive = way::Lowest(5) << (way::ringSteps - 5);
    return oneToFive | RingSet{1} << (way::ringSteps - six);
}

// Turned round so that each step comes to lie so many places lower. Beyond the ring a place speaks of
// some other step: nothing is attacked from there and nothing threatens.
RingSet Lowered(RingSet set, unsigned places) {
    return std::rotr(set, static_cast<int>(places % way::ringSteps));
}

int CountWithin(RingSet set, int shift, RingSet throws) {
    return bitCounts[(set << shift & throws) >> (way::ringSteps - way::reach)];
}

}  // namespace

template <int Turns>
void Appraisal::AddRival(RingSet& reached) {
    const GameState& state = outlook_.state_;
    const Standing& standing = *outlook_.rivals_[Turns];
    const bool hasNoneInBox = state.PiecesInBox[way::ColourAfter(outlook_.colour_, Turns)] == 0;
    const int six = 6 + (state.SixValue - 6) * hasNoneInBox;  // without a branch: either is as likely
    rivals_[Turns] = {standing.pieces << 1, standing.pairs << 1, ThrowsWithSix(six)};
    reached |= way::Turned<Turns>(standing.reach | standing.pieces << six);
}

Appraisal::Appraisal(const Outlook& outlook, Short level) : outlook_(outlook), level_(level) {
    RingSet reached = 0;
    AddRival<1>(reached);
    AddRival<2>(reached);
    AddRival<3>(reached);
    const RingSet preys = outlook.theirs_ & way::unsafeSteps & ~outlook.full_;
    preys_ = {preys, preys >> 32, 0};
    const RingSet oneOrTwo = preys >> 1 | preys >> 2;
    hunting_ = oneOrTwo | oneOrTwo >> 2 | oneOrTwo >> 4;
    threatened_ = reached & way::unsafeSteps & ~outlook.full_;
}

bool Appraisal::CanAnyWalk(int count, Short exceptPiece) const {
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        if (piece != exceptPiece && outlook_.IsMoveLegal(count, piece)) return true;
    }
    return false;
}

int Appraisal::ProgressOfPreyAt(int step) const {
    const Square square = way::squares[outlook_.colour_][step];
    return way::stepsOf[ColourOf(outlook_.state_.SquareOccupants[square][1])][square];
}

// A barrier ends all longer walks. Past the home entry there are no rivals.
int Appraisal::AttackFrom(int step) const {
    const std::uint64_t barriers = Outlook::Beyond(outlook_.barriers_, step);
    const std::uint64_t reached = way::Lowest(6) & ((barriers & (0 - barriers)) - 1);
    int attack = 0;
    for (std::uint64_t victims = Outlook::Beyond(preys_, step) & reached; victims != 0;
         victims &= victims - 1) {
        attack += ProgressOfPreyAt(step + 1 + std::countr_zero(victims));
    }
    return attack;
}

// The squares behind a step as each rival counts them. Whoever turns into its home column before is not
// among them: in its own steps the squares do not meet.
int Appraisal::ThreatsTo(int step) const {
    int threats = 0;
    for (int turns = 1; turns < ColourCount; ++turns) {
        const Rival& rival = rivals_[turns];
        const int shift = shifts[turns][step];
        threats += CountWithin(rival.pieces, shift, rival.throws);
        threats += CountWithin(rival.pairs, shift, rival.throws);
    }
    return threats;
}

// Most squares are worth nothing, and which are not cannot be foreseen: those are gathered first, so
// that no branch asks for each. Bit n stands for an end, as in Ends.
Appraisal::Ends Appraisal::EndsOf(unsigned movable) const {
    constexpr unsigned target = Ends::target;
    Ends ends;
    const auto count = static_cast<unsigned>(outlook_.state_.MoveCount);
    // Where a move comes to, told by the step where it begins.
    const RingSet threatenedTargets = Lowered(threatened_ & ~outlook_.own_.pieces, count - target);
    const RingSet huntingTargets = Lowered(hunting_, count - target);
    RingSet threatened = 0, hunting = 0;
    for (unsigned piece = 1; piece <= PiecesPerColour; ++piece) {
        const unsigned from = outlook_.own_.steps[piece];
        const unsigned to = (from + count) % Standing::StepCount;
        ends.steps[piece] = static_cast<std::uint8_t>(from);
        ends.steps[target + piece] = static_cast<std::uint8_t>(to);
        const RingSet here = RingSet{1} << piece, there = here << target;
        threatened |= Lowered(threatened_, from - piece) & here;
        threatened |= Lowered(threatenedTargets, from - piece) & there;
        hunting |= Lowered(hunting_, from - piece) & here;
        hunting |= Lowered(huntingTargets, from - piece) & there;
        ends.values[piece] = ends.values[target + piece] = 0;
    }
    const unsigned asked = movable | movable << target;
    for (hunting &= asked; hunting != 0; hunting &= hunting - 1) {
        const int end = std::countr_zero(hunting);
        ends.values[end] = attackValues[AttackFrom(ends.steps[end])];
    }
    for (threatened &= asked; threatened != 0; threatened &= threatened - 1) {
        const int end = std::countr_zero(threatened);
        const int perThreat = leavings[ends.steps[end % target]].perThreat;
        const int risk = ThreatsTo(ends.steps[end]) * perThreat;
        ends.values[end] -= riskValues[risk];
    }
    return ends;
}

bool Appraisal::HoldsPrey(int step) const {
    return step < way::ringSteps && (preys_[0] >> step & 1) != 0;
}

double Appraisal::CaptureTerm(int to) const {
    const int factor = CanAnyWalk(CaptureBonus, 0) ? terms::withBonus : terms::withoutBonus;
    return ProgressOfPreyAt(to) / terms::capturePerPoint * factor;
}

void Appraisal::AddExitTerms(double& score) const {
    score += terms::exit;
    if (outlook_.state_.PiecesInBox[outlook_.colour_] == 1) score += terms::exitOfTheLast;
    if ((outlook_.full_ & 1) != 0) score += terms::exitWithCapture;
}

double Appraisal::ScoreOfMove(const Ends& ends, Short piece) const {
    const int from = ends.steps[piece], to = ends.steps[Ends::target + piece];
    const double gain = ends.values[Ends::target + piece] - ends.values[piece];
    const Leaving& leaving = leavings[from];
    double score = gain * 10 * level_ / 100;
    score += leaving.progress;
    if (level_ >= terms::captureLevel && HoldsPrey(to)) score += CaptureTerm(to);
    if (level_ >= terms::arrivalLevel && to == way::goalStep && CanAnyWalk(ArrivalBonus, piece)) {
        score += terms::arrival;
    }
    if (level_ >= terms::nearHomeLevel) score += leaving.nearHome;
    if (level_ >= terms::leavingShelterLevel) score += leaving.shelter;
    if (level_ >= terms::reachingShelterLevel) {
        score += reachingShelterTerms[comesEarly[outlook_.colour_][from]][to];
    }
    if (level_ >= terms::exitLevel && from == way::boxStep) AddExitTerms(score);
    return score;
}

Short Appraisal::BestOf(unsigned movable) const {
    const Ends ends = EndsOf(movable);
    Short bestPiece = 0;
    double best = worstScore;
    for (; movable != 0; movable &= movable - 1) {
        const Short piece = static_cast<Short>(std::countr_zero(movable));
        const double score = ScoreOfMove(ends, piece);
        const bool isBetter = score > best;
        best = isBetter ? score : best;
        bestPiece = isBetter ? piece : bestPiece;
    }
    return bestPiece;
}

}  // namespace zorva
