#include "app/Analyst.h"

#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

using engine::GameAnalysis, engine::Moment, engine::PositionAnalysis, engine::Tally;

/// A random game and the positions at which it could be kept. It has a third six without a record and
/// pieces dragged by hand.
struct KeptGame : RandomGame {
    KeptGame() : RandomGame(6, 71) {
        kind.settings.PlayerActive = {0, 1, 2, 1, 2};
        kind.settings.PlayerLevel = {0, 100, 0, 100, 0};
        kind.first = 1;
        kind.shiftsByHand = true;
        kind.faces = {1, 2, 3, 4, 5, 6, 6, 6, 6, 5};
        atPosition = [this](const GameState& position) { positions.push_back(position); };
        Play();
    }
    std::vector<GameState> positions;
};

/// Whether a report holds what an analysis of the whole game at once finds.
void ExpectWhole(const GameReport& report, std::uint64_t count) {
    const GameAnalysis whole(report.game, report.settings, ChancesSeed);
    const Tally tally = whole.Games().Play(0, count, 1);
    ASSERT_EQ(report.worths.size(), whole.Records());
    for (std::size_t record = 1; record <= whole.Records(); ++record) {
        const engine::RecordWorth is = report.worths[record - 1],
                                  expected = whole.OfRecord(record, tally);
        ASSERT_EQ(is.luck.value, expected.luck.value) << record;
        ASSERT_EQ(is.cost.value, expected.cost.value) << record;
        ASSERT_EQ(is.chances[1].value, expected.chances[1].value) << record;
    }
    for (engine::Seat seat = 0; seat < engine::SeatCount; ++seat) {
        const engine::SeatWorth &is = report.sums[seat], expected = whole.OfSeat(seat, tally);
        EXPECT_NEAR(is.own.luck.value, expected.own.luck.value, 1e-9);
        EXPECT_NEAR(is.shift.value, expected.shift.value, 1e-9);
        EXPECT_NEAR(is.start.value + is.luck.value + is.choice.value + is.shift.value, is.end.value,
                    1e-9);
        EXPECT_EQ(is.start.value, expected.start.value);
    }
    EXPECT_EQ(report.progress, 1);
}

// At some places the recorder takes moves back.
TEST(GameWork, KeepsWhatIsGoodOfAGameThatGoesOn) {
    constexpr std::uint64_t most = 40;
    const KeptGame game;
    GameWork work(most);
    const auto follow = [&](std::size_t position, const Settings& settings) {
        work.Follow(game.positions[position], settings);
        while (!work.IsSharp()) work.Sharpen(1, {});
        ExpectWhole(work.Report(), most);
        return work.Chunks();
    };
    std::size_t chunks = 0;
    Short record = 0;  // before it the same number: a third six left no record
    for (std::size_t at = 0; at < game.positions.size(); ++at) {
        const bool isUnrecorded = std::exchange(record, game.positions[at].MoveRecordCount) == record;
        if (at % 6 != 3 && !isUnrecorded) continue;
        const std::size_t now = follow(at, game.kind.settings);
        EXPECT_LE(now, chunks + 1);
        EXPECT_GE(now + 1, chunks) << "more was made anew than a turn of sixes";
        chunks = now;
        if (at % 30 != 27) continue;
        chunks = follow(at - 20, game.kind.settings);
        EXPECT_EQ(follow(at - 20, game.kind.settings), chunks);
    }
    const std::size_t last = game.positions.size() - 1;
    chunks = follow(last, game.kind.settings);
    EXPECT_GT(chunks, 6u);
    Settings other = game.kind.settings;
    other.Speed = 3;
    EXPECT_EQ(follow(last, other), chunks);
    other.PlayerLevel[1] = other.PlayerLevel[1] == 7 ? 8 : 7;
    EXPECT_EQ(follow(40, other), 1u);
}

class AnalystTest : public testing::Test {
protected:
    AnalystTest() {
        analyst->PositionTold = [this](const PositionReport& report) { positions.push_back(report); };
        analyst->GameTold = [this](const GameReport& report) { games.push_back(report); };
    }
    AnalysisTask At(std::size_t position, std::uint64_t ofPosition, bool ofGame) const {
        const GameState& state = game.positions[position];
        return {state, game.kind.settings, std::size_t(state.MoveRecordCount - 1), false, {}, ofPosition,
                ofGame};
    }

    const KeptGame game;
    std::unique_ptr<Analyst> analyst = std::make_unique<Analyst>(300);
    std::vector<PositionReport> positions;
    std::vector<GameReport> games;
};

TEST_F(AnalystTest, TellsWhatThePlayOutsAloneTell) {
    const AnalysisTask tasks[] = {At(30, 20'000, false), At(50, 3'000, true)};
    EXPECT_FALSE(analyst->IsAtWork());
    for (const AnalysisTask& task : tasks) {
        positions.clear();
        analyst->Analyse(task);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !analyst->IsAtWork(); }, 60'000));
        QCoreApplication::processEvents();
        const Moment moment(task.game);
        const PositionAnalysis alone(moment, task.settings, ChancesSeed);
        const Tally tally = alone.Games().Play(0, task.ofPosition, 2);
        ASSERT_FALSE(positions.empty());
        for (engine::Seat seat = 0; seat < engine::SeatCount; ++seat) {
            EXPECT_EQ(positions.back().chances[seat].value, alone.ChanceOf(seat, tally).value);
        }
        EXPECT_EQ(positions.back().progress, 1);
        EXPECT_EQ(positions.back().onTurn, task.game.CurrentColour);
        EXPECT_EQ(games.empty(), !task.ofGame);
    }
    ExpectWhole(games.back(), 300);
}

// On the tape the same record is followed by the same position.
TEST_F(AnalystTest, TellsOfTheRecorderWhatItToldOfTheLiveGame) {
    AnalysisTask tape = At(game.positions.size() - 1, 500, false);
    for (const std::size_t at : {0u, 5u, 60u}) {
        for (const bool onTape : {false, true}) {
            tape.onTape = onTape;
            tape.shown = std::size_t(game.positions[at].MoveRecordCount - 1);
            analyst->Analyse(onTape ? tape : At(at, 500, false));
            ASSERT_TRUE(QTest::qWaitFor([this] { return !analyst->IsAtWork(); }));
            QCoreApplication::processEvents();
        }
        const PositionReport &live = positions[positions.size() - 2], &onTape = positions.back();
        EXPECT_EQ(onTape.onTurn, live.onTurn) << at;
        EXPECT_EQ(onTape.record, live.record);
        EXPECT_EQ(onTape.count, live.count);
        EXPECT_TRUE(onTape.onTape && !live.onTape);
    }
}

// A broken-off task says nothing any more, and nothing runs afterwards.
TEST_F(AnalystTest, BreaksOffAtOnce) {
    for (int task = 0; task < 20; ++task) {
        analyst->Analyse(At(60, 1'000'000'000, false));
        EXPECT_TRUE(task % 3 != 0 || QTest::qWaitFor([this] { return !positions.empty(); }));
        positions.clear();
        analyst->Rest();
        QCoreApplication::processEvents();
        EXPECT_TRUE(positions.empty());
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !analyst->IsAtWork(); }, 1'000));
    analyst->Analyse(At(60, 1'000'000'000, true));
    ASSERT_TRUE(QTest::qWaitFor([this] { return positions.size() > 1; }));
    EXPECT_GT(positions[1].playOuts, positions[0].playOuts);
    analyst.reset();  // does not wait for the rest of them
}

}  // namespace
}  // namespace zorva::test
