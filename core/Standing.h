#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "core/Types.h"

namespace zorva {

/// Where the four pieces of a colour stand, read off their squares once and kept until one moves.
/// Squares are told by their step on the colour's way: 0 the exit, 63 the home entry, 71 the goal.
struct Standing {
    /// Steps are kept in seven bits; whoever counts further begins again at 0.
    static constexpr int StepCount = 128;

    /// The step of a piece in its box: behind the goal, and ExitCount squares before the exit.
    static constexpr int InBox = StepCount - ExitCount;

    PerPiece<std::uint8_t> steps{};
    std::uint8_t columnPairs = 0;  ///< bit n: two pieces stand on step 64 + n; the goal has room for all
    std::uint64_t pieces = 0;      ///< bit n: at least one piece stands on step n, 0..63
    std::uint64_t pairs = 0;       ///< bit n: two pieces do
    std::uint64_t reach = 0;       ///< bit n: a piece stands one to five steps before step n
};

/// The standings as they were last asked for. They follow from the positions of the pieces, so they are
/// no part of a game's value: any two are equal.
class Standings {
public:
    /// The standing of the colour whose pieces stand on those squares.
    const Standing& Of(Colour colour, const PerPiece<Square>& positions) {
        std::uint64_t squares = 0;
        static_assert(sizeof squares == PiecesPerColour * sizeof(Square));
        std::memcpy(&squares, &positions[1], sizeof squares);
        if (squares != squares_[colour]) {
            squares_[colour] = squares;
            Read(known_[colour], colour, positions);
        }
        return known_[colour];
    }

    bool operator==(const Standings&) const { return true; }

private:
    // Apart from the decision that asks: together they would have too few registers.
    [[gnu::noinline]] static void Read(Standing& standing, Colour colour,
                                       const PerPiece<Square>& positions);

    static constexpr std::uint64_t unknown = ~std::uint64_t{0};
    PerColour<std::uint64_t> squares_{unknown, unknown, unknown, unknown, unknown};
    PerColour<Standing> known_{};
};

}  // namespace zorva
