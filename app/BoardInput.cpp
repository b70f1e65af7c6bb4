#include "app/BoardInput.h"

#include <QKeyEvent>
#include <utility>

#include "app/BoardHits.h"
#include "app/Mesa.h"
#include "app/Pacer.h"
#include "app/Sentences.h"
#include "core/Displacement.h"
#include "core/Rules.h"
#include "core/Turns.h"

namespace zorva {
namespace {

constexpr double glideBackMilliseconds = 180;

}  // namespace

BoardInput::BoardInput(GameState& state, const Settings& settings, const RecorderState& recorder,
                       Mesa& mesa)
    : state_(state),
      settings_(settings),
      recorder_(recorder),
      mesa_(mesa),
      manualKeys_(state, settings, mesa) {}

// ----------------------------------------------------------------------- what lies under a point

bool BoardInput::IsPersonsPick() const {
    return state_.WaitingForMove && !recorder_.RecorderOn &&
           settings_.PlayerType[state_.CurrentColour] == 2;
}

bool BoardInput::IsMovable(Short piece) const {
    return state_.MovablePieces[piece] != No;
}

Short BoardInput::MovablePieceAt(Point at) const {
    for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
        const PieceCode code = CodeOf(state_.CurrentColour, piece);
        if (IsMovable(piece) && IsOnPiece(mesa_.Shared().layout, state_, code, at)) return piece;
    }
    return 0;
}

PieceCode BoardInput::DraggablePieceAt(Point at) const {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            if (MayBeDragged(state_, settings_, code) &&
                IsOnPiece(mesa_.Shared().layout, state_, code, at)) {
                return code;
            }
        }
    }
    return 0;
}

// The square or the piece's own box (0) at a point; -1 where the piece cannot be dropped at all.
Square BoardInput::DropSquareAt(Point at) const {
    const BoardSpot spot = SpotAt(mesa_.Shared().layout, at);
    if (spot.square != 0) return spot.square;
    return spot.house == ColourOf(dragged_) ? Square{0} : Square{-1};
}

bool BoardInput::MayDropAt(Point at) const {
    const Square to = DropSquareAt(at);
    return to >= 0 && MayBeDropped(state_, dragged_, to);
}

// Where it stood a piece can be put back, which is no move.
bool BoardInput::IsWhereItStood(Point at) const {
    return DropSquareAt(at) == state_.PositionOf(dragged_);
}

// ------------------------------------------------------------------------------------- the mouse

void BoardInput::Press(Point at, Qt::MouseButton button) {
    BreakOff();
    pressed_ = button;
    if (button == Qt::LeftButton && IsManual()) StartDrag(at);
}

void BoardInput::Move(Point at) {
    mesa_.Scene().PointAt(at);
    if (dragged_ != 0) {
        mesa_.Scene().Drag(dragged_, AsPointF(at));
    } else {
        Preview(IsPersonsPick() ? MovablePieceAt(at) : Short{0});
    }
}

void BoardInput::Release(Point at, bool onBoard) {
    const Qt::MouseButton button = std::exchange(pressed_, Qt::NoButton);
    if (dragged_ != 0) {
        EndDrag(at);
    } else if (button != Qt::NoButton && onBoard && !recorder_.RecorderOn) {
        Click(at, button);
    }
}

// At once and without a glide: the board may be hidden, or a dialog may be opening.
void BoardInput::LosePress() {
    pressed_ = Qt::NoButton;
    if (dragged_ == 0) return;
    mesa_.Scene().PutDown(std::exchange(dragged_, PieceCode{0}));
    mesa_.Scene().ShowGuide();
    mesa_.RefreshCursor();
}

void BoardInput::BreakOff() {
    LosePress();
    manualKeys_.PutBack();
}

void BoardInput::Click(Point at, Qt::MouseButton button) {
    const bool left = button == Qt::LeftButton;
    if (IsPersonsPick() && left) {
        if (const Short piece = MovablePieceAt(at); piece != 0) Pick(piece);
    } else if (state_.WaitingForThrow && !left) {
        ToggleManualMode();
    } else if (state_.WaitingForThrow && !state_.ManualMode && !state_.ManualShiftMade) {
        Throw();
    }
}

void BoardInput::Pick(Short piece) {
    state_.MovePiece = piece;
    state_.MoveFrom = state_.PiecePosition[state_.CurrentColour][piece];
    state_.MoveTo = DestinationOf(state_.CurrentColour, state_.MoveCount, state_.MoveFrom);
    mesa_.Scene().ShowMove({CodeOf(state_.CurrentColour, piece), state_.MoveFrom, state_.MoveTo});
    state_.WaitingForMove = No;
}

void BoardInput::Throw() {
    state_.WaitingForThrow = No;
}

// Shows where a piece would go; 0 shows none.
void BoardInput::Preview(Short piece) {
    if (piece == previewed_) return;
    previewed_ = piece;
    mesa_.Scene().ShowPreview(piece == 0 ? BoardView::ShownMove{} : MoveOf(piece));
}

BoardView::ShownMove BoardInput::MoveOf(Short piece) const {
    const Colour colour = state_.CurrentColour;
    const Square from = state_.PiecePosition[colour][piece];
    return {CodeOf(colour, piece), from, DestinationOf(colour, state_.MoveCount, from)};
}

// ----------------------------------------------------------------------------------- manual mode

void BoardInput::ToggleManualMode() {
    if (state_.ManualMode) {
        LeaveManual();
    } else {
        EnterManualMode(state_);
        mesa_.Scene().ShowGuide();
        mesa_.RefreshCursor();
        mesa_.Shared().Say("Modo manual. Elija una ficha con el tabulador.");
    }
}

