#include "app/BoardScene.h"

#include <utility>

#include "app/PiecePlaces.h"
#include "core/Board.h"
#include "core/Rules.h"

namespace zorva {
namespace {

constexpr int pulseMilliseconds = 900;  // at speed 0

}  // namespace

BoardScene::BoardScene(const GameState& state, const Settings& settings, Artwork& artwork,
                       Changed changed)
    : state_(state), settings_(settings), painter_(artwork), changed_(std::move(changed)) {
    pulse_.setStartValue(0.0);
    pulse_.setEndValue(1.0);
    QObject::connect(&pulse_, &QVariantAnimation::valueChanged, &pulse_,
                     [this](const QVariant& value) { ShowPulse(value.toDouble()); });
}

void BoardScene::SetScreen(const Layout& layout, QSize devicePixels) {
    layout_ = layout;
    pulse_.stop();
    view_.pulse = {};
    painter_.SetScreen(layout, devicePixels);
    Refresh();
}

void BoardScene::Repaint(const QRect& device) {
    const QRect part = device.intersected(painter_.Picture().rect());
    if (part.isEmpty()) return;
    painter_.Paint(view_, settings_, part);
    changed_(part);
}

void BoardScene::RepaintHouse(Colour colour) {
    if (colour != 0) Repaint(painter_.HouseArea(colour));
}

// ---------------------------------------------------------------------------------- the pieces

QPointF BoardScene::PlaceOf(PieceCode piece) const {
    return AsPointF(PlaceOfPiece(layout_, state_, piece));
}

// Where a piece touches the ground on its walk: beside the pieces that stand there.
QPointF BoardScene::PlaceOnStep(PieceCode piece, Square square) const {
    if (square == 0) return AsPointF(layout_.BoxPosition(ColourOf(piece), PieceOf(piece)));
    return AsPointF(FreePlaceOn(layout_, state_, square));
}

QRect BoardScene::AreaOf(PieceCode piece) const {
    return painter_.PieceArea(view_, piece);
}

void BoardScene::MoveTo(PieceCode piece, QPointF place, double height) {
    QRect area = AreaOf(piece);
    view_.at[piece] = place;
    view_.height[piece] = height;
    area |= AreaOf(piece);
    Repaint(area);
}

void BoardScene::ForgetMotion() {
    motions_.clear();
    dieMotions_.clear();
    view_.height.fill(0);
    view_.diePose.fill({});
    view_.counted = 0;
    view_.inAir = 0;
}

void BoardScene::Clear() {
    ForgetMotion();
    pulse_.stop();
    view_ = BoardView{};
    Repaint(painter_.Picture().rect());
}

void BoardScene::Lift(PieceCode piece) {
    view_.counted = 0;
    view_.inAir = piece;
    view_.present[piece] = true;
    SlideOthersToTheirPlaces();
}

// When a piece has left its square, the one beside it takes its place.
void BoardScene::SlideOthersToTheirPlaces() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short number = 1; number <= PiecesPerColour; ++number) {
            const PieceCode piece = CodeOf(colour, number);
            if (piece == view_.inAir || !view_.present[piece]) continue;
            const QPointF place = PlaceOf(piece);
            if (place != view_.at[piece]) {
                motions_.push_back(PieceMotion::Slide(piece, view_.at[piece], place));
            }
        }
    }
}

void BoardScene::StartStep(PieceCode piece, Square from, Square to) {
    const QPointF start = from == 0 ? PlaceOnStep(piece, 0) : view_.at[piece];
    const bool comesHome = to == GoalSquare[ColourOf(piece)];
    motions_.push_back(
        PieceMotion::Hop(piece, start, PlaceOnStep(piece, to), layout_.PieceSize, comesHome));
    if (to == 0) StartPulse(start, 1.1 * layout_.Cell);
    view_.counted = from == 0 || to == 0 ? Short{0} : ToShort(view_.counted + 1);
    // The dot of the square that was left disappears; part of it shows beside the piece.
    if (view_.counted != 0) {
        Repaint(painter_.PieceArea(AsPointF(layout_.SquarePosition(from))) | AreaOf(piece));
    }
}

void BoardScene::ShowStep(double progress) {
    for (const PieceMotion& motion : motions_) {
        MoveTo(motion.piece, motion.PlaceAt(progress), motion.HeightAt(progress));
    }
    for (const DieMotion& motion : dieMotions_) PoseDie(motion.colour, motion.PoseAt(progress));
    if (progress < 1) return;
    motions_.clear();
    dieMotions_.clear();
}

void BoardScene::Drag(PieceCode piece, QPointF at) {
    if (view_.inAir != piece) Lift(piece);
    MoveTo(piece, at);
}

void BoardScene::StartGlideBack(PieceCode piece) {
    motions_.push_back(PieceMotion::Slide(piece, view_.at[piece], PlaceOf(piece)));
}

