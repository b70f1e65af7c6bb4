#pragma once

#include <QRect>

#include "app/Layout.h"
#include "core/GameState.h"

namespace zorva {

/// Where a piece is drawn and can be hit, in layout pixels: the centre of its place in its box, on its
/// square beside the others, or on its goal. No two pieces share a place.
///
/// PiecePosition decides. A goal's slots alone do not tell, since a fourth piece stands in none and slot
/// 3 may hold a code that an earlier game left there.
Point PlaceOfPiece(const Layout& layout, const GameState& state, PieceCode code);

/// Where the next piece would stand on a square 1..100, in layout pixels: beside those that stand there,
/// on the third place when two pieces do.
Point FreePlaceOn(const Layout& layout, const GameState& state, Square square);

/// Device pixels for each unit of a piece's drawing, in which a piece is 28 wide.
double PieceUnit(const Layout& layout);

/// The device pixels that the drawing of a piece covers whose centre is there, its shadow included. The
/// drawings of the places that it stands on have the same size and lie on the same pixels.
QRect PieceDrawing(const Layout& layout, QPointF centre);

}  // namespace zorva
