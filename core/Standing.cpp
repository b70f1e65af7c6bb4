#include "core/Standing.h"

#include "core/WayTables.h"

namespace zorva {

void Standings::Read(Standing& standing, Colour colour, const PerPiece<Square>& positions) {
    way::RingSet pieces = 0, pairs = 0;
    unsigned column = 0, columnPairs = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const Square square = positions[piece];
        standing.steps[piece] = way::stepsOf[colour][square];
        pairs |= pieces & way::ringBits[colour][square];
        pieces |= way::ringBits[colour][square];
        columnPairs |= column & way::columnBits[colour][square];
        column |= way::columnBits[colour][square];
    }
    standing.pieces = pieces;
    standing.pairs = pairs;
    const way::RingSet oneOrTwo = pieces << 1 | pieces << 2;
    standing.reach = oneOrTwo | oneOrTwo << 2 | pieces << 5;
    standing.columnPairs = static_cast<std::uint8_t>(columnPairs);
}

}  // namespace zorva
