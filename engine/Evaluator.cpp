#include "engine/Evaluator.h"

#include <bit>

#include "core/Rules.h"
#include "engine/ScoreTables.h"

namespace zorva::engine {
namespace {

constexpr double worstScore = -999;
constexpr unsigned nobody = PiecesPerColour;

// The distances of Rival::throws.
RingSet ThrowsWithSix(unsigned six) {
    constexpr RingSet oneToFive = Lowest(5) << (RingSteps - 5);
    return oneToFive | RingSet{1} << (RingSteps - six);
}

// Calls `look` with the number of each bit of a small set.
template <typename Look>
void ForEachBit(unsigned set, Look look) {
    for (; set != 0; set &= set - 1) look(static_cast<unsigned>(std::countr_zero(set)));
}

}  // namespace

// Takes in the pieces of one rival; returns the steps that one throw of theirs can reach.
template <unsigned Turns>
RingSet Evaluator::AddRival(unsigned sixValue) {
    const Side& side = view_.position_.SideOf(SeatAfter(view_.seat_, Turns));
    const unsigned six = side.inBox == 0 ? sixValue : 6;
    rivals_[Turns] = {side.pieces << 1, side.pairs << 1, ThrowsWithSix(six)};
    const RingSet oneOrTwo = side.pieces << 1 | side.pieces << 2;
    const RingSet oneToFive = oneOrTwo | oneOrTwo << 2 | side.pieces << 5;
    return Rotated<Turns>(oneToFive | side.pieces << six);
}

Evaluator::Evaluator(const SeatView& view, const GameRules& rules, unsigned count, unsigned movable)
    : view_(view), level_(rules.level[view.seat_]), movable_(movable) {
    const RingSet open = UnsafeSteps & ~view.full_;
    const RingSet threatened =
        open & (AddRival<1>(rules.sixValue) | AddRival<2>(rules.sixValue) | AddRival<3>(rules.sixValue));
    capturable_ = view.rivals_ & open;
    const RingSet oneOrTwo = capturable_ >> 1 | capturable_ >> 2;
    const RingSet attacking = oneOrTwo | oneOrTwo >> 2 | oneOrTwo >> 4;
    FindEnds(count);
    AddAttacks(EndsIn(attacking, attacking));
    // Where a piece comes to stand beside its own, both are safe.
    SubtractRisks(EndsIn(threatened, threatened & ~view.own_.pieces));
}

void Evaluator::FindEnds(unsigned count) {
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        const unsigned from = view_.own_.steps[piece];
        steps_[piece] = static_cast<std::uint8_t>(from);
        steps_[reached + piece] = static_cast<std::uint8_t>(StepAfter(from, count));
        values_[piece] = values_[reached + piece] = 0;
    }
}

// Which ends of movable pieces lie in a set: bit n stands for end n. Six in ten ends lie in neither set
// and have the value 0, but a branch for each end is predicted wrong so often that it costs more than
// all the rest. So both sets are asked about all ends first, by rotating them until the end's bit is bit
// n. An end off the ring is asked about some other step: it has no rivals ahead and nothing to fear, so
// the value stays 0.
unsigned Evaluator::EndsIn(RingSet whenLeft, RingSet whenReached) const {
    RingSet ends = 0;
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        const unsigned end = reached + piece;
        ends |= std::rotr(whenLeft, static_cast<int>(steps_[piece] - piece)) & RingSet{1} << piece;
        ends |= std::rotr(whenReached, static_cast<int>(steps_[end] - end)) & RingSet{1} << end;
    }
    return static_cast<unsigned>(ends) & (movable_ | movable_ << reached);
}

void Evaluator::AddAttacks(unsigned ends) {
    if (ends == 0) return;
    const SeatView::TrackSet capturable{capturable_, capturable_ >> 32};
    ForEachBit(ends, [&](unsigned end) {
        values_[end] = tables::attackValue[AttackFrom(capturable, steps_[end])];
    });
}

