#include "core/Records.h"

#include "core/Board.h"
#include "core/Rules.h"

namespace zorva {
namespace {

constexpr std::size_t recordsAtOnce = 40;

MoveRecord RecordByHand(const GameState& state) {
    MoveRecord record;
    record.MoverColour = state.CurrentColour;
    if (state.ManualShiftColour != state.CurrentColour) record.FollowingColour = state.ManualShiftColour;
    record.Piece = state.MovePiece;
    record.From = state.MoveFrom;
    record.To = state.MoveTo;
    record.Manual = Yes;
    return record;
}

// Two pieces may leave with one five. The second is logged like the first, even when a capture by the
// first has cleared the die in between.
MoveRecord OrdinaryRecord(const GameState& state) {
    const bool two = state.SecondMovePending != 0;
    MoveRecord record;
    record.MoverColour = state.CurrentColour;
    record.Die = two ? ExitCount : state.DieValue;
    record.Count = two ? ExitCount : state.MoveCount;
    record.Piece = state.MovePiece;
    record.From = state.MoveFrom;
    record.To = state.MoveTo;
    return record;
}

MoveRecord RecordOfMove(const GameState& state, Short repeatState) {
    if (state.ManualShiftMade) return RecordByHand(state);
    if (state.CaptureReport == 0) return OrdinaryRecord(state);
    return ReturnRecord(CodeOf(state.CapturedColour, state.MovePiece), state.MoveFrom,
                        state.CurrentColour, repeatState);
}

// Whether the position before the move cannot be restored. The recorder never restores to just before
// such a record; see TurnEnd.
bool GoesOnWithTurn(const MoveRecord& record, Short secondMovePending) {
    const bool isSecondExit = secondMovePending == 2 && !record.Manual;
    return IsBonus(record) || isSecondExit || record.RepeatState >= 2 || record.OnBehalf != 0;
}

const char* Abbreviation(Colour colour) {
    static constexpr const char* names[] = {"", "Ama.", "Azul", "Rojo", "Ver."};
    return colour >= 1 && colour <= ColourCount ? names[colour] : "";
}

std::string ActionText(const MoveRecord& record) {
    if (record.Piece == 0) return "pasa";
    if (record.To == 0) return "a espera";
    return "cuenta " + std::to_string(record.Count);
}

}  // namespace

// ------------------------------------------------------------------------------ writing records

void NewMoveRecord(GameState& state) {
    state.MoveRecordCount = ToShort(state.MoveRecordCount + 1);
    const std::size_t size = state.MoveRecords.size();
    if (static_cast<std::size_t>(state.MoveRecordCount) + 1 >= size) {
        state.MoveRecords.resize(size + recordsAtOnce);
    }
}

void LogMove(const GameContext& game) {
    GameState& state = game.state;
    const Short repeatState = state.SixesInRow == 3 ? Short{0} : state.SixesInRow;
    MoveRecord record = RecordOfMove(state, repeatState);
    record.RepeatState = repeatState;
    record.TurnEnd = GoesOnWithTurn(record, state.SecondMovePending) ? No : Yes;
    state.MoveRecords[state.MoveRecordCount] = record;
    game.outside.AddLogLine(state.MoveRecordCount, record);
}

MoveRecord ReturnRecord(PieceCode captured, Square from, Colour captor, Short repeatState) {
    MoveRecord record;
    record.MoverColour = ColourOf(captured);
    record.FollowingColour = captor;
    record.Piece = PieceOf(captured);
    record.From = from;
    record.RepeatState = repeatState;
    record.OnBehalf = 1;
    return record;
}

// ------------------------------------------------------------------------------ reading records

Colour ColourOnTurn(const MoveRecord& record) {
    return record.FollowingColour != 0 ? record.FollowingColour : record.MoverColour;
}

bool MovesAPiece(const MoveRecord& record) {
    return record.Piece != 0 && record.From != record.To;
}

// A capture by the first piece puts a return between the two exits.
bool FollowsByItself(const GameState& state, Short move) {
    const MoveRecord* record = &state.MoveRecords[move];
    if (record->OnBehalf != 0) return true;
    const MoveRecord* first = record - 1;
    if (first->OnBehalf != 0) --first;
    return record->Die == ExitCount && !record->TurnEnd && first->Die == ExitCount && first->From == 0 &&
           first->Piece != 0 && first->MoverColour == record->MoverColour;
}

bool IsBonus(const MoveRecord& record) {
    return record.Count == ArrivalBonus || record.Count == CaptureBonus;
}

Short BonusDueAfter(const MoveRecord& record) {
    if (record.Piece == 0 || record.Manual) return 0;
    // Off a safe square a piece is captured on an exit square only, which earns nothing.
    if (record.OnBehalf != 0) return IsSafeSquare(record.From) ? Short{0} : CaptureBonus;
    return record.To == GoalSquare[record.MoverColour] ? ArrivalBonus : Short{0};
}

Short LatestMoveNoBonus(const GameState& state, Colour colour, Short before) {
    for (Short move = static_cast<Short>(before - 1); move >= 1; --move) {
        const MoveRecord& record = state.MoveRecords[move];
        if (record.MoverColour == colour && !IsBonus(record)) return move;
    }
    return 0;
}

// -------------------------------------------------------------------------------------- the log

std::string LogLineText(Short moveNumber, const MoveRecord& record) {
    std::string number = std::to_string(moveNumber);
    if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
    if (record.Manual) return number + " Despl. manual";
    return number + " " + Abbreviation(record.MoverColour) + " " + ActionText(record);
}

void RebuildLog(const GameContext& game, Short moves) {
    game.outside.BeginLog(ContinuedGameHeading);
    for (Short move = 1; move <= moves; ++move) {
        game.outside.AddLogLine(move, game.state.MoveRecords[move]);
    }
}

}  // namespace zorva
