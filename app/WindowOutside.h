#pragma once

#include <functional>

#include "app/Narrator.h"
#include "core/Outside.h"

namespace zorva {

class BoardScene;
class Mesa;

/// The world of a game that is played in the board window. Pixels go to BoardScene, sounds to the
/// player, messages to the window, which asks them; waits run Qt's event loop without the mouse and the
/// keyboard.
class WindowOutside : public Outside {
public:
    WindowOutside(Mesa& mesa, const GameState& state, const Settings& settings);

    /// Called with a finished game that the players want in the history.
    std::function<void(const GameResult&)> ResultKept;
    /// Called whenever the game is whole and can be kept.
    std::function<void(const GameState&)> PositionKept;
    /// Called whenever the recorder shows another position, or is switched off.
    std::function<void()> TapeMoved;
    /// Called whenever a piece sets out.
    std::function<void()> PieceLifted;

    /// Tells what happens to players who do not see the board.
    Narrator& Speech() { return narrator_; }

    Short RollFace() override;
    void YieldToEvents(UserInput input) override;
    void WaitForInput() override;
    void Pause(Short n) override;
    void StepDelay(Short n) override;
    void PlaySound(Sound sound) override;
    void LiftPiece(PieceCode piece, Square from) override;
    void StepPiece(PieceCode piece, Square from, Square to) override;
    void PutDownPiece(PieceCode piece, Square at) override;
    void DrawDie(Colour colour, Short face, DieIs how) override;
    void ClearDice() override;
    void ShowTurn(Colour colour, TurnIs why) override;
    void ShowChosenMove(PieceCode piece, Square from, Square to) override;
    void RefreshBoard(PiecesShown pieces) override;
    void SetScreenCursor(ScreenCursor cursor) override;
    void BeginLog(std::string_view heading) override;
    void AddLogLine(Short moveNumber, const MoveRecord& record) override;
    void MoveBegins(const MoveRecord& record) override;
    void SelectLogLine(Short line) override;
    void CutLogFrom(Short line) override;
    MessageAnswer ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                              MessageButtons buttons) override;
    void PositionReached(const GameState& position) override;
    void KeepResult(const GameResult& result) override;

private:
    void Wait(double milliseconds);
    void LetTrayBeSeen(Colour colour);

    Mesa& mesa_;
    BoardScene& scene_;
    const GameState& state_;
    const Settings& settings_;
    Narrator narrator_;
    bool walksHome_ = false;  ///< the piece that walks has stepped onto its goal
};

/// How long Pause(n) lasts, in milliseconds: n hundredths of a second x (100 - speed) / 100; 0 for n
/// below 1.
double PauseMilliseconds(Short n, Short speed);

/// How long StepDelay(n) lasts, in milliseconds: n x (100 - speed) / 50, so n milliseconds at speed 50;
/// 0 for n below 1.
double StepMilliseconds(Short n, Short speed);

}  // namespace zorva
