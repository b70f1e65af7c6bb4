#pragma once

#include <functional>

#include "core/Outside.h"

namespace zorva {

/// Plays one game at a time and decides what comes after it. The turn driver runs inside the call that
/// started it. StartNewGame during a game therefore only notes the wish; the new game starts when the
/// old game's driver has returned. A thousand new games in a row need no more stack than one.
class GameRunner {
public:
    GameRunner(GameState& state, const Settings& settings, Outside& outside)
        : game_{state, settings, outside} {}

    /// Called when the players cancel the first question of a new game to change settings.
    std::function<void()> SettingsWanted;
    /// Called when a game has ended or was given up, but not when it is left to be continued later. Also
    /// called by StartNewGame when no game is being played.
    std::function<void()> GameOver;
    /// Called when a game has ended and no other follows at once.
    std::function<void()> Idle;
    /// Called once Leave was requested and the turn driver has returned.
    std::function<void()> Ended;

    /// Gives up the game that is being played, if any, and plays a new one.
    void StartNewGame();
    /// Plays on the game that was read from the file.
    void Continue();
    /// Leaves the game that is being played, if any, and calls Ended.
    void Leave();

    bool IsRunning() const { return running_; }
    /// Whether Leave was requested: nothing is to be asked any more.
    bool IsLeaving() const { return wish_ == Wish::Leave; }

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
