#include "core/Player.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

/// Yellow is to walk that count.
GameState OnTurn(const char* position, Short count) {
    GameState state = Position(position);
    state.CurrentColour = 1;
    state.MoveCount = count;
    return state;
}

// ------------------------------------------------------------------------------- decisions

struct Rules {
    Short leaveAll = 1, fiveAll = 1, fiveSome = 1;
};

struct DecisionRow {
    const char* name;
    const char* position;
    Rules rules;
    Short die, count, pending;
    Short piece;
    Square from, to;
    Short legalMoves, pendingAfter;
};

// Yellow decides, at level 0: where there is a choice, the piece that has come furthest moves.
constexpr DecisionRow decisionRows[] = {
    {"four in the box: the count begins on the exit", "", {1, 1, 1}, 3, 3, 0, 1, 0, 8, 1, 0},
    {"a five brings the first of two out", "", {1, 1, 1}, 5, 5, 0, 1, 0, 5, 1, 1},
    {"then the second", "1:5 0 0 0", {1, 1, 1}, 5, 5, 1, 2, 0, 5, 1, 2},
    {"also when a capture took the die", "1:5 0 0 0", {1, 1, 1}, 0, 0, 1, 2, 0, 5, 1, 2},
    {"or the five counts for one", "", {1, 2, 1}, 5, 5, 0, 1, 0, 10, 1, 0},
    {"a five needed: others pass", "", {2, 1, 1}, 3, 3, 0, 0, 0, 0, 0, 0},
    {"a five needed: it brings the last piece out", "", {2, 1, 1}, 5, 5, 0, 4, 0, 5, 1, 0},
    {"a five must bring out the highest in the box", "1:30 0 0 40", {1, 1, 1}, 5, 5, 0, 3, 0, 5, 1, 0},
    {"it may, only", "1:30 0 0 40", {1, 1, 2}, 5, 5, 0, 4, 40, 45, 4, 0},
    {"behind an own barrier it cannot", "1:5 5 0 0", {1, 1, 1}, 5, 5, 0, 1, 5, 10, 2, 0},
    {"a bonus is no five", "1:30 0 0 0", {1, 1, 1}, 0, 20, 0, 1, 30, 50, 1, 0},
    {"level 0 moves the piece furthest on", "1:20 30 25 5", {1, 1, 1}, 3, 3, 0, 2, 30, 33, 4, 0},
    {"the lowest number among equals", "1:20 30 30 5", {1, 1, 1}, 3, 3, 0, 2, 30, 33, 4, 0},
};

TEST(Decision, FollowsTheOptionsThenTheBestScore) {
    for (const DecisionRow& row : decisionRows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.PlayerLevel.fill(0);
        settings.RuleLeaveAllInBox = row.rules.leaveAll;
        settings.RuleFiveAllInBox = row.rules.fiveAll;
        settings.RuleFiveSomeInBox = row.rules.fiveSome;
        GameState state = OnTurn(row.position, row.count);
        state.DieValue = row.die;
        state.SecondMovePending = row.pending;
        ChooseComputerMove(state, settings);
        EXPECT_EQ(state.BestPiece, row.piece);
        EXPECT_EQ(state.BestFrom, row.from);
        EXPECT_EQ(state.BestTo, row.to);
        EXPECT_EQ(state.LegalMoveCount, row.legalMoves);
        EXPECT_EQ(state.SecondMovePending, row.pendingAfter);
        const auto movable = std::count(state.MovablePieces.begin() + 1, state.MovablePieces.end(), Yes);
        EXPECT_EQ(movable, row.legalMoves);
        EXPECT_TRUE(row.piece == 0 || state.MovablePieces[row.piece]);
    }
}

// ------------------------------------------------------------------------ the terms of a score

struct ScoreRow {
    const char* name;
    const char* position;
    Short piece, count, level;
    double valueGained;  ///< of the square reached over the square left
    Short progress;
    double others;  ///< all other terms
};

// What recorded games leave open: most weights and levels change some of their moves.
constexpr ScoreRow scoreRows[] = {
    {"a capture at 70", "1:30 0 0 0  3:33 0 0 0", 1, 3, 70, -62 / 447.0, 25, 0},
    {"five squares from home at 81", "1:71 0 0 0", 1, 2, 81, 0, 66, -0.12 - 0.35},
    {"out of the box at 61", "1:30 0 0 0", 2, 5, 61, 0, 0, 0.12 + 0.25},
    {"the last one", "1:30 31 32 0", 4, 5, 61, 0, 0, 0.12 + 0.25 + 0.5},
    {"onto two rivals", "1:30 0 0 0  2:5 5 0 0", 2, 5, 61, 0, 0, 0.12 + 0.25 + 0.1},
};

TEST(Score, IsTheSumOfItsTerms) {
    for (const ScoreRow& row : scoreRows) {
        Settings settings;
        settings.PlayerLevel[1] = row.level;
        const GameState state = OnTurn(row.position, row.count);
        const double score = row.valueGained * 10 * row.level / 100 + row.progress / 210.0 + row.others;
        EXPECT_NEAR(ScoreOfMove(state, settings, row.piece), score, 1e-12) << row.name;
    }
}

}  // namespace
}  // namespace zorva::test
