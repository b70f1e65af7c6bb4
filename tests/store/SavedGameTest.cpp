#include "store/SavedGame.h"

#include <gtest/gtest.h>

#include "core/Board.h"
#include "core/Execution.h"
#include "core/GameStart.h"
#include "core/Records.h"
#include "core/SilentOutside.h"
#include "store/SettingsFile.h"
#include "tests/support/NotingOutside.h"

namespace zorva::test {
namespace {

// The game to which the records lead, with that colour on turn. An earlier game has left that piece in
// yellow's goal.
std::string TextAfter(const std::vector<MoveRecord>& records, Colour onTurn, PieceCode leftover = 0) {
    const Settings settings;
    GameState state;
    SilentOutside silent;
    state.GameInProgress = Yes;
    state.CurrentColour = onTurn;
    state.SquareOccupants[GoalSquare[1]][3] = state.GoalLeftover[1] = leftover;
    for (const MoveRecord& record : records) {
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = record;
        ExecuteMove({state, settings, silent}, ExecutionMode::Forward, state.MoveRecordCount);
    }
    NewMoveRecord(state);
    return SettingsText(settings, state);
}

// What the players are asked when the game is continued.
std::string AskedAfter(const std::string& text) {
    SettingsContent content = std::get<SettingsContent>(ReadSettings(text));
    NotingOutside outside(content.state);
    ContinueGame({content.state, content.settings, outside});
    const Notes last = outside.Only({"message", "keep", "put"});
    return last.size() < 3 ? "" : last.end()[-3] + "\n" + last.end()[-1];
}

bool IsRefused(const std::string& text) {
    return std::holds_alternative<FileError>(ReadSettings(text));
}

TEST(SavedGame, IsNeverInTheMiddleOfACaptureNorGoesOnAfterAVictory) {
    std::vector<MoveRecord> capture{
        {1, 0, 0, 0, 1, 0, 44, 0, Yes, 0, Yes},
        {3, 1, 0, 0, 1, 0, 45, 0, Yes, 0, Yes},
        {1, 0, 1, 1, 1, 44, 45, 0, No, 0, Yes},
    };
    EXPECT_TRUE(IsRefused(TextAfter(capture, 1)));
    capture.push_back({3, 1, 0, 0, 1, 45, 0, 0, No, 1, No});
    EXPECT_FALSE(IsRefused(TextAfter(capture, 1)));
    EXPECT_TRUE(IsRefused(TextAfter(capture, 2))) << "the bonus is due to another colour";
    std::vector<MoveRecord> victory{{1, 0, 0, 0, 4, 0, 75, 0, Yes, 0, Yes}};
    for (const Short piece : {Short{1}, Short{2}, Short{3}}) {
        victory.push_back({1, 0, 0, 0, piece, 0, 76, 0, Yes, 0, Yes});
    }
    EXPECT_FALSE(IsRefused(TextAfter(victory, 1)));
    victory.push_back({1, 0, 1, 1, 4, 75, 76, 0, No, 0, Yes});
    EXPECT_TRUE(IsRefused(TextAfter(victory, 2))) << "another colour is on turn";
    EXPECT_EQ(AskedAfter(TextAfter(victory, 1)),
              "message Final de la Partida|Puntos : 9.99\nHa ganado la partida Amarillo|2\nkeep 1 999");
    for (const PieceCode leftover : {11, 12, 13, 14})
        EXPECT_FALSE(IsRefused(TextAfter(victory, 1, leftover))) << leftover;
    victory.push_back({1, 0, 0, 10, 0, 0, 0, 0, No, 0, No});
    EXPECT_TRUE(IsRefused(TextAfter(victory, 1))) << "a bonus is passed after the victory";
}

}  // namespace
}  // namespace zorva::test
