#include "core/Recorder.h"

#include <gtest/gtest.h>

#include <map>

#include "core/Board.h"
#include "core/Consistency.h"
#include "core/Displacement.h"
#include "core/GameStart.h"
#include "core/Records.h"
#include "core/Turns.h"
#include "tests/support/NotingOutside.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

/// A random game of persons and computers whose throws are awaited: at each wait the test may use the
/// recorder before the person goes on.
class TapedGame : public DecidedThrows {
public:
    TapedGame(std::uint64_t number, Short longest) : chance(2, number), longest_(longest) {
        kind = RandomGameKind::Of(chance);
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            state.SquareOccupants[GoalSquare[colour]][3] = kind.leftovers[colour];
        }
    }

    RandomGameKind kind;
    Chance chance;
    GameState state;
    std::function<void(TapedGame&)> atThrow;
    std::vector<std::string> log;
    int selected = -1;
    int positionsReached = 0;
    std::map<Short, GameState> beginnings;  ///< of moves: as it stood when the throw was awaited
    std::map<Short, GameState> before;      ///< ... and right before the record

    GameContext AsGame() { return {state, kind.settings, *this}; }

    void Play() {
        ResetGame(AsGame());
        PlayFrom(AsGame(), kind.first);
    }

    /// Goes on from a wait for a throw.
    void PlayOn(const GameState& beginning) {
        state = beginning;
        --state.MoveRecordCount;
        state.RepeatTurn = Yes;  // the colour on turn is chosen already
        RunTurns(AsGame());
    }

    void PositionReached() override {
        ++positionsReached;
        if (state.MoveRecordCount > longest_) state.GameInProgress = No;
    }

    void WaitForInput() override {
        if (state.WaitingForMove) return PickByChance(state, chance);
        if (!state.ManualShiftMade) beginnings[state.MoveRecordCount] = state;
        if (atThrow) atThrow(*this);
        if (kind.shiftsByHand && chance.Below(8) == 0) TryShiftByHand(state, kind.settings, chance);
        state.WaitingForThrow = No;
    }

    void BeginLog(std::string_view heading) override { log = {std::string(heading)}; }
    void AddLogLine(Short move, const MoveRecord& record) override {
        log.push_back(LogLineText(move, record));
        before[move] = state;
    }
    void CutLogFrom(Short line) override { log.resize(line); }
    void SelectLogLine(Short line) override { selected = line; }

protected:
    Short NextThrow() override { return kind.faces[chance.Below(kind.faces.size())]; }

private:
    Short longest_;
};

