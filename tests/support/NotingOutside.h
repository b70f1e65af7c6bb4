#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "core/DecidedThrows.h"

namespace zorva::test {

using Notes = std::vector<std::string>;

/// A world that writes down what it is asked for, throws what a script says and answers the waits as
/// a person would. The game ends where a throw would be awaited and the script has none left.
class NotingOutside : public DecidedThrows {
public:
    explicit NotingOutside(GameState& state, std::vector<Short> throws = {})
        : throws_(throws.begin(), throws.end()), state_(state) {}

    /// What the person does in the next waits, one after another.
    std::deque<std::function<void(GameState&)>> inputs;
    /// What the person answers to every question.
    MessageAnswer answer = MessageAnswer::Accepted;
    /// What the person does in each yield.
    std::function<void()> atYield = [] {};
    /// Whether a screen reader abandons the game while a message is open.
    bool abandonsInMessage = false;

    /// The position handed over last.
    GameState kept;

    /// Everything noted, or what begins with one of these words.
    const Notes& All() const { return notes_; }
    Notes Only(std::initializer_list<std::string> words) const;

    void WaitForInput() override;
    void YieldToEvents(UserInput) override { atYield(); }
    void PositionReached(const GameState& position) override;
    void Pause(Short n) override { Note("pause", {n}); }
    void StepDelay(Short n) override { Note("delay", {n}); }
    void PlaySound(Sound sound) override { Note("sound", {static_cast<int>(sound)}); }
    void LiftPiece(PieceCode piece, Square from) override { Note("lift", {piece, from}); }
    void StepPiece(PieceCode piece, Square from, Square to) override { Note("step", {piece, from, to}); }
    void PutDownPiece(PieceCode piece, Square at) override { Note("put", {piece, at}); }
    void DrawDie(Colour colour, Short face, DieIs how) override;
    void ClearDice() override { Note("clear", {}); }
    void ShowTurn(Colour colour, TurnIs why) override;
    void SetScreenCursor(ScreenCursor) override { throwIsOffered_ = state_.WaitingForThrow; }
    void ShowChosenMove(PieceCode piece, Square from, Square to) override {
        Note("show", {piece, from, to});
    }
    void RefreshBoard(PiecesShown pieces) override {
        notes_.push_back(pieces == PiecesShown::None ? "empty" : "refresh");
    }
    void BeginLog(std::string_view heading) override { notes_.push_back("log " + std::string(heading)); }
    void AddLogLine(Short moveNumber, const MoveRecord& record) override;
    MessageAnswer ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                              MessageButtons buttons) override;
    void KeepResult(const GameResult& result) override { Note("keep", {result.winner, result.points}); }

protected:
    Short NextThrow() override;

private:
    void Note(const char* what, std::initializer_list<int> numbers);

    std::deque<Short> throws_;
    GameState& state_;
    Short throwIsOffered_ = No;  // by the cursor
    Notes notes_;
};

}  // namespace zorva::test
