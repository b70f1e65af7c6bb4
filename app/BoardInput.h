#pragma once

#include <QCursor>
#include <functional>

#include "app/Layout.h"
#include "core/GameState.h"

class QKeyEvent;

namespace zorva {

class Mesa;

/// What the mouse and the keyboard do on the board. The handlers translate and hand over: they fill
/// the fields the turn driver waits for and clear its flag last.
class BoardInput {
public:
    BoardInput(GameState& state, const Settings& settings, Mesa& mesa);

    void Click(Point at, Qt::MouseButton button);
    void Key(const QKeyEvent& key);
    QCursor PointerAt(Point at) const;

private:
    void Throw();
    void GlowNewGameButton();

    GameState& state_;
    const Settings& settings_;
    Mesa& mesa_;
};

}  // namespace zorva
