#pragma once

#include <cstdint>

#include "core/GameState.h"
#include "engine/Track.h"

namespace zorva::engine {

/// Where the four pieces of a seat stand, in its own steps, and what follows from it. Every move keeps
/// all of it up to date.
class Side {
public:
    /// All pieces in the box. `sixValue` is what a six counts with none there: 7 or 12.
    explicit Side(unsigned sixValue);

    /// The step of a piece 0..3; BoxStep in the box.
    unsigned StepOf(unsigned piece) const { return steps_[piece]; }

    unsigned InBox() const { return inBox_; }
    unsigned Home() const { return home_; }

    /// The ring squares with at least one piece, and those with two: a barrier.
    RingSet Pieces() const { return pieces_; }
    RingSet Pairs() const { return pairs_; }
    /// The same of the home column. The goal is in neither set: it has room for all.
    ColumnSet ColumnPairs() const { return columnPairs_; }

    /// How many of its pieces can land on a ring square with one throw, a six counted as it counts now.
    /// On its own step 0 none ever can.
    unsigned Threats(unsigned step) const { return threats_[step]; }

    /// The steps that its pieces have come from the exit, added up: StepsFromExit (core/Board.h).
    int Walked() const;

    /// Moves a piece, forwards or back into the box.
    void Move(unsigned piece, unsigned to);

    bool operator==(const Side&) const = default;

private:
    void ChangeThreats(unsigned step, bool comes);
    void SetSix(std::uint8_t six);
    void CountBox();

    std::array<std::uint8_t, PiecesPerColour> steps_{BoxStep, BoxStep, BoxStep, BoxStep};
    std::uint8_t inBox_ = PiecesPerColour;
    std::uint8_t home_ = 0;
    std::uint8_t sixValue_;
    std::uint8_t six_ = 6;  // what a six counts now
    RingSet pieces_ = 0;
    RingSet pairs_ = 0;
    ColumnSet column_ = 0;
    ColumnSet columnPairs_ = 0;
    // [step]. Longer than the ring: what pieces in the column or the box could reach is counted as well,
    // so that no branch asks where a piece stands, and never read.
    std::array<std::uint8_t, StepCount + 16> threats_{};
};

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

/// Where all pieces stand: what a GameState says of the board, in 800 bytes of which a move changes a
/// few. Pieces are numbered 0..3, one less than in the core.
class Position {
public:
    /// All pieces in their boxes, in a game in which a six counts so much with none there.
    explicit Position(unsigned sixValue);

    /// The position of `state`. No captured piece may be waiting there for its way home.
    explicit Position(const GameState& state);

    const Side& SideOf(Seat seat) const { return sides_[seat]; }

    /// Of the pieces on a ring square, the one that came first; 0 when the square is empty.
    Occupant FirstOn(Square square) const { return occupants_[square].first; }

    /// Moves a piece to a step of its track and carries out the capture that CaptureOn (core/Rules.h)
    /// defines: the victim is in its box afterwards. Returns the victim, 0 when there is none. Does not
    /// ask whether the move is legal; a count that begins with all pieces in the box need not be.
    Occupant Move(Seat seat, unsigned piece, unsigned to);

    /// Puts a piece back into its box, from wherever it stands.
    void SendToBox(Seat seat, unsigned piece);

    bool operator==(const Position&) const = default;

private:
    /// The pieces on a ring square in the order of their arrival, as in slots 1 and 2 of
    /// SquareOccupants. The order decides which of two pieces is captured by a third that comes out of
    /// its box.
    struct Occupants {
        Occupant first = 0;
        Occupant second = 0;

        bool operator==(const Occupants&) const = default;
    };

    void PutIntoBox(Occupant occupant);
    void LeaveSquare(Seat seat, unsigned piece);
    static Occupant Land(Occupants& here, Occupant newcomer, bool isSafe);
    static Occupant LandAsThird(Occupants& here, Occupant newcomer, bool isSafe);

    std::array<Side, SeatCount> sides_;
    std::array<Occupants, LastRingSquare + 1> occupants_{};
};

}  // namespace zorva::engine
