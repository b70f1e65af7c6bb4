#include "core/Recorder.h"

#include "core/Dice.h"
#include "core/Execution.h"
#include "core/SilentOutside.h"

namespace zorva {
namespace {

// Carries moves out without showing them.
class Unseen : public SilentOutside {
public:
    bool IsWatched() const override { return false; }
    Short RollFace() override { StopOnFault("a replayed move throws no die"); }
};

const MoveRecord& RecordAt(const GameState& state, int move) {
    return state.MoveRecords[move];
}

// The colour whose turn it was when the record was made.
Colour ColourOnTurn(const MoveRecord& record) {
    return record.FollowingColour != 0 ? record.FollowingColour : record.MoverColour;
}

void Replay(const Table& table, RecorderState& recorder) {
    GameState& state = table.state;
    ExecuteMove(table, ExecutionMode::Forward);
    state.CaptureReport = 0;  // the next move that is logged has nothing to do with it
    ++state.MoveRecordCount;
    state.CurrentColour = state.MoveRecordCount < recorder.RecorderEnd
                              ? RecordAt(state, state.MoveRecordCount).MoverColour
                              : recorder.RecorderResumeColour;
}

void TakeBack(const Table& table) {
    GameState& state = table.state;
    --state.MoveRecordCount;
    ExecuteMove(table, ExecutionMode::Backward);
    state.CurrentColour = RecordAt(state, state.MoveRecordCount).MoverColour;
}

void ShowReadyDie(const Table& table) {
    table.show.ClearDice();
    table.state.DieValue = 0;
    table.outside.DrawDie(table.state.CurrentColour, table.state.RepeatTurn ? Short{6} : Short{5});
}

// The dice show the throw of the last move on the board, and the ready die at the end of the tape.
void ShowDiceOfPosition(const Table& table, const RecorderState& recorder) {
    GameState& state = table.state;
    if (state.MoveRecordCount == recorder.RecorderEnd) {
        ShowReadyDie(table);
        return;
    }
    table.show.ClearDice();
    const MoveRecord& last = RecordAt(state, state.MoveRecordCount - 1);
    state.DieValue = last.Die;
    if (last.Die != 0) table.outside.DrawDie(last.MoverColour, last.Die);
    state.DieValue = 0;
}

void ShowPosition(const Table& table, const RecorderState& recorder) {
    ShowDiceOfPosition(table, recorder);
    table.outside.SelectLogLine(ToShort(table.state.MoveRecordCount - 1));
}

void TakeTapeOut(const Table& table, RecorderState& recorder) {
    recorder = RecorderState{};
    table.outside.SelectLogLine(-1);
    table.outside.RefreshBoard();
    ShowReadyDie(table);
}

// The turn as it stood before the move at the position: whether it went on after a six, and whose.
void RestoreTurn(GameState& state) {
    const MoveRecord& at = RecordAt(state, state.MoveRecordCount);
    state.CurrentColour = ColourOnTurn(at);
    const MoveRecord& before = RecordAt(state, state.MoveRecordCount - 1);
    state.SixesInRow = before.RepeatState;
    // Two sixes of another colour: its third six left no record, and its turn was over.
    if (before.RepeatState == 2 && ColourOnTurn(before) != state.CurrentColour) state.SixesInRow = 0;
    state.RepeatTurn = state.SixesInRow != 0 ? Yes : No;
    state.ThrowNext = Yes;
    state.CaptureReport = 0;
    state.SecondMovePending = 0;
}

}  // namespace

bool IsReplaying(const RecorderState& recorder) {
    return recorder.AutoRewindActive || recorder.AutoAdvanceActive;
}

bool CanSwitchOn(const GameState& state, const RecorderState& recorder) {
    return !recorder.RecorderOn && state.WaitingForThrow && !state.ManualMode &&
           state.MoveRecordCount >= 2;
}

bool CanStepBack(const GameState& state, const RecorderState& recorder) {
    return recorder.RecorderOn && state.MoveRecordCount >= 2;
}

bool CanStepForward(const GameState& state, const RecorderState& recorder) {
    return recorder.RecorderOn && state.MoveRecordCount < recorder.RecorderEnd;
}

bool CanRestore(const GameState& state, const RecorderState& recorder) {
    return CanStepForward(state, recorder);
}

void RecorderSwitchOn(const Table& table, RecorderState& recorder) {
    table.outside.SelectLogLine(ToShort(table.state.MoveRecordCount - 1));
    recorder.RecorderOn = Yes;
    recorder.RecorderEnd = table.state.MoveRecordCount;
    recorder.RecorderResumeColour = table.state.CurrentColour;
}

void StepForward(const Table& table, RecorderState& recorder) {
    Replay(table, recorder);
    ShowPosition(table, recorder);
}

void StepBack(const Table& table, RecorderState& recorder) {
    TakeBack(table);
    ShowPosition(table, recorder);
}

void RecorderSwitchOff(const Table& table, RecorderState& recorder) {
    Unseen unseen;
    while (table.state.MoveRecordCount < recorder.RecorderEnd) {
        Replay({table.state, table.settings, unseen}, recorder);
    }
    table.state.CurrentColour = recorder.RecorderResumeColour;
    TakeTapeOut(table, recorder);
}

void RestorePosition(const Table& table, RecorderState& recorder) {
    GameState& state = table.state;
    Unseen unseen;
    while (state.MoveRecordCount > 1 && !RecordAt(state, state.MoveRecordCount).TurnEnd) {
        TakeBack({state, table.settings, unseen});
    }
    RestoreTurn(state);
    table.outside.CutLogFrom(state.MoveRecordCount);
    for (Short move = state.MoveRecordCount; move <= recorder.RecorderEnd; ++move) {
        state.MoveRecords[move] = MoveRecord{};
    }
    TakeTapeOut(table, recorder);
    table.outside.PositionReached();
}

}  // namespace zorva
