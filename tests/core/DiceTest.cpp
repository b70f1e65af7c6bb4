#include "core/Dice.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/SilentOutside.h"
#include "engine/Chance.h"

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
TEST(Dice, MakesFacesAndPairsOfWatchedThrowsEquallyLikely) {
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

}  // namespace
}  // namespace zorva::test
