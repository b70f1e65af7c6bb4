#include "app/GameRunner.h"

#include <gtest/gtest.h>

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

TEST_F(RunnerTest, AThousandGamesGivenUpNeedNoMoreStackThanOne) {
    std::set<std::uintptr_t> depths;
    Told wanted{"over"};
    onWait = [&, games = 0]() mutable {
        const volatile char here = 0;
        depths.insert(reinterpret_cast<std::uintptr_t>(&here));
        // Every other game is given up while a move is awaited, the others at their first throw.
        if (state.WaitingForThrow && games % 2 != 0) {
            state.WaitingForThrow = No;
            return;
        }
        wanted.insert(wanted.end(), {"begins", ++games < 1000 ? "over" : "ended"});
        games < 1000 ? runner.StartNewGame() : runner.Leave();
        EXPECT_EQ(state.GameInProgress, No);
        EXPECT_TRUE(runner.IsRunning()) << "the old driver has still to return";
    };
    runner.StartNewGame();
    EXPECT_EQ(told, wanted);
    EXPECT_LE(depths.size(), 2u) << "of the two waits";
    EXPECT_FALSE(runner.IsRunning());
}

TEST_F(RunnerTest, ACancelledFirstQuestionAsksForTheSettings) {
    begins = MessageAnswer::Refused;
    runner.StartNewGame();
    EXPECT_EQ(told, (Told{"over", "begins", "over", "settings"}));
    EXPECT_EQ(waits, 0);
    EXPECT_FALSE(runner.IsRunning());
    // The runner plays a new game that the player starts meanwhile.
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
