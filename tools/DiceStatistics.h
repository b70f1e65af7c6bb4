#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Types.h"

namespace zorva {

/// How likely it is that chance alone gives a chi-square of at least `value`, 0..1. Accurate to twelve
/// digits or so where it is not below 1e-200; degrees of freedom from 1 on.
double ChanceOfChiSquare(double value, int degrees);

/// One thing that was counted.
struct DiceCount {
    std::string name;
    std::uint64_t counted = 0;
    double probability = 0;  ///< of a fair die
};

/// Counts that belong together: their probabilities add up to 1.
struct DiceTest {
    std::string name;
    std::vector<DiceCount> counts;

    std::uint64_t Total() const;
    /// The sum of squared deviations, each in relation to what is expected.
    double ChiSquare() const;
    /// How likely it is that a fair die deviates as much or more; 1 when nothing was counted.
    double Probability() const;
};

/// A count and the band in which 99 of 100 such counts of a fair die lie.
struct Band {
    double expected = 0;
    double low = 0;
    double high = 0;
};
Band BandOf(const DiceCount& count, std::uint64_t total);

/// Counts throws, which the colours make in turn.
class DiceStatistics {
public:
    void Add(Colour colour, Short face);

    /// The faces; pairs of faces, each throw being part of one pair; how many sixes follow one another;
    /// the faces of each colour. Below some 1,000 throws too little is expected of most counts for the
    /// probabilities to mean anything.
    std::vector<DiceTest> Tests() const;

private:
    static constexpr std::size_t longestRun = 6;  ///< runs that are longer count as this

    std::array<std::uint64_t, 7> faces_{};
    std::array<std::array<std::uint64_t, 7>, 7> pairs_{};
    std::array<std::uint64_t, longestRun + 1> runs_{};
    PerColour<std::array<std::uint64_t, 7>> ofColour_{};
    Short before_ = 0;  ///< the first of a pair, 0 when the next throw is one
    std::size_t run_ = 0;
};

}  // namespace zorva
