#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "engine/Chance.h"
#include "tools/DiceStatistics.h"
#include "tools/Sim.h"

namespace zorva::test {
namespace {

TEST(DiceStatistics, KnowsHowLikelyAChiSquareIs) {
    struct Row {
        double value;
        int degrees;
        double probability;
    };
    // Critical values as tables print them, and values that have a closed form.
    for (const Row& row : {Row{6.634896601021214, 1, 0.01}, Row{11.070497693516351, 5, 0.05},
                           Row{1.1454762260617692, 5, 0.95}, Row{66.61882884370104, 35, 0.001},
                           Row{0, 5, 1}, Row{300, 2, std::exp(-150.0)}, Row{8, 4, 5 * std::exp(-4.0)}}) {
        EXPECT_NEAR(ChanceOfChiSquare(row.value, row.degrees), row.probability, 1e-10 * row.probability)
            << row.value << " with " << row.degrees;
    }
}

TEST(DiceStatistics, CountsFacesPairsRunsAndColours) {
    DiceStatistics statistics;
    // Runs of 1, 2 and 7 sixes; the last one is not over and does not count.
    const std::vector<Short> throws{6, 1, 6, 6, 2, 3, 6, 6, 6, 6, 6, 6, 6, 5, 6, 6};
    for (std::size_t number = 0; number < throws.size(); ++number) {
        statistics.Add(static_cast<Colour>(1 + number % 4), throws[number]);
    }
    const std::vector<DiceTest> tests = statistics.Tests();
    const auto counted = [&](std::size_t test) {
        std::vector<std::uint64_t> numbers;
        for (const DiceCount& count : tests[test].counts) numbers.push_back(count.counted);
        return numbers;
    };
    EXPECT_EQ(counted(0), (std::vector<std::uint64_t>{1, 1, 1, 0, 1, 12}));
    EXPECT_EQ(counted(2), (std::vector<std::uint64_t>{1, 2}));
    EXPECT_EQ(counted(3), (std::vector<std::uint64_t>{0, 1, 0, 0, 0, 3}));
    EXPECT_EQ(tests[1].Total(), 8U);
    EXPECT_EQ(tests[1].counts[35].counted, 5U);  // 6 6
    EXPECT_EQ(tests[1].counts[30].counted, 1U);  // 6 1
    for (const DiceTest& test : tests) {
        double sum = 0;
        for (const DiceCount& count : test.counts) sum += count.probability;
        EXPECT_NEAR(sum, 1, 1e-12) << test.name;
    }
}

using Made = Short (*)(Short face, Short before, Chance& chance);

/// What the tests say of a series of throws, each made from a fair face and the throw before.
std::vector<DiceTest> TestsOf(std::uint64_t series, int throws, Made made) {
    Chance chance(5, series);
    DiceStatistics statistics;
    Short before = 1;
    for (int thrown = 0; thrown < throws; ++thrown) {
        before = made(chance.Face(), before, chance);
        statistics.Add(static_cast<Colour>(1 + thrown % 4), before);
    }
    return statistics.Tests();
}

TEST(DiceStatistics, FindALoadedDie) {
    // One six in twenty is a five instead.
    const auto loaded = TestsOf(1, 100'000, [](Short face, Short, Chance& chance) {
        return face == 6 && chance.Below(20) == 0 ? Short{5} : face;
    });
    EXPECT_LT(loaded[0].Probability(), 1e-6);
    EXPECT_LT(loaded[1].Probability(), 0.01);
    // Fair faces, of which one in ten cannot be the one before: the pairs and the runs tell.
    const auto sticky = TestsOf(1, 100'000, [](Short face, Short before, Chance& chance) {
        return face == before && chance.Below(10) == 0 ? static_cast<Short>(before % 6 + 1) : face;
    });
    EXPECT_GT(sticky[0].Probability(), 1e-4);
    EXPECT_LT(sticky[1].Probability(), 1e-6);
    EXPECT_LT(sticky[2].Probability(), 1e-6);
}

TEST(DiceCommand, PrintsEveryTableWithItsProbability) {
    for (const std::vector<std::string>& source :
         {std::vector<std::string>{"--seed", "1"}, {"--system"}}) {
        std::vector<std::string> arguments{"dice", "--throws", "20000"};
        arguments.insert(arguments.end(), source.begin(), source.end());
        std::ostringstream out, err;
        EXPECT_EQ(RunSim(arguments, out, err, false), 0) << err.str();
        for (const char* part :
             {"faces\n  1 ", "sixes in a row\n  1 ", "faces of green\n", ", p = 0."}) {
            EXPECT_NE(out.str().find(part), std::string::npos) << part;
        }
    }
}

}  // namespace
}  // namespace zorva::test
