#pragma once

#include <QString>

#include "core/GameState.h"

namespace zorva {

// The board in words, for those who hear it.

/// The player of a colour: the name, and the colour too where the name does not say it.
QString PlayerText(const Settings& settings, Colour colour);
/// A piece and where it is: "Ficha 2 de Ana (Rojo), casilla 39".
QString PieceText(const GameState& state, const Settings& settings, PieceCode code);
/// A square and who stands on it: "Casilla 12, seguro: ficha 1 de Azul".
QString SquareText(const GameState& state, const Settings& settings, Square square);
/// A colour's die and what it shows: "Dado de Verde: 5".
QString DieText(const Settings& settings, Colour colour, Short face, bool ready);
/// What a move did, in a sentence.
QString MoveText(const Settings& settings, const MoveRecord& record);
/// Whose turn it is and what is awaited.
QString TurnText(const GameState& state, const Settings& settings);

}  // namespace zorva
