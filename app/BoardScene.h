#pragma once

#include <QRect>
#include <QVariantAnimation>
#include <functional>
#include <vector>

#include "app/BoardMotion.h"
#include "app/BoardPainter.h"
#include "app/BoardView.h"
#include "core/Outside.h"

namespace zorva {

/// The board as it is seen: knows what of it changes when something happens in the game, paints that
/// much of it, and tells the window which part to show anew.
class BoardScene {
public:
    /// Called with the device pixels that have been painted anew.
    using Changed = std::function<void(const QRect& device)>;

    BoardScene(const GameState& state, const Settings& settings, Artwork& artwork, Changed changed);

    /// To be begun ahead of SetScreen.
    Background& TheBackground() { return painter_.TheBackground(); }
    void SetScreen(const Layout& layout, QSize devicePixels);
    const QPixmap& Picture() const { return painter_.Picture(); }
    const BoardView& View() const { return view_; }

    // Pieces. A walk is a chain of StartStep and ShowStep(0..1).
    /// Takes the pieces, the dice and the light away: a new game begins.
    void Clear();
    void Lift(PieceCode piece);
    void StartStep(PieceCode piece, Square from, Square to);
    void ShowStep(double progress);
    /// Whether pieces are on their way: the next wait is to show it.
    bool HasMotion() const { return !motions_.empty() || !dieMotions_.empty(); }
    void PutDown(PieceCode piece);
    /// The piece hangs on the cursor.
    void Drag(PieceCode piece, QPointF at);
    /// A dragged piece goes back to where it stands, by ShowStep.
    void StartGlideBack(PieceCode piece);

    // Dice, turn and marks.
    void ShowDie(Colour colour, Short face, DieIs how);
    void ClearDice();
    /// Lights the house of that colour, 0 for none, and shows a bonus of 10 or 20 squares in its tray.
    void ShowTurn(Colour colour, Short bonusDue);
    /// The same for a colour that has won, with a ring of light round its goal.
    void ShowWinner(Colour colour);
    void ShowMove(const BoardView::ShownMove& move);
    void ShowPreview(const BoardView::ShownMove& move);
    void ShowMovable(const std::array<bool, BoardView::CodeCount>& movable);
    void ShowMarked(PieceCode piece);
    void ShowManualMode(bool on);

    /// Writes the players' names anew.
    void RepaintHouses();
    /// Puts everything where the tables say and paints the whole board.
    void Refresh();

private:
    QPointF PlaceOf(PieceCode piece) const;
    QPointF PlaceOnStep(PieceCode piece, Square square) const;
    QRect AreaOf(PieceCode piece) const;
    void MoveTo(PieceCode piece, QPointF place, double height = 0);
    void PoseDie(Colour colour, const BoardView::DiePose& pose);
    void SlideOthersToTheirPlaces();
    void StartPulse(QPointF at, double reach);
    void ShowPulse(double progress);
    void ForgetMotion();
    void Repaint(const QRect& device);
    void RepaintHouse(Colour colour);
    QPointF EndOf(const BoardView::ShownMove& move) const;
    void RepaintMove(const BoardView::ShownMove& move);
    void RepaintPiece(PieceCode piece);

    const GameState& state_;
    const Settings& settings_;
    BoardPainter painter_;
    Changed changed_;
    Layout layout_;
    BoardView view_;
    std::vector<PieceMotion> motions_;
    std::vector<DieMotion> dieMotions_;
    PerColour<int> rolls_{};
    QVariantAnimation pulse_;  // goes on beside the game, which does not wait for it
};

}  // namespace zorva
