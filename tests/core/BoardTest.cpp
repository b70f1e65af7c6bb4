#include "core/Board.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

TEST(Board, LeadsEachColourRoundTheRingIntoItsColumn) {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        const Square exit = ExitSquare[colour];
        std::set<Square> track;
        for (Short steps = 0; steps <= StepsToGoal; ++steps) {
            const int square =
                steps <= 63 ? (exit - 1 + steps) % 68 + 1 : FirstColumnSquare[colour] + steps - 64;
            EXPECT_EQ(AdvanceSquare(exit, steps, colour), square);
            EXPECT_EQ(StepsToSquare(colour, static_cast<Square>(square)), steps);
            track.insert(static_cast<Square>(square));
        }
        EXPECT_EQ(*track.rbegin(), GoalSquare[colour]);
        for (Square square = 1; square <= LastSquare; ++square) {
            EXPECT_EQ(IsOnTrack(colour, square), track.contains(square)) << square;
            EXPECT_EQ(StepsToSquare(colour, square) == -1, !track.contains(square)) << square;
        }
        EXPECT_EQ(StepsToSquare(colour, 0), 0);
        EXPECT_EQ(AdvanceSquare(exit, -1, colour), exit);
        EXPECT_EQ(AdvanceSquare(GoalSquare[colour], 2, colour), GoalSquare[colour] + 2);
    }
}

}  // namespace
}  // namespace zorva::test
