#include "tools/DiceStatistics.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zorva {
namespace {

constexpr double accuracy = 1e-15;
constexpr int mostTerms = 100'000;

// The lower part of the incomplete gamma function, by its series; for x below a + 1.
double LowerPart(double a, double x) {
    double term = 1 / a, sum = term;
    for (int n = 1; n < mostTerms && term > sum * accuracy; ++n) sum += term *= x / (a + n);
    return sum * std::exp(-x + a * std::log(x) - std::lgamma(a));
}

// The upper part, by its continued fraction (Lentz); for x from a + 1 on.
double UpperPart(double a, double x) {
    constexpr double tiny = std::numeric_limits<double>::min() / accuracy;
    double b = x + 1 - a, c = 1 / tiny, d = 1 / b, fraction = d;
    for (int n = 1; n < mostTerms; ++n) {
        const double numerator = -n * (n - a);
        b += 2;
        d = numerator * d + b;
        if (std::abs(d) < tiny) d = tiny;
        c = b + numerator / c;
        if (std::abs(c) < tiny) c = tiny;
        d = 1 / d;
        fraction *= d * c;
        if (std::abs(d * c - 1) < accuracy) break;
    }
    return fraction * std::exp(-x + a * std::log(x) - std::lgamma(a));
}

DiceTest TestOfFaces(const std::string& name, const std::array<std::uint64_t, 7>& faces) {
    DiceTest test{name, {}};
    for (std::size_t face = 1; face <= 6; ++face) {
        test.counts.push_back({std::to_string(face), faces[face], 1.0 / 6});
    }
    return test;
}

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

// A run of sixes goes on with one chance in six, whatever its length. Long runs are so rare that they
// are taken together until five are expected: with fewer, a chi-square says nothing.
template <std::size_t Size>
DiceTest TestOfRuns(const std::array<std::uint64_t, Size>& runs) {
    constexpr double fewest = 5;
    std::uint64_t left = 0;
    for (const std::uint64_t count : runs) left += count;
    const double total = static_cast<double>(left);
    DiceTest test{"sixes in a row", {}};
    double longer = 1;
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

double ChanceOfChiSquare(double value, int degrees) {
    if (value <= 0) return 1;
    const double a = degrees / 2.0, x = value / 2;
    return x < a + 1 ? 1 - LowerPart(a, x) : UpperPart(a, x);
}

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
        if (expected > 0) sum += deviation * deviation / expected;
    }
    return sum;
}

double DiceTest::Probability() const {
    return ChanceOfChiSquare(ChiSquare(), static_cast<int>(counts.size()) - 1);
}

Band BandOf(const DiceCount& count, std::uint64_t total) {
    constexpr double deviationsOf99 = 2.5758293035489;
    const double expected = static_cast<double>(total) * count.probability;
    const double half = deviationsOf99 * std::sqrt(expected * (1 - count.probability));
    return {expected, expected - half, expected + half};
}

void DiceStatistics::Add(Colour colour, Short face) {
    Require(colour >= 1 && colour <= ColourCount && face >= 1 && face <= 6, "no throw of a die");
    ++faces_[face];
    ++ofColour_[colour][face];
    if (before_ != 0) ++pairs_[before_][face];
    before_ = before_ == 0 ? face : Short{0};
    if (face == 6) {
        ++run_;
    } else if (run_ > 0) {
        ++runs_[std::min(run_, longestRun)];
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
