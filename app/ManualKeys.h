#pragma once

#include <vector>

#include "core/GameState.h"

namespace zorva {

class Mesa;

/// Manual mode by keyboard. The player marks a piece, lifts it, chooses a square of its way and puts it
/// down there; a player who does not see the board hears each of these steps. The caller looks after
/// switching the mode on and off.
class ManualKeys {
public:
    ManualKeys(GameState& state, const Settings& settings, Mesa& mesa);

    /// Handles a key of Qt::Key that was pressed without Ctrl, Alt or Meta while manual mode is on.
    /// Returns false if the key does nothing here.
    ///
    /// Tab, Right and Down mark the next piece that may be dragged; Shift+Tab, Left and Up the one
    /// before. Enter and Space lift the marked piece. Then the same keys choose the square one step on
    /// or back, Page Down and Page Up ten, End and Home the last and the first; Enter and Space put the
    /// piece down, and Escape gives up.
    bool Press(int key);

    /// Puts the lifted piece, if any, back where it stood. It stays marked.
    void PutBack();
    /// The same, and no piece stays marked.
    void Forget();

private:
    void MarkNext(int step);
    void Lift();
    void Carry(int step);
    void PutDown();
    void Show();
    std::vector<PieceCode> DraggablePieces() const;
    std::vector<Square> SquaresToChoose() const;

    GameState& state_;
    const Settings& settings_;
    Mesa& mesa_;
    PieceCode marked_ = 0;   // 0 when none
    bool isLifted_ = false;  // the marked piece
    Square target_ = 0;      // above which the lifted piece is; 0 is its box
};

}  // namespace zorva
