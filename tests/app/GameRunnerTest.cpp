#include "app/GameRunner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "core/DecidedThrows.h"
#include "core/Turns.h"
#include "engine/Chance.h"

namespace zorva::test {
namespace {

/// A world whose players do what the test says at each wait, and answer each question.
class RunnerTest : public testing::Test, public DecidedThrows {
protected:
    RunnerTest() {
        settings.PlayerType.fill(2);
        runner.GameOver = [this] { told.emplace_back("over"); };
        runner.SettingsWanted = [this] { told.emplace_back("settings"); };
        runner.Ended = [this] {
            EXPECT_FALSE(runner.IsRunning());
            told.emplace_back("ended");
        };
        onWait = [this] { state.WaitingForThrow = state.WaitingForMove = No; };
    }

    void WaitForInput() override {
        ++waits;
        onWait();
    }
    MessageAnswer ShowMessage(std::string_view title, std::string_view, Short, MessageButtons) override {
        if (title != "Comienza la Partida") return MessageAnswer::Refused;
        told.emplace_back("begins");
        return begins;
    }
    Short NextThrow() override { return chance.Face(); }

    Settings settings;
    GameState state;
    Chance chance{7};
    GameRunner runner{state, settings, *this};
    std::function<void()> onWait;
    MessageAnswer begins = MessageAnswer::Accepted;
    using Told = std::vector<std::string>;
    Told told;
    int waits = 0;
};

TEST_F(RunnerTest, AThousandNewGamesNeedNoMoreStackThanOne) {
    std::set<std::uintptr_t> depths;
    onWait = [&] {
        const volatile char here = 0;
        depths.insert(reinterpret_cast<std::uintptr_t>(&here));
        waits < 1000 ? runner.StartNewGame() : runner.Leave();
    };
    runner.StartNewGame();
    EXPECT_EQ(waits, 1000);
    EXPECT_EQ(depths.size(), 1u);
    EXPECT_EQ(std::count(told.begin(), told.end(), "begins"), 1000);
    EXPECT_EQ(std::count(told.begin(), told.end(), "ended"), 1);
    EXPECT_FALSE(runner.IsRunning());
}

TEST_F(RunnerTest, AGivenUpGameIsOverBeforeTheNextBegins) {
    for (const bool inMove : {false, true}) {
        told.clear();
        waits = 0;
        onWait = [&, done = false]() mutable {
            if (!done && (!inMove || state.WaitingForMove)) {
                done = true;
                runner.StartNewGame();
                EXPECT_EQ(state.GameInProgress, No);
                EXPECT_TRUE(runner.IsRunning()) << "the old driver has still to return";
            } else if (done) {
                runner.Leave();
            } else {
                state.WaitingForThrow = No;
            }
        };
        runner.StartNewGame();
        const Told afterFirst(std::find(told.begin(), told.end(), "begins"), told.end());
        EXPECT_EQ(afterFirst, (Told{"begins", "over", "begins", "ended"}));
    }
}

TEST_F(RunnerTest, ALeftGameIsNotOver) {
    onWait = [this] { runner.Leave(); };
    runner.StartNewGame();
    runner.Leave();  // without a game there is nothing to wait for
    EXPECT_EQ(told, (Told{"over", "begins", "ended", "ended"}));
}

TEST_F(RunnerTest, ACancelledFirstQuestionAsksForTheSettings) {
    begins = MessageAnswer::Refused;
    runner.StartNewGame();
    EXPECT_EQ(told, (Told{"over", "begins", "over", "settings"}));
    EXPECT_EQ(waits, 0);
    EXPECT_FALSE(runner.IsRunning());
    // A new game that is asked for meanwhile is played, not forgotten.
    onWait = [this] { runner.Leave(); };
    runner.SettingsWanted = [this] {
        begins = MessageAnswer::Accepted;
        runner.StartNewGame();
    };
    runner.StartNewGame();
    EXPECT_EQ(waits, 1);
    EXPECT_EQ(told.back(), "ended");
}

}  // namespace
}  // namespace zorva::test
