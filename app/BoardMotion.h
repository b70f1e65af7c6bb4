#pragma once

#include <QPointF>

#include "app/BoardView.h"

namespace zorva {

/// A piece on its way between two places. Places and heights are pixels of the layout.
struct PieceMotion {
    PieceCode piece = 0;
    QPointF from;
    QPointF to;
    double rise = 0;  ///< height in the middle of the way
    double drop = 0;  ///< height at the beginning, from which it falls

    QPointF PlaceAt(double progress) const;
    double HeightAt(double progress) const;

    /// A hop: light from square to square, in a high arc over a long way. A piece that comes home
    /// jumps for joy.
    static PieceMotion Hop(PieceCode piece, QPointF from, QPointF to, double pieceSize, bool comesHome);
    /// Along the board, without leaving it.
    static PieceMotion Slide(PieceCode piece, QPointF from, QPointF to);
    /// Down onto a place from above.
    static PieceMotion Drop(PieceCode piece, QPointF at, double pieceSize);
};

/// A die between two of the faces that roll by.
struct DieMotion {
    Colour colour = 0;
    BoardView::DiePose from;
    BoardView::DiePose to;

    BoardView::DiePose PoseAt(double progress) const;

    /// How the die lies when that face of a throw comes up, the first being 1: it is thrown in from
    /// above, jumps about the tray lower and lower, and comes to rest upright with the last.
    static BoardView::DiePose PoseOfRoll(int roll);

    /// How the die lies that waits to be thrown.
    static BoardView::DiePose PoseOfReady();
};

}  // namespace zorva
