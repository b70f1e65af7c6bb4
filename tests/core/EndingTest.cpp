#include "core/Ending.h"

#include <gtest/gtest.h>

#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

struct Row {
    const char* name;
    const char* position;
    PerColour<Short> active;
    const char* points;
    std::vector<Colour> losers;
};

TEST(Result, IsWorthTheWayTheLosersStillHadToGo) {
    const Row rows[] = {
        {"a loser who never left the box", "1:76 76 76 76", {0, 1, 1, 2, 2}, "9.99", {2}},
        {"71 steps walked", "1:76 76 76 76  2:84 0 0 0", {0, 1, 1, 2, 2}, "7.50", {2}},
        {"rounded up", "1:76 76 76 76  2:84 51 0 0", {0, 1, 1, 2, 2}, "6.48", {2}},
        {"rounded down", "1:76 76 76 76  2:84 52 0 0", {0, 1, 1, 2, 2}, "6.44", {2}},
        {"the average of two", "1:76 76 76 76  2:84 0 0 0  3:60 0 0 0", {0, 1, 1, 2, 1}, "8.75", {2, 4}},
        {"nobody lost", "1:76 76 76 76", {0, 1, 2, 2, 2}, "0.00", {}},
    };
    for (const Row& row : rows) {
        Settings settings;
        settings.PlayerActive = row.active;
        GameState state = Position(row.position);
        state.CurrentColour = 1;
        const GameResult result = ResultOf(state, settings);
        EXPECT_EQ(PointsText(result.points), row.points) << row.name;
        EXPECT_EQ(result.losers, row.losers) << row.name;
        EXPECT_EQ(result.winner, 1);
    }
}

TEST(EndOfGame, CelebratesTellsAndOffersTheHistory) {
    for (const bool keep : {true, false}) {
        Settings settings;
        settings.PlayerActive = {0, 1, 2, 1, 2};
        settings.PlayerName[3] = "Eva";
        GameState state = Position("3:92 92 92 92");
        state.CurrentColour = 3;
        state.GameInProgress = Yes;
        state.MoveRecordCount = 90;
        NotingOutside outside(state);
        outside.answer = keep ? MessageAnswer::Accepted : MessageAnswer::Refused;
        EndOfGame({state, settings, outside});

        Notes wanted{"sound 14", "pause 45"};
        for (int blink = 0; blink < 4; ++blink) {
            wanted.insert(wanted.end(), {"turn 3 won", "pause 55", "turn 3 over", "pause 20"});
        }
        wanted.push_back("turn 3 won");
        wanted.push_back("message Final de la Partida|Puntos : 9.99\nHa ganado la partida Eva|2");
        wanted.push_back(
            "message Histórico de partidas jugadas|¿Se actualiza el Histórico de partidas?|1 yes/no");
        if (keep) wanted.push_back("keep 3 999");
        EXPECT_EQ(outside.All(), wanted);
        EXPECT_EQ(outside.kept.MoveRecordCount, 91) << "the winning move can be continued from";
        EXPECT_EQ(outside.kept.GameInProgress, Yes);
        EXPECT_EQ(state.GameInProgress, No);
        EXPECT_EQ(state.MoveRecordCount, 0);
        EXPECT_EQ(SquaresText(state, 3), "92 92 92 92");
    }
}

}  // namespace
}  // namespace zorva::test
