#include "app/Program.h"

#include <QApplication>
#include <QFile>

#include "app/MenuButtons.h"
#include "dialogs/mensajes.h"

namespace zorva {
namespace {

std::vector<std::uint8_t> RecordingOf(Short id) {
    QFile file(QStringLiteral(":/sounds/%1.wav").arg(id, 2, 10, QLatin1Char('0')));
    if (!file.open(QFile::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    return {bytes.begin(), bytes.end()};
}

}  // namespace

Program::Program()
    : sounds_(RecordingOf),
      mesa_(state_, settings_),
      outside_(mesa_, state_, settings_),
      runner_(state_, settings_, outside_),
      input_(state_, settings_, mesa_) {
    Connect();
}

void Program::Connect() {
    Services& shared = mesa_.Shared();
    shared.PlaySound = [this](Short id) {
        if (settings_.SoundOn == 1) sounds_.Play(id);
    };
    shared.Pause = [this](Short n) { outside_.Pause(n); };
    mesa_.Ask = [this](const QString& title, const QString& text, Short lineCount, MessageButtons buttons) {
        return ShowMessage(&mesa_, mesa_.Shared(), title, text, lineCount, buttons);
    };
    mesa_.ButtonPressed = [this](int button) { ButtonPressed(button); };
    mesa_.BoardClicked = [this](Point at, Qt::MouseButton button) { input_.Click(at, button); };
    mesa_.KeyPressed = [this](const QKeyEvent& key) { input_.Key(key); };
    mesa_.CloseWanted = [this] { AskToLeave(); };
    mesa_.PointerAt = [this](Point at) { return input_.PointerAt(at); };
    runner_.Ended = [] { QApplication::quit(); };
    mesa_.Buttons().Explain(settings_.ButtonInfo == 1);
}

void Program::Start() {
    mesa_.showFullScreen();
}

void Program::ButtonPressed(int button) {
    MenuButton& key = mesa_.Buttons().Button(button);
    key.ShowPressed(true);
    mesa_.Shared().PlaySound(1);
    outside_.Pause(10);
    key.ShowPressed(false);
    switch (button) {
        case MenuButtons::NewGame: AskForNewGame(); break;
        case MenuButtons::Leave: AskToLeave(); break;
        default: break;
    }
}

void Program::AskForNewGame() {
    if (state_.GameInProgress) {
        const MessageAnswer answer =
            mesa_.Ask("Abandonar la partida en curso",
                      "¿Desea abandonar la partida que está jugando para comenzar una nueva partida?", 2,
                      MessageButtons::YesNo);
        if (answer == MessageAnswer::Refused) return;
    }
    runner_.StartNewGame();
}

void Program::AskToLeave() {
    if (state_.GameInProgress) {
        const bool kept = state_.MoveRecordCount >= 2;
        const QString title = kept ? "Posponer la partida en curso" : "Salir del programa";
        const QString text = kept ? "¿Desea abandonar el programa para continuar en otro momento la partida que "
                                    "está jugando?"
                                  : "¿Desea abandonar la partida que está jugando?";
        if (mesa_.Ask(title, text, kept ? 2 : 1, MessageButtons::YesNo) == MessageAnswer::Refused) return;
    }
    runner_.Leave();
}

}  // namespace zorva
