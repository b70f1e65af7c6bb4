#include <gtest/gtest.h>

#include <sstream>

#include "engine/Chance.h"
#include "tools/DiceStatistics.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

std::string Counted(const DiceTest& test) {
    std::string counts;
    for (const DiceCount& count : test.counts) counts += std::to_string(count.counted) + ' ';
    return counts;
}

TEST(DiceStatistics, CountsFacesPairsRunsAndColours) {
    DiceStatistics statistics;
    Short colour = 0;
    // Runs of 1, 2 and 7 sixes. The last run is not over and does not count.
    for (const Short face : {6, 1, 6, 6, 2, 3, 6, 6, 6, 6, 6, 6, 6, 5, 6, 6}) {
        statistics.Add(static_cast<Colour>(1 + colour++ % 4), face);
    }
    const std::vector<DiceTest> tests = statistics.Tests();
    EXPECT_EQ(Counted(tests[0]), "1 1 1 0 1 12 ");
    EXPECT_EQ(Counted(tests[1]),
              "0 0 0 0 0 0 0 0 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 1 5 ");
    EXPECT_EQ(Counted(tests[2]), "1 2 ");
    EXPECT_EQ(Counted(tests[3]), "0 1 0 0 0 3 ");
    for (const DiceTest& test : tests) {
        double sum = 0;
        for (const DiceCount& count : test.counts) sum += count.probability;
        EXPECT_NEAR(sum, 1, 1e-12) << test.name;
    }
}

// With 5 degrees of freedom a fair die stays below 15.1 in 99 of 100 cases and below 35.9 in all but one
// of a million.
TEST(DiceStatistics, FindALoadedDie) {
    for (const bool isLoaded : {false, true}) {
        Chance chance(5, 1);
        DiceStatistics statistics;
        for (int thrown = 0; thrown < 100'000; ++thrown) {
            const Short face = static_cast<Short>(chance.Face());
            const bool isLost = face == 6 && isLoaded && chance.Below(20) == 0;
            statistics.Add(1, isLost ? Short{5} : face);
        }
        const double faces = statistics.Tests()[0].ChiSquare();
        EXPECT_TRUE(isLoaded ? faces > 35.9 : faces < 15.1) << faces;
    }
}

TEST(DiceCommand, PrintsEachCountBesideItsBand) {
    std::ostringstream out, err;
    EXPECT_EQ(RunSim({"dice", "--throws", "60", "--system"}, out, err, false), 0) << err.str();
    out.str("");
    EXPECT_EQ(RunSim({"dice", "--throws", "60", "--seed", "12"}, out, err, false), 0) << err.str();
    const char* const part =
        "  4                   18  expected          10.0  band           2.6 ..          17.4  "
        "outside\n"
        "  5                    8  expected          10.0  band           2.6 ..          17.4\n"
        "  6                    6  expected          10.0  band           2.6 ..          17.4\n"
        "  chi-square 10.4000 with 5 degrees of freedom\n\npairs";
    EXPECT_NE(out.str().find(part), std::string::npos) << out.str();
}

}  // namespace
}  // namespace zorva::test
