#include "app/GameRunner.h"

#include "core/Opening.h"
#include "core/Turns.h"

namespace zorva {

// The driver finds the flags cleared at its next look and returns.
void GameRunner::Abandon() {
    table_.state.WaitingForThrow = No;
    table_.state.WaitingForMove = No;
    table_.state.GameInProgress = No;
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
        const StartOutcome outcome = StartGame(table_);
        TellGameOver();
        if (outcome == StartOutcome::Cancelled && wish_ == Wish::None && SettingsWanted)
            SettingsWanted();
    }
    running_ = false;
    if (wish_ == Wish::Leave && Ended) Ended();
}

void GameRunner::StartNewGame() {
    Abandon();
    wish_ = Wish::NewGame;
    if (!running_) Run([] {});
}

void GameRunner::Continue() {
    Run([this] { RunTurns(table_); });
}

void GameRunner::Leave() {
    Abandon();
    wish_ = Wish::Leave;
    if (!running_ && Ended) Ended();
}

}  // namespace zorva
