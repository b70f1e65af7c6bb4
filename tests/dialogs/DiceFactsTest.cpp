#include "dialogs/DiceFacts.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/RandomGame.h"

namespace zorva::test {
namespace {

// Worked out with fractions.
TEST(NormalRange, HoldsNinetyNineOfAHundredCounts) {
    const std::tuple<int, int, int> rows[] = {{0, 0, 0},   {1, 0, 1},     {3, 0, 2},       {29, 0, 11},
                                              {30, 1, 11}, {400, 48, 86}, {5000, 766, 902}};
    for (const auto& [tries, low, high] : rows)
        EXPECT_EQ(NormalRangeOf(tries), (NormalRange{low, high})) << tries;
}

/// A game that counts its own throws.
class CountedGame : public RandomGame {
public:
    using RandomGame::RandomGame;

    PerColour<DiceOfColour> thrown{};

protected:
    Short NextThrow() override {
        const Short face = RandomGame::NextThrow();
        auto& counts = thrown[state.CurrentColour].counts;
        for (std::size_t row = 0; row < DiceOfColour::Rows; ++row) {
            if (row >= 6 && state.SixesInRow != static_cast<Short>(row - 5)) continue;
            ++counts[row].tries;
            counts[row].count += face == (row < 6 ? static_cast<Short>(row + 1) : Short{6});
        }
        return face;
    }
};

// With many fives and sixes: second exits, captures, bonus moves, third sixes with a record and, in the
// last two games, without.
TEST(DiceOfGame, CountsEveryThrowOnTheRecords) {
    for (const std::uint64_t number : {0, 1, 2, 18, 45}) {
        CountedGame game(8, number);
        game.kind.settings.PlayerActive[game.kind.first % ColourCount + 1] = 1;  // two colours or more
        game.kind.faces = {1, 2, 3, 4, 5, 5, 6, 6, 6, 6};
        game.atPosition = [&](const GameState& position) {
            const PerColour<DiceOfColour> counted = DiceOfGame(position);
            for (Colour colour = 1; colour <= ColourCount; ++colour)
                ASSERT_EQ(counted[colour].counts, game.thrown[colour].counts) << number;
        };
        game.Play();
    }
}

}  // namespace
}  // namespace zorva::test
