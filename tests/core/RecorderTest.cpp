#include "core/Recorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/Records.h"
#include "core/Turns.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

/// A random game whose recorder may be used at each wait for a throw, before the person goes on.
class TapedGame : public RandomGame {
public:
    explicit TapedGame(std::uint64_t number) : RandomGame(2, number, 160) {}

    std::function<void(TapedGame&)> atThrow;
    std::vector<std::string> log;
    int selected = -1;
    Short face = 0;                 ///< on the table
    std::map<Short, Short> thrown;  ///< the face there when a move is made, 0 for one by hand
    int positionsReached = 0;
    std::map<Short, GameState> beginnings;  ///< of moves: as it stood when the throw was awaited
    std::map<Short, GameState> before;      ///< ... and right before the record

    /// Goes on from a wait for a throw.
    void PlayOn(const GameState& beginning) {
        state = beginning;
        --state.MoveRecordCount;
        state.RepeatTurn = Yes;  // the colour on turn is chosen already
        RunTurns(AsGame());
    }

    void PositionReached(const GameState& position) override {
        ++positionsReached;
        RandomGame::PositionReached(position);
    }
    void BeginLog(std::string_view heading) override { log = {std::string(heading)}; }
    void AddLogLine(Short move, const MoveRecord& record) override {
        log.push_back(LogLineText(move, record));
        before[move] = state;
        thrown[move] = record.Manual ? Short{0} : face;
    }
    void CutLogFrom(Short line) override { log.resize(line); }
    void SelectLogLine(Short line) override { selected = line; }
    void DrawDie(Colour, Short shown, DieIs) override {
        EXPECT_NE(shown, 0);
        face = shown;
    }
    void ClearDice() override { face = 0; }

protected:
    void ThrowAwaited() override {
        EXPECT_EQ(state.ManualMode, No);
        if (!state.ManualShiftMade) beginnings[state.MoveRecordCount] = state;
        if (atThrow) atThrow(*this);
    }
};

Short ReadyFace(const GameState& state) {
    return state.RepeatTurn ? 6 : 5;
}

/// The state without what has no meaning while a throw is awaited, and without the traces of the move
/// made last.
GameState Bare(GameState state) {
    state.MoveRecords.resize(state.MoveRecordCount);
    state.CapturedColour = 0;
    state.MoveCount = state.MovePiece = state.MoveFrom = state.MoveTo = state.SecondMovePending = 0;
    state.ManualShiftColour = state.BestPiece = state.BestFrom = state.BestTo = state.LegalMoveCount = 0;
    state.MovablePieces = {};
    return state;
}

/// Compares the position on the tape of the game that stands at `live` with what the game passed
/// through.
void Look(TapedGame& game, const GameState& live) {
    const Short position = game.state.MoveRecordCount;
    const bool atEnd = position == live.MoveRecordCount;
    EXPECT_TRUE(TablesOf(game.state) == TablesOf(atEnd ? live : game.before[position])) << position;
    EXPECT_EQ(game.state.CurrentColour,
              atEnd ? live.CurrentColour : live.MoveRecords[position].MoverColour);
    EXPECT_EQ(game.face, atEnd ? ReadyFace(live) : game.thrown[position - 1]) << position;
    EXPECT_EQ(game.selected, position - 1);
    EXPECT_EQ(game.state.CaptureReport, 0);
}

void StepAndLook(TapedGame& game, const GameState& live, RecorderState& recorder,
                 decltype(StepBack)& step) {
    step(game.AsGame(), recorder);
    Look(game, live);
}

/// Steps through the whole tape twice and leaves it somewhere in the middle.
void UseTape(TapedGame& game, Chance& chance) {
    RecorderState recorder;
    if (!CanSwitchOn(game.state, recorder)) return;
    const GameState live = game.state;
    const std::vector<std::string> log = game.log;
    RecorderSwitchOn(game.AsGame(), recorder);
    EXPECT_EQ(game.selected, live.MoveRecordCount - 1);
    for (int times = 0; times < 2; ++times) {
        while (CanStepBack(game.state, recorder)) StepAndLook(game, live, recorder, StepBack);
        EXPECT_EQ(game.state.MoveRecordCount, 1);
        while (CanStepForward(game.state, recorder)) StepAndLook(game, live, recorder, StepForward);
        EXPECT_EQ(Bare(game.state), Bare(live));
        EXPECT_FALSE(CanRestore(game.state, recorder));
    }
    const auto moves = static_cast<std::uint32_t>(live.MoveRecordCount);
    for (int jump = 0; jump < 3; ++jump) {
        GoToPosition(game.AsGame(), recorder, ToShort(chance.Below(moves)));
        Look(game, live);
    }
    RecorderSwitchOff(game.AsGame(), recorder);
    EXPECT_EQ(Bare(game.state), Bare(live));
    EXPECT_EQ(game.log, log);
    EXPECT_EQ(game.selected, -1);
    EXPECT_EQ(recorder.RecorderOn, No);
}

