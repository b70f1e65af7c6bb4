#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "tests/support/RandomGame.h"
#include "tools/MatchGames.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

// Nearly every mistake in the engine, and every change of the rules in the core alone, makes some game
// go another way: the dice then mean something else and the counts part.
TEST(MatchGames, ComeOutTheSameByEngineAndByTheBook) {
    Chance chance(5);
    for (std::uint64_t match = 0; match < 150; ++match) {
        const MatchGames games({RandomGameKind::Of(chance).settings, match});
        for (std::uint64_t number = 0; number < 8; ++number) {
            ASSERT_EQ(games.PlayByEngine(number), games.PlayByTheBook(number))
                << "game " << number << " of match " << match;
        }
    }
}

/// What a match prints before its speed.
std::string Printed(const std::string& arguments) {
    std::istringstream words("match " + arguments);
    std::ostringstream out, err;
    EXPECT_EQ(RunSim({std::istream_iterator<std::string>(words), {}}, out, err, true), 0) << err.str();
    EXPECT_TRUE(err.str().ends_with("00 games\n")) << err.str();
    EXPECT_NE(out.str().find(" games/s, "), std::string::npos);
    return out.str().substr(0, out.str().find("mean"));
}

// A change here means that the rules, the computer player or the dice changed.
TEST(MatchCommand, PrintsTheSameTotalsOnAnyNumberOfThreadsAndMachine) {
    for (const char* how : {"--threads 1", "--threads 3", "--threads 40", "--by-the-book"}) {
        EXPECT_EQ(Printed(std::string("--games 300 --seed 7 --levels 100,75,45,10 ") + how),
                  "                          wins  of all games  points per win\n"
                  "yellow, level 100          112   37.33 %        3.31\n"
                  "blue, level 75             110   36.67 %        3.44\n"
                  "red, level 45               44   14.67 %        3.38\n"
                  "green, level 10             34   11.33 %        3.01\n"
                  "wins by turn, from the colour that begins: 24.33 % 24.67 % 26.00 % 25.00 %\n")
            << how;
    }
    EXPECT_EQ(
        Printed("--games 200 --seed 2 --levels 0,50,0,50 --players 1,1,2,1 --rules 1,2,1,1 --order 1"),
        "                          wins  of all games  points per win\n"
        "yellow, level 0             86   43.00 %        2.35\n"
        "blue, level 50              56   28.00 %        2.16\n"
        "green, level 50             58   29.00 %        2.28\n"
        "all of level 0              86   43.00 %        2.35\n"
        "all of level 50            114   57.00 %        2.22\n"
        "wins by turn, from the colour that begins: 37.00 % 32.50 % 30.50 %\n");
    // Without play-outs yellow wins 48 of these.
    const std::string two = "--games 100 --seed 5 --levels 50,50,50,50 --players 1,2,1,2 --threads 3";
    EXPECT_NE(Printed(two + " --thinker 1,6").find("yellow, level 50            56 "),
              std::string::npos);
}

}  // namespace
}  // namespace zorva::test
