#pragma once

#include <QString>

#include "core/GameState.h"
#include "engine/PlayOuts.h"

namespace zorva {

// What happens in the game and what stands on the board, in Spanish. Everything that the program says of
// a game comes from here; the words are those of the manual.

/// The name of a colour's player.
QString NameText(const Settings& settings, Colour colour);
/// The player of a colour: the name, with the colour behind it when the name is another: "Ana (Rojo)".
QString PlayerText(const Settings& settings, Colour colour);
/// A piece and where it is: "Ficha 2 de Ana (Rojo), casilla 39".
QString PieceText(const GameState& state, const Settings& settings, PieceCode code);
/// A square 1..100 and the pieces on it: "Casilla 12, segura: ficha 1 de Azul".
QString SquareText(const GameState& state, const Settings& settings, Square square);
/// A piece that a person lifts to put it down by hand, and one that is put back where it stood.
QString LiftedText(const Settings& settings, PieceCode code);
QString PutBackText(const GameState& state, PieceCode code);
/// A colour's die and what it shows: "Dado de Verde: 5". Face 0 is an empty tray; a die that is `ready`
/// waits to be thrown.
QString DieText(const Settings& settings, Colour colour, Short face, bool ready);

/// A move and what follows from it, which its record alone does not tell.
struct ToldMove {
    MoveRecord record;
    PieceCode captured = 0;     ///< the piece that it captures
    Short bonus = 0;            ///< the squares that it earns
    bool throwIsKnown = false;  ///< the throw has been told before

    /// The move that is about to be made from the position in `state`.
    static ToldMove AboutToBeMade(const GameState& state, const MoveRecord& record);
    /// Move 1.. of the game, whose record and, if it captured, whose captive's return are in `state`.
    static ToldMove Made(const GameState& state, Short move);
};

/// A throw that has led to nothing yet: "Verde saca 5".
QString ThrowText(const Settings& settings, Colour colour, Short face);
/// What a move does: "Verde saca 5: la ficha 1 va de la casilla 56 a la casilla 61 y come la ficha 3 de
/// Azul. Gana un premio de 20."
QString MoveText(const Settings& settings, const ToldMove& move);

/// Several moves of one colour, told by where its pieces have got to.
struct MoveSum {
    int moves = 0;
    PerPiece<bool> isMoved{};
    PerPiece<Square> reached{};

    void Add(const MoveRecord& record);
};
/// "Verde hace 3 jugadas: ficha 1 a la casilla 61; ficha 2 a la casilla 56."
QString SumText(const Settings& settings, Colour colour, const MoveSum& sum);

/// What a piece of the colour on turn can do with the count of this throw: "Ficha 1, casilla 56: va a la
/// casilla 61."
QString ChoiceText(const GameState& state, const Settings& settings, Short piece);
/// The move that the program advises to the person who chooses a piece: "Consejo: la ficha 1 va de ..."
QString AdviceText(const GameState& state, const Settings& settings);
/// Whose turn it is and what may be done. While a piece is to be chosen: "Elija una ficha para
/// contar 12: puede mover 3." While a throw is awaited: "Turno de Verde, el ordenador: puede tirar el
/// dado."
QString TurnText(const GameState& state, const Settings& settings);
/// Why manual mode and the recorder cannot be switched on now, and what to do: the end of a sentence.
QString NoThrowAwaitedText(const Settings& settings);
/// Everything on the board, colour by colour and from the colour on turn on, with what its pieces can do
/// if one is to be chosen.
QString PositionText(const GameState& state, const Settings& settings);
/// A move of the game with its number: "Jugada 12. Verde saca 5: la ficha 1 sale a la casilla 56."
QString NumberedMoveText(const GameState& state, const Settings& settings, Short move);
/// The last moves on the board, at most six of them and the newest last.
QString LastMovesText(const GameState& state, const Settings& settings);
/// Where the recorder stands after it has made the move before the position (`forward`) or has taken
/// back the move at the position.
QString TapeText(const GameState& state, const Settings& settings, bool forward);

/// The number of the record in which a first piece came out with the five of this record, at least 1,
/// which brought out a second one; 0 when it did not. The return of a captured piece may lie between
/// them.
Short FirstExitOf(const GameState& state, Short move);

/// What the game waits for, as the line on the table says it.
struct Prompt {
    QString what;        ///< "María:\npulse para tirar": the new line may be shown as a blank
    QString hint;        ///< how to get on otherwise, often empty
    bool waits = false;  ///< for the player; else for a walk, a throw or nothing
    Colour who = 0;      ///< the colour that is to throw or move, or has won; 0 for none

    bool operator==(const Prompt&) const = default;
};
/// `tape` is the move at which the recorder stands, -1 while it is off.
Prompt PromptOf(const GameState& state, const Settings& settings, Short tape);
/// What its card says of a colour: how it ended the game, what it has thrown and has to count now, or
/// what it did by its last throw or by hand: "Sacó 5, capturó a Rojo y contó 20". Empty when it has not
/// played yet.
QString CardText(const GameState& state, const Settings& settings, Colour colour);
/// The die on a colour's card: the throw for which it has to choose a piece, or its last one. 0 when the
/// colour has not thrown yet or has last moved a piece by hand.
Short CardDie(const GameState& state, Colour colour);
/// What the colour that played last did, with its name: "Azul sacó 4 y no pudo mover".
QString LatestThrowText(const GameState& state, const Settings& settings);
/// How a game that is won ended for a colour: "¡Ganó la partida!", "2.º puesto, con 3 fichas en casa.".
/// The places go by the pieces at home, then by the squares that are left; equals share one.
QString OutcomeText(const GameState& state, const Settings& settings, Colour colour);
/// The pieces that the others brought home, by their places: "En casa: Ana 2, Rojo 0."; empty when one
/// colour has played alone.
QString OthersText(const GameState& state, const Settings& settings);
/// How strong that level plays by the measurements in docs/strength.md: "Juega flojo".
QString StrengthText(Short level);
/// Who plays a colour: "Persona", "Ordenador, nivel 50".
QString KindText(const Settings& settings, Colour colour);

/// How many of 100 games a chance wins: "41", "menos de 1", "más de 99". Only a chance without an error
/// is said to win none or all of them.
QString OfHundredText(const engine::Estimate& chance);
/// "41 de cada 100".
QString ChanceText(const engine::Estimate& chance);
/// By how many games of 100 an estimate may be wrong: 19 of 20 are closer to the truth.
int MarginOfHundred(const engine::Estimate& estimate);
/// What a move is worth: "Si mueve la ficha de la 22: gana 41 de cada 100 partidas". Square 0 is the
/// waiting box.
QString MoveChanceText(Colour colour, Square from, const engine::Estimate& chance);

}  // namespace zorva
