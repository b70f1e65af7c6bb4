#include "tools/Match.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tools/MatchGames.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

MatchPlan PlanOf(std::uint64_t games, PerColour<Short> levels, unsigned threads = 1) {
    MatchPlan plan;
    plan.settings.PlayerLevel = levels;
    plan.games = games;
    plan.seed = 7;
    plan.threads = threads;
    return plan;
}

// Nearly every mistake in the engine, and every change of the rules in the core alone, makes some game
// go another way: the dice then mean something else and the counts part.
TEST(MatchGames, ComeOutTheSameByEngineAndByTheBook) {
    Chance chance(5);
    const auto either = [&] { return static_cast<Short>(1 + chance.Below(2)); };
    for (std::uint64_t match = 0; match < 150; ++match) {
        Settings settings;
        settings.PlayOrder = either();
        settings.RuleSixAllOut = either();
        settings.RuleLeaveAllInBox = either();
        settings.RuleFiveAllInBox = either();
        settings.RuleFiveSomeInBox = either();
        for (Colour colour = 1; colour <= ColourCount; ++colour) {
            settings.PlayerLevel[colour] = static_cast<Short>(chance.Below(101));
            settings.PlayerActive[colour] = chance.Below(3) == 0 ? 2 : 1;
        }
        const MatchGames games(settings, match);
        for (std::uint64_t number = 0; number < 8; ++number) {
            ASSERT_EQ(games.PlayByEngine(number), games.PlayByTheBook(number))
                << "game " << number << " of match " << match;
        }
    }
}

TEST(Match, HasTheSameTotalsOnAnyNumberOfThreadsAndMachine) {
    const PerColour<Short> levels{0, 100, 75, 45, 10};
    const MatchTotals totals = PlayMatch(PlanOf(300, levels), {});
    EXPECT_EQ(PlayMatch(PlanOf(300, levels, 3), {}), totals);
    EXPECT_EQ(PlayMatch(PlanOf(300, levels, 40), {}), totals);
    MatchPlan book = PlanOf(300, levels, 2);
    book.byTheBook = true;
    EXPECT_EQ(PlayMatch(book, {}), totals);
    // A change here means that the rules, the computer player or the dice changed.
    const PerColour<std::uint64_t> wins{0, 112, 110, 44, 34};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        EXPECT_EQ(totals.colours[colour].wins, wins[colour]) << colour;
    }
    EXPECT_EQ(totals.winsByTurn, (std::array<std::uint64_t, 4>{73, 74, 78, 75}));
    EXPECT_EQ(totals.games, 300U);
    EXPECT_EQ(totals.moves, 111'449U);
    EXPECT_EQ(totals.captures, 4'713U);
}

TEST(Match, LetsOnlyThoseWhoTakePartWinAndTheStrongerMoreOften) {
    MatchPlan plan = PlanOf(1000, {0, 20, 50, 80, 50}, 2);
    plan.settings.PlayerActive = {0, 1, 2, 1, 2};
    plan.settings.PlayerType.fill(2);  // persons' colours are played too
    std::uint64_t last = 0;
    const MatchTotals totals = PlayMatch(plan, [&](std::uint64_t finished) {
        EXPECT_GE(finished, last) << "progress goes back";
        last = finished;
    });
    EXPECT_EQ(last, 1000U);
    EXPECT_EQ(totals.colours[2].wins + totals.colours[4].wins, 0U);
    EXPECT_EQ(totals.colours[1].wins + totals.colours[3].wins, 1000U);
    EXPECT_GT(totals.colours[3].wins, 600U);
}

TEST(MatchCommand, PrintsARowForEachColourAndLevel) {
    std::ostringstream out, err;
    EXPECT_EQ(
        RunSim({"match", "--games", "20", "--seed", "1", "--levels", "0,100,0,50"}, out, err, true), 0);
    for (const char* part : {"\nyellow, level 0 ", "\ngreen, level 50 ", "\nall of level 0 ",
                             "\nwins by turn, ", " games/s, "}) {
        EXPECT_NE(out.str().find(part), std::string::npos) << part;
    }
    EXPECT_NE(err.str().find("20 of 20 games\n"), std::string::npos);
}

}  // namespace
}  // namespace zorva::test
