#pragma once

#include "core/Outside.h"

namespace zorva {

/// A world that shows nothing, plays no sound and never waits. It is enough for carrying out moves that
/// were made before; throwing the die or waiting for input in it is Fatal. A derived class overrides
/// what its game needs besides. Every message is answered with Refused.
class SilentOutside : public Outside {
public:
    Short RollFace() override { Fatal("a die is thrown where nobody throws"); }
    void YieldToEvents(UserInput) override {}
    void WaitForInput() override { Fatal("a game without players waits for one"); }
    void Pause(Short) override {}
    void StepDelay(Short) override {}
    void PlaySound(Sound) override {}
    void LiftPiece(PieceCode, Square) override {}
    void StepPiece(PieceCode, Square, Square) override {}
    void PutDownPiece(PieceCode, Square) override {}
    void DrawDie(Colour, Short, DieIs) override {}
    void ClearDice() override {}
    void ShowTurn(Colour, TurnIs) override {}
    void ShowChosenMove(PieceCode, Square, Square) override {}
    void RefreshBoard(PiecesShown) override {}
    void SetScreenCursor(ScreenCursor) override {}
    void BeginLog(std::string_view) override {}
    void AddLogLine(Short, const MoveRecord&) override {}
    void MoveBegins(const MoveRecord&) override {}
    void SelectLogLine(Short) override {}
    void CutLogFrom(Short) override {}
    MessageAnswer ShowMessage(std::string_view, std::string_view, Short, MessageButtons) override {
        return MessageAnswer::Refused;
    }
    void PositionReached(const GameState&) override {}
    void KeepResult(const GameResult&) override {}
};

}  // namespace zorva
