#include "app/GameKeeper.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/Opening.h"
#include "core/Recorder.h"
#include "core/Turns.h"
#include "store/HistoryFile.h"
#include "store/SavedGame.h"
#include "tests/support/Files.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

namespace fs = std::filesystem;

/// A game of persons and computers that is kept in a folder of the test's own.
class KeptGame : public testing::Test, public DecidedThrows {
protected:
    KeptGame() {
        settings.PlayerType = {0, 2, 1, 2, 1};
        settings.PauseBetweenMoves = 1;
        keeper.Failed = [this](const std::string& title, const std::string& text) {
            failures.push_back(title + "|" + text);
        };
        fs::create_directory(data);
        keeper.Load(data);
    }

    std::string Written() const { return FileBytes(data / SettingsFileName); }
    Table AsTable() { return {state, settings, *this}; }

    /// Plays from a new game on, until `moves` moves are made or the game has ended.
    void Play(Short moves) {
        lastMove = moves;
        ResetGame(AsTable());
        PlayFrom(AsTable(), 1);
    }

    void PositionReached() override {
        if (state.MoveRecordCount > lastMove) {
            state.GameInProgress = No;
            return;
        }
        keeper.PositionReached();
        beginning = state;
    }
    void AddLogLine(Short, const MoveRecord&) override {
        if (inTheMiddle) inTheMiddle();
    }
    void WaitForInput() override {
        if (inTheMiddle) inTheMiddle();
        if (state.WaitingForMove) TakeAdvisedMove(state);
        state.WaitingForThrow = No;
    }
    Short NextThrow() override {
        if (inTheMiddle) inTheMiddle();
        return chance.Face();
    }

    TemporaryFolder folder;
    fs::path data = folder / "data";
    Settings settings;
    GameState state;
    GameState beginning;  ///< of the turn that is played
    GameKeeper keeper{state, settings};
    Chance chance{11};
    std::function<void()> inTheMiddle;
    std::vector<std::string> failures;
    Short lastMove = 0;
};

TEST_F(KeptGame, IsWrittenAsItStoodAtTheBeginningOfTheTurn) {
    int looks = 0;
    inTheMiddle = [&] {
        ++looks;
        EXPECT_EQ(Written(), SettingsText(settings, beginning)) << "a kill now would lose more";
        keeper.Save();
        EXPECT_EQ(Written(), SettingsText(settings, beginning)) << "at move " << state.MoveRecordCount;
    };
    Play(60);
    EXPECT_GT(looks, 120);
    const LoadedSettings loaded = LoadSettings(data);
    EXPECT_EQ(loaded.outcome, LoadOutcome::Loaded);
    EXPECT_EQ(loaded.content.state.PiecePosition, beginning.PiecePosition);
    EXPECT_EQ(failures, std::vector<std::string>{});
}

TEST_F(KeptGame, IsWrittenAsTheEndOfTheTapeWhileTheRecorderIsOn) {
    inTheMiddle = [&] {
        RecorderState recorder;
        if (!CanSwitchOn(state, recorder)) return;
        RecorderSwitchOn(AsTable(), recorder);
        for (int steps = 0; steps < 3 && CanStepBack(state, recorder); ++steps) {
            StepBack(AsTable(), recorder);
            keeper.Save();
            EXPECT_EQ(Written(), SettingsText(settings, beginning));
        }
        RecorderSwitchOff(AsTable(), recorder);
    };
    Play(30);
    // After a restore the file holds the restored game at once.
    lastMove = 100;
    bool restored = false;
    inTheMiddle = [&] {
        RecorderState recorder;
        if (restored || state.MoveRecordCount < 8 || !CanSwitchOn(state, recorder)) return;
        RecorderSwitchOn(AsTable(), recorder);
        for (int steps = 0; steps < 4; ++steps) StepBack(AsTable(), recorder);
        RestorePosition(AsTable(), recorder);
        restored = true;
        EXPECT_EQ(Written(), SettingsText(settings, state));
        EXPECT_EQ(LoadSettings(data).content.state.MoveRecordCount, state.MoveRecordCount);
    };
    Play(20);
    EXPECT_TRUE(restored);
}

TEST_F(KeptGame, IsForgottenWhenItIsOver) {
    const Short moves[] = {1, 25, 3000};  // given up at once, in the middle, and won
    for (const Short count : moves) {
        Play(count);
        EXPECT_EQ(*std::max_element(state.PiecesHome.begin(), state.PiecesHome.end()) == 4,
                  count == 3000);
        keeper.GameOver();
        const LoadedSettings loaded = LoadSettings(data);
        EXPECT_EQ(loaded.outcome, LoadOutcome::Loaded) << "after " << count << " moves";
        EXPECT_EQ(loaded.content.state.GameInProgress, No);
        EXPECT_EQ(loaded.content.settings, settings);
        keeper.Save();
        EXPECT_EQ(LoadSettings(data).content.state.GameInProgress, No);
    }
}

TEST_F(KeptGame, ComesBackAtTheNextStart) {
    Play(20);
    GameState nextState;
    Settings nextSettings;
    GameKeeper next(nextState, nextSettings);
    const std::string written = Written();
    const LoadedSettings loaded = next.Load(data);
    EXPECT_EQ(loaded.content.state.GameInProgress, Yes);
    EXPECT_EQ(loaded.content.state.MoveRecordCount, beginning.MoveRecordCount);
    nextState = loaded.content.state;
    nextSettings = loaded.content.settings;
    PrepareToContinue(nextState);
    next.Save();
    EXPECT_EQ(Written(), written) << "leaving again without a move changes nothing";
}

// ------------------------------------------------------------------------------------- failures

TEST_F(KeptGame, TellsOnceThatItCannotBeWritten) {
    state.MoveRecordCount = 1;
    for (int times = 1; times <= 2; ++times) {
        fs::remove_all(data);
        keeper.PositionReached();
        keeper.PositionReached();
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
    other.PositionReached();
    other.Save();
    other.GameOver();
    EXPECT_EQ(FileBytes(late / SettingsFileName), "a game from elsewhere");
    // A damaged file that was kept aside makes room for a new one.
    EXPECT_EQ(other.Load(late).outcome, LoadOutcome::Damaged);
    settings.Speed = 7;
    other.Save();
    EXPECT_EQ(LoadSettings(late).content.settings.Speed, 7);
}

TEST_F(KeptGame, AddsItsResultToTheHistory) {
    const GameResult result{2, {1, 3, 4}, 250};
    keeper.AppendResult(result);
    keeper.AppendResult(result);
    EXPECT_EQ(FileBytes(data / HistoryFileName).size(), 2u * 53);
    EXPECT_EQ(failures.size(), 0u);
    fs::remove(data / HistoryFileName);
    fs::create_directory(data / HistoryFileName);
    keeper.AppendResult(result);
    EXPECT_EQ(failures.size(), 1u);
    EXPECT_NE(failures.back().find(HistoryFileName), std::string::npos);
}

}  // namespace
}  // namespace zorva::test
