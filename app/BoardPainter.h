#pragma once

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QRect>
#include <functional>

#include "app/Background.h"
#include "app/BoardView.h"
#include "app/Layout.h"
#include "core/Settings.h"

namespace zorva {

class Artwork;

/// Paints the board into two pictures of the whole window, in device pixels: the empty board once
/// per screen, and over it whatever changes. Only the part that has changed is painted again.
class BoardPainter {
public:
    explicit BoardPainter(Artwork& artwork) : artwork_(artwork) {}

    /// To be begun ahead of SetScreen.
    Background& TheBackground() { return background_; }

    /// Makes the pictures for a window of that many device pixels and paints the empty board.
    void SetScreen(const Layout& layout, QSize devicePixels);

    /// Paints the board with its pieces anew within that part (device pixels). It is called for every
    /// frame of every movement: what lies elsewhere is passed over.
    void Paint(const BoardView& view, const Settings& settings, const QRect& part);

    /// The board as it is to be seen.
    const QPixmap& Picture() const { return Pic_TableroLleno; }

    /// The device pixels a piece that lies at that point of the layout covers, with its shadow.
    QRect PieceArea(QPointF centre) const;
    /// The same for a piece as it is now, with what is written beside it.
    QRect PieceArea(const BoardView& view, PieceCode code) const;
    /// The device pixels of a house, with the light around it.
    QRect HouseArea(Colour colour) const;
    /// The device pixels of a die that lies like that.
    QRect DieArea(Colour colour, const BoardView::DiePose& pose) const;
    QRect PulseArea(const BoardView::Pulse& pulse) const;
    /// The device pixels a rectangle of the layout covers.
    QRect DeviceArea(const Box& box, double around = 0) const;
    /// The device pixels that the marks of a shown move cover.
    QRect MoveArea(const BoardView::ShownMove& move) const;
    /// The device pixels of the banner that says what the board is in.
    QRect BannerArea() const;

private:
    void PaintHouse(QPainter& painter, const BoardView& view, const Settings& settings, Colour colour,
                    const QRect& part);
    void PaintLight(QPainter& painter, Colour colour, const QRect& part);
    const QPixmap& Stamp(const QString& name, QSize size, const std::function<void(QPainter&)>& draw);
    void PaintName(QPainter& painter, const QString& name, Colour colour, bool lit, double strength);
    void PaintDie(QPainter& painter, const BoardView& view, Colour colour);
    void PaintTumblingDie(QPainter& painter, const QPixmap& picture, Colour colour,
                          const BoardView::DiePose& pose);
    void PaintBonus(QPainter& painter, const BoardView& view);
    void PaintShownMove(QPainter& painter, const BoardView& view, const BoardView::ShownMove& move,
                        const QRect& part);
    void PaintRingOf(QPainter& painter, const BoardView& view, const BoardView::ShownMove& shown,
                     PieceCode code);
    void PaintBanner(QPainter& painter);
    void PaintPiece(QPainter& painter, const BoardView& view, PieceCode code);
    void PaintGroundShadow(QPainter& painter, QPointF at, double height);
    void PaintCount(QPainter& painter, const BoardView& view);
    void PaintPulse(QPainter& painter, const BoardView::Pulse& pulse);
    void PaintRing(QPainter& painter, QPointF centre, double radius, double width, const QColor& colour);
    double PieceScale(double height) const;
    double PieceSide() const;
    QRectF DiePlace(Colour colour, const BoardView::DiePose& pose) const;
    QRectF CountArea(const BoardView& view) const;
    Box Banner() const;
    QPointF Device(QPointF layoutPoint) const;
    QRectF DeviceF(const Box& box) const;

    Artwork& artwork_;
    Background background_;
    Layout layout_;
    QPixmap Pic_TableroVacio;
    QPixmap Pic_TableroLleno;
    QHash<QString, QPixmap> stamps_;
};

}  // namespace zorva
