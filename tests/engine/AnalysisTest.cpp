#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <set>
#include <thread>

#include "core/Records.h"
#include "engine/GameAnalysis.h"
#include "engine/PositionAnalysis.h"
#include "tests/support/Positions.h"
#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

using engine::Estimate, engine::Figure, engine::GameAnalysis, engine::Moment, engine::PlayOuts,
    engine::PositionAnalysis, engine::SeatWorth, engine::Tally;

// -------------------------------------------------------------------------------- a position

/// Two or more colours that need a one each, and the colour on turn: with a six they throw again. The
/// chance of a one in a turn is q, so that of the n-th colour in turn is q (1 - q)^(n - 1), and so on
/// round the table.
constexpr double q = 43.0 / 216;

double ChanceOfTurn(int turn, int colours) {
    return q * std::pow(1 - q, turn - 1) / (1 - std::pow(1 - q, colours));
}

struct ChanceRow {
    const char* name;
    const char* position;
    PerColour<Short> active;
    Short order;
    Short die;    ///< thrown, or 0
    Short sixes;  ///< in a row, that of the die included
    std::array<double, 4> chances;
};

const ChanceRow chanceRows[] = {
    {"the colour on turn is ahead",
     "1:76 76 76 75  3:92 92 92 91",
     {0, 1, 2, 1, 2},
     2,
     0,
     0,
     {ChanceOfTurn(1, 2), 0, ChanceOfTurn(2, 2), 0}},
    {"a six throws again",
     "1:76 76 76 75  3:92 92 92 91",
     {0, 1, 2, 1, 2},
     2,
     6,
     1,
     {7.0 / 36 + 29.0 / 36 * ChanceOfTurn(2, 2), 0, 29.0 / 36 * ChanceOfTurn(1, 2), 0}},
    {"a third six ends the turn",
     "1:76 76 76 75  3:92 92 92 91",
     {0, 1, 2, 1, 2},
     2,
     0,
     2,
     {1.0 / 6 + 5.0 / 6 * ChanceOfTurn(2, 2), 0, 5.0 / 6 * ChanceOfTurn(1, 2), 0}},
    {"upwards",
     "1:76 76 76 75  2:84 84 84 83  4:100 100 100 99",
     {0, 1, 1, 2, 1},
     2,
     2,
     0,
     {ChanceOfTurn(3, 3), ChanceOfTurn(1, 3), 0, ChanceOfTurn(2, 3)}},
    {"downwards",
     "1:76 76 76 75  2:84 84 84 83  4:100 100 100 99",
     {0, 1, 1, 2, 1},
     1,
     2,
     0,
     {ChanceOfTurn(3, 3), ChanceOfTurn(2, 3), 0, ChanceOfTurn(1, 3)}},
    {"the bonus wins", "1:76 76 66 75  3:92 92 92 91", {0, 1, 2, 1, 2}, 2, 1, 0, {1, 0, 0, 0}},
    {"the game is won", "1:76 76 76 76  3:92 92 92 91", {0, 1, 2, 1, 2}, 2, 0, 0, {1, 0, 0, 0}},
};

TEST(PositionAnalysis, FindsChancesThatCanBeWorkedOut) {
    for (const ChanceRow& row : chanceRows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.PlayerLevel[1] = 10;  // which would walk on with the foremost piece
        settings.PlayerType[1] = 2;
        settings.PlayerActive = row.active;
        settings.PlayOrder = row.order;
        GameState state = Position(row.position);
        ApplySettings(state, settings);
        state.CurrentColour = 1;
        state.SixesInRow = row.sixes;
        state.MoveRecordCount = 1;
        state.WaitingForMove = row.die != 0 ? Yes : No;
        state.DieValue = row.die;
        state.MoveCount = row.die == 6 ? state.SixValue : row.die;
        const PositionAnalysis analysis(Moment(state), settings, 1);
        const Tally tally = analysis.Games().Play(0, 4000, 1);
        for (engine::Seat seat = 0; seat < 4; ++seat) {
            const Estimate chance = analysis.ChanceOf(seat, tally);
            EXPECT_NEAR(chance.value, row.chances[seat], 4 * chance.error) << seat;
        }
    }
}

GameState MiddleOfAGame() {
    GameState state = Position("1:18 30 45 0  3:64 61 10 39");
    state.CurrentColour = 1;
    state.MoveRecordCount = 200;
    state.WaitingForMove = Yes;
    state.DieValue = state.MoveCount = 3;
    return state;
}

