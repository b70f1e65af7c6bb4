#include "core/Records.h"

#include "core/Rules.h"

namespace zorva {
namespace {

constexpr std::size_t recordsAtOnce = 40;

void FillDisplacementByHand(MoveRecord& record, const GameState& state) {
    record.MoverColour = state.CurrentColour;
    if (state.ManualShiftColour != state.CurrentColour) record.FollowingColour = state.ManualShiftColour;
    record.Manual = Yes;
}

void FillWayHomeOfCaptured(MoveRecord& record, const GameState& state) {
    record.MoverColour = state.CapturedColour;
    record.FollowingColour = state.CurrentColour;
    record.OnBehalf = 1;
}

void FillOrdinaryMove(MoveRecord& record, const GameState& state) {
    // Two pieces left with one five. The second is logged like the first, even when a capture by the
    // first has cleared the die in between.
    const bool two = state.SecondMovePending != 0;
    record.MoverColour = state.CurrentColour;
    record.Die = two ? ExitCount : state.DieValue;
    record.Count = two ? ExitCount : state.MoveCount;
}

void FillKindOfMove(MoveRecord& record, const GameState& state) {
    if (state.ManualShiftMade) return FillDisplacementByHand(record, state);
    if (state.CaptureReport != 0) return FillWayHomeOfCaptured(record, state);
    FillOrdinaryMove(record, state);
}

[[gnu::cold]] void MakeRoom(std::vector<MoveRecord>& records) {
    records.resize(records.size() + recordsAtOnce);
}

// Whether the move goes on with a turn that an earlier record began; a restored game never starts
// in front of such a record.
bool GoesOnWithTurn(const MoveRecord& record, Short secondMovePending) {
    const bool isBonus = (record.Count == ArrivalBonus) | (record.Count == CaptureBonus);
    const bool isSecond = (secondMovePending == 2) & !record.Manual;
    return isBonus | isSecond | (record.RepeatState >= 2) | (record.OnBehalf != 0);
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

void NewMoveRecord(GameState& state) {
    state.MoveRecordCount = ToShort(state.MoveRecordCount + 1);
    const auto next = state.MoveRecords.begin() + state.MoveRecordCount + 1;
    if (next >= state.MoveRecords.end()) [[unlikely]]
        MakeRoom(state.MoveRecords);
}

void LogMove(const GameContext& game) {
    GameState& state = game.state;
    MoveRecord& record = state.MoveRecords[state.MoveRecordCount];
    record = {};
    FillKindOfMove(record, state);
    record.Piece = state.MovePiece;
    record.From = state.MoveFrom;
    record.To = state.MoveTo;
    record.RepeatState = state.SixesInRow == 3 ? Short{0} : state.SixesInRow;
    record.TurnEnd = GoesOnWithTurn(record, state.SecondMovePending) ? No : Yes;
    game.show.AddLogLine(state.MoveRecordCount, record);
}

std::string LogLineText(Short moveNumber, const MoveRecord& record) {
    std::string number = std::to_string(moveNumber);
    if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
    if (record.Manual) return number + " Despl. manual";
    return number + " " + Abbreviation(record.MoverColour) + " " + ActionText(record);
}

void RebuildLog(const GameContext& game) {
    game.outside.BeginLog(ContinuedGameHeading);
    for (Short move = 1; move < game.state.MoveRecordCount; ++move) {
        game.outside.AddLogLine(move, game.state.MoveRecords[move]);
    }
}

}  // namespace zorva
