#include "core/Player.h"

#include <gtest/gtest.h>

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
