#include "app/GameKeeper.h"

#include <gtest/gtest.h>

#include "store/HistoryFile.h"
#include "tests/support/Files.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

/// A game of persons and computers that is kept in a folder of the test's own.
class KeptGame : public testing::Test {
protected:
    KeptGame() {
        keeper.Failed = [this](const std::string& title, const std::string& text) {
            failures.push_back(title + "|" + text);
        };
        fs::create_directory(data);
        keeper.Load(data);
    }

    std::string Written() const { return FileBytes(data / SettingsFileName); }

    /// Plays a new game until `moves` moves are made or it has ended; calls the function at each move.
    void Play(
        Short moves, const std::function<void()>& atMove = [] {}) {
        game.beforeRecord = [&](const MoveRecord&) { atMove(); };
        game.atPosition = [&](const GameState& position) {
            if (position.MoveRecordCount > moves) state.GameInProgress = No;
            if (state.GameInProgress == No) return;
            keeper.PositionReached(position);
            beginning = position;
        };
        game.Play();
    }

    TemporaryFolder folder;
    fs::path data = folder / "data";
    RandomGame game{11, 0};
    Settings& settings = game.kind.settings;
    GameState& state = game.state;
    GameState beginning;  ///< of the turn that is played
    GameKeeper keeper{state, settings};
    std::vector<std::string> failures;
};

TEST_F(KeptGame, IsWrittenAsItStoodAtTheBeginningOfTheTurn) {
    int looks = 0;
    Play(60, [&] {
        ++looks;
        EXPECT_EQ(Written(), SettingsText(settings, beginning)) << "a kill now would lose more";
        keeper.Save();
        EXPECT_EQ(Written(), SettingsText(settings, beginning)) << "at move " << state.MoveRecordCount;
    });
    EXPECT_GE(looks, 60);
    EXPECT_EQ(failures, std::vector<std::string>{});
}

TEST_F(KeptGame, IsForgottenWhenItIsOver) {
    for (const Short moves : {1, 25, 3000}) {  // given up at once, in the middle, and won
        Play(moves);
        keeper.GameOver();
        for (int times = 0; times < 2; ++times) {
            const LoadedSettings loaded = LoadSettings(data);
            EXPECT_EQ(loaded.outcome, LoadOutcome::Loaded) << "after " << moves << " moves";
            EXPECT_EQ(loaded.content.state.GameInProgress, No);
            EXPECT_EQ(loaded.content.state.MoveRecordCount, 0) << "records of a game that is over";
            EXPECT_EQ(loaded.content.state.PiecePosition, state.PiecePosition);
            EXPECT_EQ(loaded.content.settings, settings);
            keeper.Save();
        }
    }
}

TEST_F(KeptGame, TellsOnceThatItCannotBeWritten) {
    state.MoveRecordCount = 1;
    for (int times = 1; times <= 2; ++times) {
        fs::remove_all(data);
        keeper.SaveAtEnd();
        EXPECT_EQ(failures.size(), static_cast<std::size_t>(times - 1))
            << "asks at the end of the session";
        keeper.PositionReached(state);
        keeper.PositionReached(state);
        keeper.Save();
        keeper.AppendResult({1, {2}, 250});
        ASSERT_EQ(failures.size(), static_cast<std::size_t>(times));
        EXPECT_EQ(failures.back(), std::string("No se puede guardar|") +
                                       SaveErrorText(FileError::PathNotFound, SettingsFileName));
        fs::create_directory(data);
        keeper.Save();
        EXPECT_EQ(failures.size(), static_cast<std::size_t>(times)) << "what works is not told";
        EXPECT_EQ(LoadSettings(data).outcome, LoadOutcome::Loaded);
    }
}

TEST_F(KeptGame, WritesNothingOverAFileThatCouldNotBeRead) {
    GameKeeper other(state, settings);
    other.Failed = keeper.Failed;
    const fs::path late = folder / "late";
    EXPECT_EQ(other.Load(late).outcome, LoadOutcome::Damaged) << "the folder is not there yet";
    fs::create_directory(late);
    WriteBytes(late / SettingsFileName, "a game from elsewhere");
    other.PositionReached(state);
    other.Save();
    other.GameOver();
    EXPECT_EQ(FileBytes(late / SettingsFileName), "a game from elsewhere");
    const fs::path deep = FolderWithRoomForShortNames(folder);
    WriteBytes(deep / SettingsFileName, "4,0");
    EXPECT_EQ(other.Load(deep).keptAs, "") << "ZORVA32-1.MAL has no room";
    other.PositionReached(state);
    other.Save();
    other.GameOver();
    EXPECT_EQ(FileBytes(deep / SettingsFileName), "4,0");
    // A damaged file that was kept aside makes room for a new one.
    EXPECT_EQ(other.Load(late).outcome, LoadOutcome::Damaged);
    settings.Speed = 7;
    other.Save();
    EXPECT_EQ(LoadSettings(late).content.settings.Speed, 7);
}

TEST_F(KeptGame, TellsThatTheHistoryCannotBeWritten) {
    fs::create_directory(data / HistoryFileName);
    keeper.AppendResult({2, {1, 3, 4}, 250});
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures.back().find(HistoryFileName), std::string::npos);
}

}  // namespace
}  // namespace zorva::test
