#pragma once

#include "app/Layout.h"
#include "core/GameState.h"

namespace zorva {

/// What of the board lies under a point: a square, a colour's house, or neither (both 0).
struct BoardSpot {
    Square square = 0;
    Colour house = 0;
    bool operator==(const BoardSpot&) const = default;
};

/// The square or house under a point. A cut corner belongs to the square on its side of the cut, the
/// centre to the goal whose triangle it is in.
BoardSpot SpotAt(const Layout& layout, Point at);

/// Whether the point lies on the piece where it is drawn: within half its size in both directions,
/// edges included.
bool IsOnPiece(const Layout& layout, const GameState& state, PieceCode code, Point at);

}  // namespace zorva
