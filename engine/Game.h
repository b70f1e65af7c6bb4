#pragma once

#include <optional>

#include "engine/Chance.h"
#include "engine/GameRules.h"
#include "engine/MoveChoice.h"
#include "engine/Position.h"

namespace zorva::engine {

/// A whole game of computer players, throw by throw: what the turn driver (core/Turns.h) does when no
/// person plays and nobody looks on, without records and messages. It counts what the records would
/// show.
class Game {
public:
    /// A game in which all pieces are in their boxes. `rules` and `chance` have to outlive it; one face
    /// is drawn for each throw.
    Game(const GameRules& rules, Chance& chance)
        : rules_(rules), chance_(chance), position_(rules.sixValue) {}

    /// Plays to the end, begun by that seat. Returns the winner; nobody when the game has reached
    /// LongestGame moves.
    std::optional<Seat> Play(Seat first);

    /// The position reached.
    const Position& Board() const { return position_; }

    /// Move records: passes, ways home of captured pieces and third sixes included.
    int Moves() const { return moves_; }
    /// Pieces captured.
    int Captures() const { return captures_; }
    /// Times that a seat was asked for its move.
    int Decisions() const { return decisions_; }

private:
    void PlayTurn();
    void PlayThrow(Throw thrown);
    bool BeginMove();
    unsigned MakeMove(Throw thrown);
    unsigned MovePiece(unsigned piece, unsigned to);
    void TakeThirdSix();

    const GameRules& rules_;
    Chance& chance_;
    Position position_;
    Seat seat_ = 0;
    bool isOver_ = false;
    int moves_ = 0;
    int captures_ = 0;
    int decisions_ = 0;
    /// The piece that the last throw moved, bonus moves left aside; NoPiece when it moved none.
    unsigned thrownPiece_ = NoPiece;
};

}  // namespace zorva::engine
