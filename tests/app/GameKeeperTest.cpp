#include "app/GameKeeper.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTest>

#include "store/HistoryFile.h"
#include "tests/support/FaultyFiles.h"
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
    GameKeeper keeper{state, settings, std::chrono::milliseconds(20)};
    static constexpr std::chrono::seconds patience{20};
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

TEST_F(KeptGame, TellsOfEachFileOnceThatItCannotBeWritten) {
    state.GameInProgress = Yes;
    state.MoveRecordCount = 1;
    for (int times = 1; times <= 2; ++times) {
        failures.clear();
        fs::remove_all(data);
        EXPECT_NE(keeper.SaveNow(), "");
        EXPECT_EQ(failures, std::vector<std::string>{}) << "asks at the end of the session";
        keeper.PositionReached(state);
        keeper.PositionReached(state);
        keeper.Save();
        EXPECT_NE(keeper.SaveNow().find("(error 76). La partida no queda"), std::string::npos);
        for (const Short points : {250, 251}) keeper.AppendResult({1, {2}, points});
        keeper.GameOver();
        const std::string start = "No se puede guardar|No se puede escribir el fichero ZORVA32.";
        const std::vector<std::string> expected{
            start + "INI: no existe la carpeta (error 76). El juego continúa.",
            start + "HIS: no existe la carpeta (error 76)."};
        EXPECT_EQ(failures, expected);
        fs::create_directory(data);
        const auto size = static_cast<std::uintmax_t>(2) * HistoryRecordLength;
        EXPECT_TRUE(QTest::qWaitFor([&] { return FileBytes(data / HistoryFileName).size() == size; }));
        EXPECT_EQ(keeper.SaveToLeave(patience), "");
        EXPECT_EQ(FileBytes(data / HistoryFileName).size(), size) << "twice";
        EXPECT_EQ(failures, expected) << "what works is not told";
        EXPECT_EQ(LoadSettings(data).outcome, LoadOutcome::Loaded);
    }
}

TEST_F(KeptGame, ReachesTheDiskBesideTheGame) {
    keeper.SaveToLeave(patience);
    flushes = 0;
    for (int times = 0; times < 100; ++times) keeper.PositionReached(state);
    EXPECT_EQ(flushes, 0) << "the game waits for the disk";
    EXPECT_TRUE(QTest::qWaitFor([] { return flushes == 2; })) << "once: the file and its folder";
    flushError = EIO;
    keeper.GameOver();
    EXPECT_NE(keeper.SaveToLeave(patience).find("el disco da un error"), std::string::npos);
    flushError = 0;
    EXPECT_EQ(keeper.SaveToLeave(patience), "");
    flushHangs = true;
    settings.Speed = 7;
    for (int times = 0; times < 2; ++times) EXPECT_EQ(keeper.SaveToLeave({}), "");
    EXPECT_EQ(Written(), SettingsText(settings, keeper.Load(data).content.state));
    flushHangs = false;
}

/// A session of six calls on a disk that fails at one of them.
class FaultyDisk : public KeptGame {
protected:
    void PlaySession() {
        for (step = 0; step < 6; ++step) {
            settings.Speed = step;
            if (step == 2 || step == 3) keeper.AppendResult({1, {2}, ToShort(500 + step)});
            if (step == 4) keeper.GameOver();
            if (step != 4) keeper.PositionReached(state);
        }
    }
    bool IsWritten(int speed) {
        settings.Speed = static_cast<Short>(speed);
        return IsStored(data, settings, state);
    }
    std::string History() const { return FileBytes(data / HistoryFileName); }
    bool HasBothResults(std::size_t before) const {
        const std::string now = History();
        return now.size() == before + 2 * HistoryRecordLength && now.substr(before + 48, 3) == "502" &&
               now.substr(before + 101, 3) == "503";
    }

    static constexpr int calls = 40;  // more than a session makes
    std::atomic<int>& step = *static_cast<std::atomic<int>*>(
        mmap(nullptr, sizeof step, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
};

TEST_F(FaultyDisk, LosesNothingThatItTakesLater) {
    for (const Fault fault : {Fault::Once, Fault::FromNowOn, Fault::IsShort}) {
        for (int call = 1; call <= calls; ++call) {
            const std::size_t before = History().size();
            failures.clear();
            FailAt(call, fault);
            PlaySession();
            const std::string lost = keeper.SaveNow();
            const bool keptAll = IsWritten(5) && HasBothResults(before);
            FailAt(0, Fault::None);
            const std::string where = std::to_string(int(fault)) + " at call " + std::to_string(call);
            EXPECT_TRUE(!lost.empty() || keptAll) << where << ": lost without a word";
            EXPECT_TRUE(lost.empty() || fault != Fault::Once) << where << ": " << lost;
            EXPECT_LE(failures.size(), 2U) << where;
            EXPECT_EQ(keeper.SaveNow(), "") << where;
            ASSERT_TRUE(IsWritten(5)) << where;
            ASSERT_TRUE(HasBothResults(before)) << where << History().substr(before);
        }
    }
}

TEST_F(FaultyDisk, LosesNoMoreThanTheMoveInHandByAKill) {
    int killed = 0;
    for (int call = 1; call <= calls; ++call) {
        const std::string before = History();
        settings.Speed = 99;
        keeper.PositionReached(state);
        const pid_t child = fork();
        if (child == 0) {
            FailAt(call, Fault::Kill);
            PlaySession();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (WEXITSTATUS(status) == 9) ++killed;
        EXPECT_TRUE(IsWritten(step) || IsWritten(step == 0 ? 99 : step - 1)) << "call " << call;
        EXPECT_EQ(History().substr(0, before.size()), before) << "call " << call;
        EXPECT_EQ(History().size() % HistoryRecordLength, 0U) << "call " << call;
    }
    EXPECT_GT(killed, calls / 2);
}

TEST_F(KeptGame, WritesNothingOverAFileThatCouldNotBeRead) {
    GameKeeper other(state, settings);
    other.Failed = keeper.Failed;
    const fs::path late = folder / "late";
    const LoadedSettings refused = other.Load(late);
    EXPECT_EQ(refused.outcome, LoadOutcome::Damaged) << "the folder is not there yet";
    settings = refused.content.settings;
    EXPECT_FALSE(other.MayWrite());
    EXPECT_EQ(other.SaveNow(), "") << "there is nothing to lose yet";
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
    settings.Speed = 8;
    EXPECT_NE(other.SaveNow(), "");
    // A damaged file that was kept aside makes room for a new one.
    EXPECT_EQ(other.Load(late).outcome, LoadOutcome::Damaged);
    settings.Speed = 7;
    other.Save();
    EXPECT_EQ(LoadSettings(late).content.settings.Speed, 7);
}

}  // namespace
}  // namespace zorva::test
