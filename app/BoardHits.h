#pragma once

#include "app/Layout.h"
#include "core/GameState.h"

namespace zorva {

/// What lies under a point of the board: a square 1..100, a colour's house, or neither (both 0).
struct BoardSpot {
    Square square = 0;
    Colour house = 0;
    bool operator==(const BoardSpot&) const = default;
};

/// The square or house under a point in layout pixels. Where a corner of the ring is cut, a point
/// belongs to the square on its side of the cut; the centre of the board belongs to the goal whose
/// triangle the point is in. Points off the board are neither.
BoardSpot SpotAt(const Layout& layout, Point at);

/// Whether a point in layout pixels lies on the piece where it is drawn: within half its size in both
/// directions, edges included. A square is easier to hit than the disc that is drawn.
bool IsOnPiece(const Layout& layout, const GameState& state, PieceCode code, Point at);

}  // namespace zorva