TEST(Recorder, ShowsEveryPositionTwiceAndLeavesTheGameAsItWas) {
    std::size_t moves = 0;
    for (std::uint64_t number = 0; number < 150; ++number) {
        SCOPED_TRACE("game " + std::to_string(number));
        TapedGame plain(number);
        plain.Play();
        TapedGame taped(number);
        Chance recording(3, number);
        taped.atThrow = [&](TapedGame& game) {
            if (recording.Below(20) == 0) UseTape(game, recording);
        };
        taped.Play();
        // What the recorder left behind, such as a capture report, would show in the moves after it.
        EXPECT_EQ(taped.log, plain.log);
        EXPECT_EQ(Bare(taped.state), Bare(plain.state));
        moves += taped.log.size();
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(moves, 150u * 80);
}

/// A game restored once, at a chance position, and the same game left at that position before.
void RestoreAndCompare(std::uint64_t number, std::size_t& insideTurns) {
    TapedGame game(number);
    Chance recording(4, number);
    const auto at = static_cast<Short>(2 + recording.Below(80));
    TapedGame other(number);
    GameState beginning;
    game.atThrow = [&](TapedGame& live) {
        RecorderState recorder;
        const bool done = beginning.MoveRecordCount != 0;
        if (done || live.state.MoveRecordCount < at || !CanSwitchOn(live.state, recorder)) return;
        RecorderSwitchOn(live.AsGame(), recorder);
        StepBack(live.AsGame(), recorder);
        for (std::uint32_t steps = recording.Below(8); steps > 0; --steps) {
            if (CanStepBack(live.state, recorder)) StepBack(live.AsGame(), recorder);
        }
        const Short wanted = live.state.MoveRecordCount;
        const std::vector<MoveRecord> tape = live.state.MoveRecords;
        const int told = live.positionsReached;
        RestorePosition(live.AsGame(), recorder);
        EXPECT_EQ(live.positionsReached, told + 1) << "the game is to be kept as it stands now";
        const Short restored = live.state.MoveRecordCount;
        insideTurns += restored < wanted;
        for (Short move = restored + 1; move <= wanted; ++move) EXPECT_EQ(tape[move].TurnEnd, No);
        EXPECT_EQ(live.state.MoveRecords[restored], MoveRecord{}) << "not forgotten";
        EXPECT_EQ(live.face, ReadyFace(live.state));
        EXPECT_EQ(live.state.WaitingForThrow, Yes);
        ASSERT_TRUE(live.beginnings.contains(restored)) << "no throw was awaited at " << restored;
        beginning = live.beginnings[restored];
        EXPECT_EQ(Bare(live.state), Bare(beginning)) << "restored at " << restored;
        EXPECT_EQ(live.log.size(), static_cast<std::size_t>(restored));
        live.chance = Chance(5, number);
        other.chance = Chance(5, number);
        other.log = live.log;
    };
    game.Play();
    if (beginning.MoveRecordCount == 0) return;  // the game was over before
    other.PlayOn(beginning);
    EXPECT_EQ(game.log, other.log);
    EXPECT_EQ(Bare(game.state), Bare(other.state));
}

TEST(Recorder, RestoresAGameThatPlaysOnAsIfTheForgottenMovesHadNeverBeenMade) {
    std::size_t insideTurns = 0;
    for (std::uint64_t number = 0; number < 2000; ++number) {
        SCOPED_TRACE("game " + std::to_string(number));
        RestoreAndCompare(number, insideTurns);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(insideTurns, 50u);
}

// Random games bring these about too rarely, or never.
TEST(Recorder, RestoresNoSixesOfATurnThatIsOver) {
    // The tape is restored before its last move.
    const std::tuple<const char*, const char*, Colour, std::vector<MoveRecord>> rows[] = {
        {"yellow's third six found its piece at home",
         "1:76 0 0 0",
         0,
         {{1, 0, 6, 6, 1, 64, 70, 1, No, 0, Yes},
          {1, 0, 6, 6, 1, 70, 76, 2, No, 0, No},
          {2, 0, 1, 1, 0, 0, 0, 0, No, 0, Yes}}},
        {"yellow takes no part, but a file has a turn of it",
         "1:10 0 0 0",
         1,
         {{1, 0, 6, 6, 1, 4, 10, 1, No, 0, Yes}, {1, 0, 3, 3, 0, 0, 0, 0, No, 0, Yes}}},
    };
    for (const auto& [name, position, absent, tape] : rows) {
        SCOPED_TRACE(name);
        GameState state = Position(position);
        std::copy(tape.begin(), tape.end(), state.MoveRecords.begin() + 1);
        state.MoveRecordCount = static_cast<Short>(tape.size() + 1);
        Settings settings;
        if (absent != 0) settings.PlayerActive[absent] = 2;
        SilentOutside silent;
        RecorderState recorder;
        const GameContext game{state, settings, silent};
        RecorderSwitchOn(game, recorder);
        StepBack(game, recorder);
        RestorePosition(game, recorder);
        EXPECT_EQ(state.CurrentColour, 2);
        EXPECT_EQ(state.SixesInRow, 0);
        EXPECT_EQ(state.RepeatTurn, No);
    }
}

TEST(Recorder, IsLiveAfterTheFirstMoveWhileAThrowIsAwaited) {
    const auto isLive = [](Short waiting, Short manual, Short moves) {
        GameState state;
        state.WaitingForThrow = waiting;
        state.ManualMode = manual;
        state.MoveRecordCount = moves;
        EXPECT_FALSE(CanStepBack(state, {}) || CanStepForward(state, {}) || CanRestore(state, {}));
        EXPECT_FALSE(CanSwitchOn(state, {.RecorderOn = Yes}));
        return CanSwitchOn(state, {});
    };
    EXPECT_TRUE(isLive(Yes, No, 2));
    EXPECT_FALSE(isLive(Yes, No, 1) || isLive(No, No, 9) || isLive(Yes, Yes, 9));
}

}  // namespace
}  // namespace zorva::test
