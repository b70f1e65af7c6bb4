#pragma once

#include <QElapsedTimer>
#include <QRect>
#include <QVariantAnimation>
#include <functional>
#include <vector>

#include "app/BoardMotion.h"
#include "app/BoardPainter.h"
#include "app/BoardView.h"
#include "core/Outside.h"

namespace zorva {

/// The board as the players see it. Each call says what happens in the game; the scene changes its
/// BoardView and tells the window which part looks different; that is what repainting means here. The
/// window has the part painted with its next frame, once, however often it has changed by then.
///
/// Movements take no time here: Lift, StartStep, ShowDie and PutDown begin them, and the caller moves
/// them on with ShowStep during its next wait. Rings of light, confetti, the hand at a die and what
/// fades in a tray run on timers of their own.
class BoardScene {
public:
    /// Called with a rectangle of the window, in device pixels, that looks different.
    using Changed = std::function<void(const QRect& device)>;

    BoardScene(const GameState& state, const Settings& settings, Artwork& artwork, Changed changed);

    /// Call TheBackground().Begin before SetScreen, so that another thread paints it meanwhile.
    Background& TheBackground() { return painter_.TheBackground(); }
    /// Shows everything on another layout. What moves goes on from the same place of the board.
    void SetScreen(const Layout& layout, QSize devicePixels);
    /// The board, in device pixels of the window. Paints what has changed since the last call.
    const QPixmap& Picture();
    QSize PictureSize() const { return painter_.Picture().size(); }
    const BoardView& View() const { return view_; }

    // Pieces. A walk is a chain of StartStep and ShowStep from 0 to 1.
    /// Takes the pieces, the dice and the light away: a new game begins.
    void Clear();
    /// Draws the piece above all others from now on. The pieces beside it begin to close up.
    void Lift(PieceCode piece);
    /// Begins the hop of a lifted piece to a square, 0 being its box; the squares walked are counted
    /// beside it. A return to the box begins with a ring of light.
    void StartStep(PieceCode piece, Square from, Square to);
    /// Shows all movements at that progress, 0 to 1. At 1 they are over.
    void ShowStep(double progress);
    /// Whether something moves, so that the next wait has frames to show.
    bool HasMotion() const { return !motions_.empty() || !dieMotions_.empty(); }
    /// Ends all movements and puts the piece where the game's tables have it. A piece that was not on
    /// the board yet falls into place by ShowStep. On its goal it gets a ring of light.
    void PutDown(PieceCode piece);
    /// Lifts the piece, if it stands, and moves it to a point above the board. Point and height are
    /// layout pixels; the cursor holds a piece at height 0.
    void Drag(PieceCode piece, QPointF at, double height = 0);
    /// Begins the glide of a dragged piece back to where it stands.
    void StartGlideBack(PieceCode piece);

    // Dice, turn and marks.
    /// Shows a face 1..6 in the colour's tray. A die that is ready stands on a corner; each face that
    /// rolls by moves it on; thrown or at rest it lies upright in the middle.
    void ShowDie(Colour colour, Short face, DieIs how);
    /// Puts a token for a bonus of 10 or 20 squares into the colour's tray.
    void ShowBonus(Colour colour, Short squares);
    /// Empties all trays. A throw or a bonus lies there until it has been seen, and fades.
    void EmptyTrays();
    /// How long the throw or the bonus in the colour's tray still has to lie there before everybody has
    /// seen it, in milliseconds: 0.32 s at speed 50, nothing at speed 100. 0 when there is none.
    double UnseenMilliseconds(Colour colour) const;
    /// Lights the house of that colour, 0 for none.
    void ShowTurn(Colour colour);
    /// The same for a colour that has won, with a medal in its tray, a laurel around it and a ring of
    /// light round its goal. The first call for a winner throws confetti, too: for 1.5 s at speed 50.
    void ShowWinner(Colour colour);
    /// Marks the move that is about to be made or is advised: the squares it passes and where it ends. A
    /// move without a piece removes the marks.
    void ShowMove(const BoardView::ShownMove& move);
    /// Marks where the piece under the cursor would go, in place of the marks of ShowMove.
    void ShowPreview(const BoardView::ShownMove& move);
    /// Rings the pieces that a person may pick and, quietly, the places where they would go.
    void ShowChoices(std::vector<BoardView::ShownMove> choices);
    /// Tells where the cursor is over the board, in layout pixels: the cup is lit under it while a click
    /// throws.
    void PointAt(Point at);
    /// Frames the piece that the keyboard has marked with four corners; 0 marks none.
    void ShowMarked(PieceCode piece);
    /// Shows that the recorder stands at that move; -1 shows that it is off.
    void ShowTape(Short move);

    /// Writes a line about its chances on each card; empty lines leave it out.
    void ShowChances(const PerColour<QString>& chances);

    /// Brings what the table tells beside the board up to date: the line, the players' cards, the marks
    /// of the last move, and the hand at a die that waits for a click. Repaints what has changed. Must
    /// be called when a wait or manual mode begins or ends, and when names or players have changed; a
    /// turn does it, too.
    void ShowGuide();

    /// Moves the sign for what the game waits for once more.
    void ShowSignAgain();

    /// Repaints all houses: the players' names or who takes part have changed.
    void RepaintHouses();
    /// Puts every piece where the game's tables have it, ends all movements and repaints the whole
    /// board.
    void Refresh();

private:
    QPointF PlaceOf(PieceCode piece) const;
    QPointF PlaceOnStep(PieceCode piece, Square square) const;
    QRect AreaOf(PieceCode piece) const;
    bool IsMoving(PieceCode piece) const;
    void PutStandingPieces();
    void MoveTo(PieceCode piece, QPointF place, double height = 0);
    void PutIntoTray(Colour colour, const BoardView::Tray& tray);
    void PoseDie(Colour colour, const BoardView::DiePose& pose);
    void EmptyTray(Colour colour);
    void ShowFade(Colour colour, double opacity);
    void SlideOthersToTheirPlaces();
    int AtThisSpeed(int milliseconds) const;
    void StartPulse(QPointF at, double reach);
    void ShowPulse(double progress);
    void StartConfetti(Colour winner);
    void ShowConfetti(double progress);
    void ForgetMotion();
    void Repaint(const QRect& device);
    void RepaintHouse(Colour colour);
    void ShowLastMove(const BoardView::LastMove& move);
    void ShowLine();
    void ShowCards();
    void ShowSign();
    void ShowTap(double progress);
    void ShowCup();
    QPointF EndOf(const BoardView::ShownMove& move) const;
    void RepaintMove(const BoardView::ShownMove& move);
    void RepaintPiece(PieceCode piece);

    const GameState& state_;
    const Settings& settings_;
    BoardPainter painter_;
    Changed changed_;
    Layout layout_;
    BoardView view_;
    std::vector<QRect> stale_;  // parts of the picture that look different by now
    Point cursor_;
    PerColour<QString> chances_;  // the lines on the cards
    std::vector<PieceMotion> motions_;
    std::vector<DieMotion> dieMotions_;
    PerColour<int> rolls_{};
    PerColour<QElapsedTimer> lying_;  // since when the throw or the bonus lies in the tray
    // The game does not wait for these:
    PerColour<QVariantAnimation> fade_;  // empties a tray
    QVariantAnimation pulse_;            // drives the ring of light
    QVariantAnimation confetti_;
    QVariantAnimation tap_;  // moves the sign a few times
};

}  // namespace zorva
