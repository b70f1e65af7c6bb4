#include "tools/DiceStatistics.h"

#include <algorithm>
#include <cmath>

namespace zorva {
namespace {

// Index 0 of the tables of faces is not used.
DiceTest TestOfFaces(const std::string& name, const std::array<std::uint64_t, 7>& faces) {
    DiceTest test{name, {}};
    for (std::size_t face = 1; face <= 6; ++face) {
        test.counts.push_back({std::to_string(face), faces[face], 1.0 / 6});
    }
    return test;
}

// A face that tends to follow another one would show here, though each face alone comes often enough.
DiceTest TestOfPairs(const std::array<std::array<std::uint64_t, 7>, 7>& pairs) {
    DiceTest test{"pairs of faces", {}};
    for (std::size_t first = 1; first <= 6; ++first) {
        for (std::size_t second = 1; second <= 6; ++second) {
            test.counts.push_back(
                {std::to_string(first) + " " + std::to_string(second), pairs[first][second], 1.0 / 36});
        }
    }
    return test;
}

// A run of sixes goes on with a chance of one in six, however long it is: the chance of a run of n sixes
// is 5/6 x (1/6)^(n-1). Long runs are rare. They are counted together so that at least five are
// expected, as textbooks ask for: with fewer, chi-square does not follow its distribution.
template <std::size_t Size>
DiceTest TestOfRuns(const std::array<std::uint64_t, Size>& runs) {
    constexpr double fewest = 5;
    std::uint64_t left = 0;  // runs of `length` sixes or more
    for (const std::uint64_t count : runs) left += count;
    const double total = static_cast<double>(left);
    DiceTest test{"sixes in a row", {}};
    double longer = 1;  // the chance that a run has at least `length` sixes
    std::size_t length = 1;
    for (; length + 1 < Size && (length == 1 || total * longer / 6 >= fewest); ++length) {
        test.counts.push_back({std::to_string(length), runs[length], longer * 5 / 6});
        left -= runs[length];
        longer /= 6;
    }
    test.counts.push_back({std::to_string(length) + " or more", left, longer});
    return test;
}

}  // namespace

std::uint64_t DiceTest::Total() const {
    std::uint64_t total = 0;
    for (const DiceCount& count : counts) total += count.counted;
    return total;
}

double DiceTest::ChiSquare() const {
    const double total = static_cast<double>(Total());
    double sum = 0;
    for (const DiceCount& count : counts) {
        const double expected = total * count.probability;
        const double deviation = static_cast<double>(count.counted) - expected;
        // Nothing is expected only when nothing was counted.
        if (expected > 0) sum += deviation * deviation / expected;
    }
    return sum;
}

Band BandOf(const DiceCount& count, std::uint64_t total) {
    // 99 % of a normal distribution lie within this number of standard deviations of its mean. Counts of
    // hundreds and more follow it closely.
    constexpr double deviationsOf99 = 2.5758293035489;
    const double expected = static_cast<double>(total) * count.probability;
    // The standard deviation of a binomial distribution.
    const double half = deviationsOf99 * std::sqrt(expected * (1 - count.probability));
    return {expected, expected - half, expected + half};
}

void DiceStatistics::Add(Colour colour, Short face) {
    Require(colour >= 1 && colour <= ColourCount && face >= 1 && face <= 6, "no throw of a die");
    ++faces_[face];
    ++ofColour_[colour][face];
    // Pairs do not overlap (1st with 2nd, 3rd with 4th): overlapping ones would not be independent.
    if (before_ != 0) ++pairs_[before_][face];
    before_ = before_ == 0 ? face : Short{0};
    if (face == 6) {
        ++run_;
    } else if (run_ > 0) {
        ++runs_[std::min(run_,
                         longestRun)];  // only runs that are over: the next six could prolong others
        run_ = 0;
    }
}

std::vector<DiceTest> DiceStatistics::Tests() const {
    static constexpr const char* names[] = {"", "yellow", "blue", "red", "green"};
    std::vector<DiceTest> tests{TestOfFaces("faces", faces_), TestOfPairs(pairs_), TestOfRuns(runs_)};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        tests.push_back(TestOfFaces(std::string("faces of ") + names[colour], ofColour_[colour]));
    }
    return tests;
}

}  // namespace zorva
