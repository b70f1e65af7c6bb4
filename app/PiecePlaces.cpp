#include "app/PiecePlaces.h"

#include <algorithm>

#include "core/Board.h"

namespace zorva {
namespace {

// The drawing of a piece: its side, and the diameter of the piece in it. The rest is for the shadow.
constexpr double pieceDrawingSide = 40;
constexpr double pieceDrawingBody = 28;

// Whether a piece really stands in that slot: the code is a piece's, the piece is on that square, and no
// slot before holds the same code.
bool StandsInSlot(const GameState& state, Square square, Short slot) {
    const PieceCode code = state.SquareOccupants[square][slot];
    if (code == 0 || ColourOf(code) < 1 || ColourOf(code) > ColourCount) return false;
    if (PieceOf(code) < 1 || PieceOf(code) > PiecesPerColour) return false;
    const auto& occupants = state.SquareOccupants[square];
    const bool first =
        std::find(occupants.begin() + 1, occupants.begin() + slot, code) == occupants.begin() + slot;
    return first && state.PositionOf(code) == square;
}

// Pieces on a goal that stand in no slot take the free places, the lowest piece number first.
Short PlaceOnGoal(const GameState& state, Square goal, PieceCode code) {
    const Short slot = SlotOf(state, goal, code);
    if (slot != 0) return slot;
    Short place = 1;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const PieceCode other = CodeOf(ColourOf(code), piece);
        if (state.PositionOf(other) != goal || SlotOf(state, goal, other) != 0) continue;
        while (place <= 3 && StandsInSlot(state, goal, place)) ++place;
        if (other == code) break;
        ++place;
    }
    return std::min<Short>(place, 4);
}

}  // namespace

Point PlaceOfPiece(const Layout& layout, const GameState& state, PieceCode code) {
    const Square square = state.PositionOf(code);
    if (square == 0) return layout.BoxPosition(ColourOf(code), PieceOf(code));
    if (square == GoalSquare[ColourOf(code)]) {
        return layout.SlotPosition(square, PlaceOnGoal(state, square, code));
    }
    return layout.SlotPosition(square, std::max<Short>(1, SlotOf(state, square, code)));
}

Point FreePlaceOn(const Layout& layout, const GameState& state, Square square) {
    Short slot = 1;
    while (slot <= 3 && StandsInSlot(state, square, slot)) ++slot;
    return layout.SlotPosition(square, IsGoal(square) ? slot : std::min<Short>(slot, 3));
}

double PieceUnit(const Layout& layout) {
    return layout.PieceSize / pieceDrawingBody * layout.Unit;
}

QRect PieceDrawing(const Layout& layout, QPointF centre) {
    const int side = qRound(pieceDrawingSide * PieceUnit(layout));
    return {(layout.Device(centre) - QPointF(side, side) / 2).toPoint(), QSize(side, side)};
}

}  // namespace zorva
