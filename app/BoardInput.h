#pragma once

#include <QCursor>

#include "app/Layout.h"
#include "core/GameState.h"
#include "core/Recorder.h"

class QKeyEvent;

namespace zorva {

class Mesa;

/// What the mouse and the keyboard do on the board itself. The handlers translate and hand over: they
/// fill the fields the turn driver waits for and clear its flag last.
class BoardInput {
public:
    BoardInput(GameState& state, const Settings& settings, const RecorderState& recorder, Mesa& mesa);

    // The mouse, at a point of the layout. A click acts when the button is released.
    void Press(Point at, Qt::MouseButton button);
    void Move(Point at);
    void Release(Point at);

    bool IsDragging() const { return dragged_ != 0; }
    /// A dragged piece is let go where it came from.
    void CancelDrag();

    /// A key that produces a character, Escape or Enter: hides the window, throws, or accepts a move.
    void PlainKey(const QKeyEvent& key);
    /// Marks the next movable piece of the person on turn, or the one before.
    void MarkNext(int direction);

    /// The cursor that belongs to that point now.
    QCursor CursorAt(Point at) const;

    /// Shows what can be picked now; call when a wait begins or ends.
    void ShowWhatCanBePicked();

private:
    bool IsPersonsPick() const;
    bool IsMovable(Short piece) const;
    Short MovablePieceAt(Point at) const;
    PieceCode DraggablePieceAt(Point at) const;
    Square DropSquareAt(Point at) const;
    bool MayDropAt(Point at) const;
    QCursor ManualCursorAt(Point at) const;
    QCursor OrdinaryCursorAt(Point at) const;

    void Click(Point at);
    void Pick(Short piece);
    void Throw();
    void ToggleManualMode();
    void LeaveManual();
    void StartDrag(Point at);
    void EndDrag(Point at);
    void LetGlideBack(PieceCode piece);
    void Preview(Short piece);
    void AcceptMove();
    void GlowNewGameButton();

    GameState& state_;
    const Settings& settings_;
    const RecorderState& recorder_;
    Mesa& mesa_;
    Qt::MouseButton PressedButton = Qt::NoButton;
    PieceCode dragged_ = 0;  // in manual mode
    Short previewed_ = 0;    // piece under the cursor
    Short marked_ = 0;       // piece marked by the keyboard
};

}  // namespace zorva
