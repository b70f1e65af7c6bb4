#include "app/BoardScene.h"

#include <algorithm>
#include <utility>

#include "app/CardPainter.h"
#include "app/Guide.h"
#include "app/PiecePlaces.h"
#include "core/Board.h"
#include "core/Ending.h"
#include "core/Rules.h"

namespace zorva {
namespace {

// At speed 0; at speed 100 nothing lasts.
constexpr int pulseMilliseconds = 900;
constexpr int seenMilliseconds = 640;  // until everybody has seen a throw that lies at rest
constexpr int fadeMilliseconds = 300;
constexpr int confettiMilliseconds = 3000;  // as long as the winner's house blinks
constexpr int tapMilliseconds = 3600;

// Qt reports a value, too, when a stopped animation gets another duration: nothing runs then.
void Connect(QVariantAnimation& animation, const std::function<void(double)>& show) {
    QObject::connect(&animation, &QVariantAnimation::valueChanged, &animation,
                     [&animation, show](const QVariant& value) {
                         if (animation.state() == QAbstractAnimation::Running) show(value.toDouble());
                     });
}

}  // namespace

BoardScene::BoardScene(const GameState& state, const Settings& settings, Artwork& artwork,
                       Changed changed)
    : state_(state), settings_(settings), painter_(artwork), changed_(std::move(changed)) {
    for (QVariantAnimation* animation : {&pulse_, &confetti_, &tap_}) {
        animation->setStartValue(0.0);
        animation->setEndValue(1.0);
    }
    Connect(pulse_, [this](double progress) { ShowPulse(progress); });
    Connect(confetti_, [this](double progress) { ShowConfetti(progress); });
    Connect(tap_, [this](double progress) { ShowTap(progress); });
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        Connect(fade_[colour], [this, colour](double opacity) { ShowFade(colour, opacity); });
    }
}

int BoardScene::AtThisSpeed(int milliseconds) const {
    return (100 - settings_.Speed) * milliseconds / 100;
}

// What moves goes on from the same place of the board.
void BoardScene::SetScreen(const Layout& layout, QSize devicePixels) {
    const Layout before = std::exchange(layout_, layout);
    painter_.SetScreen(layout, devicePixels);
    pulse_.stop();
    confetti_.stop();
    view_.pulse = {};
    view_.confetti = {};
    const double scale = before.Cell == 0 ? 1 : layout.Cell / static_cast<double>(before.Cell);
    const auto follow = [&](QPointF& at) {
        at =
            (at - QPointF(before.Margin, before.Margin)) * scale + QPointF(layout.Margin, layout.Margin);
    };
    for (QPointF& at : view_.at) follow(at);
    for (double& height : view_.height) height *= scale;
    for (PieceMotion& motion : motions_) {
        follow(motion.from);
        follow(motion.to);
        motion.rise *= scale;
        motion.drop *= scale;
    }
    PutStandingPieces();
    ShowGuide();
    view_.shown.place = EndOf(view_.shown);
    view_.preview.place = EndOf(view_.preview);
    for (BoardView::ShownMove& move : view_.choices) move.place = EndOf(move);
    Repaint(painter_.Picture().rect());
}

void BoardScene::PutStandingPieces() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short number = 1; number <= PiecesPerColour; ++number) {
            const PieceCode piece = CodeOf(colour, number);
            if (!IsMoving(piece)) view_.at[piece] = PlaceOf(piece);
        }
    }
}

bool BoardScene::IsMoving(PieceCode piece) const {
    return piece == view_.inAir ||
           std::any_of(motions_.begin(), motions_.end(),
                       [piece](const auto& motion) { return motion.piece == piece; });
}

// Parts that lie on one another are painted as one. While the window is hidden nothing is painted: then
// the list would grow with every move.
void BoardScene::Repaint(const QRect& device) {
    const QRect whole = painter_.Picture().rect(), part = device & whole;
    if (part.isEmpty()) return;
    constexpr std::size_t mostParts = 500;
    if (stale_.size() >= mostParts) stale_ = {whole};
    const auto pixels = [](const QRect& area) { return area.width() * area.height(); };
    const auto other = std::find_if(stale_.begin(), stale_.end(), [&](const QRect& stale) {
        return pixels(stale | part) <= pixels(stale) + pixels(part);
    });
    if (other != stale_.end()) {
        *other |= part;
    } else {
        stale_.push_back(part);
    }
    changed_(part);
}

const QPixmap& BoardScene::Picture() {
    for (const QRect& part : std::exchange(stale_, {})) painter_.Paint(view_, settings_, part);
    return painter_.Picture();
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
    for (BoardView::Tray& tray : view_.tray) tray.pose = {};
    view_.counted = 0;
    view_.inAir = 0;
}

void BoardScene::Clear() {
    ForgetMotion();
    pulse_.stop();
    confetti_.stop();
    tap_.stop();
    for (QVariantAnimation& fade : fade_) fade.stop();
    view_ = BoardView{};
    ShowGuide();
    Repaint(painter_.Picture().rect());
}

