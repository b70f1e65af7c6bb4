#pragma once

#include <array>
#include <cstdint>

#include "core/Board.h"

// How the engine numbers players, squares and sets of squares.
//
// A seat is a colour counted from 0, so that the seat n places further round the table is (seat + n)
// % 4. The engine identifies a square by its step: its distance from the exit along the track of the
// seat in question. 0 is that seat's exit square, 63 its home entry, 64 to 70 its home column, 71 its
// goal. The compiler makes the tables here from the functions of core/Board.h.

namespace zorva::engine {

/// A colour minus 1: 0 yellow to 3 green.
using Seat = unsigned;

inline constexpr Seat SeatCount = ColourCount;

/// A set of the steps 0..63 of one seat's track, the ring squares: bit n stands for step n.
using RingSet = std::uint64_t;
/// A set of the steps from 64 on, where only the seat's own pieces stand: bit n stands for step 64 + n.
using ColumnSet = std::uint64_t;

inline constexpr int RingSteps = 64;
inline constexpr int GoalStep = StepsToGoal;

/// Steps wrap around from 127 to 0. A piece leaves its box that way; see BoxStep.
inline constexpr unsigned StepCount = 128;

/// The step of a piece in its box: five before the exit, because five is the count that brings it out.
/// So StepAfter gives the end of every move, that out of the box included.
inline constexpr unsigned BoxStep = StepCount - ExitCount;

/// Squares from one seat's exit to the exit of the next.
inline constexpr int Quarter = LastRingSquare / ColourCount;

constexpr Seat SeatOf(Colour colour) {
    return static_cast<Seat>(colour - 1);
}

constexpr Colour ColourAt(Seat seat) {
    return static_cast<Colour>(seat + 1);
}

/// The seat `turns` places further round the table.
constexpr Seat SeatAfter(Seat seat, unsigned turns) {
    return (seat + turns) % SeatCount;
}

/// The step at which a walk of `count` squares from `step` ends.
constexpr unsigned StepAfter(unsigned step, unsigned count) {
    return (step + count) % StepCount;
}

/// A set of the seat `Turns` places further, converted to the steps of the seat in question. The four
/// squares between that seat's home entry and its exit are not on its track and drop out.
template <int Turns>
constexpr RingSet Rotated(RingSet set) {
    constexpr int distance = Quarter * Turns;
    return set << distance | set >> (LastRingSquare - distance);
}

/// The steps 0 to count - 1.
constexpr std::uint64_t Lowest(int count) {
    return (std::uint64_t{1} << count) - 1;
}

template <typename Value>
using ByStep = std::array<Value, StepCount>;

/// The square of a colour's step; 0, the box, for every step beyond the goal.
constexpr Square SquareOfStep(Colour colour, unsigned step) {
    if (step > GoalStep) return 0;
    return AdvanceSquare(ExitSquare[colour], static_cast<Short>(step), colour);
}

/// The table of fact(step, square) for yellow's steps and squares. It holds for every seat, because the
/// board looks the same from each exit.
template <typename Value, typename Fact>
constexpr ByStep<Value> MakeByStep(Fact fact) {
    ByStep<Value> values{};
    for (unsigned step = 0; step < StepCount; ++step) values[step] = fact(step, SquareOfStep(1, step));
    return values;
}

namespace tables {

constexpr auto MakeSquares() {
    std::array<ByStep<std::uint8_t>, SeatCount> squares{};
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        for (unsigned step = 0; step < StepCount; ++step) {
            squares[seat][step] = static_cast<std::uint8_t>(SquareOfStep(ColourAt(seat), step));
        }
    }
    return squares;
}

constexpr auto MakeSteps() {
    std::array<std::array<std::uint8_t, LastSquare + 1>, SeatCount> steps{};
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        steps[seat][0] = BoxStep;
        for (unsigned step = 0; step <= GoalStep; ++step) {
            steps[seat][SquareOfStep(ColourAt(seat), step)] = static_cast<std::uint8_t>(step);
        }
    }
    return steps;
}

constexpr RingSet MakeUnsafeSteps() {
    RingSet steps = 0;
    for (unsigned step = 0; step < RingSteps; ++step) {
        if (!IsSafeSquare(SquareOfStep(1, step))) steps |= RingSet{1} << step;
    }
    return steps;
}

inline constexpr auto squares = MakeSquares();
inline constexpr auto steps = MakeSteps();

}  // namespace tables

/// The ring squares on which a lone piece can be captured.
inline constexpr RingSet UnsafeSteps = tables::MakeUnsafeSteps();

/// The square 1..100 of a step of that seat, 0 for the box.
constexpr Square SquareAt(Seat seat, unsigned step) {
    return tables::squares[seat][step];
}

/// The step of a square of that seat's own track, BoxStep for its box.
constexpr unsigned StepOf(Seat seat, Square square) {
    return tables::steps[seat][square];
}

}  // namespace zorva::engine
