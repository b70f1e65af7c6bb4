#pragma once

#include "core/Rules.h"
#include "core/ScoreTerms.h"
#include "engine/Track.h"

// Tables that the evaluator reads instead of computing. The compiler makes them from core/ScoreTerms.h;
// together they fit into the processor's first-level cache.

namespace zorva::engine::tables {

/// value / divisor for every integer value from 0 to Most. A division would take longer than everything
/// else that is computed for a square.
template <int Most>
constexpr auto MakeQuotients(double divisor) {
    std::array<double, Most + 1> quotients{};
    for (int value = 0; value <= Most; ++value) quotients[value] = value / divisor;
    return quotients;
}

/// Points by steps attacked: at most six squares ahead, each with one rival that has walked at most 63.
inline constexpr auto attackValue = MakeQuotients<6 * (RingSteps - 1)>(terms::attackPerPoint);
/// Points by steps at risk: at most twelve rival pieces, each worth the bonus and the steps that the
/// threatened piece has walked.
inline constexpr auto riskValue =
    MakeQuotients<(ColourCount - 1) * PiecesPerColour*(CaptureBonus + StepsToGoal)>(terms::riskPerPoint);

/// What a score depends on at the square that a piece leaves.
struct Leaving {
    double progress;  ///< in points
    double nearHome;
    double shelter;
    unsigned perThreat;  ///< squares that a rival would gain by capturing the piece
};

inline constexpr auto leaving = MakeByStep<Leaving>([](unsigned step, Square from) {
    const int progress = step > GoalStep ? 0 : static_cast<int>(step);
    return Leaving{progress / terms::progressPerPoint, terms::IsNearHome(1, from) ? terms::nearHome : 0,
                   terms::IsShelter(1, from) ? terms::leavingShelter : 0,
                   static_cast<unsigned>(CaptureBonus + progress)};
});

/// Whether a move from a step into the home column reaches shelter. ReachesShelter compares plain square
/// numbers, so this is the one table in which the seats differ.
constexpr auto MakeReachesColumn() {
    std::array<ByStep<bool>, SeatCount> reaches{};
    for (Seat seat = 0; seat < SeatCount; ++seat) {
        const Colour colour = ColourAt(seat);
        for (unsigned step = 0; step < StepCount; ++step) {
            reaches[seat][step] =
                terms::ReachesShelter(colour, SquareOfStep(colour, step), FirstColumnSquare[colour]);
        }
    }
    return reaches;
}

/// The term of the square reached: [1] for a move from a square at which ReachesShelter counts the home
/// column as shelter, [0] for a move from any other.
inline constexpr std::array<ByStep<double>, 2> reachingTerm{
    MakeByStep<double>([](unsigned, Square to) {
        return terms::ReachesShelter(1, LastRingSquare, to) ? terms::reachingShelter : 0;
    }),
    MakeByStep<double>([](unsigned, Square to) {
        return terms::ReachesShelter(1, ExitSquare[1], to) ? terms::reachingShelter : 0;
    })};

inline constexpr auto reachesColumn = MakeReachesColumn();

constexpr double ReachingShelter(Seat seat, unsigned from, unsigned to) {
    return reachingTerm[reachesColumn[seat][from]][to];
}

/// [turns][step]: the step of the same square for the seat `turns` places further; 0, that seat's exit,
/// for a square that is not on its track.
constexpr auto MakeStepOfRival() {
    std::array<ByStep<std::uint8_t>, SeatCount> theirSteps{};
    for (int turns = 1; turns < static_cast<int>(SeatCount); ++turns) {
        for (int step = 0; step < RingSteps; ++step) {
            const int theirs = (step - Quarter * turns + LastRingSquare) % LastRingSquare;
            theirSteps[turns][step] = static_cast<std::uint8_t>(theirs < RingSteps ? theirs : 0);
        }
    }
    return theirSteps;
}

inline constexpr auto stepOfRival = MakeStepOfRival();

}  // namespace zorva::engine::tables
