#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "core/Types.h"

namespace zorva {

/// The last step of splitmix64: numbers that differ a little come out unrelated.
constexpr std::uint64_t Mixed(std::uint64_t word) {
    word = (word ^ (word >> 30)) * 0xbf58476d1ce4e5b9;
    word = (word ^ (word >> 27)) * 0x94d049bb133111eb;
    return word ^ (word >> 31);
}

/// The step of splitmix64 from one word to the next.
inline constexpr std::uint64_t GoldenStep = 0x9e3779b97f4a7c15;

/// A stream of random numbers (xoshiro256++), the same on every machine for the same seed. Streams
/// of one seed with different numbers are unrelated, so each game can have a stream of its own.
class Chance {
public:
    explicit Chance(std::uint64_t seed, std::uint64_t stream = 0) {
        std::uint64_t start = Mixed(Mixed(seed + GoldenStep) ^ stream);
        for (std::uint64_t& word : words_) word = Mixed(start += GoldenStep);
    }

    /// 64 random bits.
    std::uint64_t Next() {
        const std::uint64_t result = std::rotl(words_[0] + words_[3], 23) + words_[0];
        const std::uint64_t shifted = words_[1] << 17;
        words_[2] ^= words_[0];
        words_[3] ^= words_[1];
        words_[1] ^= words_[2];
        words_[0] ^= words_[3];
        words_[2] ^= shifted;
        words_[3] = std::rotl(words_[3], 45);
        return result;
    }

    /// A number from 0 to count - 1 (count 1..65536), each exactly as likely as the others.
    std::uint32_t Below(std::uint32_t count) {
        // The upper half of a product picks the number; the few lower halves that would make some
        // numbers likelier than others are drawn again.
        const std::uint32_t surplus = (0U - count) % count;
        std::uint64_t product = 0;
        do {
            product = (Next() >> 32) * count;
        } while (static_cast<std::uint32_t>(product) < surplus);
        return static_cast<std::uint32_t>(product >> 32);
    }

    /// A face of the die, 1..6.
    Short Face() { return static_cast<Short>(Below(6) + 1); }

private:
    std::array<std::uint64_t, 4> words_{};
};

}  // namespace zorva
