#include "store/SavedGame.h"

#include <gtest/gtest.h>

#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/Records.h"
#include "core/SilentOutside.h"
#include "store/SettingsFile.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

bool CanBeTakenBack(GameState state) {
    const Settings settings;
    SilentOutside silent;
    while (--state.MoveRecordCount >= 1)
        ExecuteMove({state, settings, silent}, ExecutionMode::Backward, state.MoveRecordCount);
    return state.PiecesInBox == GameState{}.PiecesInBox && state.PiecesHome == GameState{}.PiecesHome &&
           state.PiecePosition == GameState{}.PiecePosition;
}

// What goes wrong when the game is saved at this position and loaded; empty if nothing does.
std::string KeepingProblem(const GameState& state, const Settings& settings) {
    const std::string text = SettingsText(settings, state);
    const SettingsReading reading = ReadSettings(text);
    if (std::holds_alternative<FileError>(reading)) return "refused\n" + text;
    const auto& loaded = std::get<SettingsContent>(reading);
    if (SettingsText(loaded.settings, loaded.state) != text) return "written again it differs\n" + text;
    const bool isKept = state.GameInProgress && state.MoveRecordCount >= 2;
    if (isKept != (loaded.state.GameInProgress == Yes)) return "the game is forgotten";
    return !isKept || CanBeTakenBack(loaded.state) ? "" : "cannot be taken back";
}

// The rules may change during a game. Its records then follow the old rules and the new ones.
TEST(SavedGame, ComesBackFromEveryPosition) {
    std::size_t positions = 0;
    for (std::uint64_t seed = 1; seed <= 12; ++seed) {
        Chance chance(seed), changes(seed, 1);
        RandomGameKind kind = RandomGameKind::Of(chance);
        GameState state;
        std::string problem;
        const auto look = [&](const GameState&, const Chance&) {
            ++positions;
            problem = KeepingProblem(state, kind.settings);
            if (!problem.empty() || state.MoveRecordCount > 700) state.GameInProgress = No;
            if (changes.Below(40) != 0) return;
            for (Short Settings::*const rule :
                 {&Settings::RuleSixAllOut, &Settings::RuleLeaveAllInBox, &Settings::RuleFiveAllInBox}) {
                kind.settings.*rule = static_cast<Short>(1 + changes.Below(2));
            }
            ApplySettings(state, kind.settings);
        };
        PlayRandomGame(state, kind, chance, {}, look);
        ASSERT_EQ(problem, "") << "game " << seed;
        ASSERT_EQ(KeepingProblem(state, kind.settings), "") << "after game " << seed;
    }
    EXPECT_GT(positions, 12u * 100);
}

// The game to which the records lead, with that colour on turn.
std::string TextAfter(const std::vector<MoveRecord>& records, Colour onTurn) {
    const Settings settings;
    GameState state;
    SilentOutside silent;
    state.GameInProgress = Yes;
    state.CurrentColour = onTurn;
    for (const MoveRecord& record : records) {
        NewMoveRecord(state);
        state.MoveRecords[state.MoveRecordCount] = record;
        ExecuteMove({state, settings, silent}, ExecutionMode::Forward, state.MoveRecordCount);
    }
    NewMoveRecord(state);
    return SettingsText(settings, state);
}

bool IsRefused(const std::string& text) {
    return std::holds_alternative<FileError>(ReadSettings(text));
}

TEST(SavedGame, IsNeverInTheMiddleOfACaptureOrWon) {
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
    EXPECT_TRUE(IsRefused(TextAfter(victory, 1)));
}

}  // namespace
}  // namespace zorva::test
