#include "core/Board.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

// The way of a colour as the rules of the game describe it, one step at a time.
Square PlainStep(Square square, Colour colour) {
    const Square next = static_cast<Square>(square + 1);
    if (colour == 1) return next;
    if (next == 69) return 1;
    if (colour == 2 && next == 18) return 77;
    if (colour == 3 && next == 35) return 85;
    if (colour == 4 && next == 52) return 93;
    return next;
}

Square PlainWalk(Square square, int steps, Colour colour) {
    for (; steps > 0; --steps) square = PlainStep(square, colour);
    return square;
}

TEST(Board, WalksAsManySingleStepsAsAreCounted) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Square square = 0; square <= LastSquare + 5; ++square) {
            for (Short steps = -2; steps <= 80; ++steps) {
                ASSERT_EQ(AdvanceSquare(square, steps, colour), PlainWalk(square, steps, colour))
                    << steps << " steps of colour " << colour << " from " << square;
            }
        }
    }
}

TEST(Board, MeasuresTheWayFromTheExitToTheGoal) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        EXPECT_EQ(StepsToSquare(colour, HomeEntrySquare[colour]), 63);
        EXPECT_EQ(StepsToSquare(colour, GoalSquare[colour]), StepsToGoal);
        EXPECT_EQ(StepsToSquare(colour, 0), 0);
        std::set<Square> track;
        Square square = ExitSquare[colour];
        for (Short steps = 0; steps <= StepsToGoal; ++steps) {
            EXPECT_EQ(StepsToSquare(colour, square), steps);
            track.insert(square);
            square = PlainStep(square, colour);
        }
        for (square = 1; square <= LastSquare; ++square) {
            EXPECT_EQ(IsOnTrack(colour, square), track.contains(square)) << square;
            EXPECT_EQ(StepsToSquare(colour, square) == -1, !track.contains(square)) << square;
        }
    }
}

TEST(Board, HasTwelveSafeSquares) {
    const std::set<Square> safe{5, 12, 17, 22, 29, 34, 39, 46, 51, 56, 63, 68};
    for (Square square = -1; square <= LastSquare + 20; ++square) {
        EXPECT_EQ(IsSafeSquare(square), safe.contains(square)) << square;
    }
}

}  // namespace
}  // namespace zorva::test
