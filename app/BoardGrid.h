#pragma once

#include <QRect>

#include "app/Layout.h"

namespace zorva {

/// Where the lines between the squares fall on device pixels. Places on the board are thirds of a cell
/// from its upper left corner: a cell has 3, a block 7.
///
/// Every line is the same whole number of pixels wide and ends where the squares behind it begin:
/// pieces, whose places are rounded down, then stand in the middle between two lines.
class BoardGrid {
public:
    static constexpr int Cell = 3;
    static constexpr int Block = 7;
    static constexpr int Side = 21 * Cell;

    /// A point of the lower arm, yellow's, turned to the arm of another colour: by quarter turns
    /// counter-clockwise.
    static QPoint Turned(QPoint at, Colour colour);

    explicit BoardGrid(const Layout& layout);

    /// The pixels of the straight line between two points, which differ in one coordinate only.
    QRect Line(QPoint from, QPoint to) const;
    /// The pixels within the lines through two corners.
    QRect Within(QPoint upperLeft, QPoint lowerRight) const;
    /// A house without the lines around it.
    QRect House(Colour colour) const;
    /// The middle of the crossing of the lines through a point.
    QPointF Crossing(QPoint at) const;
    double Thickness() const { return width_; }  ///< of a line
    double CellSize() const { return 3 * third_; }

private:
    int End(double origin, int thirds) const;
    int Start(double origin, int thirds) const;

    QPointF origin_;
    double third_;
    int width_;
};

}  // namespace zorva
