#include "core/Rules.h"

#include <gtest/gtest.h>

#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

struct Row {
    const char* name;
    const char* position;
    Colour colour;
    Short steps;
    Square from;
    bool legal;
};

constexpr Row rows[] = {
    // Out of the box.
    {"a five brings a piece out", "", 1, 5, 0, true},
    {"a four does not", "", 1, 4, 0, false},
    {"an own and a rival piece on the exit are no hindrance", "1:5 0 0 0  2:5 0 0 0", 1, 5, 0, true},
    {"two rivals on the exit do not bar it", "2:5 5 0 0", 1, 5, 0, true},
    {"two own pieces on the exit do", "1:5 5 0 0", 1, 5, 0, false},
    // Where a walk ends.
    {"beside a rival on a safe square", "1:6 0 0 0  2:12 0 0 0", 1, 6, 6, true},
    {"not on a barrier", "1:6 0 0 0  2:9 9 0 0", 1, 3, 6, false},
    {"the goal by the exact count", "1:74 0 0 0", 1, 2, 74, true},
    {"not beyond the goal", "1:74 0 0 0", 1, 3, 74, false},
    {"not beyond it from the ring either", "2:17 0 0 0", 2, 9, 17, false},
    {"a home column has room for two", "1:70 72 72 0", 1, 2, 70, false},
    {"a bonus of twenty is walked like any count", "4:39 0 0 0", 4, 20, 39, true},
    // What stands on the way.
    {"a rival barrier stops the walk", "1:6 0 0 0  2:9 9 0 0", 1, 4, 6, false},
    {"the own barrier stops it too", "1:6 9 9 0", 1, 4, 6, false},
    {"the other piece of the barrier it leaves does not", "1:6 6 0 0", 1, 4, 6, true},
    {"a barrier right before the target counts", "1:6 0 0 0  3:8 8 0 0", 1, 3, 6, false},
    {"a barrier after the wrap stops blue", "2:66 0 0 0  3:1 1 0 0", 2, 4, 66, false},
    {"but not yellow, who turns off before", "1:66 0 0 0  3:1 1 0 0", 1, 4, 66, true},
    {"a barrier in the own home column", "3:34 86 86 0", 3, 3, 34, false},
    {"a barrier on the ring beyond the turn is passed by", "3:33 0 0 0  4:36 36 0 0", 3, 4, 33, true},
    {"pieces on the goal bar nothing", "4:99 100 100 0", 4, 1, 99, true},
};

TEST(Rules, SayWhereAPieceMayWalk) {
    for (const Row& row : rows) {
        const GameState state = Position(row.position);
        EXPECT_EQ(IsMoveLegal(state, row.colour, row.steps, row.from), row.legal) << row.name;
    }
}

}  // namespace
}  // namespace zorva::test
