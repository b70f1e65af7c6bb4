#pragma once

#include "core/Outside.h"

namespace zorva {

/// The move recorder: steps through the moves of the game in progress, whose records are its tape.
/// While it is on, MoveRecordCount is the position on the tape: the moves before it are on the board.
struct RecorderState {
    Short RecorderOn = No;
    Short RecorderEnd = 0;            ///< MoveRecordCount when it was switched on: the end of the tape
    Colour RecorderResumeColour = 0;  ///< CurrentColour when it was switched on
    Short AutoRewindActive = No;      ///< an automatic replay runs backwards
    Short AutoAdvanceActive = No;     ///< ... forwards
};

// Whether each key does something now. The tape is the records 1 to RecorderEnd - 1.
bool CanSwitchOn(const GameState& state, const RecorderState& recorder);
bool CanStepBack(const GameState& state, const RecorderState& recorder);
bool CanStepForward(const GameState& state, const RecorderState& recorder);
/// Whether the position differs from the end of the tape, so that there is something to restore.
bool CanRestore(const GameState& state, const RecorderState& recorder);
bool IsReplaying(const RecorderState& recorder);

/// Switches the recorder on; the position is the end of the tape.
void RecorderSwitchOn(const GameContext& game, RecorderState& recorder);

/// Goes to the end of the tape at once, without walk, sound or pause, and switches the recorder off. The
/// game then stands exactly as it did before the recorder was switched on.
void RecorderSwitchOff(const GameContext& game, RecorderState& recorder);

/// Plays the move at the position and advances the position by one. The position must not be the end of
/// the tape.
void StepForward(const GameContext& game, RecorderState& recorder);

/// Takes back the move before the position and lowers the position by one. The position must be above 1.
void StepBack(const GameContext& game, RecorderState& recorder);

/// Goes to the position after that many moves at once, without walk, sound or pause. The tape has at
/// least as many.
void GoToPosition(const GameContext& game, RecorderState& recorder, Short moves);

/// Deletes the moves from the position on, as if they had never been made, and switches the recorder
/// off. A position whose next move has TurnEnd = No cannot be restored: then it first steps back to the
/// nearest earlier one that can. The position must not be the end of the tape.
void RestorePosition(const GameContext& game, RecorderState& recorder);

}  // namespace zorva
