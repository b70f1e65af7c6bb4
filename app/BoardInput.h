#pragma once

#include <QCursor>

#include "app/BoardView.h"
#include "app/Layout.h"
#include "app/ManualKeys.h"
#include "core/GameState.h"
#include "core/Recorder.h"

class QKeyEvent;

namespace zorva {

class Mesa;

/// What the mouse and the keyboard do on the board itself. A handler looks what the turn driver waits
/// for, fills the fields of the move and clears the driver's flag last (WaitingForThrow or
/// WaitingForMove); the driver then goes on. While the recorder is on, the board takes no clicks. Points
/// are layout pixels.
class BoardInput {
public:
    BoardInput(GameState& state, const Settings& settings, const RecorderState& recorder, Mesa& mesa);

    // The mouse. A click is a press and a release on the board. It acts when the button is released: it
    // throws, picks a piece of the person on turn, or, with the right button while a throw is awaited,
    // switches manual mode on and off. In manual mode a press drags a piece and a release drops it.
    void Press(Point at, Qt::MouseButton button);
    void Move(Point at);
    void Release(Point at, bool onBoard);
    /// Ends the press under way, if any, without a click: a dragged piece lies again where it stood, and
    /// a later release does nothing. A piece that the keyboard has lifted stays lifted.
    void LosePress();
    /// Ends the press in the same way and puts back a piece that the keyboard has lifted.
    void BreakOff();

    /// A key of Qt::Key that was pressed without Ctrl, Alt or Meta. F10 and the menu key switch manual
    /// mode on and off, or say why not; in manual mode there are the keys of ManualKeys. Returns false
    /// for all other keys.
    bool ManualKey(int key);
    /// A key that produces a character, Escape or Enter. Escape and Q minimise the window. A small i
    /// does nothing. Any other key throws, leaves manual mode or takes the advised move; Enter takes the
    /// marked piece if there is one. Without a game the new-game button glows again.
    void PlainKey(const QKeyEvent& key);
    /// Marks the next movable piece of the person on turn (direction 1) or the one before (-1), and
    /// shows where it would go. Nothing while no move of a person is awaited.
    void MarkNext(int direction);
    /// Marks that movable piece 1..4 and shows where it would go, without choosing it; 0 shows again
    /// what the keyboard has marked.
    void PointAt(Short piece);

    /// The cursor for that point as the game stands: a die while a throw is awaited, a hand on a piece
    /// that may be picked or dragged, an open or refusing hand during a drag, else the arrow.
    QCursor CursorAt(Point at) const;

    /// Rings the pieces that can be picked now and forgets the marked one. Must be called when a wait
    /// begins or ends.
    void ShowWhatCanBePicked();

private:
    bool IsPersonsPick() const;
    bool IsManual() const { return state_.WaitingForThrow && state_.ManualMode; }
    bool IsMovable(Short piece) const;
    Short MovablePieceAt(Point at) const;
    PieceCode DraggablePieceAt(Point at) const;
    Square DropSquareAt(Point at) const;
    bool MayDropAt(Point at) const;
    bool IsWhereItStood(Point at) const;
    QCursor ManualCursorAt(Point at) const;
    QCursor OrdinaryCursorAt(Point at) const;

    void Click(Point at, Qt::MouseButton button);
    void Pick(Short piece);
    void Throw();
    void ToggleManualMode();
    void LeaveManual();
    void StartDrag(Point at);
    void EndDrag(Point at);
    void LetGlideBack(PieceCode piece);
    void Preview(Short piece);
    BoardView::ShownMove MoveOf(Short piece) const;
    void AcceptMove();
    void InviteToBegin();

    GameState& state_;
    const Settings& settings_;
    const RecorderState& recorder_;
    Mesa& mesa_;
    ManualKeys manualKeys_;
    Qt::MouseButton pressed_ = Qt::NoButton;  // the button of the press under way
    PieceCode dragged_ = 0;                   // the piece that this press drags, 0 when none
    Short previewed_ = 0;                     // piece under the cursor
    Short marked_ = 0;                        // piece marked by the keyboard
};

}  // namespace zorva
