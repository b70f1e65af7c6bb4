#include "app/BoardInput.h"

#include <QKeyEvent>
#include <QTimer>

#include "app/KeyStrokes.h"
#include "app/MenuButtons.h"
#include "app/Mesa.h"
#include "core/Turns.h"

namespace zorva {

BoardInput::BoardInput(GameState& state, const Settings& settings, Mesa& mesa)
    : state_(state), settings_(settings), mesa_(mesa) {}

void BoardInput::Throw() {
    state_.WaitingForThrow = No;
    mesa_.setCursor(Qt::ArrowCursor);
}

void BoardInput::GlowNewGameButton() {
    MenuButton& button = mesa_.Buttons().Button(MenuButtons::NewGame);
    button.ShowGlow(true);
    QTimer::singleShot(900, &button, [&button] { button.ShowGlow(false); });
}

void BoardInput::Click(Point, Qt::MouseButton button) {
    if (button == Qt::LeftButton && state_.WaitingForThrow) Throw();
}

void BoardInput::Key(const QKeyEvent& key) {
    if (!IsPlainKey(key)) return;
    if (key.key() == Qt::Key_Escape || key.text().toLower() == "q") {
        mesa_.showMinimized();
        return;
    }
    if (key.text() == "i") return;
    if (!state_.GameInProgress) {
        GlowNewGameButton();
    } else if (state_.WaitingForThrow) {
        Throw();
    } else if (state_.WaitingForMove) {
        TakeAdvisedMove(state_);
    }
}

QCursor BoardInput::PointerAt(Point) const {
    if (state_.WaitingForThrow) return mesa_.Shared().pointers.Die(state_.CurrentColour);
    return Qt::ArrowCursor;
}

}  // namespace zorva
