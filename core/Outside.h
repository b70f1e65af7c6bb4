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

/// The cursors that the game asks for; all others depend only on where the mouse is.
enum class ScreenCursor { Default, Hourglass, OfTheBoard };

/// What becomes of clicks and keys during a yield.
enum class UserInput {
    Held,    ///< they stay queued for the next wait
    Handled  ///< their handlers run now and may change the state
};

/// Why a die shows its face.
enum class DieIs {
    Ready,      ///< it waits to be thrown
    RollingBy,  ///< one of the faces before the throw
    Thrown,     ///< this is the throw
    AtRest      ///< it shows an earlier throw, without rolling
};

/// Why a colour's house is lit, or the light goes out.
enum class TurnIs {
    InDraw,  ///< it throws in the draw or has won it; with colour 0 the draw, or a new round, begins
    Throws,  ///< it may throw
    BonusForCapture,  ///< it may walk 20 squares for a capture
    BonusForArrival,  ///< it may walk 10 squares for an arrival
    OnTape,           ///< it is on turn at the recorder's position
    Won,              ///< it has won
    Over              ///< the light goes out; the colour does not matter
};

/// Which pieces a redrawn board shows.
enum class PiecesShown {
    None,           ///< a game is about to put them down one by one
    OnTheirSquares  ///< those that were on the board, each where PiecePosition says
};

/// Everything that a game procedure may ask of the world around it. Each call says what happened, so
/// that the other side need not find it out from the state. The board window draws, plays sounds and
/// waits; SilentOutside does nothing; tests write a list of notes.
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
    /// Runs the handlers of the events that have arrived and returns without waiting for more.
    virtual void YieldToEvents(UserInput input) = 0;
    /// Waits for an event and runs its handler, which may have changed the state on return.
    virtual void WaitForInput() = 0;
    /// Waits n hundredths of a second at speed 0, less at higher speeds and not at all at speed 100. No
    /// handler of a click or a key runs meanwhile.
    virtual void Pause(Short n) = 0;
    /// The shorter wait between two squares of a walk; nothing when n is below 1.
    virtual void StepDelay(Short n) = 0;

    // Sound.
    /// Starts a sound and returns at once; the sound that is playing stops.
    virtual void PlaySound(Sound sound) = 0;

    // The board. None of these calls runs a handler of a click or a key; DrawDie and ShowTurn may wait
    // until the players have seen what lies in a die box. A piece is lifted, steps from square to
    // square, and is put down; in between it stands in no slot and in no box. Square 0 is its waiting
    // box.
    virtual void LiftPiece(PieceCode piece, Square from) = 0;
    virtual void StepPiece(PieceCode piece, Square from, Square to) = 0;
    virtual void PutDownPiece(PieceCode piece, Square at) = 0;
    /// Shows a face 1..6 in the colour's die box.
    virtual void DrawDie(Colour colour, Short face, DieIs how) = 0;
    /// Empties the die boxes of all colours; what nobody has seen yet may lie there a little longer.
    virtual void ClearDice() = 0;
    /// Lights the house of that colour alone, with colour 0 or TurnIs::Over none.
    virtual void ShowTurn(Colour colour, TurnIs why) = 0;
    /// Shows the move that is about to be made, or is advised, for the colour on turn.
    virtual void ShowChosenMove(PieceCode piece, Square from, Square to) = 0;
    /// Draws all of the board again, after a change of many pieces at once.
    virtual void RefreshBoard(PiecesShown pieces) = 0;
    virtual void SetScreenCursor(ScreenCursor cursor) = 0;

    // The move log.
    /// Empties the log and writes its heading.
    virtual void BeginLog(std::string_view heading) = 0;
    /// Adds the line of a move whose record has just been filled.
    virtual void AddLogLine(Short moveNumber, const MoveRecord& record) = 0;
    /// That move, whose line has been added, is made now. Not called for the moves of a loaded game.
    virtual void MoveBegins(const MoveRecord& record) = 0;
    /// Selects a line, 0 being the heading and n the line of move n; -1 selects none.
    virtual void SelectLogLine(Short line) = 0;
    /// Forgets that line and all after it.
    virtual void CutLogFrom(Short line) = 0;

    // The players.
    /// Shows a message of lineCount lines and returns when it was answered. Handlers of clicks and keys
    /// run while it is open and may change the state.
    virtual MessageAnswer ShowMessage(std::string_view title, std::string_view text, Short lineCount,
                                      MessageButtons buttons) = 0;
    /// The move before has ended. The game can be saved as `position`, in which the next colour on turn
    /// is chosen and nothing is thrown or moved yet, or the colour on turn has won. The state itself may
    /// get there only later. When saving fails, the other side may show a message, during which handlers
    /// run.
    virtual void PositionReached(const GameState& position) = 0;
    /// A game has ended and the players want it in the history. A failure may show a message, too.
    virtual void KeepResult(const GameResult& result) = 0;
};

/// What every procedure of the game needs: the state, the players' settings and the world outside.
/// Passed from procedure to procedure; owns nothing.
struct GameContext {
    GameState& state;
    const Settings& settings;
    Outside& outside;
};

}  // namespace zorva