void BoardScene::Lift(PieceCode piece) {
    view_.counted = 0;
    view_.inAir = piece;
    view_.present[piece] = true;
    ShowLastMove({});
    RepaintPiece(piece);  // its ring is gone
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

void BoardScene::Drag(PieceCode piece, QPointF at, double height) {
    if (view_.inAir != piece) Lift(piece);
    MoveTo(piece, at, height);
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
    const int duration = AtThisSpeed(pulseMilliseconds);
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

void BoardScene::PutIntoTray(Colour colour, const BoardView::Tray& tray) {
    fade_[colour].stop();
    const BoardView::Tray before = std::exchange(view_.tray[colour], tray);
    Repaint(painter_.DieArea(colour, before.pose) | painter_.DieArea(colour, tray.pose));
    if (before.winner != tray.winner) RepaintHouse(colour);  // the laurel
    if (tray.isNews) lying_[colour].start();
}

void BoardScene::ShowDie(Colour colour, Short face, DieIs how) {
    BoardView::Tray tray{.face = face, .ready = how == DieIs::Ready, .isNews = how == DieIs::Thrown};
    rolls_[colour] = how == DieIs::RollingBy ? rolls_[colour] + 1 : 0;
    if (const int roll = rolls_[colour]; roll != 0) {
        tray.pose = DieMotion::PoseOfRoll(roll);
        dieMotions_.push_back({colour, tray.pose, DieMotion::PoseOfRoll(roll + 1)});
    }
    PutIntoTray(colour, tray);
}

void BoardScene::ShowBonus(Colour colour, Short squares) {
    PutIntoTray(colour, {.bonus = squares, .isNews = true});
}

void BoardScene::PoseDie(Colour colour, const BoardView::DiePose& pose) {
    const BoardView::DiePose before = std::exchange(view_.tray[colour].pose, pose);
    Repaint(painter_.DieArea(colour, before) | painter_.DieArea(colour, pose));
}

double BoardScene::UnseenMilliseconds(Colour colour) const {
    if (!view_.tray[colour].isNews) return 0;
    const double lying = static_cast<double>(lying_[colour].nsecsElapsed()) / 1e6;
    return std::max(0.0, AtThisSpeed(seenMilliseconds) - lying);
}

void BoardScene::EmptyTrays() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) EmptyTray(colour);
}

// The opacity that the animation runs through begins above 1, by as much as has to be seen yet.
void BoardScene::EmptyTray(Colour colour) {
    if (fade_[colour].state() == QAbstractAnimation::Running) return;
    const double fade = AtThisSpeed(fadeMilliseconds);
    if (!view_.tray[colour].isNews || fade <= 0) {
        PutIntoTray(colour, {});
        return;
    }
    const double unseen = UnseenMilliseconds(colour);
    fade_[colour].setStartValue((unseen + fade) / fade);
    fade_[colour].setEndValue(0.0);
    fade_[colour].setDuration(qRound(unseen + fade));
    fade_[colour].start();
}

void BoardScene::ShowFade(Colour colour, double opacity) {
    if (opacity <= 0) {
        PutIntoTray(colour, {});
    } else if (opacity < 1) {
        view_.tray[colour].opacity = opacity;
        Repaint(painter_.DieArea(colour, view_.tray[colour].pose));
    }
}

