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
    Short RollFace() override { Fatal("a replayed move throws no die"); }
};

const MoveRecord& RecordAt(const GameState& state, int move) {
    return state.MoveRecords[move];
}

// The colour whose turn it was when the record was made.
Colour ColourOnTurn(const MoveRecord& record) {
    return record.FollowingColour != 0 ? record.FollowingColour : record.MoverColour;
}

void Replay(const GameContext& game, RecorderState& recorder) {
    GameState& state = game.state;
    ExecuteMove(game, ExecutionMode::Forward);
    state.CaptureReport = 0;  // the next move that is logged has nothing to do with it
    ++state.MoveRecordCount;
    state.CurrentColour = state.MoveRecordCount < recorder.RecorderEnd
                              ? RecordAt(state, state.MoveRecordCount).MoverColour
                              : recorder.RecorderResumeColour;
}

void TakeBack(const GameContext& game) {
    GameState& state = game.state;
    --state.MoveRecordCount;
    ExecuteMove(game, ExecutionMode::Backward);
    state.CurrentColour = RecordAt(state, state.MoveRecordCount).MoverColour;
}

void ShowReadyDie(const GameContext& game) {
    game.show.ClearDice();
    game.state.DieValue = 0;
    game.outside.DrawDie(game.state.CurrentColour, game.state.RepeatTurn ? Short{6} : Short{5});
}

// The dice show the throw of the last move on the board, and the ready die at the end of the tape.
void ShowDiceOfPosition(const GameContext& game, const RecorderState& recorder) {
    GameState& state = game.state;
    if (state.MoveRecordCount == recorder.RecorderEnd) {
        ShowReadyDie(game);
        return;
    }
    game.show.ClearDice();
    const MoveRecord& last = RecordAt(state, state.MoveRecordCount - 1);
    state.DieValue = last.Die;
    if (last.Die != 0) game.outside.DrawDie(last.MoverColour, last.Die);
    state.DieValue = 0;
}

void ShowPosition(const GameContext& game, const RecorderState& recorder) {
    ShowDiceOfPosition(game, recorder);
    game.outside.SelectLogLine(ToShort(game.state.MoveRecordCount - 1));
}

void TakeTapeOut(const GameContext& game, RecorderState& recorder) {
    recorder = RecorderState{};
    game.outside.SelectLogLine(-1);
    game.outside.RefreshBoard();
    ShowReadyDie(game);
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

void RecorderSwitchOn(const GameContext& game, RecorderState& recorder) {
    game.outside.SelectLogLine(ToShort(game.state.MoveRecordCount - 1));
    recorder.RecorderOn = Yes;
    recorder.RecorderEnd = game.state.MoveRecordCount;
    recorder.RecorderResumeColour = game.state.CurrentColour;
}

void StepForward(const GameContext& game, RecorderState& recorder) {
    Replay(game, recorder);
    ShowPosition(game, recorder);
}

void StepBack(const GameContext& game, RecorderState& recorder) {
    TakeBack(game);
    ShowPosition(game, recorder);
}

void RecorderSwitchOff(const GameContext& game, RecorderState& recorder) {
    Unseen unseen;
    while (game.state.MoveRecordCount < recorder.RecorderEnd) {
        Replay({game.state, game.settings, unseen}, recorder);
    }
    game.state.CurrentColour = recorder.RecorderResumeColour;
    TakeTapeOut(game, recorder);
}

void RestorePosition(const GameContext& game, RecorderState& recorder) {
    GameState& state = game.state;
    Unseen unseen;
    while (state.MoveRecordCount > 1 && !RecordAt(state, state.MoveRecordCount).TurnEnd) {
        TakeBack({state, game.settings, unseen});
    }
    RestoreTurn(state);
    game.outside.CutLogFrom(state.MoveRecordCount);
    for (Short move = state.MoveRecordCount; move <= recorder.RecorderEnd; ++move) {
        state.MoveRecords[move] = MoveRecord{};
    }
    TakeTapeOut(game, recorder);
    game.outside.PositionReached();
}

}  // namespace zorva