void BoardScene::PutDown(PieceCode piece) {
    ShowStep(1);
    const QRect area = AreaOf(piece);
    const bool isNew = !std::exchange(view_.present[piece], true);
    const bool wasInAir = view_.inAir == piece;
    view_.inAir = 0;
    view_.counted = 0;
    MoveTo(piece, PlaceOf(piece));
    Repaint(area);
    SlideOthersToTheirPlaces();
    ShowStep(1);
    if (isNew) motions_.push_back(PieceMotion::Drop(piece, view_.at[piece], layout_.PieceSize));
    if (isNew) ShowStep(0);
    if (view_.shown.piece == piece) ShowMove({});
    if (wasInAir && state_.PositionOf(piece) == GoalSquare[ColourOf(piece)]) {
        StartPulse(view_.at[piece], 1.6 * layout_.Cell);
    }
}

// ----------------------------------------------------------------------------------- rings of light

void BoardScene::StartPulse(QPointF at, double reach) {
    ShowPulse(1);
    pulse_.stop();
    const int duration = (100 - settings_.Speed) * pulseMilliseconds / 100;
    if (duration <= 0) return;
    view_.pulse = {at, reach, 0};
    ShowPulse(0);
    pulse_.setDuration(duration);
    pulse_.start();
}

void BoardScene::ShowPulse(double progress) {
    if (view_.pulse.reach == 0) return;
    QRect area = painter_.PulseArea(view_.pulse);
    view_.pulse.progress = progress;
    area |= painter_.PulseArea(view_.pulse);
    if (progress >= 1) view_.pulse = {};
    Repaint(area);
}

// ------------------------------------------------------------------------ dice, turn and marks

void BoardScene::ShowDie(Colour colour, Short face, DieIs how) {
    view_.dieFace[colour] = face;
    view_.dieReady[colour] = how == DieIs::Ready;
    if (how == DieIs::RollingBy) {
        const int roll = ++rolls_[colour];
        PoseDie(colour, DieMotion::PoseOfRoll(roll));
        dieMotions_.push_back({colour, DieMotion::PoseOfRoll(roll), DieMotion::PoseOfRoll(roll + 1)});
    } else {
        rolls_[colour] = 0;
        PoseDie(colour, how == DieIs::Ready ? DieMotion::PoseOfReady() : BoardView::DiePose{});
    }
}

void BoardScene::ClearDice() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) ShowDie(colour, 0, DieIs::AtRest);
}

void BoardScene::PoseDie(Colour colour, const BoardView::DiePose& pose) {
    const BoardView::DiePose before = std::exchange(view_.diePose[colour], pose);
    Repaint(painter_.DieArea(colour, before) | painter_.DieArea(colour, pose));
}

void BoardScene::ShowTurn(Colour colour, Short bonusDue) {
    const Colour before = view_.onTurn;
    if (before == colour && view_.bonusDue == bonusDue) return;
    view_.onTurn = colour;
    view_.bonusDue = bonusDue;
    if (bonusDue != 0) view_.dieFace[colour] = 0;
    // During a turn all other houses lie in the shade; without a turn none does.
    if ((before == 0) != (colour == 0)) {
        RepaintHouses();
    } else {
        if (before != colour) RepaintHouse(before);
        RepaintHouse(colour);
    }
}

void BoardScene::RepaintMove(const BoardView::ShownMove& move) {
    if (move.piece != 0) Repaint(painter_.MoveArea(move) | AreaOf(move.piece));
}

void BoardScene::RepaintPiece(PieceCode piece) {
    if (piece != 0) Repaint(AreaOf(piece));
}

// A move ends on the piece that it captures, else beside the pieces that stand there.
QPointF BoardScene::EndOf(const BoardView::ShownMove& move) const {
    if (move.to == 0) return {};
    const PieceCode capturable = CapturableOn(state_, ColourOf(move.piece), move.to);
    return capturable != 0 ? PlaceOf(capturable) : PlaceOnStep(move.piece, move.to);
}

void BoardScene::ShowMove(const BoardView::ShownMove& move) {
    const BoardView::ShownMove before = std::exchange(view_.shown, move);
    view_.shown.place = EndOf(move);
    RepaintMove(before);
    RepaintMove(view_.shown);
}

void BoardScene::ShowPreview(const BoardView::ShownMove& move) {
    const BoardView::ShownMove before = std::exchange(view_.preview, move);
    view_.preview.place = EndOf(move);
    RepaintMove(before);
    RepaintMove(view_.shown);
    RepaintMove(view_.preview);
}

void BoardScene::ShowMovable(const std::array<bool, BoardView::CodeCount>& movable) {
    const auto before = std::exchange(view_.movable, movable);
    for (PieceCode piece = 1; piece < BoardView::CodeCount; ++piece) {
        if (before[piece] != movable[piece]) RepaintPiece(piece);
    }
}

void BoardScene::ShowMarked(PieceCode piece) {
    const PieceCode before = std::exchange(view_.marked, piece);
    if (before == piece) return;
    RepaintPiece(before);
    RepaintPiece(piece);
}

void BoardScene::ShowManualMode(bool on) {
    view_.manualMode = on;
    Repaint(painter_.BannerArea());
}

void BoardScene::ShowWinner(Colour colour) {
    ShowTurn(colour, 0);
    StartPulse(AsPointF(layout_.SquarePosition(GoalSquare[colour])), 3.0 * layout_.Cell);
}

void BoardScene::RepaintHouses() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) RepaintHouse(colour);
}

void BoardScene::Refresh() {
    ForgetMotion();
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            view_.at[code] = PlaceOf(code);
        }
    }
    Repaint(painter_.Picture().rect());
}

}  // namespace zorva