Settings OfTwo() {
    Settings settings;
    settings.PlayerActive = {0, 1, 2, 1, 2};
    return settings;
}

TEST(PositionAnalysis, ComparesMovesWithCommonDice) {
    const Settings settings = OfTwo();
    const PositionAnalysis analysis(Moment(MiddleOfAGame()), settings, 1);
    ASSERT_EQ(analysis.Moves().size(), 3);
    const Tally tally = analysis.Games().Play(0, 1000, 1);
    for (std::size_t move = 0; move < 3; ++move) {
        const std::size_t other = (move + 1) % 3;
        const Estimate one = analysis.ChanceAfter(move, tally), two = analysis.ChanceAfter(other, tally);
        const Estimate difference = analysis.Difference(move, other, tally);
        EXPECT_NEAR(difference.value, one.value - two.value, 1e-9);
        EXPECT_LT(difference.error, 0.9 * std::hypot(one.error, two.error));
        EXPECT_LE(one.value, analysis.ChanceAfter(analysis.BestMove(tally), tally).value);
    }
}

TEST(PlayOuts, AreTheSameWithAnyThreadsAndInBatches) {
    Settings settings = OfTwo();
    const PositionAnalysis analysis(Moment(MiddleOfAGame()), settings, 1);
    const Tally all = analysis.Games().Play(0, 100, 1);
    EXPECT_EQ(analysis.Games().Play(0, 100, 3), all);
    Tally batches = analysis.Games().Play(0, 30, 2);
    EXPECT_EQ(batches += analysis.Games().Play(30, 100, 1), all);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(analysis.Games().Play(0, 100, 2, stop.get_token()), Tally());
    // A run that is stopped while it plays gives nothing, either.
    std::stop_source later;
    const std::jthread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        later.request_stop();
    });
    EXPECT_EQ(analysis.Games().Play(0, UINT64_MAX / 2, 2, later.get_token()), Tally());
    EXPECT_NE(PositionAnalysis(Moment(MiddleOfAGame()), settings, 2).Games().Play(0, 100, 1), all);
    // The analysis treats a person as a computer of level 100 and ignores the level in the settings.
    settings.PlayerType[3] = 2;
    const Tally person = PositionAnalysis(Moment(MiddleOfAGame()), settings, 1).Games().Play(0, 100, 1);
    settings.PlayerType[3] = 1;
    settings.PlayerLevel[3] = 100;
    EXPECT_EQ(PositionAnalysis(Moment(MiddleOfAGame()), settings, 1).Games().Play(0, 100, 1), person);
    EXPECT_NE(person, all);
}

// ------------------------------------------------------------------------------ a whole game

/// A game of two by chance, in which persons pick any piece, and what its records are worth by the
/// moments that the core passes through. With the same dice these come out exactly the same.
class WatchedGame {
public:
    explicit WatchedGame(std::uint64_t number) : game_(GameOf(number)) {
        game_.atPosition = [this](const GameState& position) { Reach(position); };
        game_.beforeRecord = [this](const MoveRecord& record) { Begin(record); };
        game_.Play();
        for (std::size_t record = 1; record <= worths_.size(); ++record) AddFigures(record);
        shift_ = games_.AddFigure(shift);
    }

    engine::Seat SeatOf(std::size_t record) const {
        return engine::SeatOf(ColourOnTurn(end.MoveRecords[record]));
    }
    /// Luck, choice and the chance afterwards.
    std::array<Estimate, 3> OfRecord(std::size_t record, const Tally& tally) const {
        const std::size_t first = 3 * (record - 1);
        return {games_.Of(tally, first), games_.Of(tally, first + 1), games_.Of(tally, first + 2)};
    }
    /// Where a person could choose between two squares: the one that was left alone; else -1.
    Square LeftAlone(std::size_t record) const { return worths_[record - 1].leftAlone; }
    Estimate Shift(const Tally& tally) const { return games_.Of(tally, shift_); }
    const PlayOuts& Games() const { return games_; }
    const Settings& Rules() const { return game_.kind.settings; }

