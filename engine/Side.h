#pragma once

#include <array>
#include <cstdint>

#include "engine/Track.h"

namespace zorva::engine {

class ThrowPattern;

/// A set of steps, 64 at most, on which pieces of one seat stand.
class StepSet {
public:
    /// The steps with at least one piece, and those with two.
    std::uint64_t Pieces() const { return pieces_; }
    std::uint64_t Pairs() const { return pairs_; }

    /// Moves a piece from one step to another, each told by its bit; 0 is a step outside the set.
    /// Without branches, because whether a piece stands alone cannot be predicted.
    void Move(std::uint64_t left, std::uint64_t reached);

    bool operator==(const StepSet&) const = default;

private:
    std::uint64_t pieces_ = 0;
    std::uint64_t pairs_ = 0;
};

/// Where the four pieces of a seat stand, in its own steps, and what follows from it. Every move keeps
/// all of it up to date. Aligned to cache lines, one of which holds the threats (1 %).
class alignas(64) Side {
public:
    /// All pieces in the box. `sixValue` is what a six counts with none there: 7 or 12.
    explicit Side(unsigned sixValue);

    /// The step of a piece 0..3; BoxStep in the box.
    unsigned StepOf(unsigned piece) const { return steps_[piece]; }

    unsigned InBox() const { return inBox_; }
    unsigned Home() const { return home_; }

    /// The ring squares with at least one piece, and those with two: a barrier.
    RingSet Pieces() const { return ring_.Pieces(); }
    RingSet Pairs() const { return ring_.Pairs(); }
    /// The same of the home column. The goal is in neither set: it has room for all.
    ColumnSet ColumnPairs() const { return column_.Pairs(); }

    /// How many of its pieces can land on a ring square with one throw, a six counted as it counts now.
    /// On its own step 0 none ever can.
    unsigned Threats(unsigned step) const { return threats_[step]; }

    /// The steps that its pieces have come from the exit, added up: StepsFromExit (core/Board.h).
    int Walked() const;

    /// Moves a piece, forwards or back into the box.
    void Move(unsigned piece, unsigned to);

    bool operator==(const Side&) const = default;

private:
    void ChangeThreats(unsigned left, unsigned reached);
    void CountBox();

    std::array<std::uint8_t, RingSteps> threats_{};
    std::array<std::uint8_t, PiecesPerColour> steps_{BoxStep, BoxStep, BoxStep, BoxStep};
    std::uint8_t inBox_ = PiecesPerColour;
    std::uint8_t home_ = 0;
    const ThrowPattern* throws_;               // what one throw counts now
    const ThrowPattern* throwsWithNoneInBox_;  // and with no piece in the box
    StepSet ring_;
    StepSet column_;
};

}  // namespace zorva::engine
