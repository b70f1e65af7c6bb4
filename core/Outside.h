#pragma once

#include <string_view>

#include "core/Ending.h"
#include "core/GameState.h"
#include "core/Sound.h"

namespace zorva {

/// Which buttons a message offers.
enum class MessageButtons : Short { Acknowledge = 1, YesNo = 2 };

/// What a person answered; closing a question without a button refuses.
enum class MessageAnswer : Short { Accepted = -1, Refused = 0 };

/// Cursors the game itself asks for; all others follow from where the mouse is.
enum class ScreenCursor { Default, Hourglass, OfTheBoard };

/// Everything a game procedure may ask of the world. The board window answers with pixels, sounds
/// and waits; the windowless player answers with nothing; tests answer with a list of notes.
class Outside {
public:
    Outside() = default;
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;
    virtual ~Outside() = default;

    // Chance.
    /// A face 1..6, each as likely as the others: the only chance in the game.
    virtual Short RollFace() = 0;

    /// Whether anybody sees or hears the game. When nobody does, what is only there to be seen is left
    /// out: the faces that roll by before a throw, and the squares that a walk passes.
    virtual bool IsWatched() const { return true; }

    /// Whether anybody follows the game move by move. When nobody does, its log lines and the positions
    /// it reaches are not told; its result always is.
    virtual bool IsFollowed() const { return true; }

    // Time.
    /// Runs the handlers that are due and returns at once.
    virtual void YieldToEvents() = 0;
    /// Returns after something has happened: a handler may have changed the state.
    virtual void WaitForInput() = 0;
    /// Waits n hundredths of a second at speed 0, nothing at speed 100; no handler runs meanwhile.
    virtual void Pause(Short n) = 0;
    /// The shorter wait between two squares of a walk; nothing when n is below 1.
    virtual void StepDelay(Short n) = 0;

    // Sound.
    /// Starts a sound and returns at once; it cuts off the one that is playing.
    virtual void PlaySound(Sound sound) = 0;

    // The board. A piece is lifted, steps from square to square, and is put down; while it is in the
    // air it stands in no table. Square 0 is its waiting box.
    virtual void LiftPiece(PieceCode piece, Square from) = 0;
    virtual void StepPiece(PieceCode piece, Square from, Square to) = 0;
    virtual void PutDownPiece(PieceCode piece, Square at) = 0;
    /// Shows a face 1..6 in the colour's die box, or empties the box with 0.
    virtual void DrawDie(Colour colour, Short face) = 0;
    /// Shows the move that is about to be made, or is advised, for the colour on turn.
    virtual void ShowChosenMove(PieceCode piece, Square from, Square to) = 0;
    /// One half of a blink of the winner's display.
    virtual void DrawWinner(Colour colour, bool visible) = 0;
    /// Takes every piece off the board: a new game puts them down one by one.
    virtual void EmptyBoard() = 0;
    /// The tables were changed as a whole: draws all of the board again.
    virtual void RefreshBoard() = 0;
    virtual void SetScreenCursor(ScreenCursor cursor) = 0;

    // The move log.
    /// Empties the log and writes its heading.
    virtual void BeginLog(std::string_view heading) = 0;
    /// Adds the line of a move whose record has just been filled; for those who follow the game.
    virtual void AddLogLine(Short moveNumber, const MoveRecord& record) = 0;
    /// Selects a line, 0 being the heading and n the line of move n; -1 selects none.
    virtual void SelectLogLine(Short line) = 0;
    /// Forgets that line and all after it.
    virtual void CutLogFrom(Short line) = 0;

    // The players.
    /// Shows a message of lineCount lines and returns when it was answered.
    virtual MessageAnswer ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                      MessageButtons buttons) = 0;
    /// The turn is chosen and nothing is thrown or moved yet: the game is whole and can be kept. For
    /// those who follow the game.
    virtual void PositionReached() = 0;
    /// A game has ended and the players want it in the history.
    virtual void KeepResult(const GameResult& result) = 0;
};

/// What of the world is only there for those who see, hear or follow a game. A game that nobody watches
/// asks for none of it: thousands of them are played a second.
class Show {
public:
    explicit Show(Outside& outside)
        : watched_(outside.IsWatched() ? &outside : nullptr),
          followed_(outside.IsFollowed() ? &outside : nullptr) {}

    bool IsWatched() const { return watched_ != nullptr; }

    /// Only who sees a game can have done something to it.
    void YieldToEvents() const {
        if (watched_) watched_->YieldToEvents();
    }
    void Pause(Short n) const {
        if (watched_) watched_->Pause(n);
    }
    void StepDelay(Short n) const {
        if (watched_) watched_->StepDelay(n);
    }
    void PlaySound(Sound sound) const {
        if (watched_) watched_->PlaySound(sound);
    }
    void LiftPiece(PieceCode piece, Square from) const {
        if (watched_) watched_->LiftPiece(piece, from);
    }
    void StepPiece(PieceCode piece, Square from, Square to) const {
        if (watched_) watched_->StepPiece(piece, from, to);
    }
    void PutDownPiece(PieceCode piece, Square at) const {
        if (watched_) watched_->PutDownPiece(piece, at);
    }
    void DrawDie(Colour colour, Short face) const {
        if (watched_) watched_->DrawDie(colour, face);
    }
    void ShowChosenMove(PieceCode piece, Square from, Square to) const {
        if (watched_) watched_->ShowChosenMove(piece, from, to);
    }
    void AddLogLine(Short moveNumber, const MoveRecord& record) const {
        if (followed_) followed_->AddLogLine(moveNumber, record);
    }
    void PositionReached() const {
        if (followed_) followed_->PositionReached();
    }
    void SetScreenCursor(ScreenCursor cursor) const {
        if (watched_) watched_->SetScreenCursor(cursor);
    }
    /// Shows the die boxes of all four colours empty.
    void ClearDice() const {
        if (!watched_) return;
        for (Colour colour = 1; colour <= ColourCount; ++colour) watched_->DrawDie(colour, 0);
    }

private:
    Outside* watched_;
    Outside* followed_;
};

/// A game on the table: its value, the players' settings and the world around it. Handed from
/// procedure to procedure; owns nothing.
struct GameContext {
    GameState& state;
    const Settings& settings;
    Outside& outside;
    Show show{outside};
};

}  // namespace zorva