    GameState middle, end;
    int unrecordedSixes = 0;
    Figure shift;

private:
    static RandomGame GameOf(std::uint64_t number) {
        RandomGame game(6, number);
        game.kind.settings.PlayerActive = {0, 1, 2, 1, 2};
        game.kind.settings.PlayerLevel = {0, 100, 0, 100, 0};  // then BestPiece is as chances count it
        game.kind.first = 1;
        game.kind.shiftsByHand = number % 2 == 1;
        game.kind.faces = {1, 2, 3, 4, 5, 6, 6, 6, 6, 5};
        return game;
    }

    enum class Open { Nothing, Throw, Luck, Choice, Shift };
    struct Worth {
        Figure luck, choice;
        std::size_t after = 0;
        Square leftAlone = -1;
    };

    std::size_t Add(const GameState& state) {
        Moment moment(state);
        moment.throws = throws_;
        return games_.AddMoment(moment);
    }

    void Reach(const GameState& position) {
        const bool isUnrecorded = open_ == Open::Throw;
        unrecordedSixes += isUnrecorded;
        throws_[onTurn_] += isUnrecorded;
        onTurn_ = engine::SeatOf(position.CurrentColour);
        const std::size_t reached = Add(position);
        if (isUnrecorded) worths_[latestSix_].luck.AddChange(here_, reached);
        if (open_ == Open::Luck) worths_[first_].luck.AddChange(here_, reached);
        if (open_ == Open::Choice) worths_[first_].choice.AddChange(here_, reached);
        if (open_ == Open::Shift) shift.AddChange(here_, reached);
        for (std::size_t record = first_; record < worths_.size() && !isUnrecorded; ++record)
            worths_[record].after = reached;
        open_ = Open::Throw;
        here_ = reached;
        end = position;
        if (worths_.size() < 70) middle = position;
    }

    void Begin(const MoveRecord& record) {
        worths_.emplace_back();
        if (open_ != Open::Throw) return;  // it follows from the record before
        first_ = worths_.size() - 1;
        if (record.Die == 6 && record.RepeatState == 2) latestSix_ = first_;
        throws_[onTurn_] += record.Die != 0;
        const bool isThirdSix = record.Die == 6 && record.RepeatState == 0;
        const GameState& now = game_.state;
        const bool isTwin = now.MovePiece != now.BestPiece && now.MoveFrom == now.BestFrom;
        const bool isDecided = !isThirdSix && !(isTwin && record.Die != 0);
        open_ = record.Manual ? Open::Shift : isDecided ? Open::Choice : Open::Luck;
        if (open_ != Open::Choice) return;
        GameState decided = game_.state;
        decided.WaitingForMove = Yes;
        std::set<Square> others;
        for (Short piece = 1; piece <= PiecesPerColour; ++piece)
            if (decided.MovablePieces[piece])
                others.insert(decided.PiecePosition[record.MoverColour][piece]);
        others.erase(record.From);
        if (others.size() == 1) worths_.back().leftAlone = *others.begin();
        const std::size_t thrown = Add(decided);
        if (record.Die != 0) worths_[first_].luck.AddChange(here_, thrown);
        here_ = thrown;
    }

    void AddFigures(std::size_t record) {
        const Worth& worth = worths_[record - 1];
        for (Figure figure : {worth.luck, worth.choice, Figure{0, {{worth.after, 1}}}}) {
            figure.seat = SeatOf(record);
            games_.AddFigure(figure);
        }
    }

    RandomGame game_;
    PlayOuts games_{game_.kind.settings, 5};
    std::vector<Worth> worths_;
    std::array<unsigned, 4> throws_{};
    engine::Seat onTurn_ = 0;
    Open open_ = Open::Nothing;
    std::size_t here_ = 0, first_ = 0, latestSix_ = 0, shift_ = 0;
};

class GameAnalysisTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(GameAnalysisTest, DividesTheChangesAmongDiceChoicesAndDisplacements) {
    const WatchedGame game(GetParam());
    ASSERT_TRUE(HasWon(game.end));
    EXPECT_EQ(game.unrecordedSixes, 1);
    const GameAnalysis analysis(game.end, game.Rules(), 5);
    const Tally tally = analysis.Games().Play(0, 150, 1), other = game.Games().Play(0, 150, 1);
    PerColour<double> luckOf{}, choiceOf{}, costOf{};
    int compared = 0;
    for (std::size_t record = 1; record <= analysis.Records(); ++record) {
        const engine::RecordWorth worth = analysis.OfRecord(record, tally);
        const engine::Seat seat = game.SeatOf(record);
        const auto expected = game.OfRecord(record, other);
        EXPECT_EQ(worth.luck.value, expected[0].value) << record;
        EXPECT_EQ(worth.choice.value, expected[1].value) << record;
        EXPECT_EQ(worth.chances[seat].value, expected[2].value) << record;
        luckOf[seat] += worth.luck.value;
        choiceOf[seat] += worth.choice.value;
        costOf[seat] += worth.cost.value;
        if (worth.cost.error > 0 && game.LeftAlone(record) >= 0) {
            EXPECT_EQ(worth.better, game.LeftAlone(record)) << record;
            ++compared;
        }
        EXPECT_TRUE(worth.cost.value == 0 || worth.cost.value >= 2 * worth.cost.error);
        EXPECT_GE(worth.cost.value + 2 * worth.cost.error, -worth.choice.value);
    }
    EXPECT_GT(compared, 3);
    EXPECT_EQ(analysis.OfSeat(0, tally).shift.value, game.Shift(other).value);
    for (const engine::Seat seat : {0U, 2U}) {
        const SeatWorth worth = analysis.OfSeat(seat, tally);
        EXPECT_NEAR(worth.own.luck.value, luckOf[seat], 1e-9);
        EXPECT_NEAR(worth.own.choice.value, choiceOf[seat], 1e-9);
        EXPECT_NEAR(worth.own.cost.value, costOf[seat], 1e-9);
        EXPECT_LT(worth.own.luck.error, 0.6);
        EXPECT_EQ(worth.own.choice.value != 0, game.Rules().PlayerType[engine::ColourAt(seat)] == 2);
        EXPECT_EQ(worth.own.cost.value > 0, game.Rules().PlayerType[engine::ColourAt(seat)] == 2);
        const double sum = worth.start.value + worth.luck.value + worth.choice.value + worth.shift.value;
        EXPECT_NEAR(sum, worth.end.value, 1e-9);
        EXPECT_EQ(worth.end.value, engine::SeatOf(game.end.CurrentColour) == seat ? 1 : 0);
    }
}
TEST_P(GameAnalysisTest, GoesOnWithTheNewRecordsOfAGame) {
    const WatchedGame game(GetParam());
    const auto first = static_cast<std::size_t>(game.middle.MoveRecordCount);
    const GameAnalysis whole(game.end, game.Rules(), 5), before(game.middle, game.Rules(), 5),
        after(game.end, game.Rules(), 5, first), nothing(game.end, game.Rules(), 5, whole.Records() + 1);
    ASSERT_EQ(before.Records() + after.Records(), whole.Records());
    const Tally all = whole.Games().Play(0, 20, 1), early = before.Games().Play(0, 20, 1),
                late = after.Games().Play(0, 20, 1), none = nothing.Games().Play(0, 20, 1);
    for (std::size_t record = 1; record <= whole.Records(); ++record) {
        const engine::RecordWorth worth = record < first ? before.OfRecord(record, early)
                                                         : after.OfRecord(record, late),
                                  expected = whole.OfRecord(record, all);
        EXPECT_EQ(worth.luck.value, expected.luck.value) << record;
        EXPECT_EQ(worth.cost.value, expected.cost.value) << record;
        EXPECT_EQ(worth.chances[0].value, expected.chances[0].value) << record;
    }
    const SeatWorth sum = whole.OfSeat(2, all), one = before.OfSeat(2, early),
                    two = after.OfSeat(2, late);
    EXPECT_EQ(one.end.value, two.start.value);
    EXPECT_EQ(two.end.value, sum.end.value);
    EXPECT_NEAR(one.own.luck.value + two.own.luck.value, sum.own.luck.value, 1e-9);
    EXPECT_NEAR(one.shift.value + two.shift.value, sum.shift.value, 1e-9);
    EXPECT_EQ(before.MomentAfter(first - 1).position, Moment(game.middle).position);
    EXPECT_EQ(after.MomentAfter(first - 1).seat, Moment(game.middle).seat);
    EXPECT_EQ(nothing.Records() + nothing.Games().Moments(), 1);
    EXPECT_EQ(nothing.OfSeat(2, none).start.value, sum.end.value);
}

// Both have an unrecorded third six and pieces dragged by hand, the second also a second piece out with
// one five and a capture on an exit.
INSTANTIATE_TEST_SUITE_P(Games, GameAnalysisTest, testing::Values(71, 1191));

}  // namespace
}  // namespace zorva::test
