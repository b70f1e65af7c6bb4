#include "core/Recorder.h"

#include "core/Execution.h"
#include "core/Records.h"
#include "core/SilentOutside.h"
#include "core/Turns.h"

namespace zorva {
namespace {

const MoveRecord& RecordAt(const GameState& state, int move) {
    return state.MoveRecords[move];
}

void Replay(const GameContext& game, RecorderState& recorder) {
    GameState& state = game.state;
    ExecuteMove(game, ExecutionMode::Forward, state.MoveRecordCount);
    state.CaptureReport = 0;  // LogMove must not take the next move for a captured piece's return
    ++state.MoveRecordCount;
    state.CurrentColour = state.MoveRecordCount < recorder.RecorderEnd
                              ? RecordAt(state, state.MoveRecordCount).MoverColour
                              : recorder.RecorderResumeColour;
}

void TakeBack(const GameContext& game) {
    GameState& state = game.state;
    --state.MoveRecordCount;
    ExecuteMove(game, ExecutionMode::Backward, state.MoveRecordCount);
    state.CurrentColour = RecordAt(state, state.MoveRecordCount).MoverColour;
}

// The record with the throw that led to that move. A bonus move and a captured piece's return follow
// from the throw of an earlier record; a displacement by hand follows from none, and its own record has
// no throw either.
const MoveRecord& ThrowBehind(const GameState& state, int move) {
    while (move > 0 && RecordAt(state, move).Die == 0 && !RecordAt(state, move).Manual) --move;
    return RecordAt(state, move);
}

// The dice show the throw behind the last move on the board, and the ready die at the end of the tape.
void ShowDiceOfPosition(const GameContext& game, const RecorderState& recorder) {
    const GameState& state = game.state;
    game.outside.ClearDice();
    if (state.MoveRecordCount == recorder.RecorderEnd) {
        ShowReadyDie(game);
        return;
    }
    const MoveRecord& thrown = ThrowBehind(state, state.MoveRecordCount - 1);
    if (thrown.Die != 0) game.outside.DrawDie(thrown.MoverColour, thrown.Die, DieIs::AtRest);
}

void ShowPosition(const GameContext& game, const RecorderState& recorder) {
    ShowDiceOfPosition(game, recorder);
    game.outside.ShowTurn(game.state.CurrentColour, TurnIs::OnTape);
    game.outside.SelectLogLine(ToShort(game.state.MoveRecordCount - 1));
}

void TakeTapeOut(const GameContext& game, RecorderState& recorder) {
    recorder = RecorderState{};
    game.outside.SelectLogLine(-1);
    game.outside.RefreshBoard(PiecesShown::OnTheirSquares);
    game.outside.ClearDice();
    game.outside.ShowTurn(game.state.CurrentColour, TurnIs::Throws);
    ShowReadyDie(game);
}

// Restores the turn as it was before the move at the position: its colour, and whether it goes on after
// a six. A colour alone that throws again after a third six without a record gets the count of its
// second six, though play had begun at 0: the records do not tell the two apart.
void RestoreTurn(const GameContext& game) {
    GameState& state = game.state;
    const MoveRecord& at = RecordAt(state, state.MoveRecordCount);
    state.CurrentColour = ColourOnTurn(at);
    const MoveRecord& before = RecordAt(state, state.MoveRecordCount - 1);
    state.SixesInRow = before.RepeatState;
    // Two sixes of another colour: its third six left no record, and its turn was over.
    if (before.RepeatState == 2 && ColourOnTurn(before) != state.CurrentColour) state.SixesInRow = 0;
    SkipAbsentColour(game);
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

void GoToPosition(const GameContext& game, RecorderState& recorder, Short moves) {
    SilentOutside silent;
    const GameContext unseen{game.state, game.settings, silent};
    while (game.state.MoveRecordCount > moves + 1) TakeBack(unseen);
    while (game.state.MoveRecordCount < moves + 1) Replay(unseen, recorder);
    game.outside.RefreshBoard(PiecesShown::OnTheirSquares);
    ShowPosition(game, recorder);
}

void RecorderSwitchOff(const GameContext& game, RecorderState& recorder) {
    SilentOutside silent;
    while (game.state.MoveRecordCount < recorder.RecorderEnd) {
        Replay({game.state, game.settings, silent}, recorder);
    }
    game.state.CurrentColour = recorder.RecorderResumeColour;
    TakeTapeOut(game, recorder);
}

void RestorePosition(const GameContext& game, RecorderState& recorder) {
    GameState& state = game.state;
    SilentOutside silent;
    while (state.MoveRecordCount > 1 && !RecordAt(state, state.MoveRecordCount).TurnEnd) {
        TakeBack({state, game.settings, silent});
    }
    RestoreTurn(game);
    game.outside.CutLogFrom(state.MoveRecordCount);
    for (Short move = state.MoveRecordCount; move <= recorder.RecorderEnd; ++move) {
        state.MoveRecords[move] = MoveRecord{};
    }
    TakeTapeOut(game, recorder);
    game.outside.PositionReached(state);
}

}  // namespace zorva
