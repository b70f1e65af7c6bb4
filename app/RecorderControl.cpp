#include "app/RecorderControl.h"

#include "app/Mesa.h"
#include "app/Sentences.h"

namespace zorva {
namespace {

bool GoesBack(RecorderKey key) {
    return key == RecorderKey::BackOne || key == RecorderKey::AutoBack;
}

}  // namespace

RecorderControl::RecorderControl(GameContext game, RecorderState& recorder, Mesa& mesa)
    : game_(game), recorder_(recorder), mesa_(mesa) {}

bool RecorderControl::CanStep(RecorderKey key) const {
    return GoesBack(key) ? CanStepBack(game_.state, recorder_) : CanStepForward(game_.state, recorder_);
}

bool RecorderControl::IsLive(RecorderKey key) const {
    switch (key) {
        // Whenever a throw is awaited, although SwitchOnOff refuses some of these presses.
        case RecorderKey::OnOff: return game_.state.WaitingForThrow != No;
        case RecorderKey::BackOne:
        case RecorderKey::ForwardOne: return CanStep(key) && !IsReplaying(recorder_);
        case RecorderKey::AutoBack: return CanStep(key) && !recorder_.AutoAdvanceActive;
        case RecorderKey::AutoForward: return CanStep(key) && !recorder_.AutoRewindActive;
        case RecorderKey::Restore: return CanRestore(game_.state, recorder_) && !IsReplaying(recorder_);
    }
    return false;
}

void RecorderControl::Press(RecorderKey key) {
    if (key == RecorderKey::OnOff) {
        SwitchOnOff();
        return;
    }
    if (!recorder_.RecorderOn) {
        mesa_.Shared().Say("La grabadora está apagada.");
        return;
    }
    switch (key) {
        case RecorderKey::AutoBack: RunAutomatic(key, recorder_.AutoRewindActive); break;
        case RecorderKey::AutoForward: RunAutomatic(key, recorder_.AutoAdvanceActive); break;
        case RecorderKey::Restore: Restore(); break;
        default: StepOnce(key);
    }
}

// ---------------------------------------------------------------------------------- what is seen

void RecorderControl::ShowKey(RecorderKey key, bool pressed) {
    mesa_.ShowRecorderKey(key, pressed);
    game_.outside.PlaySound(Sound::RecorderKey);
}

// A key that does nothing stays up. Players who do not see that hear why.
void RecorderControl::SayWhyNot(RecorderKey key) const {
    if (IsReplaying(recorder_)) return;
    mesa_.Shared().Say(GoesBack(key) ? "Es el principio de la partida." : "Es el final de la cinta.");
}

// ------------------------------------------------------------------------------------- the keys

void RecorderControl::SwitchOnOff() {
    if (IsReplaying(recorder_)) return;
    if (recorder_.RecorderOn) {
        SwitchOff();
    } else if (CanSwitchOn(game_.state, recorder_)) {
        RecorderSwitchOn(game_, recorder_);
        ShowKey(RecorderKey::OnOff, true);
        mesa_.RefreshCursor();
        mesa_.Shared().Say(
            "Grabadora encendida. Control y las flechas recorren las jugadas; control e Inicio la "
            "apaga.");
    } else {
        mesa_.Shared().Say("La grabadora se enciende después de alguna jugada y " +
                           NoThrowAwaitedText(game_.settings));
    }
}

void RecorderControl::SwitchOff() {
    game_.outside.SetScreenCursor(ScreenCursor::Hourglass);
    game_.outside.Pause(10);
    RecorderSwitchOff(game_, recorder_);
    mesa_.Shared().Say("Grabadora apagada: la partida sigue donde estaba.");
    ShowSwitchedOff();
}

void RecorderControl::ShowSwitchedOff() {
    ShowKey(RecorderKey::OnOff, false);
    game_.outside.Pause(10);
    game_.outside.SetScreenCursor(ScreenCursor::OfTheBoard);
}

void RecorderControl::Step(RecorderKey key) {
    if (GoesBack(key)) {
        StepBack(game_, recorder_);
    } else {
        StepForward(game_, recorder_);
    }
    mesa_.RefreshCursor();
}

void RecorderControl::StepOnce(RecorderKey key) {
    if (!IsLive(key)) return SayWhyNot(key);
    ShowKey(key, true);
    Step(key);
    ShowKey(key, false);
}

// The key is a toggle: a second press arrives during the yield and clears the flag.
void RecorderControl::RunAutomatic(RecorderKey key, Short& active) {
    if (active) {
        active = No;
        return;
    }
    if (!IsLive(key)) return SayWhyNot(key);
    ShowKey(key, true);
    active = Yes;
    mesa_.RefreshCursor();
    while (active && CanStep(key)) {
        Step(key);
        game_.outside.Pause(5);
        game_.outside.YieldToEvents(UserInput::Handled);
    }
    active = No;
    ShowKey(key, false);
    mesa_.RefreshCursor();
}

void RecorderControl::Restore() {
    if (IsReplaying(recorder_)) return;
    if (!CanRestore(game_.state, recorder_)) {
        game_.outside.ShowMessage(
            "Tecla no activa",
            "La tecla Restaurar no está activa, ya que la situación de la partida no se ha alterado. "
            "Esta tecla "
            "le permite restaurar la partida a una situación anterior una vez que se ha modificado el "
            "desarrollo de la misma mediante la teclas de Avance y Rebobinado.",
            5, MessageButtons::Acknowledge);
        return;
    }
    game_.outside.SetScreenCursor(ScreenCursor::Hourglass);
    ShowKey(RecorderKey::Restore, true);
    game_.outside.Pause(8);
    RestorePosition(game_, recorder_);
    mesa_.Shared().Say("Partida restaurada.");
    ShowKey(RecorderKey::Restore, false);
    game_.outside.Pause(8);
    ShowSwitchedOff();
}

void RecorderControl::GoTo(Short moves) {
    if (IsReplaying(recorder_)) return;
    if (!recorder_.RecorderOn) {
        mesa_.Shared().Say("La grabadora está apagada.");
    } else if (moves >= 0 && moves < recorder_.RecorderEnd) {
        GoToPosition(game_, recorder_, moves);
        mesa_.RefreshCursor();
    }
}

void RecorderControl::TakeTapeOut() {
    if (!recorder_.RecorderOn) return;
    RecorderSwitchOff(game_, recorder_);
    mesa_.ShowRecorderKey(RecorderKey::OnOff, false);
    mesa_.RefreshCursor();
}

}  // namespace zorva
