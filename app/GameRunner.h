#pragma once

#include <functional>

#include "core/Outside.h"

namespace zorva {

/// Plays one game at a time and decides what comes after it. A new game that is asked for while one
/// is being played waits until the old one's driver has come back to where it was started: a
/// thousand new games in a row need no more stack than one.
class GameRunner {
public:
    GameRunner(GameState& state, const Settings& settings, Outside& outside)
        : game_{state, settings, outside} {}

    /// What happens when the players cancel the first question to change settings.
    std::function<void()> SettingsWanted;
    /// What happens when a game has ended or was given up, but not when it is left to go on later.
    std::function<void()> GameOver;
    /// What happens when no game is being played any more and the program is to end.
    std::function<void()> Ended;

    /// Starts a new game, after the one that is being played has been given up.
    void StartNewGame();
    /// Goes on with the game in the state.
    void Continue();
    /// Ends the program, after the game that is being played has been left.
    void Leave();

    bool IsRunning() const { return running_; }

private:
    enum class Wish { None, NewGame, Leave };

    void Run(const std::function<void()>& play);
    void Abandon();
    void TellGameOver();

    GameContext game_;
    bool running_ = false;
    Wish wish_ = Wish::None;
};

}  // namespace zorva
