#include "core/Player.h"

#include "core/Board.h"
#include "core/Rules.h"
#include "core/ScoreTerms.h"

// Scores are doubles, summed in the order in which the terms stand here and never contracted into
// fused operations (see the build flags): the choice between close scores is the same everywhere.

namespace zorva {
namespace {

constexpr double worstScore = -999;

bool IsRival(PieceCode code, Colour colour) {
    return code != 0 && ColourOf(code) != colour;
}

Short ProgressOf(const GameState& state, PieceCode code) {
    return StepsFromExit(state, ColourOf(code), PieceOf(code));
}

// ------------------------------------------------------------------------ attack and risk

// The steps walked by those rivals, added together, that one throw of a die could capture.
int AttackFrom(const GameState& state, Colour colour, Square square) {
    int attack = 0;
    for (Short face = 1; face <= 6; ++face) {
        if (!IsMoveLegal(state, colour, face, square)) continue;
        const Square reached = DestinationOf(colour, face, square);
        const PieceCode there = state.SquareOccupants[reached][1];
        if (!IsSafeSquare(reached) && IsRival(there, colour)) attack += ProgressOf(state, there);
    }
    return attack;
}

// Whether one throw of the rival can really count that far: a six counts 6 while the rival has a piece
// in its box, and SixValue when it has none.
bool CanThrow(const GameState& state, Colour rival, Short distance) {
    if (distance <= 5) return true;
    const bool hasPieceInBox = state.PiecesInBox[rival] > 0;
    return distance == (hasPieceInBox ? 6 : state.SixValue);
}

// A rival that turns into its home column in between does not reach the target.
bool Threatens(const GameState& state, PieceCode code, Colour colour, Square from, Short distance,
               Square target) {
    if (!IsRival(code, colour)) return false;
    const Colour rival = ColourOf(code);
    return AdvanceSquare(from, distance, rival) == target && CanThrow(state, rival, distance);
}

// Whether a rival could capture the piece on the square: not in a home column, on a safe square, on a
// full square, nor beside a piece of its own colour.
bool IsExposed(const GameState& state, PieceCode code, Square square) {
    if (square > LastRingSquare || IsSafeSquare(square)) return false;
    const auto& occupants = state.SquareOccupants[square];
    const bool joinsOwnPiece = occupants[1] != code && ColourOf(occupants[1]) == ColourOf(code);
    return occupants[2] == 0 && !joinsOwnPiece;
}

int ThreatsFrom(const GameState& state, Colour colour, Square square, Short distance) {
    const Square from =
        static_cast<Square>(square - distance + (square > distance ? 0 : LastRingSquare));
    const auto& occupants = state.SquareOccupants[from];
    return Threatens(state, occupants[1], colour, from, distance, square) +
           Threatens(state, occupants[2], colour, from, distance, square);
}

int ThreatsTo(const GameState& state, PieceCode code, Square square) {
    if (!IsExposed(state, code, square)) return 0;
    int threats = ThreatsFrom(state, ColourOf(code), square, state.SixValue);
    for (Short distance = 1; distance <= 6; ++distance) {
        threats += ThreatsFrom(state, ColourOf(code), square, distance);
    }
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
    const double gain =
        SquareValue(move.state, code, move.to) - SquareValue(move.state, code, move.from);
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

// Three terms, each added by itself: a sum of doubles depends on the order.
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

// With all pieces in the box a throw may begin to count at once, or bring two pieces out.
bool ChooseFirstExit(GameState& state, const Settings& settings) {
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

void ChooseBestScore(GameState& state, const Settings& settings) {
    const Colour colour = state.CurrentColour;
    state.BestPiece = state.BestFrom = state.BestTo = 0;
    state.LegalMoveCount = 0;
    double best = worstScore;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const Square from = state.PiecePosition[colour][piece];
        const bool isLegal = IsMoveLegal(state, colour, state.MoveCount, from);
        state.MovablePieces[piece] = isLegal ? Yes : No;
        if (!isLegal) continue;
        ++state.LegalMoveCount;
        const double score = ScoreOfMove(state, settings, piece);
        if (score <= best) continue;
        best = score;
        state.BestPiece = piece;
        state.BestFrom = from;
        state.BestTo = DestinationOf(colour, state.MoveCount, from);
    }
}

}  // namespace

double SquareValue(const GameState& state, PieceCode code, Square square) {
    if (square == 0) return 0;
    const int attack = AttackFrom(state, ColourOf(code), square);
    const int perThreat = CaptureBonus + ProgressOf(state, code);
    const int risk = ThreatsTo(state, code, square) * perThreat;
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
    if (ChooseFirstExit(state, settings)) return;
    if (ChooseCompulsoryExit(state, settings)) return;
    ChooseBestScore(state, settings);
}

}  // namespace zorva
