#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/Settings.h"
#include "engine/PlayOuts.h"

namespace zorva {

/// What the page about one position shows: copies, so that the game goes on meanwhile. Each page gets a
/// new one when there is more to show, and more precise.
struct PositionReport {
    /// What the colour on turn can do.
    struct Move {
        Short piece = 0;  ///< 1..4; any one of those that stand on the square
        Square from = 0;
        engine::Estimate chance{};  ///< of the colour on turn after the move
        bool isNearlyBest = false;  ///< no worse than the best, or by less than the error
    };

    Settings settings;
    Colour onTurn = 0;    ///< 0 without a game: then nothing else holds
    Short count = 0;      ///< squares of the move that is due; 0 when a throw is
    Short record = 0;     ///< the last move before the position
    bool onTape = false;  ///< the recorder shows the position
    bool isWon = false;   ///< by the colour on turn
    std::array<engine::Estimate, engine::SeatCount> chances{};
    std::vector<Move> moves;     ///< best first; empty unless a person can choose
    std::uint64_t playOuts = 0;  ///< games played on from the position, or from it after each move
    double progress = 0;         ///< 0 to 1
};

}  // namespace zorva
