#include "core/Chance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "core/Dice.h"
#include "core/SilentOutside.h"

namespace zorva::test {
namespace {

/// How far counts are from being equal, as chi-square.
double ChiSquare(const std::vector<int>& counts, double expected) {
    double sum = 0;
    for (const int count : counts) sum += (count - expected) * (count - expected) / expected;
    return sum;
}

class DiceByChance : public SilentOutside {
public:
    Short RollFace() override { return chance_.Face(); }
    void DrawDie(Colour, Short face, DieIs) override { repeated += face == std::exchange(shown, face); }

    Short shown = 0;
    int repeated = 0;  ///< faces that seemed not to turn

private:
    Chance chance_{20};
};

// What is thrown while nobody sees the die roll is tested with the dice's statistics.
TEST(Chance, MakesFacesAndPairsOfWatchedThrowsEquallyLikely) {
    GameState state;
    const Settings settings;
    DiceByChance outside;
    std::vector<int> faces(6), pairs(36);
    constexpr int throws = 360'000;
    std::size_t before = 0;
    for (int number = 0; number < throws; ++number) {
        outside.shown = 0;
        ThrowDie({state, settings, outside});
        const auto face = static_cast<std::size_t>(state.DieValue - 1);
        ++faces.at(face);
        ++pairs.at(6 * before + face);
        before = face;
    }
    EXPECT_EQ(outside.repeated, 0);
    // Chance alone exceeds these bounds once in ten thousand seeds.
    EXPECT_LT(ChiSquare(faces, throws / 6.0), 25.7);
    EXPECT_LT(ChiSquare(pairs, throws / 36.0), 78.0);
}

TEST(Chance, GivesEachStreamOfASeedNumbersOfItsOwn) {
    std::set<std::uint64_t> numbers;
    for (std::uint64_t stream = 0; stream < 1000; ++stream) {
        Chance chance(stream / 100, stream % 100);
        for (int draw = 0; draw < 20; ++draw) numbers.insert(chance.Next());
    }
    EXPECT_EQ(numbers.size(), 20'000U);
}

TEST(Chance, CountsUpToAnyBound) {
    Chance chance(3);
    for (std::uint32_t count = 1; count <= 12; ++count) {
        std::vector<int> seen(count);
        for (int draw = 0; draw < 1200; ++draw) ++seen.at(chance.Below(count));
        EXPECT_GT(*std::min_element(seen.begin(), seen.end()), 0) << count;
    }
}

}  // namespace
}  // namespace zorva::test
