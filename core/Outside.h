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

/// What becomes of clicks and keys during a yield.
enum class UserInput {
    Held,    ///< they stay queued: a wait comes that they may answer
    Handled  ///< their handlers run now and may change the state
};

/// How a die comes to show a face.
enum class DieIs {
    Ready,      ///< it waits to be thrown
    RollingBy,  ///< the face rolls by, others follow
    Thrown,     ///< this is the throw
    AtRest      ///< it lies where an earlier throw left it
};

/// Why the light goes to a colour, or away.
enum class TurnIs {
    InDraw,  ///< it throws in the draw or has won it; with colour 0 the draw, or a new round, begins
    Throws,  ///< its turn has come to a throw
    BonusForCapture,  ///< it may walk 20 squares for a capture
    BonusForArrival,  ///< it may walk 10 squares for an arrival
    OnTape,           ///< it is on turn at the recorder's position
    Won,              ///< it has won
    Over              ///< the light goes out, whatever the colour
};

/// Which pieces a redrawn board shows.
enum class PiecesShown {
    None,           ///< a game is about to put them down one by one
    OnTheirSquares  ///< those that were on the board, each where PiecePosition says
};

/// Everything a game procedure may ask of the world. Each call says what happened, so that nobody on the
/// other side has to find it out from the state. The board window answers with pixels, sounds and waits;
/// SilentOutside answers with nothing; tests answer with a list of notes.
class Outside {
public:
    Outside() = default;
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;
    virtual ~Outside() = default;

    // Chance.
    /// A face 1..6, each as likely as the others: the only chance in the game.
    virtual Short RollFace() = 0;

    // Time.
    /// Runs the handlers that are due and returns at once.
    virtual void YieldToEvents(UserInput input) = 0;
    /// Returns after something has happened: a handler may have changed the state.
    virtual void WaitForInput() = 0;
    /// Waits n hundredths of a second at speed 0, nothing at speed 100; no handler of a click or a key
    /// runs meanwhile.
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
    /// Shows a face 1..6 in the colour's die box.
    virtual void DrawDie(Colour colour, Short face, DieIs how) = 0;
    /// Empties the die boxes of all colours.
    virtual void ClearDice() = 0;
    /// Lights the house of that colour, 0 for none; see TurnIs.
    virtual void ShowTurn(Colour colour, TurnIs why) = 0;
    /// Shows the move that is about to be made, or is advised, for the colour on turn.
    virtual void ShowChosenMove(PieceCode piece, Square from, Square to) = 0;
    /// The tables were changed as a whole: draws all of the board again.
    virtual void RefreshBoard(PiecesShown pieces) = 0;
    virtual void SetScreenCursor(ScreenCursor cursor) = 0;

    // The move log.
    /// Empties the log and writes its heading.
    virtual void BeginLog(std::string_view heading) = 0;
    /// Adds the line of a move whose record has just been filled.
    virtual void AddLogLine(Short moveNumber, const MoveRecord& record) = 0;
    /// Selects a line, 0 being the heading and n the line of move n; -1 selects none.
    virtual void SelectLogLine(Short line) = 0;
    /// Forgets that line and all after it.
    virtual void CutLogFrom(Short line) = 0;

    // The players.
    /// Shows a message of lineCount lines and returns when it was answered.
    virtual MessageAnswer ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                      MessageButtons buttons) = 0;
    /// The colour on turn is chosen and nothing is thrown or moved yet: the game is whole and can be
    /// kept.
    virtual void PositionReached() = 0;
    /// A game has ended and the players want it in the history.
    virtual void KeepResult(const GameResult& result) = 0;
};

/// A game with all that its procedures need: its value, the players' settings and the world around it.
/// Handed from procedure to procedure; owns nothing.
struct GameContext {
    GameState& state;
    const Settings& settings;
    Outside& outside;
};

}  // namespace zorva
