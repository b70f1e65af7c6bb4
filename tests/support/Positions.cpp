#include "tests/support/Positions.h"

#include <algorithm>
#include <sstream>

#include "core/Board.h"

namespace zorva::test {
namespace {

void Place(GameState& state, Colour colour, Short piece, Square square) {
    if (square == 0) return;
    Require(IsOnTrack(colour, square), "a test's position puts a piece off its way");
    state.PiecePosition[colour][piece] = square;
    --state.PiecesInBox[colour];
    if (square == GoalSquare[colour]) ++state.PiecesHome[colour];
    auto& slots = state.SquareOccupants[square];
    const auto slot = std::find(slots.begin() + 1, slots.end(), 0);
    if (slot != slots.end()) *slot = CodeOf(colour, piece);
}

}  // namespace

GameState Position(std::string_view text) {
    GameState state;
    std::istringstream in{std::string(text)};
    Colour colour = 0;
    char colon = 0;
    while (in >> colour >> colon) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            Square square = 0;
            in >> square;
            Require(!in.fail() && colon == ':' && colour >= 1 && colour <= ColourCount,
                    "a test's position cannot be read");
            Place(state, colour, piece, square);
        }
    }
    return state;
}

std::string SlotsText(const GameState& state, Square square) {
    const auto& slots = state.SquareOccupants[square];
    return std::to_string(slots[1]) + " " + std::to_string(slots[2]) + " " + std::to_string(slots[3]);
}

std::string SquaresText(const GameState& state, Colour colour) {
    std::ostringstream out;
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        out << (piece > 1 ? " " : "") << state.PiecePosition[colour][piece];
    }
    return out.str();
}

}  // namespace zorva::test
