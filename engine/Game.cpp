#include "engine/Game.h"

#include "core/Rules.h"

namespace zorva::engine {

void Game::TakeThrow(unsigned face) {
    ++now_.throws[now_.seat];
    now_.sixes = face == 6 ? now_.sixes + 1 : 0;
    if (now_.sixes == 3) return TakeThirdSix();
    const bool isLongSix = face == 6 && now_.position.SideOf(now_.seat).InBox() == 0;
    now_.due = {face, isLongSix ? rules_.sixValue : face};
}

void Game::Make(const MoveChoice& choice) {
    ++now_.moves;
    ++decisions_;
    if (now_.due.face != 0) now_.thrownPiece = choice.piece;
    unsigned bonus = choice.piece == NoPiece ? 0 : MovePiece(choice.piece, choice.to);
    if (choice.bringsTwo) {
        ++now_.moves;
        ++decisions_;
        bonus = MovePiece(1, 0);
    }
    now_.due = {0, bonus};
    if (bonus == 0 && !isWon_) EndThrow();
}

// Returns the squares of the bonus move that follows, 0 when none does.
unsigned Game::MovePiece(unsigned piece, unsigned to) {
    const Occupant victim = now_.position.Move(now_.seat, piece, to);
    if (victim != 0) {
        ++now_.moves;
        ++captures_;
        const bool isOnExit = to == 0;  // which earns no bonus
        return isOnExit ? 0 : CaptureBonus;
    }
    if (to != GoalStep) return 0;
    isWon_ = now_.IsWon();
    return isWon_ ? 0 : ArrivalBonus;
}

// The third six in a row sends the piece moved last back to its box. That is the piece of the second
// six, the throw before: bonus moves do not count, and nobody can capture it in between. If it is on its
// goal, nothing happens and the third six leaves no record.
void Game::TakeThirdSix() {
    const bool isMoved = now_.thrownPiece != NoPiece;
    const bool isHome = isMoved && now_.position.SideOf(now_.seat).StepOf(now_.thrownPiece) == GoalStep;
    if (isMoved && !isHome) now_.position.SendToBox(now_.seat, now_.thrownPiece);
    now_.moves += !isHome;
    PassTurn();
}

// After the first and the second six the turn goes on.
void Game::EndThrow() {
    if (now_.sixes == 0) PassTurn();
}

void Game::PassTurn() {
    now_.seat = rules_.next[now_.seat];
    now_.sixes = 0;
}

}  // namespace zorva::engine
