#pragma once

#include "app/BoardInput.h"
#include "app/GameRunner.h"
#include "app/Mesa.h"
#include "app/SoundPlayer.h"
#include "app/WindowOutside.h"
#include "core/GameState.h"

namespace zorva {

/// The running program: one game, its settings, the board window and what connects them.
class Program {
public:
    Program();

    /// Shows the board over the whole screen and waits for the players.
    void Start();

private:
    void Connect();
    void ButtonPressed(int button);
    void AskForNewGame();
    void AskToLeave();

    Settings settings_;
    GameState state_;
    SoundPlayer sounds_;
    Mesa mesa_;
    WindowOutside outside_;
    GameRunner runner_;
    BoardInput input_;
};

}  // namespace zorva
