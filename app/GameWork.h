#pragma once

#include <vector>

#include "dialogs/GameReport.h"

namespace zorva {

/// The analysis of a game that goes on, sharpened step by step. New records become a new chunk, so that
/// the play-outs of the others stay good; all chunks play with the same dice and their sums add up.
/// Knows no threads but those of PlayOuts.
class GameWork {
public:
    /// `most` play-outs are made from each moment of the game.
    explicit GameWork(std::uint64_t most) : most_(most) {}

    /// Goes on with that game, as PositionReached (core/Outside.h) hands it over. Chunks of records that
    /// are as they were are kept, unless rules, levels or players have changed.
    void Follow(const GameState& game, const Settings& settings);

    bool IsSharp() const;
    /// Sharpens the chunk that has the fewest play-outs.
    void Sharpen(unsigned threads, const std::stop_token& stop);
    /// All but `shown`, which the one who asks knows.
    GameReport Report() const;

    std::size_t Chunks() const { return chunks_.size(); }

private:
    struct Chunk {
        std::size_t first, last;  ///< records; `last` is less than `first` before the first record
        bool isSettled;           ///< nothing but new records can come after it
        engine::GameAnalysis analysis;
        engine::Tally tally{};
    };

    std::size_t Records() const { return static_cast<std::size_t>(game_.MoveRecordCount - 1); }
    std::size_t RecordsInCommon(const GameState& game) const;

    const std::uint64_t most_;
    GameState game_;
    Settings settings_;
    std::vector<Chunk> chunks_;
};

}  // namespace zorva
