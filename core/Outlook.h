#pragma once

#include <array>
#include <cstdint>

#include "core/GameState.h"

namespace zorva {

/// The board as the colour on turn sees it, for a decision that asks many questions about one position.
/// It answers as IsMoveLegal, SquareValue and ScoreOfMove do, which say what the answers mean; here
/// they are read off sets of squares kept as bits, a window of them at a time, and nothing is walked.
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

    /// What ScoreOfMove says of a legal move of that piece with MoveCount squares, to the last bit.
    double ScoreOfMove(Short level, Short piece) const;

    /// What SquareValue says of a piece and a square of its way, which may be the one it stands on.
    double SquareValue(Short piece, Square square) const;

private:
    using RingSet = std::uint64_t;  ///< steps 0..63

    /// A set of squares of the whole way, kept so that any window of it is one shift of one word.
    struct WaySet {
        /// Steps 0..63, steps 32..95, and the way of a piece in its box.
        std::array<std::uint64_t, 3> words{};

        WaySet() = default;
        /// `rest` holds the steps from 64 on.
        WaySet(RingSet ring, std::uint64_t rest, std::uint64_t fromBox = 0)
            : words{ring, ring >> 32 | rest << 32, fromBox} {}
    };

    /// Where a WaySet holds the steps beyond one.
    struct Window {
        std::uint8_t word;
        std::uint8_t shift;
    };

    struct Rival {
        RingSet pieces;  ///< squares of its own way with at least one of its pieces, one step on
        RingSet pairs;   ///< ... with two
        RingSet throws;  ///< the distances one throw of it can count: bit 64 - d for distance d
    };

    static std::uint64_t Beyond(const WaySet& set, int step);
    struct Ring;
    template <int Turns>
    void AddRival(GameState& state, const std::array<RingSet, 2>& throws, Ring& ring);
    bool CanAnyWalk(int count, Short exceptPiece) const;
    int ProgressOfPreyAt(int step) const;
    int AttackFrom(int step) const;
    int ThreatsTo(int step) const;
    double ValueAt(int step, RingSet shelters, int perThreat) const;
    bool HoldsPrey(int step) const;
    double CaptureTerm(int to) const;
    void AddExitTerms(double& score) const;

    const GameState& state_;
    const Colour colour_;
    const Standing& own_;                    // its pieces
    std::array<Rival, ColourCount> rivals_;  // [1] the colour that follows in number, to [3]
    WaySet barriers_;                        // nobody passes them
    WaySet closed_;                          // nobody ends there: full, or past the goal
    WaySet preys_;                           // a lone rival on an unsafe square
    RingSet full_;                           // two pieces
};

}  // namespace zorva
