#include "core/Standing.h"

#include "core/WayTables.h"

namespace zorva {
namespace {

// What a piece on a square adds to its colour's standing.
struct Place {
    way::RingSet ring;  // its bit among the steps 0..63, none beyond
    std::uint8_t step;
    std::uint8_t column;  // its bit among the steps 64..70, none elsewhere
};

constexpr Place PlaceOnStep(std::uint8_t step) {
    if (step < way::ringSteps) return {way::RingSet{1} << step, step, 0};
    if (step >= way::goalStep) return {0, step, 0};
    return {0, step, static_cast<std::uint8_t>(1U << (step - way::ringSteps))};
}

constexpr way::BySquare<Place> MakePlaces() {
    way::BySquare<Place> places{};
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Square square = 0; square <= LastSquare; ++square) {
            places[colour][square] = PlaceOnStep(way::stepsOf[colour][square]);
        }
    }
    return places;
}

constexpr auto places = MakePlaces();

}  // namespace

void Standings::Read(Standing& standing, Colour colour, const PerPiece<Square>& positions) {
    way::RingSet pieces = 0, pairs = 0;
    unsigned column = 0, columnPairs = 0;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const Place& place = places[colour][positions[piece]];
        standing.steps[piece] = place.step;
        pairs |= pieces & place.ring;
        pieces |= place.ring;
        columnPairs |= column & place.column;
        column |= place.column;
    }
    standing.pieces = pieces;
    standing.pairs = pairs;
    const way::RingSet oneOrTwo = pieces << 1 | pieces << 2;
    standing.reach = oneOrTwo | oneOrTwo << 2 | pieces << 5;
    standing.columnPairs = static_cast<std::uint8_t>(columnPairs);
}

}  // namespace zorva
