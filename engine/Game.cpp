#include "engine/Game.h"

#include "core/Rules.h"
#include "core/Turns.h"

namespace zorva::engine {

std::optional<Seat> Game::Play(Seat first) {
    for (seat_ = first;; seat_ = rules_.next[seat_]) {
        PlayTurn();
        if (isOver_) break;
    }
    if (position_.SideOf(seat_).Home() < PiecesPerColour) return std::nullopt;
    return seat_;
}

// A turn goes on after the first and the second six.
void Game::PlayTurn() {
    for (int sixes = 0; BeginMove();) {
        const unsigned face = static_cast<unsigned>(chance_.Face());
        if (face != 6) return PlayThrow({face, face});
        if (++sixes == 3) return TakeThirdSix();
        PlayThrow({face, position_.SideOf(seat_).InBox() == 0 ? rules_.sixValue : face});
        if (isOver_) return;
    }
}

// A throw and the bonus moves that it leads to.
void Game::PlayThrow(Throw thrown) {
    unsigned bonus = MakeMove(thrown);
    while (bonus != 0 && BeginMove()) bonus = MakeMove({0, bonus});
}

// Counts a move. Returns false, and ends the game, when there are too many.
bool Game::BeginMove() {
    if (moves_ >= LongestGame) isOver_ = true;
    moves_ += !isOver_;
    return !isOver_;
}

// Returns the squares of the bonus move that follows, 0 when none does.
unsigned Game::MakeMove(Throw thrown) {
    const MoveChoice choice = ChooseMove(position_, rules_, seat_, thrown);
    ++decisions_;
    if (thrown.face != 0) thrownPiece_ = choice.piece;
    if (choice.piece == NoPiece) return 0;
    const unsigned bonus = MovePiece(choice.piece, choice.to);
    if (!choice.bringsTwo) return bonus;
    ++moves_;
    ++decisions_;
    return MovePiece(1, 0);
}

unsigned Game::MovePiece(unsigned piece, unsigned to) {
    const Occupant victim = position_.Move(seat_, piece, to);
    if (victim != 0) {
        ++moves_;
        ++captures_;
        const bool isOnExit = to == 0;  // which earns no bonus
        return isOnExit ? 0 : CaptureBonus;
    }
    if (to != GoalStep) return 0;
    isOver_ = position_.SideOf(seat_).Home() == PiecesPerColour;
    return isOver_ ? 0 : ArrivalBonus;
}

// The third six in a row sends the piece moved last back to its box. That is the piece of the second
// six, the throw before: bonus moves do not count, and nobody can capture it in between. If it is on its
// goal, nothing happens and the third six leaves no record.
void Game::TakeThirdSix() {
    if (thrownPiece_ == NoPiece) return;
    if (position_.SideOf(seat_).StepOf(thrownPiece_) == GoalStep) {
        --moves_;
    } else {
        position_.SendToBox(seat_, thrownPiece_);
    }
}

}  // namespace zorva::engine
