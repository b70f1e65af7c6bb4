#pragma once

#include <cstdint>

#include "core/GameState.h"
#include "engine/Side.h"

namespace zorva::engine {

/// A piece of any seat in one byte: bits 0 and 1 are the piece, bits 2 and 3 its seat, bit 4 is always
/// set. 0 is nobody.
using Occupant = std::uint8_t;

constexpr Occupant OccupantOf(Seat seat, unsigned piece) {
    return static_cast<Occupant>(16 | seat << 2 | piece);
}
constexpr Occupant OccupantOf(PieceCode code) {
    return code == 0 ? Occupant{0}
                     : OccupantOf(SeatOf(ColourOf(code)), static_cast<unsigned>(PieceOf(code) - 1));
}
constexpr Seat SeatOfOccupant(Occupant occupant) {
    return occupant >> 2 & 3U;
}
constexpr unsigned PieceOfOccupant(Occupant occupant) {
    return occupant & 3U;
}

/// Where all pieces stand: the board of a GameState in less than 800 bytes. Pieces are numbered 0..3,
/// one less than in the core.
class Position {
public:
    /// All pieces in their boxes. `sixValue` is what a six counts for a seat whose box is empty: 7
    /// or 12.
    explicit Position(unsigned sixValue);

    /// The position of `state`, in which every captured piece must have returned to its box.
    explicit Position(const GameState& state);

    const Side& SideOf(Seat seat) const { return sides_[seat]; }

    /// The piece that came to the square first; 0 when the square is empty or a goal.
    Occupant FirstOn(Square square) const { return First(occupants_[square]); }

    /// Moves a piece to a step of its track and carries out the capture that CaptureOn (core/Rules.h)
    /// defines: the victim is in its box afterwards. Returns the victim, 0 when there is none. Does not
    /// check whether the move is legal: a throw that brings out the first of four pieces and walks on
    /// with it (countsFromFirstThrow) may break the rules of movement.
    Occupant Move(Seat seat, unsigned piece, unsigned to);

    /// Puts a piece back into its box, from wherever it stands.
    void SendToBox(Seat seat, unsigned piece);

    bool operator==(const Position&) const = default;

private:
    /// The pieces on a square in the order of their arrival, as in slots 1 and 2 of SquareOccupants: the
    /// first in the lower byte, the second in the upper one. The order decides which of two pieces is
    /// captured by a third that comes out of its box. Both are kept in one number, so that adding and
    /// removing a piece needs no branch.
    using Occupants = std::uint16_t;

    static constexpr Occupants Pair(Occupant first, Occupant second) {
        return static_cast<Occupants>(first | second << 8);
    }
    static constexpr Occupant First(Occupants here) { return static_cast<Occupant>(here & 0xffU); }
    static constexpr Occupant Second(Occupants here) { return static_cast<Occupant>(here >> 8); }

    void PutIntoBox(Occupant occupant);
    void LeaveSquare(Seat seat, unsigned piece);
    static Occupant Land(Occupants& here, Occupant newcomer, bool onSafe);
    static Occupant LandAsThird(Occupants& here, Occupant newcomer, bool onSafe);

    std::array<Side, SeatCount> sides_;
    std::array<Occupants, LastSquare + 1> occupants_{};  // nobody on [0], the box, and on the goals
};

}  // namespace zorva::engine
