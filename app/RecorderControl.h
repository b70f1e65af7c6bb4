#pragma once

#include "app/RecorderStrip.h"
#include "core/Recorder.h"

namespace zorva {

class Mesa;

/// What the recorder's six keys do. A key that is not live does nothing, except that the restore key
/// explains itself while the recorder is on. An automatic replay runs inside Press and yields after each
/// step; pressed again during that yield, its key stops it.
class RecorderControl {
public:
    RecorderControl(GameContext game, RecorderState& recorder, Mesa& mesa);

    void Press(RecorderKey key);
    /// Whether the key is shown as one that can be pressed, by the hand over it.
    bool IsLive(RecorderKey key) const;

    /// Goes at once to the position after that many moves, while the recorder is on and no replay runs;
    /// else it says what to do.
    void GoTo(Short moves);

    /// Stops a replay, goes to the end of the tape and switches the recorder off; nothing when it is
    /// off.
    void TakeTapeOut();

private:
    void SwitchOnOff();
    void SwitchOff();
    void ShowSwitchedOff();
    void StepOnce(RecorderKey key);
    void RunAutomatic(RecorderKey key, Short& active);
    void Step(RecorderKey key);
    bool CanStep(RecorderKey key) const;
    void Restore();
    void ShowKey(RecorderKey key, bool pressed);
    void SayWhyNot(RecorderKey key) const;

    GameContext game_;
    RecorderState& recorder_;
    Mesa& mesa_;
};

}  // namespace zorva
