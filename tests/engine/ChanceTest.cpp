#include "engine/Chance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace zorva::test {
namespace {

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
