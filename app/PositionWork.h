#pragma once

#include "dialogs/PositionReport.h"
#include "engine/PositionAnalysis.h"

namespace zorva {

/// Chances are computed with these dice; with the same seed, the same numbers on every machine.
inline constexpr std::uint64_t ChancesSeed = 1;

/// How many play-outs come next: as many as there are, so that the error falls steadily, but so few that
/// they take no more than some tenths of a second.
std::uint64_t NextRange(std::uint64_t count, std::size_t moments);

/// The analysis of one position, sharpened step by step. Knows no threads but those of PlayOuts.
class PositionWork {
public:
    /// `most` play-outs are made from the position, or after each move.
    PositionWork(const engine::Moment& moment, const Settings& settings, std::uint64_t most);

    bool IsSharp() const { return tally_.count >= most_; }
    void Sharpen(unsigned threads, const std::stop_token& stop);
    /// All but `record` and `onTape`, which the one who asks knows.
    PositionReport Report() const;

private:
    void AddMoves(PositionReport& report) const;

    const engine::Moment moment_;
    const Settings settings_;
    const std::uint64_t most_;
    engine::PositionAnalysis analysis_;
    engine::Tally tally_;
};

}  // namespace zorva
