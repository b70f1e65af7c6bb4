#include "store/RecordCheck.h"

#include <algorithm>

#include "core/Board.h"
#include "core/Displacement.h"
#include "core/Records.h"
#include "core/Rules.h"

namespace zorva {
namespace {

constexpr Short six = 6;

bool StandsOn(const GameState& state, const MoveRecord& record, Square square) {
    return state.PiecePosition[record.MoverColour][record.Piece] == square;
}

// A colour passes when none of its pieces can move.
bool IsPass(const GameState& state, const MoveRecord& record) {
    if (record.Piece != 0 || record.From != 0 || record.To != 0) return false;
    const Colour colour = record.MoverColour;
    const auto& positions = state.PiecePosition[colour];
    return std::none_of(positions.begin() + 1, positions.end(),
                        [&](Square square) { return IsMoveLegal(state, colour, record.Count, square); });
}

// The only record that may follow a capture.
MoveRecord ReturnOfCaptured(const GameState& state, const MoveRecord& capturing) {
    return ReturnRecord(CapturedPieceOn(state, capturing.To), capturing.To, capturing.MoverColour,
                        capturing.RepeatState);
}

// -------------------------------------------------------------------------- dragged by hand

bool IsDisplacementByHand(const GameState& state, const MoveRecord& previous, const MoveRecord& record) {
    const bool fieldsFit = record.Die == 0 && record.Count == 0 && record.OnBehalf == 0 &&
                           record.FollowingColour != record.MoverColour &&
                           record.TurnEnd == (record.RepeatState == 2 ? No : Yes) &&
                           (record.RepeatState == 0 || record.RepeatState == previous.RepeatState);
    return fieldsFit && record.Piece != 0 && StandsOn(state, record, record.From) &&
           record.From != GoalSquare[record.MoverColour] &&
           MayBeDropped(state, CodeOf(record.MoverColour, record.Piece), record.To);
}

// ------------------------------------------------------------------------------- bonus moves

bool IsWalk(const GameState& state, const MoveRecord& record) {
    const Colour colour = record.MoverColour;
    return record.Piece != 0 && record.From != 0 && StandsOn(state, record, record.From) &&
           record.To == AdvanceSquare(record.From, record.Count, colour) &&
           IsMoveLegal(state, colour, record.Count, record.From);
}

bool IsBonusMove(const GameState& state, const MoveRecord& previous, const MoveRecord& record) {
    const bool fieldsFit = record.Die == 0 && record.Count == BonusDueAfter(previous) &&
                           record.MoverColour == ColourOnTurn(previous) &&
                           record.RepeatState == previous.RepeatState && record.TurnEnd == No;
    return fieldsFit && (IsPass(state, record) || IsWalk(state, record));
}

// ------------------------------------------------------------------------------ thrown moves

// Whether Count fits the die: a six counts 7 or 12 once all pieces are out of the box. A third six,
// which sends a piece back, always counts 6.
bool IsCountOfDie(const GameState& state, const MoveRecord& record) {
    const bool sixAllOut =
        record.Die == six && record.RepeatState != 0 && state.PiecesInBox[record.MoverColour] == 0;
    return sixAllOut ? record.Count == 7 || record.Count == 12 : record.Count == record.Die;
}

// Whether RepeatState fits the die and the record before: the sixes in a row, the third stored as 0.
bool IsRepeatOfDie(const MoveRecord& previous, const MoveRecord& record) {
    if (record.Die != six) return record.RepeatState == 0;
    if (record.RepeatState == 1) return true;
    const Short before = record.RepeatState == 2 ? 1 : 2;
    return previous.RepeatState == before && ColourOnTurn(previous) == record.MoverColour;
}

// The third six sends the piece moved last back to its box, where it may be already.
bool IsThirdSix(const GameState& state, const MoveRecord& record) {
    const Colour colour = record.MoverColour;
    const Short latest = LatestMoveNoBonus(state, colour, ToShort(state.MoveRecordCount + 1));
    return record.Piece == state.MoveRecords[latest].Piece &&
           record.From == state.PiecePosition[colour][record.Piece] && record.To == 0 &&
           record.From != GoalSquare[colour];
}

// Out of the box onto the exit square; with all four pieces in the box also further on, by the whole
// count.
bool IsExit(const GameState& state, const MoveRecord& record) {
    const Colour colour = record.MoverColour;
    if (record.Piece == 0 || record.From != 0 || !StandsOn(state, record, 0)) return false;
    if (record.To == ExitSquare[colour]) return IsMoveLegal(state, colour, record.Count, 0);
    return state.PiecesInBox[colour] == PiecesPerColour && record.Count <= six &&
           record.To == AdvanceSquare(ExitSquare[colour], record.Count, colour);
}

// Whether this can be the second of two pieces that left the box with one five, whose TurnEnd is No. A
// later five that brings piece 2 out looks the same but has TurnEnd = Yes: both values are allowed.
bool MayBeSecondExit(const GameState& state, const MoveRecord& record) {
    return record.Piece == 2 && record.Die == ExitCount && record.From == 0 &&
           record.To == ExitSquare[record.MoverColour] &&
           state.PiecesInBox[record.MoverColour] == PiecesPerColour - 1;
}

bool IsThrown(const GameState& state, const MoveRecord& previous, const MoveRecord& record) {
    const bool goesOn = record.RepeatState == 2;
    const bool turnEndFits = record.TurnEnd == (goesOn ? No : Yes) ||
                             (record.TurnEnd == No && MayBeSecondExit(state, record));
    const bool fieldsFit =
        record.Die != 0 && turnEndFits && IsCountOfDie(state, record) && IsRepeatOfDie(previous, record);
    if (!fieldsFit) return false;
    if (record.Die == six && record.RepeatState == 0) return IsThirdSix(state, record);
    return IsPass(state, record) || IsWalk(state, record) || IsExit(state, record);
}

}  // namespace

bool CanFollow(const GameState& state, const MoveRecord& record) {
    const MoveRecord& previous = state.MoveRecords[state.MoveRecordCount];
    if (state.CaptureReport != 0) return record == ReturnOfCaptured(state, previous);
    const bool bonusDue = BonusDueAfter(previous) != 0;
    if (record.Manual) return !bonusDue && IsDisplacementByHand(state, previous, record);
    if (record.OnBehalf != 0 || record.FollowingColour != 0) return false;
    return bonusDue ? IsBonusMove(state, previous, record) : IsThrown(state, previous, record);
}

}  // namespace zorva
