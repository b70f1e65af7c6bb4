// Builds games from move records, as a settings file may hold them. Every record that CanFollow accepts
// must be harmless, even if the game would not have written it.

#include <algorithm>
#include <cstring>

#include "core/Board.h"
#include "core/DecidedThrows.h"
#include "core/Execution.h"
#include "core/Records.h"
#include "core/Rules.h"
#include "store/RecordCheck.h"
#include "store/SettingsFile.h"
#include "tests/fuzz/Checks.h"

namespace {

using namespace zorva;

constexpr std::size_t bytesOfRecord = 4;

/// Draws numbers from the bytes of one record.
class Choices {
public:
    explicit Choices(const std::uint8_t* data) { std::memcpy(&bits_, data, sizeof bits_); }
    Short Below(std::uint32_t count) {
        const auto chosen = static_cast<Short>(bits_ % count);
        bits_ /= count;
        return chosen;
    }

private:
    std::uint32_t bits_ = 0;
};

// A record that the game could write next.
MoveRecord Plausible(const GameState& state, Choices& choices) {
    const MoveRecord& previous = state.MoveRecords[state.MoveRecordCount];
    if (state.CaptureReport != 0) {
        return ReturnRecord(CapturedPieceOn(state, previous.To), previous.To, previous.MoverColour,
                            previous.RepeatState);
    }
    MoveRecord record;
    const Short bonus = BonusDueAfter(previous);
    const bool goesOn = bonus != 0 || previous.RepeatState != 0;
    record.MoverColour = static_cast<Colour>(1 + choices.Below(4));
    if (goesOn && choices.Below(8) != 0) record.MoverColour = ColourOnTurn(previous);
    record.Piece = choices.Below(5);
    record.Die = bonus != 0 ? Short{0} : static_cast<Short>(1 + choices.Below(6));
    record.Count = bonus != 0 ? bonus : record.Die;
    record.RepeatState = bonus != 0 ? previous.RepeatState : Short{0};
    if (record.Die == 6) {
        record.RepeatState = static_cast<Short>((previous.RepeatState + 1) % 3);
        if (state.PiecesInBox[record.MoverColour] == 0) record.Count = choices.Below(2) ? 7 : 12;
    }
    record.TurnEnd = bonus != 0 || record.RepeatState == 2 ? No : Yes;
    if (record.Piece == 0) return record;
    record.From = state.PiecePosition[record.MoverColour][record.Piece];
    record.To = DestinationOf(record.MoverColour, record.Count, record.From);
    if (choices.Below(4) == 0) {  // by hand
        const Short steps = choices.Below(StepsToGoal + 1);
        record.Manual = Yes;
        record.To = AdvanceSquare(ExitSquare[record.MoverColour], steps, record.MoverColour);
        record.Die = record.Count = record.RepeatState = 0;
        record.TurnEnd = Yes;
    }
    return record;
}

// Now and then one field becomes any value that a file can hold there.
void Spoil(MoveRecord& record, Choices& choices) {
    struct Range {
        Short MoveRecord::*field;
        int lowest;
        std::uint32_t values;
    };
    static constexpr Range ranges[] = {
        {&MoveRecord::MoverColour, 1, 4}, {&MoveRecord::FollowingColour, 0, 5},
        {&MoveRecord::Die, 0, 7},         {&MoveRecord::Count, 0, 21},
        {&MoveRecord::Piece, 0, 5},       {&MoveRecord::From, 0, 101},
        {&MoveRecord::To, 0, 101},        {&MoveRecord::RepeatState, 0, 3},
        {&MoveRecord::Manual, -1, 2},     {&MoveRecord::OnBehalf, 0, 2},
        {&MoveRecord::TurnEnd, -1, 2}};
    const auto chosen = static_cast<std::size_t>(choices.Below(32));
    if (chosen >= std::size(ranges)) return;
    const Range& range = ranges[chosen];
    record.*range.field = static_cast<Short>(range.lowest + choices.Below(range.values));
}

bool IsWon(const GameState& state) {
    return std::count(state.PiecesHome.begin(), state.PiecesHome.end(), PiecesPerColour) > 0;
}

void PlayRecords(GameState& state, const std::uint8_t* data, std::size_t size) {
    const Settings settings;
    SilentOutside silent;
    for (; size >= bytesOfRecord && !IsWon(state); data += bytesOfRecord, size -= bytesOfRecord) {
        Choices choices(data);
        MoveRecord record = Plausible(state, choices);
        Spoil(record, choices);
        if (!CanFollow(state, record)) continue;
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = record;
        ExecuteMove({state, settings, silent}, ExecutionMode::Forward, state.MoveRecordCount);
        fuzz::RequireSoundTables(state);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SettingsContent content;
    GameState& state = content.state;
    ApplySettings(state, content.settings);
    PlayRecords(state, data, size);
    const Short moves = state.MoveRecordCount;
    if (state.CaptureReport != 0 || moves == 0) return 0;
    NewMoveRecord(state);
    fuzz::RequireWayBack(state);
    state.GameInProgress = Yes;
    state.RepeatTurn = Yes;
    state.CurrentColour = ColourOnTurn(state.MoveRecords[moves]);
    state.SixesInRow = state.MoveRecords[moves].RepeatState;
    fuzz::RequirePlayable(fuzz::RequireReadable(content), static_cast<std::uint64_t>(moves));
    return 0;
}
