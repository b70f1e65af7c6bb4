#pragma once

#include <QPointF>
#include <vector>

#include "app/BoardView.h"

namespace zorva {

/// The movement of a piece between two places. Places and heights are layout pixels; progress runs from
/// 0 to 1.
struct PieceMotion {
    PieceCode piece = 0;
    QPointF from;
    QPointF to;
    double rise = 0;  ///< height halfway, 0 at both ends
    double drop = 0;  ///< height at the beginning, from which the piece falls

    QPointF PlaceAt(double progress) const;
    double HeightAt(double progress) const;

    /// A hop: a third of the piece's size high from square to square, higher over a longer distance, up
    /// to 2.4 sizes. A piece that comes home leaps higher.
    static PieceMotion Hop(PieceCode piece, QPointF from, QPointF to, double pieceSize, bool comesHome);
    /// A slide on the board, without any height.
    static PieceMotion Slide(PieceCode piece, QPointF from, QPointF to);
    /// A fall onto a place from 1.2 sizes of the piece above it.
    static PieceMotion Drop(PieceCode piece, QPointF at, double pieceSize);
};

/// A die between the poses of two faces that roll by.
struct DieMotion {
    Colour colour = 0;
    BoardView::DiePose from;
    BoardView::DiePose to;

    BoardView::DiePose PoseAt(double progress) const;

    /// The pose in which the `roll`-th face of a throw comes up, counted from 1: the die comes in from
    /// above, jumps about the tray lower and lower, and from the tenth face on lies at rest, upright in
    /// the middle.
    static BoardView::DiePose PoseOfRoll(int roll);
};

/// The flakes of the confetti at that progress 0..1, thrown from a point towards another, both in layout
/// pixels, and as far as that is away or half as far again. They fly alike in every game.
std::vector<BoardView::Flake> FlakesAt(double progress, QPointF from, QPointF towards);

}  // namespace zorva
