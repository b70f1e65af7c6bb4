#pragma once

#include <optional>

#include "engine/Chance.h"
#include "engine/GameRules.h"
#include "engine/MoveChoice.h"
#include "engine/Position.h"

namespace zorva::engine {

/// A complete game of computer players, throw by throw. It makes the same moves as the turn driver
/// (core/Turns.h), without records, messages or waits, and counts moves as the core would record them.
class Game {
public:
    /// A game in which all pieces are in their boxes. `rules` and `chance` have to outlive it; one face
    /// is drawn for each throw.
    Game(const GameRules& rules, Chance& chance)
        : rules_(rules), chance_(chance), position_(rules.sixValue) {}

    /// Plays to the end; the seat `first` has the first turn. Returns the winner, or nothing when the
    /// game has reached LongestGame moves.
    std::optional<Seat> Play(Seat first);

    /// The position reached.
    const Position& Board() const { return position_; }

    /// Move records, including passes, returns of captured pieces to their boxes and third sixes.
    int Moves() const { return moves_; }
    /// Pieces captured.
    int Captures() const { return captures_; }
    /// Decisions that the seats made, passes included.
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
    /// The piece moved by the last throw, not by a bonus; NoPiece when that throw moved none.
    unsigned thrownPiece_ = NoPiece;
};

}  // namespace zorva::engine
