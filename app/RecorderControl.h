#pragma once

#include "app/RecorderStrip.h"
#include "core/Recorder.h"

namespace zorva {

class Mesa;

/// What the recorder's keys do: each checks whether it is live and does nothing when it is not.
class RecorderControl {
public:
    RecorderControl(GameContext game, RecorderState& recorder, Mesa& mesa);

    void Press(RecorderKey key);
    bool IsLive(RecorderKey key) const;

    /// Ends a running replay, goes to the end of the tape and switches off; nothing when it is off.
    void TakeTapeOut();

private:
    void SwitchOnOff();
    void SwitchOff();
    void StepOnce(RecorderKey key);
    void RunAutomatic(RecorderKey key, Short& active);
    void Step(RecorderKey key);
    bool CanStep(RecorderKey key) const;
    void Restore();
    void ShowKey(RecorderKey key, bool pressed);

    GameContext game_;
    RecorderState& recorder_;
    Mesa& mesa_;
};

}  // namespace zorva
