#include "app/RecorderControl.h"

#include "app/Mesa.h"

namespace zorva {
namespace {

constexpr Short keySound = 16;

bool GoesBack(RecorderKey key) {
    return key == RecorderKey::BackOne || key == RecorderKey::AutoBack;
}

}  // namespace

RecorderControl::RecorderControl(Table table, RecorderState& recorder, Mesa& mesa)
    : table_(table), recorder_(recorder), mesa_(mesa) {}

bool RecorderControl::CanStep(RecorderKey key) const {
    return GoesBack(key) ? CanStepBack(table_.state, recorder_)
                         : CanStepForward(table_.state, recorder_);
}

bool RecorderControl::IsLive(RecorderKey key) const {
    switch (key) {
        case RecorderKey::OnOff:
            return recorder_.RecorderOn ? !IsReplaying(recorder_) : CanSwitchOn(table_.state, recorder_);
        case RecorderKey::BackOne:
        case RecorderKey::ForwardOne: return CanStep(key) && !IsReplaying(recorder_);
        case RecorderKey::AutoBack: return CanStep(key) && !recorder_.AutoAdvanceActive;
        case RecorderKey::AutoForward: return CanStep(key) && !recorder_.AutoRewindActive;
        case RecorderKey::Restore: return CanRestore(table_.state, recorder_) && !IsReplaying(recorder_);
    }
    return false;
}

void RecorderControl::Press(RecorderKey key) {
    if (key == RecorderKey::OnOff) {
        SwitchOnOff();
        return;
    }
    if (!recorder_.RecorderOn) return;
    switch (key) {
        case RecorderKey::AutoBack: RunAutomatic(key, recorder_.AutoRewindActive); break;
        case RecorderKey::AutoForward: RunAutomatic(key, recorder_.AutoAdvanceActive); break;
        case RecorderKey::Restore: Restore(); break;
        default: StepOnce(key);
    }
}

// ---------------------------------------------------------------------------------- what is seen

void RecorderControl::ShowKey(RecorderKey key, bool pressed) {
    mesa_.Strip().ShowPressed(key, pressed);
    table_.outside.PlaySound(keySound);
}

void RecorderControl::ShowPosition() {
    mesa_.Scene().ShowTurn(table_.state.CurrentColour, 0);
    mesa_.RefreshPointer();
    if (Changed) Changed();
}

// ------------------------------------------------------------------------------------- the keys

void RecorderControl::SwitchOnOff() {
    if (!IsLive(RecorderKey::OnOff)) return;
    if (recorder_.RecorderOn) {
        SwitchOff();
    } else {
        RecorderSwitchOn(table_, recorder_);
        ShowKey(RecorderKey::OnOff, true);
        ShowPosition();
    }
}

void RecorderControl::SwitchOff() {
    RecorderSwitchOff(table_, recorder_);
    ShowKey(RecorderKey::OnOff, false);
    table_.outside.Pause(10);
    ShowPosition();
    table_.outside.SetScreenPointer(ScreenPointer::OfTheBoard);
}

void RecorderControl::Step(RecorderKey key) {
    if (GoesBack(key)) {
        StepBack(table_, recorder_);
    } else {
        StepForward(table_, recorder_);
    }
    ShowPosition();
}

void RecorderControl::StepOnce(RecorderKey key) {
    if (!IsLive(key)) return;
    ShowKey(key, true);
    Step(key);
    ShowKey(key, false);
}

// The key is a toggle: pressed again while it runs, during the yield, it clears the flag.
void RecorderControl::RunAutomatic(RecorderKey key, Short& active) {
    if (active) {
        active = No;
        return;
    }
    if (!IsLive(key)) return;
    ShowKey(key, true);
    active = Yes;
    while (active && CanStep(key)) {
        Step(key);
        table_.outside.Pause(5);
        table_.outside.YieldToEvents();
    }
    active = No;
    ShowKey(key, false);
}

void RecorderControl::Restore() {
    if (IsReplaying(recorder_)) return;
    if (!CanRestore(table_.state, recorder_)) {
        table_.outside.ShowMessage(
            "Tecla no activa",
            "La tecla Restaurar no está activa, ya que la situación de la partida no se ha alterado. "
            "Esta tecla "
            "le permite restaurar la partida a una situación anterior una vez que se ha modificado el "
            "desarrollo de la misma mediante la teclas de Avance y Rebobinado.",
            5, MessageButtons::Acknowledge);
        return;
    }
    ShowKey(RecorderKey::Restore, true);
    table_.outside.Pause(8);
    RestorePosition(table_, recorder_);
    ShowKey(RecorderKey::Restore, false);
    table_.outside.Pause(8);
    ShowKey(RecorderKey::OnOff, false);
    ShowPosition();
    table_.outside.SetScreenPointer(ScreenPointer::OfTheBoard);
}

void RecorderControl::TakeTapeOut() {
    if (!recorder_.RecorderOn) return;
    RecorderSwitchOff(table_, recorder_);
    mesa_.Strip().ShowPressed(RecorderKey::OnOff, false);
    ShowPosition();
}

}  // namespace zorva
