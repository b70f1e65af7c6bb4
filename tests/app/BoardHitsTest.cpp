#include "app/BoardHits.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "app/PiecePlaces.h"
#include "core/Board.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

// On this screen a pixel of the layout is a pixel, and the board's corner is at 37,37.
const Layout layout = LayoutFor(1024, 768);

TEST(BoardHits, FindWhatLiesUnderAPoint) {
    const std::tuple<const char*, Point, Square, Colour> spots[] = {
        // Squares, up to their edges.
        {"the last square before the column", {713, 383}, 17, 0},
        {"a square of the upper arm", {305, 54}, 35, 0},
        // The corner squares are cut from the centre's corner to the house's.
        {"below, where one corner square ends", {424, 497}, 8, 0},
        {"upper right, left of the cut", {475, 275}, 26, 0},
        {"upper left, below the cut", {275, 290}, 43, 0},
        // The centre.
        {"green's triangle", {305, 455}, 100, 0},
        {"blue's triangle", {462, 312}, 84, 0},
        // The houses.
        {"red's first corner", {37, 37}, 0, 3},
        {"yellow's first corner", {499, 499}, 0, 1},
        // Elsewhere.
        {"left of the board", {36, 383}, 0, 0},
        {"far off", {32000, 32000}, 0, 0},
    };
    for (const auto& [name, at, square, house] : spots) {
        const BoardSpot spot = SpotAt(layout, at);
        EXPECT_EQ(spot.square, square) << name;
        EXPECT_EQ(spot.house, house) << name;
    }
}

TEST(BoardHits, FindEverySquareAndEveryBoxByTheirPieces) {
    for (const auto& [width, height] : {std::pair{640, 480}, {800, 600}, {1280, 1024}, {1920, 1080}}) {
        const Layout screen = LayoutFor(width, height);
        for (Square square = 1; square <= LastSquare; ++square) {
            // Three stand only where a piece that comes out captures another.
            const bool isGoal = square > LastRingSquare && (square - 68) % 8 == 0;
            const Short most = isGoal ? Short{4} : square % 17 == 5 ? Short{3} : Short{2};
            for (Short slot = 1; slot <= most; ++slot) {
                EXPECT_EQ(SpotAt(screen, screen.SlotPosition(square, slot)).square, square)
                    << "slot " << slot;
            }
        }
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
                EXPECT_EQ(SpotAt(screen, screen.BoxPosition(colour, piece)).house, colour);
            }
        }
    }
}

TEST(PiecePlaces, FollowTheSlots) {
    const std::tuple<const char*, const char*, PieceCode, Square, Short> pieces[] = {
        {"the first of two", "1:10 10 0 0", 11, 10, 1},
        {"the one that came later", "2:12 0 0 0  1:12 0 0 0", 11, 12, 2},
        {"in a home column", "3:86 86 0 0", 32, 86, 2},
        {"the third while a capture is shown", "2:5 5 0 0  1:5 0 0 0", 11, 5, 3},
        {"the third at home", "4:100 100 0 100", 44, 100, 3},
        {"the fourth, which stands in no slot", "4:100 100 100 100", 44, 100, 4},
    };
    for (const auto& [name, position, piece, square, slot] : pieces) {
        const GameState state = Position(position);
        EXPECT_EQ(PlaceOfPiece(layout, state, piece), layout.SlotPosition(square, slot)) << name;
    }
    EXPECT_EQ(PlaceOfPiece(layout, Position(""), 23), layout.BoxPosition(2, 3));
}

TEST(PiecePlaces, AreHitUpToTheirEdges) {
    const std::tuple<int, int, bool> rows[] = {
        {0, 0, true}, {14, -14, true}, {-14, 14, true}, {15, 0, false}, {0, -15, false}};
    const GameState state = Position("1:10 10 0 0");
    const Point centre = layout.SlotPosition(10, 2);
    for (const auto& [dx, dy, hit] : rows) {
        const Point at{ToShort(centre.x + dx), ToShort(centre.y + dy)};
        EXPECT_EQ(IsOnPiece(layout, state, 12, at), hit) << dx << ", " << dy;
    }
}

// Whatever an earlier game left in slot 3 of a goal, each piece has a place of its own there.
TEST(PiecePlaces, OnAGoalAreNeverShared) {
    EXPECT_EQ(FreePlaceOn(layout, Position("1:76 76 76 0"), 76), layout.SlotPosition(76, 4));
    for (const PieceCode leftover : {0, 11, 14, 41, 99}) {
        GameState state = Position("1:76 76 76 76");
        state.SquareOccupants[76] = {0, 13, 11, leftover};
        std::set<std::pair<int, int>> taken;
        for (const PieceCode piece : {11, 12, 13, 14}) {
            const Point at = PlaceOfPiece(layout, state, piece);
            EXPECT_EQ(SpotAt(layout, at).square, 76);
            EXPECT_TRUE(taken.insert({at.x, at.y}).second) << leftover << ", " << piece;
        }
    }
}

}  // namespace
}  // namespace zorva::test