bool HasSameTables(const GameState& one, const GameState& other) {
    return one.PiecePosition == other.PiecePosition && one.SquareOccupants == other.SquareOccupants &&
           one.PiecesInBox == other.PiecesInBox && one.PiecesHome == other.PiecesHome;
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

/// Steps through the whole tape and holds each position against the one the game passed through.
class TapeCheck {
public:
    explicit TapeCheck(TapedGame& game) : game_(game), live_(game.state), log_(game.log) {}

    void Run(Chance& chance) {
        if (!CanSwitchOn(game_.state, recorder_)) return;
        RecorderSwitchOn(game_.AsGame(), recorder_);
        EXPECT_EQ(game_.selected, live_.MoveRecordCount - 1);
        for (int times = 0; times < 2; ++times) {
            while (CanStepBack(game_.state, recorder_)) StepAndLook(StepBack);
            EXPECT_EQ(game_.state.MoveRecordCount, 1);
            while (CanStepForward(game_.state, recorder_)) StepAndLook(StepForward);
            EXPECT_EQ(Bare(game_.state), Bare(live_));
            EXPECT_FALSE(CanRestore(game_.state, recorder_));
        }
        for (std::uint32_t left = chance.Below(30); left > 0 && CanStepBack(game_.state, recorder_);
             --left) {
            StepAndLook(StepBack);
        }
        RecorderSwitchOff(game_.AsGame(), recorder_);
        EXPECT_EQ(Bare(game_.state), Bare(live_));
        EXPECT_EQ(game_.log, log_);
        EXPECT_EQ(game_.selected, -1);
        EXPECT_EQ(recorder_.RecorderOn, No);
    }

private:
    void StepAndLook(void (*step)(const GameContext&, RecorderState&)) {
        step(game_.AsGame(), recorder_);
        const Short position = game_.state.MoveRecordCount;
        const bool atEnd = position == live_.MoveRecordCount;
        const GameState& wanted = atEnd ? live_ : game_.before[position];
        EXPECT_TRUE(HasSameTables(game_.state, wanted)) << "at position " << position;
        EXPECT_EQ(game_.state.CurrentColour,
                  atEnd ? live_.CurrentColour : live_.MoveRecords[position].MoverColour);
        EXPECT_EQ(game_.selected, position - 1);
        EXPECT_EQ(game_.state.CaptureReport, 0);
    }

    TapedGame& game_;
    const GameState live_;
    const std::vector<std::string> log_;
    RecorderState recorder_;
};

TEST(Recorder, ShowsEveryPositionTwiceAndLeavesTheGameAsItWas) {
    std::size_t moves = 0;
    for (std::uint64_t number = 0; number < 150; ++number) {
        SCOPED_TRACE("game " + std::to_string(number));
        TapedGame plain(number, 160);
        plain.Play();
        TapedGame taped(number, 160);
        Chance recording(3, number);
        taped.atThrow = [&](TapedGame& game) {
            if (recording.Below(20) == 0) TapeCheck(game).Run(recording);
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
    TapedGame game(number, 160);
    Chance recording(4, number);
    const auto at = static_cast<Short>(10 + recording.Below(80));
    TapedGame other(number, 160);
    GameState beginning;
    game.atThrow = [&](TapedGame& live) {
        RecorderState recorder;
        const bool done = beginning.MoveRecordCount != 0;
        if (done || live.state.MoveRecordCount < at || !CanSwitchOn(live.state, recorder)) return;
        RecorderSwitchOn(live.AsGame(), recorder);
        for (std::uint32_t steps = 1 + recording.Below(8); steps > 0; --steps) {
            StepBack(live.AsGame(), recorder);
        }
        const Short wanted = live.state.MoveRecordCount;
        const std::vector<MoveRecord> tape = live.state.MoveRecords;
        const int told = live.positionsReached;
        RestorePosition(live.AsGame(), recorder);
        EXPECT_EQ(live.positionsReached, told + 1) << "the game is to be kept as it stands now";
        const Short restored = live.state.MoveRecordCount;
        insideTurns += restored < wanted;
        for (Short move = restored + 1; move <= wanted; ++move) EXPECT_EQ(tape[move].TurnEnd, No);
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

struct RestoreRow {
    const char* name;
    const char* position;
    std::vector<Short> throws;  ///< the last one is awaited when the recorder is used
    Short position1;            ///< the recorder steps back to this move ...
    Short restored;             ///< ... and the game goes on at this one
    Colour colour;
    Short sixes;
    bool byHand = false;  ///< first a person drags red's first piece from its box to 45
};

const RestoreRow restores[] = {
    {"the throw after two sixes", "1:10 0 0 0", {6, 6, 3, 1}, 3, 3, 1, 2},
    {"the turn after it", "1:10 0 0 0", {6, 6, 6, 1, 1}, 4, 4, 2, 0},
    {"the turn after a third six without a record", "1:64 0 0 0", {6, 6, 6, 1, 1}, 4, 4, 2, 0},
    {"a displacement at another colour's turn", "1:10 0 0 0", {3, 1}, 1, 1, 1, 0, true},
    {"the throw after it", "1:10 0 0 0", {3, 1}, 2, 2, 1, 0, true},
};

TEST(Recorder, GoesBackToTheBeginningOfATurn) {
    for (const RestoreRow& row : restores) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.PlayerLevel.fill(0);
        GameState state = Position(row.position);
        NotingOutside outside(state, row.throws);
        if (row.byHand) {
            outside.inputs.push_back([](GameState& waiting) {
                EnterManualMode(waiting);
                DisplaceByHand(waiting, 31, 45);
            });
        }
        outside.inputs.insert(outside.inputs.end(), row.throws.size() - 1,
                              [](GameState& waiting) { waiting.WaitingForThrow = No; });
        outside.inputs.push_back([&](GameState& waiting) {
            const GameContext game{waiting, settings, outside};
            RecorderState recorder;
            RecorderSwitchOn(game, recorder);
            while (waiting.MoveRecordCount > row.position1) StepBack(game, recorder);
            RestorePosition(game, recorder);
            EXPECT_EQ(waiting.WaitingForThrow, Yes);
            waiting.GameInProgress = waiting.WaitingForThrow = No;
        });
        PlayFrom({state, settings, outside}, 1);
        EXPECT_EQ(state.MoveRecordCount, row.restored);
        EXPECT_EQ(state.CurrentColour, row.colour);
        EXPECT_EQ(state.SixesInRow, row.sixes);
        EXPECT_EQ(state.RepeatTurn, row.sixes != 0 ? Yes : No);
        EXPECT_EQ(state.MoveRecords[row.restored], MoveRecord{}) << "not forgotten";
        EXPECT_EQ(outside.Only({"die"}).back(),
                  "die " + std::to_string(row.colour) + (row.sixes != 0 ? " 6 ready" : " 5 ready"));
        EXPECT_EQ(StateProblem(state), "");
        EXPECT_TRUE(outside.inputs.empty());
    }
}

TEST(Recorder, IsLiveAfterTheFirstMoveWhileAThrowIsAwaited) {
    struct LiveRow {
        Short waiting, manual, moves;
        bool live;
    };
    for (const LiveRow& row : {LiveRow{Yes, No, 2, true}, LiveRow{Yes, No, 1, false},
                               LiveRow{No, No, 9, false}, LiveRow{Yes, Yes, 9, false}}) {
        GameState state;
        state.WaitingForThrow = row.waiting;
        state.ManualMode = row.manual;
        state.MoveRecordCount = row.moves;
        EXPECT_EQ(CanSwitchOn(state, {}), row.live) << row.waiting << row.manual << row.moves;
        EXPECT_FALSE(CanStepBack(state, {}) || CanStepForward(state, {}) || CanRestore(state, {}));
        EXPECT_FALSE(CanSwitchOn(state, {.RecorderOn = Yes}));
    }
}

}  // namespace
}  // namespace zorva::test