void Evaluator::SubtractRisks(unsigned ends) {
    ForEachBit(ends, [&](unsigned end) {
        const int perThreat = tables::leaving[steps_[end % reached]].perThreat;
        values_[end] -= tables::riskValue[ThreatsTo(steps_[end]) * perThreat];
    });
}

int Evaluator::ProgressOfRivalAt(unsigned step) const {
    const Square square = SquareAt(view_.seat_, step);
    return static_cast<int>(StepOf(SeatOfOccupant(view_.position_.FirstOn(square)), square));
}

// The progress of the rivals that one die could capture from the step. A barrier ends all longer walks.
int Evaluator::AttackFrom(const SeatView::TrackSet& capturable, unsigned step) const {
    const std::uint64_t barriers = SeatView::Ahead(view_.barrierSteps_, step);
    const std::uint64_t beforeBarrier = (barriers & (0 - barriers)) - 1;
    const std::uint64_t victims = SeatView::Ahead(capturable, step) & beforeBarrier & Lowest(6);
    int attack = 0;
    ForEachBit(static_cast<unsigned>(victims),
               [&](unsigned ahead) { attack += ProgressOfRivalAt(step + 1 + ahead); });
    return attack;
}

// The rivals behind the step at distances that one throw of theirs counts. A rival that turns into its
// home column before is not among them: in its own steps the two squares never meet.
int Evaluator::ThreatsTo(unsigned step) const {
    int threats = 0;
    for (unsigned turns = 1; turns < SeatCount; ++turns) {
        const Rival& rival = rivals_[turns];
        const int shift = tables::behindShift[turns][step];
        threats += tables::CountOfThrows(rival.pieces << shift & rival.throws);
        threats += tables::CountOfThrows(rival.pairs << shift & rival.throws);
    }
    return threats;
}

bool Evaluator::CanAnyWalk(unsigned count, unsigned exceptPiece) const {
    return (view_.MovablePieces(count) & ~(1U << exceptPiece)) != 0;
}

bool Evaluator::HoldsCapturable(unsigned step) const {
    return step < RingSteps && (capturable_ >> step & 1) != 0;
}

double Evaluator::CaptureTerm(unsigned to) const {
    const int factor = CanAnyWalk(CaptureBonus, nobody) ? terms::withBonus : terms::withoutBonus;
    return ProgressOfRivalAt(to) / terms::capturePerPoint * factor;
}

void Evaluator::AddExitTerms(double& score) const {
    score += terms::exit;
    if (view_.own_.inBox == 1) score += terms::exitOfTheLast;
    if ((view_.full_ & 1) != 0) score += terms::exitWithCapture;
}

double Evaluator::ScoreOfMove(unsigned piece) const {
    const unsigned from = steps_[piece], to = steps_[reached + piece];
    const double gain = values_[reached + piece] - values_[piece];
    const tables::Leaving& leaving = tables::leaving[from];
    double score = gain * 10 * level_ / 100;
    score += leaving.progress;
    if (level_ >= terms::captureLevel && HoldsCapturable(to)) score += CaptureTerm(to);
    if (level_ >= terms::arrivalLevel && to == GoalStep && CanAnyWalk(ArrivalBonus, piece)) {
        score += terms::arrival;
    }
    if (level_ >= terms::nearHomeLevel) score += leaving.nearHome;
    if (level_ >= terms::leavingShelterLevel) score += leaving.shelter;
    if (level_ >= terms::reachingShelterLevel) score += tables::ReachingShelter(view_.seat_, from, to);
    if (level_ >= terms::exitLevel && from == BoxStep) AddExitTerms(score);
    return score;
}

unsigned Evaluator::BestPiece() const {
    unsigned bestPiece = 0;
    double best = worstScore;
    ForEachBit(movable_, [&](unsigned piece) {
        const double score = ScoreOfMove(piece);
        const bool isBetter = score > best;
        best = isBetter ? score : best;
        bestPiece = isBetter ? piece : bestPiece;
    });
    return bestPiece;
}

}  // namespace zorva::engine
