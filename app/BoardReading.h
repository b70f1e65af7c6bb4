#pragma once

#include <QString>

#include "core/GameState.h"

namespace zorva {

// The board in Spanish words, for screen readers. Names of pieces and squares are those of the manual.

/// The player of a colour: the name, with the colour behind it when the name is another: "Ana (Rojo)".
QString PlayerText(const Settings& settings, Colour colour);
/// A piece and where it is: "Ficha 2 de Ana (Rojo), casilla 39".
QString PieceText(const GameState& state, const Settings& settings, PieceCode code);
/// A square 1..100 and the pieces on it: "Casilla 12, segura: ficha 1 de Azul".
QString SquareText(const GameState& state, const Settings& settings, Square square);
/// A colour's die and what it shows: "Dado de Verde: 5". Face 0 is an empty tray; a die that is `ready`
/// waits to be thrown.
QString DieText(const Settings& settings, Colour colour, Short face, bool ready);
/// What a move did: "Verde cuenta 5 con la ficha 1: casilla 61".
QString MoveText(const Settings& settings, const MoveRecord& record);
/// Whose turn it is: "Turno de Verde". While a throw is awaited, ": puede tirar el dado" follows; while
/// a piece is to be chosen, the text says that instead. WindowOutside announces a turn before the wait
/// for its throw begins, so at an ordinary turn players hear the first part only.
QString TurnText(const GameState& state, const Settings& settings);

}  // namespace zorva
