#include "engine/Evaluator.h"

#include <bit>

#include "core/Rules.h"
#include "engine/ScoreTables.h"

namespace zorva::engine {
namespace {

constexpr double worstScore = -999;
constexpr unsigned nobody = PiecesPerColour;

// Calls `look` with the number of each bit of a small set.
template <typename Look>
void ForEachBit(unsigned set, Look look) {
    for (; set != 0; set &= set - 1) look(static_cast<unsigned>(std::countr_zero(set)));
}

}  // namespace

Evaluator::Evaluator(const SeatView& view, const GameRules& rules, unsigned count, unsigned movable)
    : view_(view),
      level_(rules.level[view.seat_]),
      movable_(movable),
      exposed_(UnsafeSteps & ~view.full_),
      capturable_(view.rivals_ & exposed_) {
    for (unsigned turns = 1; turns < SeatCount; ++turns) {
        rivals_[turns] = &view.position_.SideOf(SeatAfter(view.seat_, turns));
    }
    FindEnds(count);
    AddAttacks();
}

void Evaluator::FindEnds(unsigned count) {
    for (unsigned piece = 0; piece < PiecesPerColour; ++piece) {
        const unsigned from = view_.own_.StepOf(piece);
        steps_[piece] = static_cast<std::uint8_t>(from);
        steps_[reached + piece] = static_cast<std::uint8_t>(StepAfter(from, count));
    }
}

// Which ends of movable pieces lie in a set: bit n stands for end n. For each end the set is rotated so
// that the bit of its step becomes bit n. For an end off the ring that bit is an unrelated one; this is
// harmless, because AttackFrom finds no rival ahead of such a step.
unsigned Evaluator::EndsIn(RingSet set) const {
    RingSet ends = 0;
    for (unsigned end = 0; end < endCount; ++end) {
        ends |= std::rotr(set, static_cast<int>(steps_[end] - end)) & RingSet{1} << end;
    }
    return static_cast<unsigned>(ends) & (movable_ | movable_ << reached);
}

// Few ends have a rival ahead, and the processor cannot predict which: finding those few first is faster
// than a branch for each end.
void Evaluator::AddAttacks() {
    const RingSet oneOrTwo = capturable_ >> 1 | capturable_ >> 2;
    const RingSet attacking = oneOrTwo | oneOrTwo >> 2 | oneOrTwo >> 4;
    const SeatView::TrackSet capturable{capturable_, capturable_ >> 32};
    ForEachBit(EndsIn(attacking), [&](unsigned end) {
        attacks_[end] = static_cast<std::uint16_t>(AttackFrom(capturable, steps_[end]));
    });
}

int Evaluator::ProgressOfRivalAt(unsigned step) const {
    const Square square = SquareAt(view_.seat_, step);
    return static_cast<int>(StepOf(SeatOfOccupant(view_.position_.FirstOn(square)), square));
}

// The steps walked by those rivals, added together, that one throw of a die could capture from `step`.
// No walk leads beyond the first barrier.
int Evaluator::AttackFrom(const SeatView::TrackSet& capturable, unsigned step) const {
    const std::uint64_t barriers = SeatView::Ahead(view_.barrierSteps_, step);
    const std::uint64_t beforeBarrier = (barriers & (0 - barriers)) - 1;
    const std::uint64_t victims = SeatView::Ahead(capturable, step) & beforeBarrier & Lowest(6);
    int attack = 0;
    ForEachBit(static_cast<unsigned>(victims),
               [&](unsigned ahead) { attack += ProgressOfRivalAt(step + 1 + ahead); });
    return attack;
}

// How many rival pieces could capture on the step with one throw. For a square that is not on a rival's
// track the table gives the rival's step 0, its exit, whose threat count is always 0.
unsigned Evaluator::ThreatsTo(unsigned step) const {
    unsigned threats = 0;
    for (unsigned turns = 1; turns < SeatCount; ++turns) {
        threats += rivals_[turns]->Threats(tables::stepOfRival[turns][step]);
    }
    return threats;
}

// The SquareValue (core/Player.h) of the square reached less that of the square left. There is no risk
// on a safe or full square, nor where the piece joins one of its own. That is multiplied in without a
// branch, because the processor could not predict it.
double Evaluator::Gain(unsigned piece) const {
    const unsigned from = steps_[piece], to = steps_[reached + piece];
    const unsigned perThreat = tables::leaving[from].perThreat;
    const bool isExposedBefore = exposed_ >> (from % RingSteps) & 1;
    const bool isExposedAfter = (exposed_ & ~view_.own_.Pieces()) >> (to % RingSteps) & 1;
    const unsigned riskBefore = isExposedBefore * ThreatsTo(from) * perThreat;
    const unsigned riskAfter = isExposedAfter * ThreatsTo(to) * perThreat;
    const double before = tables::attackValue[attacks_[piece]] - tables::riskValue[riskBefore];
    const double after = tables::attackValue[attacks_[reached + piece]] - tables::riskValue[riskAfter];
    return after - before;
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
    if (view_.own_.InBox() == 1) score += terms::exitOfTheLast;
    if ((view_.full_ & 1) != 0) score += terms::exitWithCapture;
}

double Evaluator::ScoreOfMove(unsigned piece) const {
    const unsigned from = steps_[piece], to = steps_[reached + piece];
    const tables::Leaving& leaving = tables::leaving[from];
    double score = Gain(piece) * 10 * level_ / 100;
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
