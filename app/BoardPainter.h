#pragma once

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QRect>
#include <functional>
#include <vector>

#include "app/Background.h"
#include "app/BoardView.h"
#include "app/Layout.h"
#include "core/Settings.h"

namespace zorva {

class Artwork;

/// Paints the board into pixmaps of the whole window, in device pixels: the background once per screen,
/// and over a copy of it the pieces, dice, names and marks. Only the part that has changed is painted
/// again.
///
/// Points and boxes that are handed in are in layout pixels, areas that are handed out in device
/// pixels. An area may be too large by a few pixels, never too small: what sticks out of it would stay
/// on the screen when the piece has gone.
class BoardPainter {
public:
    explicit BoardPainter(Artwork& artwork) : artwork_(artwork) {}

    /// Call TheBackground().Begin before SetScreen, so that another thread paints it meanwhile.
    Background& TheBackground() { return background_; }

    /// Makes the pixmaps for a window of that many device pixels. The board is empty until Paint.
    void SetScreen(const Layout& layout, QSize devicePixels);

    /// Paints the board with its pieces again within that part, in device pixels. Called for every frame
    /// of every movement, so it passes over what lies elsewhere.
    void Paint(const BoardView& view, const Settings& settings, const QRect& part);

    /// The board as the window shows it.
    const QPixmap& Picture() const { return Pic_TableroLleno; }

    /// What a piece covers that lies with its centre at that point, with its shadow.
    QRect PieceArea(QPointF centre) const;
    /// The same for a piece as it is now: raised while it moves, and with the count written beside it.
    QRect PieceArea(const BoardView& view, PieceCode code) const;
    /// A colour's house, within the lines around it.
    QRect HouseArea(Colour colour) const;
    /// A die in the tray of that colour, tilted and sized as the pose says.
    QRect DieArea(Colour colour, const BoardView::DiePose& pose) const;
    /// The largest ring of a pulse.
    QRect PulseArea(const BoardView::Pulse& pulse) const;
    /// A box of the layout, with `around` layout pixels on each side.
    QRect DeviceArea(const Box& box, double around = 0) const;
    /// The dots and the ring that mark a shown move; empty when none is shown.
    QRect MoveArea(const BoardView::ShownMove& move) const;
    /// The parts of the trace and the marks of the last move.
    std::vector<QRect> LastMoveAreas(const BoardView& view) const;
    /// Empty when the flake has left the board and its frame.
    QRect FlakeArea(const BoardView::Flake& flake) const;
    /// What the sign of BoardView covers, wherever its movement takes it.
    QRect SignArea(Colour colour) const;

private:
    void PaintHouse(QPainter& painter, const BoardView& view, const Settings& settings, Colour colour,
                    const QRect& part);
    const QPixmap& Lid(Colour colour);
    const QPixmap& Lit(Colour colour);
    const QPixmap& Choice(QSize size);
    std::vector<PieceCode> PiecesFromBehind(const BoardView& view, const QRect& part) const;
    const QPixmap& CachedPixmap(const QString& name, QSize size,
                                const std::function<void(QPainter&)>& draw);
    void PaintName(QPainter& painter, const QString& name, Colour colour, bool lit);
    void PaintTray(QPainter& painter, const BoardView& view, Colour colour);
    void PaintDie(QPainter& painter, const BoardView::Tray& tray, Colour colour);
    QRectF PaintToken(QPainter& painter, Colour colour);
    void PaintBonus(QPainter& painter, Short squares, const QRectF& token);
    void PaintTumblingDie(QPainter& painter, const QPixmap& pixmap, Colour colour,
                          const BoardView::DiePose& pose);
    void PaintShownMove(QPainter& painter, const BoardView& view, const BoardView::ShownMove& move,
                        const QRect& part);
    void PaintChoices(QPainter& painter, const BoardView& view, const BoardView::ShownMove& shown,
                      const QRect& part);
    void PaintRingOf(QPainter& painter, const BoardView& view, const BoardView::ShownMove& shown,
                     PieceCode code);
    void PaintFrame(QPainter& painter, QPointF centre);
    std::vector<QPointF> TraceOf(const BoardView& view) const;
    void PaintLastMove(QPainter& painter, const BoardView& view, const QRect& part);
    void PaintCup(QPainter& painter, const QRect& part);
    void PaintInvitation(QPainter& painter, double progress, const QRect& part);
    void PaintSign(QPainter& painter, const BoardView& view, const QRect& part);
    void PaintPiece(QPainter& painter, const BoardView& view, PieceCode code);
    void PaintGroundShadow(QPainter& painter, QPointF at, double height);
    void PaintCount(QPainter& painter, const BoardView& view);
    void PaintLaurel(QPainter& painter, Colour colour);
    void PaintConfetti(QPainter& painter, const BoardView::Confetti& confetti, const QRect& part);
    void PaintFlake(QPainter& painter, const QColor& paper, const BoardView::Flake& flake);
    void PaintPulse(QPainter& painter, const BoardView::Pulse& pulse, const QRect& part);
    void PaintGlow(QPainter& painter, QPointF centre);
    void PaintRing(QPainter& painter, QPointF centre, double radius, double width, const QColor& colour);
    double PieceScale(double height) const;
    QRectF DiePlace(Colour colour, const BoardView::DiePose& pose) const;
    QRectF CountArea(const BoardView& view) const;
    QPointF Device(QPointF layoutPoint) const;
    QRectF DeviceF(const Box& box) const;

    Artwork& artwork_;
    Background background_;
    Layout layout_;
    QPixmap Pic_TableroVacio;        // the background
    QPixmap Pic_TableroLleno;        // what the window shows
    QHash<QString, QPixmap> cache_;  // of CachedPixmap, for this screen
};

}  // namespace zorva
