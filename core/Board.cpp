#include "core/Board.h"

namespace zorva {
namespace {

// One step along the way of a colour. Walked step by step: subtracting square numbers would miss
// the wrap after 68 and the turn into the home column.
constexpr Square NextSquare(Square square, Colour colour) {
    ++square;
    if (colour != 1 && square == LastRingSquare + 1) return 1;
    if (colour != 1 && square == HomeEntrySquare[colour] + 1) return FirstColumnSquare[colour];
    return square;
}

// Walks are looked up, not walked: a decision asks for some hundred of them. Squares past a goal
// stay small numbers, so a byte holds each.
using WalkTable = PerColour<std::array<std::array<std::uint8_t, LongestWalk + 1>, LastSquare + 1>>;

constexpr WalkTable MakeWalks() {
    WalkTable walks{};
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

using DistanceTable = PerColour<std::array<std::int8_t, LastSquare + 1>>;

constexpr DistanceTable MakeDistances() {
    DistanceTable distances{};
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

constexpr WalkTable walks = MakeWalks();
constexpr DistanceTable distances = MakeDistances();
constexpr auto safeSquares = MakeSafeSquares();

bool IsSquare(Square square) {
    return square >= 0 && square <= LastSquare;
}

}  // namespace

Square AdvanceSquare(Square square, Short steps, Colour colour) {
    if (steps < 1) return square;
    if (IsSquare(square) && steps <= LongestWalk) return walks[colour][square][steps];
    for (; steps > 0; --steps) square = NextSquare(square, colour);
    return square;
}

bool IsSafeSquare(Square square) {
    return IsSquare(square) && safeSquares[square];
}

Short StepsToSquare(Colour colour, Square square) {
    return IsSquare(square) ? distances[colour][square] : Short{-1};
}

Short StepsFromExit(const GameState& state, Colour colour, Short piece) {
    return StepsToSquare(colour, state.PiecePosition[colour][piece]);
}

bool IsOnTrack(Colour colour, Square square) {
    return square > 0 && StepsToSquare(colour, square) >= 0;
}

}  // namespace zorva
