#pragma once

#include <array>
#include <cstdint>

#include "core/GameState.h"

namespace zorva {

/// The board as the colour on turn sees it, for a decision that asks many questions about one position.
/// It answers as IsMoveLegal does, which says what the answers mean; here they are read off sets of
/// squares kept as bits, a window of them at a time, and nothing is walked.
///
/// Squares are told by their step on the colour's way: 0 is the exit, 63 the home entry, 71 the goal; a
/// set holds one bit for each. A snapshot: it does not follow the moves. The position must be sound, and
/// no captured piece may be waiting for its way home.
class Outlook {
public:
    /// Brings what the state remembers of its pieces up to date.
    explicit Outlook(GameState& state);

    /// What IsMoveLegal says of a piece 1..4 of the colour and 1..20 squares.
    bool IsMoveLegal(int count, Short piece) const;

    /// The same of all four pieces: bit n stands for piece n.
    unsigned MovablePieces(int count) const;

    /// What DestinationOf says of a piece that may walk so far.
    Square DestinationOf(int count, Short piece) const;

private:
    friend class Appraisal;

    using RingSet = std::uint64_t;  ///< steps 0..63

    /// A set of squares of the whole way, kept so that any window of it is one shift of one word:
    /// steps 0..63, steps 32..95, and the way of a piece in its box.
    using WaySet = std::array<std::uint64_t, 3>;

    static std::uint64_t Beyond(const WaySet& set, int step);

    const GameState& state_;
    const Colour colour_;
    const Standing& own_;                              // its pieces
    std::array<const Standing*, ColourCount> rivals_;  // [1] the colour that follows in number, to [3]
    RingSet theirs_;                                   // at least one rival
    RingSet full_;                                     // two pieces
    WaySet barriers_;                                  // nobody passes them
    WaySet closed_;                                    // nobody ends there: full, or past the goal
};

}  // namespace zorva
