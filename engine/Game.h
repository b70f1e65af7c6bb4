#pragma once

#include <optional>

#include "engine/GameRules.h"
#include "engine/Moment.h"
#include "engine/MoveChoice.h"

namespace zorva::engine {

/// A game of computer players from any moment on, step by step or to its end. It makes the same moves as
/// the turn driver (core/Turns.h), without records, messages or waits, and counts moves as the core
/// would record them.
class Game {
public:
    /// `rules` has to outlive the game.
    Game(const GameRules& rules, const Moment& start)
        : rules_(rules), now_(start), isWon_(start.IsWon()) {}

    /// Where the game stands.
    const Moment& Now() const { return now_; }

    /// Whether a seat has won, or the game has reached LongestGame moves, which ends it without a
    /// winner.
    bool IsOver() const { return isWon_ || now_.moves >= LongestGame; }
    /// The seat that has won.
    std::optional<Seat> Winner() const { return isWon_ ? std::optional(now_.seat) : std::nullopt; }

    /// Throws a face 1..6; a throw must be due. A third six is carried out and ends the turn. After any
    /// other face a move is due.
    void TakeThrow(unsigned face);

    /// Makes the move that is due and all that follows from it without a throw or a decision: the second
    /// piece leaves the box, the captured piece returns to its own, the turn passes.
    void Make(const MoveChoice& choice);

    /// Plays to the end and returns the winner. `nextFace(moment)` throws for the seat on turn, and
    /// `choose(moment)` makes its decision.
    template <typename NextFace, typename Choose>
    std::optional<Seat> Play(NextFace nextFace, Choose choose) {
        while (!IsOver()) {
            if (now_.IsThrowDue()) {
                TakeThrow(nextFace(now_));
            } else {
                Make(choose(now_));
            }
        }
        return Winner();
    }

    /// The same, and all seats choose at their levels.
    template <typename NextFace>
    std::optional<Seat> Play(NextFace nextFace) {
        return Play(nextFace, [this](const Moment& now) {
            return ChooseMove(now.position, rules_, now.seat, now.due);
        });
    }

    /// Pieces captured since the start.
    int Captures() const { return captures_; }
    /// Decisions made since the start, passes included.
    int Decisions() const { return decisions_; }

private:
    unsigned MovePiece(unsigned piece, unsigned to);
    void TakeThirdSix();
    void EndThrow();
    void PassTurn();

    const GameRules& rules_;
    Moment now_;
    bool isWon_;
    int captures_ = 0;
    int decisions_ = 0;
};

}  // namespace zorva::engine
