#pragma once

#include <array>
#include <cstdint>

#include "core/Board.h"
#include "core/Standing.h"

// Facts about the steps of a way, laid out for looking up: 0 is a colour's exit, 63 its home entry, 71
// its goal; what lies behind the goal counts as the box. Made by the compiler from the functions that
// define them. Readers: Standing, Outlook and Appraisal.

namespace zorva::way {

/// Steps 0..63, the squares that are shared, one bit each.
using RingSet = std::uint64_t;

inline constexpr int ringSteps = 64;
inline constexpr int goalStep = StepsToGoal;
/// From there no way is open, nothing is attacked and nothing threatens.
inline constexpr int boxStep = Standing::InBox;
/// From one colour's exit to the next one's.
inline constexpr int quarter = LastRingSquare / ColourCount;
/// Squares that one throw can count at most.
inline constexpr int reach = 12;

template <typename Value>
using BySquare = PerColour<std::array<Value, LastSquare + 1>>;
template <typename Value>
using ByStep = std::array<Value, Standing::StepCount>;

/// The colour that follows in number so many times.
constexpr Colour ColourAfter(Colour colour, int turns) {
    return static_cast<Colour>(static_cast<unsigned>(colour + turns - 1) % ColourCount + 1);
}

/// The set of the colour that follows so many times, told by one's own steps; what stands beyond one's
/// home entry falls out.
template <int Turns>
constexpr RingSet Turned(RingSet set) {
    constexpr int distance = quarter * Turns;
    return set << distance | set >> (LastRingSquare - distance);
}

constexpr std::uint64_t Lowest(int count) {
    return (std::uint64_t{1} << count) - 1;
}

constexpr Square SquareOfStep(Colour colour, int step) {
    return step > goalStep ? Square{0}
                           : AdvanceSquare(ExitSquare[colour], static_cast<Short>(step), colour);
}

constexpr PerColour<ByStep<std::uint8_t>> MakeSquares() {
    PerColour<ByStep<std::uint8_t>> squares{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (int step = 0; step <= goalStep; ++step) {
            squares[colour][step] = static_cast<std::uint8_t>(SquareOfStep(colour, step));
        }
    }
    return squares;
}

constexpr BySquare<std::uint8_t> MakeSteps() {
    BySquare<std::uint8_t> steps{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        steps[colour][0] = boxStep;
        for (int step = 0; step <= goalStep; ++step) {
            steps[colour][SquareOfStep(colour, step)] = static_cast<std::uint8_t>(step);
        }
    }
    return steps;
}

// What is true of a square of yellow's way is true of the same step of every other: the board looks
// alike from each exit.
template <typename Value, typename Fact>
constexpr ByStep<Value> MakeByStep(Fact fact) {
    ByStep<Value> values{};
    for (int step = 0; step < Standing::StepCount; ++step)
        values[step] = fact(step, SquareOfStep(1, step));
    return values;
}

constexpr RingSet MakeUnsafe() {
    RingSet unsafe = 0;
    for (int step = 0; step < ringSteps; ++step) {
        if (!IsSafeSquare(SquareOfStep(1, step))) unsafe |= RingSet{1} << step;
    }
    return unsafe;
}

inline constexpr auto squares = MakeSquares();
inline constexpr auto stepsOf = MakeSteps();
inline constexpr RingSet unsafeSteps = MakeUnsafe();

}  // namespace zorva::way
