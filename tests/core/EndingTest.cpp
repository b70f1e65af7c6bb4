#include "core/Ending.h"

#include <gtest/gtest.h>

#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"

namespace zorva::test {
namespace {

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
