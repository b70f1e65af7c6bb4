#include "core/Execution.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/Board.h"
#include "core/Consistency.h"
#include "core/SilentOutside.h"
#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

/// Writes record 1: piece `piece` of the colour goes to a square.
void Prepare(GameState& state, Colour colour, Short piece, Square to) {
    state.MoveRecords[1] = {colour, 0, 0, 0, piece, state.PiecePosition[colour][piece], to};
}

Notes Execute(GameState& state) {
    NotingOutside outside(state);
    ExecuteMove({state, Settings{}, outside}, ExecutionMode::Forward, 1);
    return outside.All();
}

struct Row {
    const char* name;
    const char* position;
    Colour colour;
    Short piece;
    Square to;
    const char* slots;  ///< of the square reached
    Short report;
    Colour captured;
};

constexpr Row rows[] = {
    {"beside an own piece", "1:6 9 0 0", 1, 1, 9, "12 11 0", 0, 0},
    {"a lone rival is captured and waits for its return", "1:6 0 0 0  3:9 0 0 0", 1, 1, 9, "31 11 0", 1,
     3},
    {"not on a safe square", "1:6 0 0 0  3:12 0 0 0", 1, 1, 12, "31 11 0", 0, 0},
    {"nor on the rival's exit square", "1:21 0 0 0  2:22 0 0 0", 1, 1, 22, "21 11 0", 0, 0},
    {"nor on the own one, when only two stand there", "2:5 0 0 0", 1, 1, 5, "21 11 0", 0, 0},
    {"coming out onto two rivals captures the second", "2:5 5 0 0", 1, 3, 5, "21 13 22", 2, 2},
    {"beside an own piece in slot 1 the rival goes", "1:5 0 0 0  2:5 0 0 0", 1, 2, 5, "11 12 21", 2, 2},
    {"beside an own piece in slot 2 the rival goes", "2:5 0 0 0  1:5 0 0 0", 1, 2, 5, "12 11 21", 2, 2},
    {"a count begun in the box captures the first of two", "1:0 0 0 0  2:8 0 0 0  3:8 0 0 0", 1, 1, 8,
     "21 31 11", 1, 2},
    {"home among others nothing is captured", "1:75 76 76 0", 1, 1, 76, "12 13 11", 0, 0},
    {"a fourth piece at home stands in no slot", "1:75 76 76 76", 1, 1, 76, "12 13 14", 0, 0},
};

TEST(Execution, PutsAPieceDownAndReportsACapture) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        GameState state = Position(row.position);
        const GameState before = state;
        Prepare(state, row.colour, row.piece, row.to);
        Execute(state);
        EXPECT_EQ(SlotsText(state, row.to), row.slots);
        EXPECT_EQ(state.PiecePosition[row.colour][row.piece], row.to);
        EXPECT_EQ(state.CaptureReport, row.report);
        EXPECT_EQ(state.CapturedColour, row.captured);
        const bool wasInBox = before.PiecePosition[row.colour][row.piece] == 0;
        EXPECT_EQ(state.PiecesInBox[row.colour], before.PiecesInBox[row.colour] - wasInBox);
        const bool isHome = row.to == GoalSquare[row.colour];
        EXPECT_EQ(state.PiecesHome[row.colour], before.PiecesHome[row.colour] + isHome);
    }
}

TEST(Execution, WalksEachSquareWithItsSound) {
    GameState state = Position("2:16 0 0 0");
    Prepare(state, 2, 1, 78);
    EXPECT_EQ(Execute(state),
              (Notes{"lift 21 16", "sound 13", "step 21 16 17", "delay 80", "sound 13", "step 21 17 77",
                     "delay 80", "sound 13", "step 21 77 78", "delay 80", "put 21 78"}));
    Prepare(state, 2, 2, 23);
    EXPECT_EQ(Execute(state), (Notes{"lift 22 0", "sound 7", "pause 15", "sound 13", "step 22 0 22",
                                     "delay 80", "sound 13", "step 22 22 23", "delay 80", "put 22 23"}));
}

TEST(Execution, SendsAPieceHomeWithPausesThatTellThePenalty) {
    for (const Short sixes : {Short{1}, Short{3}}) {
        GameState state = Position("2:30 0 0 0");
        state.SixesInRow = sixes;
        Prepare(state, 2, 1, 0);
        Notes wanted{"lift 21 30", "sound 11", "step 21 30 0", "pause 45", "pause 20", "put 21 0"};
        if (sixes == 3)
            wanted = {"lift 21 30", "pause 45", "sound 11", "step 21 30 0",
                      "pause 55",   "pause 20", "put 21 0"};
        EXPECT_EQ(Execute(state), wanted);
        EXPECT_EQ(state.PiecesInBox[2], 4);
        EXPECT_EQ(SlotsText(state, 30), "0 0 0");
    }
}

TEST(Execution, ByHandCapturesNothingAndPutsDownAtOnce) {
    const std::tuple<const char*, Square, Notes> moves[] = {
        {"2:6 0 0 0", 6, {"lift 11 0", "put 11 6"}},
        {"1:30 0 0 0", 0, {"lift 11 30", "put 11 0"}},
        {"", 0, {}},  // the penalty of a piece that was dragged into its box before: nothing to be seen
    };
    for (const auto& [position, to, notes] : moves) {
        GameState state = Position(position);
        Prepare(state, 1, 1, to);
        state.MoveRecords[1].Manual = notes.empty() ? No : Yes;
        const GameState before = state;
        EXPECT_EQ(Execute(state), notes);
        EXPECT_EQ(state.CaptureReport, 0);
        EXPECT_EQ(StateProblem(state), "");
        SilentOutside silent;
        ExecuteMove({state, Settings{}, silent}, ExecutionMode::Backward, 1);
        EXPECT_EQ(state, before);
    }
}

}  // namespace
}  // namespace zorva::test
