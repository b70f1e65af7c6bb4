#pragma once

#include "core/Outside.h"

namespace zorva {

/// A world in which nothing is seen, heard or waited for. What remains open is chance; who needs
/// more overrides that much. Questions are refused, notices acknowledged.
class SilentOutside : public Outside {
public:
    void YieldToEvents() override {}
    void WaitForInput() override { Fatal("a game without players waits for one"); }
    void Pause(Short) override {}
    void StepDelay(Short) override {}
    void PlaySound(Sound) override {}
    void LiftPiece(PieceCode, Square) override {}
    void StepPiece(PieceCode, Square, Square) override {}
    void PutDownPiece(PieceCode, Square) override {}
    void DrawDie(Colour, Short) override {}
    void ShowChosenMove(PieceCode, Square, Square) override {}
    void DrawWinner(Colour, bool) override {}
    void EmptyBoard() override {}
    void RefreshBoard() override {}
    void SetScreenCursor(ScreenCursor) override {}
    void BeginLog(std::string_view) override {}
    void AddLogLine(Short, const MoveRecord&) override {}
    void SelectLogLine(Short) override {}
    void CutLogFrom(Short) override {}
    MessageAnswer ShowMessage(std::string_view, std::string_view, Short, MessageButtons) override {
        return MessageAnswer::Refused;
    }
    void PositionReached() override {}
    void KeepResult(const GameResult&) override {}
};

}  // namespace zorva
