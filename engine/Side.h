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

    /// Moves a piece from the step with the bit `left` to that with the bit `reached`; 0 stands for a
    /// step outside the set. Without branches: the processor could not predict whether a piece stands
    /// alone.
    void Move(std::uint64_t left, std::uint64_t reached);

    bool operator==(const StepSet&) const = default;

private:
    std::uint64_t pieces_ = 0;
    std::uint64_t pairs_ = 0;
};

/// Where the four pieces of a seat stand, in its own steps, with sets and counts that Move keeps up to
/// date. Aligned so that the threats fill one cache line: otherwise games were 1 % slower.
class alignas(64) Side {
public:
    /// All pieces in the box. `sixValue` is what a six counts with an empty box: 7 or 12.
    explicit Side(unsigned sixValue);

    /// The step of a piece 0..3; BoxStep in the box.
    unsigned StepOf(unsigned piece) const { return steps_[piece]; }

    unsigned InBox() const { return inBox_; }
    unsigned Home() const { return home_; }

    /// The ring steps with at least one piece, and those with two, a barrier.
    RingSet Pieces() const { return ring_.Pieces(); }
    RingSet Pairs() const { return ring_.Pairs(); }
    /// The steps of the home column with two pieces. The goal is never among them: it has room for all.
    ColumnSet ColumnPairs() const { return column_.Pairs(); }

    /// How many of its pieces can land on a ring step, 0..63, with one throw; a six counts as many
    /// squares as it does for the seat now. 0 for its own step 0, the exit.
    unsigned Threats(unsigned step) const { return threats_[step]; }

    /// The steps that its four pieces have walked from the exit, added together; StepsFromExit
    /// (core/Board.h) defines them.
    int Walked() const;

    /// Moves a piece 0..3 to a step, forwards or back to BoxStep.
    void Move(unsigned piece, unsigned to);

    bool operator==(const Side&) const = default;

private:
    void ChangeThreats(unsigned left, unsigned reached);
    void CountBox();

    std::array<std::uint8_t, RingSteps> threats_{};
    std::array<std::uint8_t, PiecesPerColour> steps_{BoxStep, BoxStep, BoxStep, BoxStep};
    std::uint8_t inBox_ = PiecesPerColour;
    std::uint8_t home_ = 0;
    const ThrowPattern* throws_;               // of the counts of one throw now
    const ThrowPattern* throwsWithNoneInBox_;  // of those with an empty box
    StepSet ring_;
    StepSet column_;
};

}  // namespace zorva::engine
