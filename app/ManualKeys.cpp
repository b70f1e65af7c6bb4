#include "app/ManualKeys.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "app/Mesa.h"
#include "app/PiecePlaces.h"
#include "app/Sentences.h"
#include "core/Board.h"
#include "core/Displacement.h"

namespace zorva {
namespace {

constexpr double liftedHeight = 0.35;  // above the board, in sizes of a piece
constexpr int wholeWay = 100;          // squares: more than any way has

// By how many pieces or squares a key goes on (back when negative); 0 for all other keys.
int StepOf(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Right:
        case Qt::Key_Down: return 1;
        case Qt::Key_Backtab:
        case Qt::Key_Left:
        case Qt::Key_Up: return -1;
        case Qt::Key_PageDown: return 10;
        case Qt::Key_PageUp: return -10;
        case Qt::Key_End: return wholeWay;
        case Qt::Key_Home: return -wholeWay;
        default: return 0;
    }
}

bool LiftsAndPutsDown(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

ManualKeys::ManualKeys(GameState& state, const Settings& settings, Mesa& mesa)
    : state_(state), settings_(settings), mesa_(mesa) {}

bool ManualKeys::Press(int key) {
    const int step = StepOf(key);
    if (isLifted_ && step != 0) {
        Carry(step);
    } else if (isLifted_ && LiftsAndPutsDown(key)) {
        PutDown();
    } else if (isLifted_ && key == Qt::Key_Escape) {
        PutBack();
    } else if (!isLifted_ && std::abs(step) == 1) {
        MarkNext(step);
    } else if (marked_ != 0 && LiftsAndPutsDown(key)) {
        Lift();
    } else {
        return false;
    }
    return true;
}

std::vector<PieceCode> ManualKeys::DraggablePieces() const {
    std::vector<PieceCode> pieces;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            if (MayBeDragged(state_, settings_, code)) pieces.push_back(code);
        }
    }
    return pieces;
}

// Round and round; without a mark the first or the last one is next.
void ManualKeys::MarkNext(int step) {
    const std::vector<PieceCode> pieces = DraggablePieces();
    if (pieces.empty()) return;
    const auto count = static_cast<int>(pieces.size());
    const auto found =
        static_cast<int>(std::find(pieces.begin(), pieces.end(), marked_) - pieces.begin());
    const int before = found < count ? found : step > 0 ? -1 : 0;
    marked_ = pieces[(before + step + count) % count];
    mesa_.Scene().ShowMarked(marked_);
    mesa_.Shared().Say(PieceText(state_, settings_, marked_) + ".");
}

void ManualKeys::Lift() {
    isLifted_ = true;
    target_ = state_.PositionOf(marked_);
    mesa_.Shared().PlaySound(Sound::MoveByHand);
    Show();
    mesa_.Shared().Say(LiftedText(settings_, marked_));
}

// In the order of the piece's way, from its box to its goal. The square that it stands on is one of
// them: there it can be put back.
std::vector<Square> ManualKeys::SquaresToChoose() const {
    const Colour colour = ColourOf(marked_);
    std::vector<Square> squares;
    const auto add = [&](Square square) {
        if (square == state_.PositionOf(marked_) || MayBeDropped(state_, marked_, square))
            squares.push_back(square);
    };
    add(0);
    for (Short steps = 0; steps <= StepsToGoal; ++steps)
        add(AdvanceSquare(ExitSquare[colour], steps, colour));
    return squares;
}

void ManualKeys::Carry(int step) {
    const std::vector<Square> squares = SquaresToChoose();
    const auto last = static_cast<int>(squares.size()) - 1;
    const auto now =
        static_cast<int>(std::find(squares.begin(), squares.end(), target_) - squares.begin());
    target_ = squares[std::clamp(now + step, 0, last)];
    Show();
    mesa_.Shared().Say((target_ == 0 ? "Cuadro de espera" : SquareText(state_, settings_, target_)) +
                       ".");
}

void ManualKeys::Show() {
    const Layout& layout = mesa_.Shared().layout;
    const bool isWhereItStood = target_ == state_.PositionOf(marked_);
    const Point at = isWhereItStood ? PlaceOfPiece(layout, state_, marked_)
                     : target_ == 0 ? layout.BoxPosition(ColourOf(marked_), PieceOf(marked_))
                                    : FreePlaceOn(layout, state_, target_);
    mesa_.Scene().Drag(marked_, AsPointF(at), liftedHeight * layout.PieceSize);
}

void ManualKeys::PutDown() {
    mesa_.Shared().PlaySound(Sound::MoveByHand);
    if (target_ == state_.PositionOf(marked_)) {
        PutBack();
        return;
    }
    isLifted_ = false;
    DisplaceByHand(state_, marked_, target_);
}

void ManualKeys::PutBack() {
    if (!std::exchange(isLifted_, false)) return;
    mesa_.Scene().PutDown(marked_);
    mesa_.Scene().ShowGuide();
    mesa_.Shared().Say(PutBackText(state_, marked_));
}

void ManualKeys::Forget() {
    PutBack();
    marked_ = 0;
    mesa_.Scene().ShowMarked(0);
}

}  // namespace zorva
