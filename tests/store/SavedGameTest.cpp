#include "store/SavedGame.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/Consistency.h"
#include "core/Execution.h"
#include "core/Records.h"
#include "core/SilentOutside.h"
#include "store/SettingsFile.h"
#include "tests/support/Files.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

// All moves taken back, last first.
GameState TakenBack(GameState state) {
    const Settings settings;
    SilentOutside silent;
    while (--state.MoveRecordCount >= 1)
        ExecuteMove({state, settings, silent}, ExecutionMode::Backward, state.MoveRecordCount);
    return state;
}

bool IsAtTheStart(const GameState& state) {
    return state.PiecesInBox == GameState{}.PiecesInBox && state.PiecesHome == GameState{}.PiecesHome &&
           state.PiecePosition == GameState{}.PiecePosition;
}

// What is wrong with keeping the game at this position, or nothing.
std::string KeepingProblem(const GameState& state, const Settings& settings) {
    const std::string text = SettingsText(settings, state);
    const SettingsReading reading = ReadSettings(text);
    if (const auto* error = std::get_if<FileError>(&reading)) {
        return "refused with " + std::to_string(static_cast<int>(*error)) + "\n" + text;
    }
    const auto& loaded = std::get<SettingsContent>(reading);
    if (loaded.settings != settings) return "other settings";
    if (SettingsText(loaded.settings, loaded.state) != text) return "written again it differs\n" + text;
    const bool isKept = state.GameInProgress && state.MoveRecordCount >= 2;
    if (isKept != (loaded.state.GameInProgress == Yes)) return "the game is forgotten";
    if (!isKept) return {};
    return IsAtTheStart(TakenBack(loaded.state)) ? "" : "cannot be taken back";
}

// Persons may change the rules in the middle of a game: its records are those of both.
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
            Settings& rules = kind.settings;
            for (Short* rule :
                 {&rules.RuleSixAllOut, &rules.RuleLeaveAllInBox, &rules.RuleFiveAllInBox}) {
                *rule = static_cast<Short>(1 + changes.Below(2));
            }
            ApplySettings(state, rules);
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

TEST(SavedGame, EveryFileOfAWholeGameIsReadAndWrittenAgain) {
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(ZORVA_TEST_DATA) / "games")) {
        if (entry.path().extension() != ".INI") continue;
        ++files;
        const std::string bytes = FileBytes(entry.path());
        const SettingsReading reading = ReadSettings(bytes);
        ASSERT_TRUE(std::holds_alternative<SettingsContent>(reading)) << entry.path();
        const auto& content = std::get<SettingsContent>(reading);
        // Names left blank come back as those of the colours.
        const bool hasBlankName =
            bytes.find("\"\"") != std::string::npos || bytes.find("\"   \"") != std::string::npos;
        EXPECT_EQ(SettingsText(content.settings, content.state) == bytes, !hasBlankName) << entry.path();
    }
    EXPECT_EQ(files, 96);
}

}  // namespace
}  // namespace zorva::test