void BoardScene::ShowTurn(Colour colour) {
    const Colour before = std::exchange(view_.onTurn, colour);
    ShowGuide();
    if (before == colour) return;
    // During a turn all other houses lie in the shade; without a turn none does.
    if ((before == 0) != (colour == 0)) {
        RepaintHouses();
    } else {
        RepaintHouse(before);
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

void BoardScene::ShowChoices(std::vector<BoardView::ShownMove> choices) {
    for (BoardView::ShownMove& move : choices) move.place = EndOf(move);
    const auto before = std::exchange(view_.choices, std::move(choices));
    for (const auto& moves : {before, view_.choices}) {
        for (const BoardView::ShownMove& move : moves) {
            RepaintPiece(move.piece);
            Repaint(painter_.PieceArea(move.place));
        }
    }
}

void BoardScene::ShowMarked(PieceCode piece) {
    const PieceCode before = std::exchange(view_.marked, piece);
    if (before == piece) return;
    RepaintPiece(before);
    RepaintPiece(piece);
}

void BoardScene::ShowTape(Short move) {
    view_.tape = move;
    ShowGuide();
}

// ------------------------------------------------------------------- the line and the cards

void BoardScene::ShowGuide() {
    ShowLine();
    ShowCards();
    ShowSign();
    const BoardView::LastMove last = LastMoveOf(state_);
    if (view_.inAir == 0) ShowLastMove(view_.present[last.piece] ? last : BoardView::LastMove{});
}

void BoardScene::ShowLine() {
    Prompt line = PromptOf(state_, settings_, view_.tape);
    if (HasWon(state_) && !layout_.HasCards()) {
        if (const QString others = OthersText(state_, settings_); !others.isEmpty()) line.hint = others;
    }
    const QString latest =
        layout_.HasCards() || !state_.GameInProgress ? QString() : LatestThrowText(state_, settings_);
    if (line == view_.line && latest == view_.latest) return;
    view_.line = line;
    view_.latest = latest;
    Repaint(LineArea(layout_));
}

void BoardScene::ShowCards() {
    auto cards = CardsOf(state_, settings_, view_.onTurn);
    for (BoardView::Card& card : cards) card.chance = chances_[card.colour];
    const auto before = std::exchange(view_.cards, std::move(cards));
    for (std::size_t place = 0; layout_.HasCards() && place < layout_.Card.size(); ++place) {
        const bool was = place < before.size(), is = place < view_.cards.size();
        if (was != is || (is && before[place] != view_.cards[place])) Repaint(CardArea(layout_, place));
    }
}

void BoardScene::ShowChances(const PerColour<QString>& chances) {
    chances_ = chances;
    ShowCards();
}

void BoardScene::ShowLastMove(const BoardView::LastMove& move) {
    if (move == view_.lastMove) return;
    std::vector<QRect> areas = painter_.LastMoveAreas(view_);
    view_.lastMove = move;
    for (const QRect& area : painter_.LastMoveAreas(view_)) areas.push_back(area);
    for (const QRect& area : areas) Repaint(area);
}

// A click on the board throws, or a press of the button begins a game.
void BoardScene::ShowSign() {
    const bool isOn = state_.WaitingForThrow && !state_.ManualMode && view_.tape < 0;
    const Colour now = !state_.GameInProgress ? BoardView::NewGameSign
                       : isOn                 ? state_.CurrentColour
                                              : Colour{0};
    const Colour before = std::exchange(view_.sign, now);
    if (before == now) return;
    ShowCup();
    if (before != 0) Repaint(painter_.SignArea(before));
    ShowSignAgain();
}

void BoardScene::ShowSignAgain() {
    tap_.stop();
    view_.tapping = 1;
    if (view_.sign == 0) return;
    Repaint(painter_.SignArea(view_.sign));
    const int duration = AtThisSpeed(tapMilliseconds);
    if (duration <= 0) return;
    tap_.setDuration(duration);
    tap_.start();
}

void BoardScene::PointAt(Point at) {
    cursor_ = at;
    ShowCup();
}

void BoardScene::ShowCup() {
    const bool throws = view_.sign != 0 && view_.sign != BoardView::NewGameSign;
    const bool lit = throws && layout_.Cup.Contains(cursor_);
    if (std::exchange(view_.cupLit, lit) != lit) Repaint(painter_.DeviceArea(layout_.Cup));
}

void BoardScene::ShowTap(double progress) {
    view_.tapping = progress;
    if (view_.sign != 0) Repaint(painter_.SignArea(view_.sign));
}

void BoardScene::ShowWinner(Colour colour) {
    ShowTurn(colour);
    StartPulse(AsPointF(layout_.SquarePosition(GoalSquare[colour])), 3.0 * layout_.Cell);
    if (view_.tray[colour].winner) return;
    PutIntoTray(colour, {.winner = true});
    StartConfetti(colour);
}

void BoardScene::StartConfetti(Colour winner) {
    const int duration = AtThisSpeed(confettiMilliseconds);
    if (duration <= 0) return;
    confetti_.stop();
    view_.confetti.winner = winner;
    ShowConfetti(0);
    confetti_.setDuration(duration);
    confetti_.start();
}

// Only where a flake was or is: all of them together cover little of the board.
void BoardScene::ShowConfetti(double progress) {
    std::vector<BoardView::Flake>& flakes = view_.confetti.flakes;
    const std::vector<BoardView::Flake> before = std::exchange(flakes, {});
    const QPointF tray = AsPointF(layout_.DieBox(view_.confetti.winner).Centre());
    const QPointF middle =
        (AsPointF(layout_.SquarePosition(8)) + AsPointF(layout_.SquarePosition(42))) / 2;
    if (progress < 1) flakes = FlakesAt(progress, tray, middle);
    for (std::size_t flake = 0; flake < std::max(before.size(), flakes.size()); ++flake) {
        const QRect was = flake < before.size() ? painter_.FlakeArea(before[flake]) : QRect();
        const QRect is = flake < flakes.size() ? painter_.FlakeArea(flakes[flake]) : QRect();
        Repaint(was.intersects(is) ? was | is : was);
        if (!was.intersects(is)) Repaint(is);
    }
}

void BoardScene::RepaintHouses() {
    ShowGuide();
    for (Colour colour = 1; colour <= ColourCount; ++colour) RepaintHouse(colour);
}

void BoardScene::Refresh() {
    ForgetMotion();
    PutStandingPieces();
    ShowGuide();
    Repaint(painter_.Picture().rect());
}

}  // namespace zorva
