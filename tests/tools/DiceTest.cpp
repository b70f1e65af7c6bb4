#include <gtest/gtest.h>

#include <array>
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

/// The chi-squares of faces, pairs and runs of 100,000 throws. Of each fair throw `change` makes
/// another, from it, the throw before and a number below 20.
template <typename Change>
std::array<double, 3> ChiSquaresOf(Change change) {
    Chance chance(5, 1);
    DiceStatistics statistics;
    int before = 1;
    for (int thrown = 0; thrown < 100'000; ++thrown) {
        before = change(chance.Face(), before, static_cast<int>(chance.Below(20)));
        statistics.Add(static_cast<Colour>(1 + thrown % 4), static_cast<Short>(before));
    }
    const std::vector<DiceTest> tests = statistics.Tests();
    return {tests[0].ChiSquare(), tests[1].ChiSquare(), tests[2].ChiSquare()};
}

// With 5 degrees of freedom a fair die stays below 15.1 in 99 of 100 cases and below 35.9 in all but one
// of a million; with 35 degrees below 57.3 and 90.0.
TEST(DiceStatistics, FindALoadedDie) {
    const auto fair = ChiSquaresOf([](int face, int, int) { return face; });
    EXPECT_TRUE(fair[0] < 15.1 && fair[1] < 57.3 && fair[2] < 15.1);
    const auto sixesLost =
        ChiSquaresOf([](int face, int, int by) { return face - (face == 6 && by == 0); });
    EXPECT_TRUE(sixesLost[0] > 35.9 && sixesLost[1] > 57.3);
    const auto repeatsLost = ChiSquaresOf(
        [](int face, int before, int by) { return face == before && by < 2 ? before % 6 + 1 : face; });
    EXPECT_LT(repeatsLost[0], 15.1) << "the faces alone do not show it";
    EXPECT_TRUE(repeatsLost[1] > 90.0 && repeatsLost[2] > 35.9);
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
