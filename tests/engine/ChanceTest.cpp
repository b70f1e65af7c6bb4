#include "engine/Chance.h"

#include <gtest/gtest.h>

#include <set>

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

}  // namespace
}  // namespace zorva::test
