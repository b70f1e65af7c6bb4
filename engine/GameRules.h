#pragma once

#include <array>

#include "core/Settings.h"
#include "engine/Track.h"

namespace zorva::engine {

/// The part of the settings that matters in a game of computer players, in tables by seat.
struct GameRules {
    explicit GameRules(const Settings& settings);

    unsigned sixValue;          ///< squares of a six with no piece in the box: 7 or 12
    bool countsFromFirstThrow;  ///< four in the box: any throw brings a piece out
    bool fiveBringsTwo;         ///< four in the box, and the above: a five brings out two
    bool fiveMustLeave;         ///< a five with a piece in the box must bring one out

    std::array<Short, SeatCount> level{};  ///< 0..100
    std::array<Seat, SeatCount> next{};    ///< the seat whose turn comes after each
};

/// The level at which chances count a person.
inline constexpr Short LevelOfPersons = 100;

/// The same settings with each person's level at LevelOfPersons: those with which chances are computed.
Settings WithLevelsOfPersons(Settings settings);

}  // namespace zorva::engine
