#pragma once

#include <string>
#include <string_view>
#include <tuple>

#include "core/GameState.h"

namespace zorva::test {

/// A position from one line of text: a colour and the squares of its four pieces, such as
/// "1:5 0 0 0  2:12 9 0 0". Colours not named are in their boxes. Pieces come to their squares in the
/// order of the text, which decides the slots.
GameState Position(std::string_view text);

/// The three slots of a square, such as "21 11 0".
std::string SlotsText(const GameState& state, Square square);

/// The squares of a colour's four pieces, such as "5 0 0 0".
std::string SquaresText(const GameState& state, Colour colour);

/// The tables that moves change, to be compared.
inline auto TablesOf(const GameState& state) {
    return std::tuple(state.PiecePosition, state.SquareOccupants, state.PiecesInBox, state.PiecesHome);
}

}  // namespace zorva::test