void BoardInput::LeaveManual() {
    manualKeys_.Forget();
    LeaveManualMode(state_);
    mesa_.Scene().ShowGuide();
    mesa_.RefreshCursor();
    mesa_.Shared().Say("Modo manual terminado.");
}

void BoardInput::StartDrag(Point at) {
    dragged_ = DraggablePieceAt(at);
    if (dragged_ == 0) return;
    mesa_.Shared().PlaySound(Sound::MoveByHand);
    mesa_.Scene().Drag(dragged_, AsPointF(at));
}

void BoardInput::LetGlideBack(PieceCode piece) {
    mesa_.Scene().StartGlideBack(piece);
    mesa_.Waits().Wait(glideBackMilliseconds,
                       [this](double progress) { mesa_.Scene().ShowStep(progress); });
    mesa_.Scene().PutDown(piece);
    mesa_.Scene().ShowGuide();
    mesa_.RefreshCursor();
}

void BoardInput::EndDrag(Point at) {
    const Square to = DropSquareAt(at);
    const bool accepted = MayDropAt(at) && state_.WaitingForThrow;
    mesa_.Shared().PlaySound(accepted || IsWhereItStood(at) ? Sound::MoveByHand : Sound::Refusal);
    const PieceCode piece = std::exchange(dragged_, PieceCode{0});
    if (!accepted) {
        LetGlideBack(piece);
        return;
    }
    DisplaceByHand(state_, piece, to);
}

// ---------------------------------------------------------------------------------- the keyboard

void BoardInput::InviteToBegin() {
    mesa_.Shared().Say(TurnText(state_, settings_));
    mesa_.Scene().ShowSignAgain();
}

void BoardInput::AcceptMove() {
    if (marked_ != 0 && IsMovable(marked_)) {
        Pick(marked_);
    } else {
        TakeAdvisedMove(state_);
    }
}

bool BoardInput::ManualKey(int key) {
    const bool switches = key == Qt::Key_F10 || key == Qt::Key_Menu;
    if (!switches) return IsManual() && manualKeys_.Press(key);
    if (state_.WaitingForThrow && !recorder_.RecorderOn) {
        ToggleManualMode();
    } else {
        mesa_.Shared().Say("El modo manual se activa " + NoThrowAwaitedText(settings_));
    }
    return true;
}

void BoardInput::PlainKey(const QKeyEvent& key) {
    const QString text = key.text();
    if (key.key() == Qt::Key_Escape || text == "q" || text == "Q") {
        mesa_.showMinimized();
    } else if (text == "i" || recorder_.RecorderOn) {
        return;
    } else if (!state_.GameInProgress) {
        InviteToBegin();
    } else if (IsManual()) {
        LeaveManual();
    } else if (state_.WaitingForThrow) {
        Throw();
    } else if (state_.WaitingForMove && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
        AcceptMove();
    } else if (state_.WaitingForMove) {
        TakeAdvisedMove(state_);
    }
}

void BoardInput::MarkNext(int direction) {
    if (!IsPersonsPick() || state_.LegalMoveCount == 0) {
        mesa_.Shared().Say("Ahora no hay ficha que elegir. " + TurnText(state_, settings_));
        return;
    }
    int piece = marked_ == 0 && direction < 0 ? PiecesPerColour + 1 : marked_;
    do {
        piece += direction;
        if (piece > PiecesPerColour) piece = 1;
        if (piece < 1) piece = PiecesPerColour;
    } while (!IsMovable(ToShort(piece)));
    marked_ = ToShort(piece);
    mesa_.Scene().ShowMarked(CodeOf(state_.CurrentColour, marked_));
    Preview(marked_);
    mesa_.Shared().Say(ChoiceText(state_, settings_, marked_));
}

void BoardInput::PointAt(Short piece) {
    if (!IsPersonsPick()) return;
    const Short shown = piece != 0 && IsMovable(piece) ? piece : marked_;
    mesa_.Scene().ShowMarked(shown == 0 ? PieceCode{0} : CodeOf(state_.CurrentColour, shown));
    Preview(shown);
}

void BoardInput::ShowWhatCanBePicked() {
    marked_ = 0;
    manualKeys_.Forget();
    Preview(0);
    std::vector<BoardView::ShownMove> choices;
    for (Short piece = 1; piece <= PiecesPerColour && IsPersonsPick(); ++piece)
        if (IsMovable(piece)) choices.push_back(MoveOf(piece));
    mesa_.Scene().ShowChoices(choices);
}

// ----------------------------------------------------------------------------------- the cursor

QCursor BoardInput::ManualCursorAt(Point at) const {
    Cursors& cursors = mesa_.Shared().cursors;
    if (dragged_ != 0)
        return cursors.Named(MayDropAt(at) || IsWhereItStood(at) ? "ManoVerde" : "ManoRoja");
    return cursors.Named(DraggablePieceAt(at) != 0 ? "ManoAbie" : "ManoBlan");
}

QCursor BoardInput::OrdinaryCursorAt(Point at) const {
    Cursors& cursors = mesa_.Shared().cursors;
    if (state_.WaitingForThrow) return cursors.Die(state_.CurrentColour);
    if (IsPersonsPick() && MovablePieceAt(at) != 0) return cursors.ClosedHand(state_.CurrentColour);
    return Qt::ArrowCursor;
}

QCursor BoardInput::CursorAt(Point at) const {
    if (recorder_.RecorderOn) return Qt::ArrowCursor;
    if (IsManual()) return ManualCursorAt(at);
    return OrdinaryCursorAt(at);
}

}  // namespace zorva
