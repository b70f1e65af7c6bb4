#include "core/Player.h"

#include <bit>

#include "core/Appraisal.h"
#include "core/Board.h"
#include "core/Rules.h"
#include "core/ScoreTerms.h"

// Scores are doubles, summed in the order in which the terms stand here and never contracted into
// fused operations (see the build flags): the choice between close scores is the same everywhere.

namespace zorva {
namespace {

bool IsRival(PieceCode code, Colour colour) {
    return code != 0 && ColourOf(code) != colour;
}

Short ProgressOf(const GameState& state, PieceCode code) {
    return StepsToSquare(ColourOf(code), state.PositionOf(code));
}

// ------------------------------------------------------------------------ attack and risk

// The way of a die walked once instead of once for each face: as IsMoveLegal has it, a barrier ends
// all longer walks and nobody ends on a full square. There are no rivals in the home column.
int AttackFrom(const GameState& state, Colour colour, Square square) {
    const auto& walk = WalkFrom(square, colour);
    int attack = 0;
    for (std::size_t face = 1; face <= 6; ++face) {
        const Square reached = walk[face];
        if (reached > LastRingSquare) break;
        const auto& occupants = state.SquareOccupants[reached];
        if (occupants[1] == 0) continue;
        if (IsBarrier(state, reached)) break;
        if (occupants[2] != 0 || IsSafeSquare(reached)) continue;
        if (IsRival(occupants[1], colour)) attack += ProgressOf(state, occupants[1]);
    }
    return attack;
}

// Whether one throw of the rival can really count that far.
bool CanThrow(const GameState& state, Colour rival, Short distance) {
    if (distance <= 5) return true;
    if (distance == 6 && state.PiecesInBox[rival] > 0) return true;
    return distance == state.SixValue && state.PiecesInBox[rival] == 0;
}

bool Threatens(const GameState& state, PieceCode code, Colour colour, Square from, Short distance,
               Square target) {
    if (!IsRival(code, colour)) return false;
    const Colour rival = ColourOf(code);
    return AdvanceSquare(from, distance, rival) == target && CanThrow(state, rival, distance);
}

// Nobody is captured off the ring, on a safe square, or as part of a barrier.
bool IsExposed(const GameState& state, Colour colour, PieceCode code, Square square) {
    if (square > LastRingSquare || IsSafeSquare(square)) return false;
    const auto& occupants = state.SquareOccupants[square];
    if (occupants[2] != 0) return false;
    return ColourOf(occupants[1]) != colour || occupants[1] == code;
}

int ThreatsTo(const GameState& state, Colour colour, PieceCode code, Square square) {
    if (!IsExposed(state, colour, code, square)) return 0;
    const auto threatsFrom = [&](Short distance) {
        const Square from =
            static_cast<Square>(square - distance + (square > distance ? 0 : LastRingSquare));
        const auto& occupants = state.SquareOccupants[from];
        if (occupants[1] == 0) return 0;
        return Threatens(state, occupants[1], colour, from, distance, square) +
               Threatens(state, occupants[2], colour, from, distance, square);
    };
    int threats = threatsFrom(state.SixValue);
    for (Short distance = 1; distance <= 6; ++distance) threats += threatsFrom(distance);
    return threats;
}

// -------------------------------------------------------------------- the terms of a score

struct Candidate {
    const GameState& state;
    Colour colour;
    Short piece;
    Short level;
    Square from;
    Square to;
};

bool CanAnyWalk(const Candidate& move, Short steps, Short exceptPiece) {
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        if (piece == exceptPiece) continue;
        const Square square = move.state.PiecePosition[move.colour][piece];
        if (IsMoveLegal(move.state, move.colour, steps, square)) return true;
    }
    return false;
}

double PositionTerm(const Candidate& move) {
    const PieceCode code = CodeOf(move.colour, move.piece);
    const double gain = SquareValue(move.state, move.colour, code, move.to) -
                        SquareValue(move.state, move.colour, code, move.from);
    return gain * 10 * move.level / 100;
}

double ProgressTerm(const Candidate& move) {
    return StepsFromExit(move.state, move.colour, move.piece) / terms::progressPerPoint;
}

double CaptureTerm(const Candidate& move) {
    if (move.level < terms::captureLevel) return 0;
    const PieceCode victim = CapturableOn(move.state, move.colour, move.to);
    if (victim == 0) return 0;
    // The bonus may be walked by the capturing piece too, from where it stands now.
    const int factor = CanAnyWalk(move, CaptureBonus, 0) ? terms::withBonus : terms::withoutBonus;
    return ProgressOf(move.state, victim) / terms::capturePerPoint * factor;
}

double ArrivalTerm(const Candidate& move) {
    if (move.level < terms::arrivalLevel || move.to != GoalSquare[move.colour]) return 0;
    return CanAnyWalk(move, ArrivalBonus, move.piece) ? terms::arrival : 0;
}

double NearHomeTerm(const Candidate& move) {
    if (move.level < terms::nearHomeLevel) return 0;
    return terms::IsNearHome(move.colour, move.from) ? terms::nearHome : 0;
}

double LeavingShelterTerm(const Candidate& move) {
    if (move.level < terms::leavingShelterLevel) return 0;
    return terms::IsShelter(move.colour, move.from) ? terms::leavingShelter : 0;
}

double ReachingShelterTerm(const Candidate& move) {
    if (move.level < terms::reachingShelterLevel) return 0;
    return terms::ReachesShelter(move.colour, move.from, move.to) ? terms::reachingShelter : 0;
}

bool CapturesByComingOut(const Candidate& move) {
    const auto& occupants = move.state.SquareOccupants[ExitSquare[move.colour]];
    return occupants[1] != 0 && occupants[2] != 0 &&
           (IsRival(occupants[1], move.colour) || IsRival(occupants[2], move.colour));
}

void AddExitTerms(const Candidate& move, double& score) {
    if (move.from != 0 || move.state.MoveCount != ExitCount || move.level < terms::exitLevel) return;
    score += terms::exit;
    if (move.state.PiecesInBox[move.colour] == 1) score += terms::exitOfTheLast;
    if (CapturesByComingOut(move)) score += terms::exitWithCapture;
}

// ------------------------------------------------------------------------------- decisions

void SetOnlyMove(GameState& state, Short piece, Square to) {
    state.BestPiece = piece;
    state.BestFrom = 0;
    state.BestTo = to;
    state.LegalMoveCount = 1;
    state.MovablePieces = {};
    state.MovablePieces[piece] = Yes;
}

bool ChooseOpening(GameState& state, const Settings& settings) {
    const Colour colour = state.CurrentColour;
    const bool startsCounting =
        state.PiecesInBox[colour] == PiecesPerColour && settings.RuleLeaveAllInBox == 1;
    if (!startsCounting && state.SecondMovePending != 1) return false;

    const bool bringsTwo = settings.RuleFiveAllInBox == 1;
    if (!bringsTwo || (state.DieValue != ExitCount && state.SecondMovePending == 0)) {
        SetOnlyMove(state, 1, AdvanceSquare(ExitSquare[colour], state.MoveCount, colour));
    } else if (state.SecondMovePending == 1) {
        SetOnlyMove(state, 2, ExitSquare[colour]);
        state.SecondMovePending = 2;
    } else {
        SetOnlyMove(state, 1, ExitSquare[colour]);
        state.SecondMovePending = 1;
    }
    return true;
}

bool ChooseCompulsoryExit(GameState& state, const Settings& settings) {
    const Colour colour = state.CurrentColour;
    if (state.DieValue != ExitCount || settings.RuleFiveSomeInBox != 1) return false;
    if (state.PiecesInBox[colour] == 0 || !IsMoveLegal(state, colour, ExitCount, 0)) return false;
    Short piece = PiecesPerColour;
    while (state.PiecePosition[colour][piece] != 0) --piece;
    SetOnlyMove(state, piece, ExitSquare[colour]);
    return true;
}

// What the state says of a set of pieces, in which bit n stands for piece n.
struct PieceSet {
    PerPiece<Short> flags{};
    Short count = 0;
};

constexpr auto MakePieceSets() {
    std::array<PieceSet, 1U << (PiecesPerColour + 1)> sets{};
    for (unsigned set = 0; set < sets.size(); ++set) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            if ((set >> piece & 1) == 0) continue;
            sets[set].flags[piece] = Yes;
            ++sets[set].count;
        }
    }
    return sets;
}

