#include "app/BoardHits.h"

#include <cstdlib>

#include "app/PiecePlaces.h"
#include "core/Board.h"

namespace zorva {
namespace {

// The colour whose goal a point of the centre belongs to, 0 elsewhere. Distances from the middle of the
// board are doubled, so that halves of cells stay whole numbers.
Colour TriangleAt(const Layout& layout, Point at) {
    const int middle = 2 * layout.Margin + 21 * layout.Cell;
    const int dx = 2 * at.x - middle;
    const int dy = 2 * at.y - middle;
    const int half = 5 * layout.Cell;  // the centre is five cells wide
    if (std::abs(dx) > half || std::abs(dy) > half) return 0;
    if (std::abs(dy) >= std::abs(dx)) return dy >= 0 ? Colour{1} : Colour{3};
    return dx > 0 ? Colour{2} : Colour{4};
}

// True for squares of the left and right arms: their boxes are one cell wide and one block high. The
// ring is the same after 34 squares; from its squares 9 and 43 on, 17 belong to a left or right arm. Of
// the home columns, 8 squares each, those of blue and green lie there.
bool LiesAcross(Square square) {
    const bool ring = square <= LastRingSquare;
    const int place = (square - 1) % 34;
    return ring ? place >= 8 && place < 25 : (square - 69) / 8 % 2 == 1;
}

// Twice the distance from the middle of a square, squared; -1 when the point is not in its box.
long DistanceInto(const Layout& layout, Square square, Point at) {
    const Point centre = layout.SquarePosition(square);
    const long dx = 2L * (at.x - centre.x);
    const long dy = 2L * (at.y - centre.y);
    const bool across = LiesAcross(square);
    const long halfWidth = across ? layout.Cell : layout.Block;
    const long halfHeight = across ? layout.Block : layout.Cell;
    if (std::labs(dx) > halfWidth || std::labs(dy) > halfHeight) return -1;
    return dx * dx + dy * dy;
}

Square SquareAt(const Layout& layout, Point at) {
    if (const Colour colour = TriangleAt(layout, at); colour != 0) return GoalSquare[colour];
    // Boxes overlap where a corner is cut: the nearer centre has the point.
    Square found = 0;
    long nearest = -1;
    for (Square square = 1; square <= LastSquare; ++square) {
        const long distance = DistanceInto(layout, square, at);
        if (distance < 0 || (nearest >= 0 && distance >= nearest)) continue;
        nearest = distance;
        found = square;
    }
    return found;
}

}  // namespace

BoardSpot SpotAt(const Layout& layout, Point at) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (layout.House(colour).Contains(at)) return {0, colour};
    }
    return {SquareAt(layout, at), 0};
}

bool IsOnPiece(const Layout& layout, const GameState& state, PieceCode code, Point at) {
    const Point centre = PlaceOfPiece(layout, state, code);
    const int reach = layout.PieceSize / 2;
    return std::abs(at.x - centre.x) <= reach && std::abs(at.y - centre.y) <= reach;
}

}  // namespace zorva
