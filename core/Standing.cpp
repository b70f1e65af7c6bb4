#include "core/Standing.h"

#include "core/WayTables.h"

namespace zorva {

void Standings::Read(Standing& standing, Colour colour, const PerPiece<Square>& positions) {
    way::RingSet pieces = 0, pairs = 0, beyond = 0, beyondPairs = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const unsigned step = way::stepsOf[colour][positions[piece]];
        standing.steps[piece] = static_cast<std::uint8_t>(step);
        // One of the two, told without a branch: bit 6 of the step says that it lies beyond the ring.
        const way::RingSet bit = way::RingSet{1} << step % way::ringSteps;
        const way::RingSet onRing = bit & ((step >> 6) - way::RingSet{1}), offRing = bit ^ onRing;
        pairs |= pieces & onRing;
        pieces |= onRing;
        beyondPairs |= beyond & offRing;
        beyond |= offRing;
    }
    standing.pieces = pieces;
    standing.pairs = pairs;
    const way::RingSet oneOrTwo = pieces << 1 | pieces << 2;
    standing.reach = oneOrTwo | oneOrTwo << 2 | pieces << 5;
    standing.columnPairs =
        static_cast<std::uint8_t>(beyondPairs & way::Lowest(way::goalStep - way::ringSteps));
}

}  // namespace zorva