constexpr auto pieceSets = MakePieceSets();

void ChooseBestScore(GameState& state, const Settings& settings) {
    const Colour colour = state.CurrentColour;
    const Outlook outlook(state);
    const unsigned movable = outlook.MovablePieces(state.MoveCount);
    state.MovablePieces = pieceSets[movable].flags;
    state.LegalMoveCount = pieceSets[movable].count;
    if (movable == 0) {
        state.BestPiece = state.BestFrom = state.BestTo = 0;
        return;
    }
    // A single one is taken whatever its score.
    const bool isOnlyOne = (movable & (movable - 1)) == 0;
    state.BestPiece = isOnlyOne ? static_cast<Short>(std::countr_zero(movable))
                                : Appraisal(outlook, settings.PlayerLevel[colour]).BestOf(movable);
    state.BestFrom = state.PiecePosition[colour][state.BestPiece];
    state.BestTo = outlook.DestinationOf(state.MoveCount, state.BestPiece);
}

}  // namespace

double SquareValue(const GameState& state, Colour colour, PieceCode code, Square square) {
    if (square == 0) return 0;
    const int attack = AttackFrom(state, colour, square);
    const int perThreat = CaptureBonus + ProgressOf(state, code);
    const int risk = ThreatsTo(state, colour, code, square) * perThreat;
    return attack / terms::attackPerPoint - risk / terms::riskPerPoint;
}

double ScoreOfMove(const GameState& state, const Settings& settings, Short piece) {
    const Colour colour = state.CurrentColour;
    const Square from = state.PiecePosition[colour][piece];
    const Candidate move{state, colour,
                         piece, settings.PlayerLevel[colour],
                         from,  DestinationOf(colour, state.MoveCount, from)};
    double score = PositionTerm(move);
    score += ProgressTerm(move);
    score += CaptureTerm(move);
    score += ArrivalTerm(move);
    score += NearHomeTerm(move);
    score += LeavingShelterTerm(move);
    score += ReachingShelterTerm(move);
    AddExitTerms(move, score);
    return score;
}

void ChooseComputerMove(GameState& state, const Settings& settings) {
    if (ChooseOpening(state, settings)) return;
    if (ChooseCompulsoryExit(state, settings)) return;
    ChooseBestScore(state, settings);
}

}  // namespace zorva
