#pragma once

#include <vector>

#include "core/GameState.h"
#include "core/Settings.h"
#include "engine/GameAnalysis.h"

namespace zorva {

/// What the pages about a whole game show: copies, so that the game goes on meanwhile. It grows and
/// becomes more precise; each page gets a new one when there is more to show.
struct GameReport {
    GameState game;  ///< its records, and the position in which they end
    Settings settings;
    std::size_t shown = 0;  ///< the record whose end the board shows: the last, or the recorder's
    /// What the records 1, 2, ... were worth, as far as they are analysed.
    std::vector<engine::RecordWorth> worths;
    std::array<engine::SeatWorth, engine::SeatCount> sums;  ///< of those records
    double progress = 0;                                    ///< of the whole analysis, 0 to 1
};

}  // namespace zorva
