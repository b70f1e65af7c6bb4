#include "core/Displacement.h"

#include <gtest/gtest.h>

#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

struct DropRow {
    const char* name;
    const char* position;
    PieceCode piece;
    Square to;
    bool allowed;
};

constexpr DropRow drops[] = {
    {"an empty square ahead", "1:10 0 0 0", 11, 40, true},
    {"back into the box", "4:60 0 0 0", 41, 0, true},
    {"the box it is in is no move", "4:60 0 0 0", 42, 0, false},
    {"nor is the square it stands on", "1:10 0 0 0", 11, 10, false},
    {"not on two rivals", "1:10 0 0 0  2:29 29 0 0", 11, 29, false},
    {"beside a rival on a safe square", "1:10 0 0 0  2:29 0 0 0", 11, 29, true},
    {"not on a lone rival elsewhere", "1:10 0 0 0  2:30 0 0 0", 11, 30, false},
    {"yellow not on 1, behind its home entry", "", 11, 1, false},
    {"no other column", "", 11, 77, false},
    {"two in a home column are full", "3:10 86 86 0", 31, 86, false},
    {"the own goal", "3:10 0 0 0", 31, 92, true},
    {"not for the fourth", "3:10 92 92 92", 31, 92, false},
    {"no square below the box", "1:10 0 0 0", 11, -1, false},
    {"no square beyond the last", "4:99 0 0 0", 41, 101, false},
};

TEST(Displacement, SaysWhereAPieceMayBePutDown) {
    for (const DropRow& row : drops) {
        EXPECT_EQ(MayBeDropped(Position(row.position), row.piece, row.to), row.allowed) << row.name;
    }
}

TEST(Displacement, TakesPiecesOfWhoPlaysButNoneFromTheGoal) {
    const GameState state = Position("1:10 76 0 0  3:30 0 0 0");
    Settings settings;
    settings.PlayerActive = {0, 1, 1, 2, 1};
    const struct {
        PieceCode piece;
        bool allowed;
    } rows[] = {{11, true}, {12, false}, {13, true}, {24, true}, {31, false}, {32, false}, {41, true}};
    for (const auto& row : rows) {
        EXPECT_EQ(MayBeDragged(state, settings, row.piece), row.allowed) << "piece " << row.piece;
    }
}

TEST(Displacement, GivesTheTurnBackToWhoHadIt) {
    GameState state = Position("1:10 0 0 0  3:30 0 0 0");
    state.CurrentColour = 1;
    EnterManualMode(state);
    DisplaceByHand(state, 31, 45);
    EXPECT_EQ(state.CurrentColour, 3);
    LeaveManualMode(state);
    EXPECT_EQ(state.CurrentColour, 1);
    EXPECT_EQ(state.ManualMode, No);
    EXPECT_EQ(state.ManualShiftMade, No);
}

}  // namespace
}  // namespace zorva::test
