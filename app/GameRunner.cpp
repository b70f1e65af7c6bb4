#include "app/GameRunner.h"

#include "core/GameStart.h"

namespace zorva {

// The turn driver waits somewhere below on the stack. It finds the flags cleared and returns.
void GameRunner::Abandon() {
    game_.state.WaitingForThrow = No;
    game_.state.WaitingForMove = No;
    game_.state.GameInProgress = No;
}

void GameRunner::TellGameOver() {
    if (wish_ != Wish::Leave && GameOver) GameOver();
}

void GameRunner::Run(const std::function<void()>& play) {
    running_ = true;
    play();
    TellGameOver();
    while (wish_ == Wish::NewGame) {
        wish_ = Wish::None;
        const StartOutcome outcome = StartGame(game_);
        TellGameOver();
        if (outcome == StartOutcome::Cancelled && wish_ == Wish::None && SettingsWanted)
            SettingsWanted();
    }
    running_ = false;
    if (wish_ == Wish::Leave && Ended) Ended();
    if (wish_ == Wish::None && Idle) Idle();
}

void GameRunner::StartNewGame() {
    Abandon();
    wish_ = Wish::NewGame;
    if (!running_) Run([] {});
}

void GameRunner::Continue() {
    Run([this] { ContinueGame(game_); });
}

void GameRunner::Leave() {
    Abandon();
    wish_ = Wish::Leave;
    if (!running_ && Ended) Ended();
}

}  // namespace zorva
