#pragma once

// Whether a die is fair: counts of its throws, and by how much they differ from those of a fair die.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Types.h"

namespace zorva {

/// How often one outcome came, such as the face 3 or the pair "6 1".
struct DiceCount {
    std::string name;
    std::uint64_t counted = 0;
    double probability = 0;  ///< of this outcome, with a fair die
};

/// The counts of all outcomes of one kind. Their probabilities add up to 1.
struct DiceTest {
    std::string name;
    std::vector<DiceCount> counts;

    /// The sum of all counts.
    std::uint64_t Total() const;
    /// Pearson's chi-square: the sum of (counted - expected)^2 / expected; 0 when nothing was counted.
    double ChiSquare() const;
    /// The degrees of freedom of that chi-square: one less than the number of counts.
    std::size_t Degrees() const { return counts.size() - 1; }
};

/// The number expected, and the band around it in which 99 of 100 such counts of a fair die lie.
struct Band {
    double expected = 0;
    double low = 0;
    double high = 0;
};

/// The band of one of `total` counts.
Band BandOf(const DiceCount& count, std::uint64_t total);

/// Counts the throws of a die.
class DiceStatistics {
public:
    /// Counts a throw, 1..6, of that colour; anything else stops the program.
    void Add(Colour colour, Short face);

    /// Seven tests: the faces, pairs of faces (each throw belongs to one
    /// pair), runs of sixes, and the faces of each colour. They mean
    /// little below some 1,000 throws: few of each pair are expected then.
    std::vector<DiceTest> Tests() const;

private:
    static constexpr std::size_t longestRun = 6;  // longer runs count as this

    std::array<std::uint64_t, 7> faces_{};
    std::array<std::array<std::uint64_t, 7>, 7> pairs_{};
    std::array<std::uint64_t, longestRun + 1> runs_{};
    PerColour<std::array<std::uint64_t, 7>> ofColour_{};
    Short before_ = 0;     // the first throw of a pair; 0 if the next throw begins one
    std::size_t run_ = 0;  // the sixes thrown last
};

}  // namespace zorva
