#pragma once

#include <array>
#include <cstdint>

#include "core/Types.h"

// The squares of the board that have a meaning, and the ways of the colours laid out for looking up.
// Reached through core/Board.h.

namespace zorva {

/// Where a colour's pieces enter the ring from the box.
inline constexpr PerColour<Square> ExitSquare{0, 5, 22, 39, 56};
/// The last ring square before a colour's home column.
inline constexpr PerColour<Square> HomeEntrySquare{0, 68, 17, 34, 51};
/// The eighth and last square of a colour's home column.
inline constexpr PerColour<Square> GoalSquare{0, 76, 84, 92, 100};
/// The first square of a colour's home column.
inline constexpr PerColour<Square> FirstColumnSquare{0, 69, 77, 85, 93};

/// Steps from the exit square to the goal: 63 round the ring, 8 up the home column.
inline constexpr Short StepsToGoal = 71;
/// The longest walk there is: the bonus for a capture.
inline constexpr Short LongestWalk = 20;

/// One step along the way of a colour. Walked step by step: subtracting square numbers would miss
/// the wrap after 68 and the turn into the home column.
constexpr Square NextSquare(Square square, Colour colour) {
    ++square;
    if (colour != 1 && square == LastRingSquare + 1) return 1;
    if (colour != 1 && square == HomeEntrySquare[colour] + 1) return FirstColumnSquare[colour];
    return square;
}

namespace tables {

// Walks are looked up, not walked: a decision asks for some hundred of them. Squares past a goal
// stay small numbers, so a byte holds each.
using Walk = std::array<std::uint8_t, LongestWalk + 1>;
using Walks = PerColour<std::array<Walk, LastSquare + 1>>;
using Distances = PerColour<std::array<std::int8_t, LastSquare + 1>>;

constexpr Walks MakeWalks() {
    Walks walks{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Square start = 0; start <= LastSquare; ++start) {
            Square square = start;
            for (Short steps = 0; steps <= LongestWalk; ++steps) {
                walks[colour][start][steps] = static_cast<std::uint8_t>(square);
                square = NextSquare(square, colour);
            }
        }
    }
    return walks;
}

constexpr Distances MakeDistances() {
    Distances distances{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        distances[colour].fill(-1);
        distances[colour][0] = 0;
        Square square = ExitSquare[colour];
        for (std::int8_t steps = 0; steps <= StepsToGoal; ++steps) {
            distances[colour][square] = steps;
            square = NextSquare(square, colour);
        }
    }
    return distances;
}

constexpr std::array<bool, LastSquare + 1> MakeSafeSquares() {
    std::array<bool, LastSquare + 1> safe{};
    for (const Square square : {5, 12, 17, 22, 29, 34, 39, 46, 51, 56, 63, 68}) safe[square] = true;
    return safe;
}

inline constexpr Walks walks = MakeWalks();
inline constexpr Distances distances = MakeDistances();
inline constexpr auto safeSquares = MakeSafeSquares();

}  // namespace tables
}  // namespace zorva
