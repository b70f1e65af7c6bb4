#include "app/BoardScene.h"

#include <cmath>
#include <utility>

#include "app/PiecePlaces.h"
#include "core/Board.h"

namespace zorva {
namespace {

constexpr double hopHeight = 7;  // pixels of the layout
constexpr int rollsOfAThrow = 10;

QPointF AsPointF(Point p) {
    return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

// The die turns this way and that while it rolls and comes to rest upright.
double TiltOfRoll(int roll) {
    constexpr double tilts[] = {0, 24, -31, 17, -22, 35, -14, 20, -11, 6, 0};
    return roll < rollsOfAThrow ? tilts[roll] : 0;
}

}  // namespace

BoardScene::BoardScene(const GameState& state, const Settings& settings, Artwork& artwork,
                       Changed changed)
    : state_(state), settings_(settings), painter_(artwork), changed_(std::move(changed)) {}

void BoardScene::SetScreen(const Layout& layout, QSize devicePixels) {
    layout_ = layout;
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
    if (colour != 0) Repaint(painter_.DeviceArea(layout_.House(colour), 8));
}

// ---------------------------------------------------------------------------------- the pieces

QPointF BoardScene::PlaceOf(PieceCode piece) const {
    return AsPointF(PlaceOfPiece(layout_, state_, piece));
}

QRect BoardScene::AreaOf(PieceCode piece) const {
    return painter_.PieceArea(view_.at[piece], piece == view_.inAir ? view_.lift : 0);
}

void BoardScene::MoveTo(PieceCode piece, QPointF place) {
    QRect area = AreaOf(piece);
    view_.at[piece] = place;
    area |= AreaOf(piece);
    Repaint(area);
}

void BoardScene::TakeAllPieces() {
    view_ = BoardView{};
    glides_.clear();
    Repaint(painter_.Picture().rect());
}

void BoardScene::Lift(PieceCode piece) {
    view_.inAir = piece;
    view_.present[piece] = true;
    GlideOthersToTheirPlaces();
}

// When a piece has left its square, the one beside it takes its place.
void BoardScene::GlideOthersToTheirPlaces() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short number = 1; number <= PiecesPerColour; ++number) {
            const PieceCode piece = CodeOf(colour, number);
            if (piece == view_.inAir || !view_.present[piece]) continue;
            const QPointF place = PlaceOf(piece);
            if (place != view_.at[piece]) glides_.push_back({piece, view_.at[piece], place});
        }
    }
}

void BoardScene::StartStep(PieceCode piece, Square from, Square to) {
    const QPointF start =
        from == 0 ? AsPointF(layout_.BoxPosition(ColourOf(piece), PieceOf(piece))) : view_.at[piece];
    const QPointF end = to == 0 ? AsPointF(layout_.BoxPosition(ColourOf(piece), PieceOf(piece)))
                                : AsPointF(layout_.SquarePosition(to));
    glides_.push_back({piece, start, end});
}

void BoardScene::ShowStep(double progress) {
    const double eased = progress * progress * (3 - 2 * progress);
    for (const Glide& glide : glides_) {
        QRect area = AreaOf(glide.piece);
        if (glide.piece == view_.inAir) view_.lift = hopHeight * std::sin(progress * M_PI);
        view_.at[glide.piece] = glide.from + (glide.to - glide.from) * eased;
        area |= AreaOf(glide.piece);
        Repaint(area);
    }
    if (progress >= 1) glides_.clear();
}

void BoardScene::Drag(PieceCode piece, QPointF at) {
    if (view_.inAir != piece) Lift(piece);
    MoveTo(piece, at);
}

void BoardScene::StartGlideBack(PieceCode piece) {
    glides_.push_back({piece, view_.at[piece], PlaceOf(piece)});
}

void BoardScene::PutDown(PieceCode piece) {
    view_.present[piece] = true;
    ShowStep(1);
    view_.lift = 0;
    const QRect area = AreaOf(piece);
    view_.inAir = 0;
    MoveTo(piece, PlaceOf(piece));
    Repaint(area);
    GlideOthersToTheirPlaces();
    ShowStep(1);
    if (view_.shown.piece == piece) ShowMove({});
}

// ------------------------------------------------------------------------ dice, turn and marks

void BoardScene::ShowDie(Colour colour, Short face, bool ready) {
    rolls_[colour] = ready || face == 0 ? 0 : rolls_[colour] + 1;
    const double tilt = ready || face == 0 ? 0 : TiltOfRoll(rolls_[colour]);
    const bool same = view_.dieFace[colour] == face && view_.dieReady[colour] == ready;
    view_.dieFace[colour] = face;
    view_.dieReady[colour] = ready;
    view_.dieTilt[colour] = tilt;
    if (!same || face != 0) Repaint(painter_.DeviceArea(layout_.DieBox(colour), 12));
}

void BoardScene::ShowTurn(Colour colour, Short bonusDue) {
    const Colour before = view_.onTurn;
    if (before == colour && view_.bonusDue == bonusDue) return;
    view_.onTurn = colour;
    view_.bonusDue = bonusDue;
    if (bonusDue != 0) view_.dieFace[colour] = 0;
    if (before != colour) RepaintHouse(before);
    RepaintHouse(colour);
}

void BoardScene::RepaintMove(const BoardView::ShownMove& move) {
    if (move.piece != 0) Repaint(painter_.MoveArea(move) | AreaOf(move.piece));
}

void BoardScene::RepaintPiece(PieceCode piece) {
    if (piece != 0) Repaint(AreaOf(piece));
}

void BoardScene::ShowMove(const BoardView::ShownMove& move) {
    const BoardView::ShownMove before = std::exchange(view_.shown, move);
    RepaintMove(before);
    RepaintMove(move);
}

void BoardScene::ShowPreview(const BoardView::ShownMove& move) {
    const BoardView::ShownMove before = std::exchange(view_.preview, move);
    RepaintMove(before);
    RepaintMove(view_.shown);
    RepaintMove(move);
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
    const Colour lit = std::exchange(view_.onTurn, Colour{0});
    const Colour before = std::exchange(view_.winner, colour);
    for (const Colour house : {lit, before, colour}) RepaintHouse(house);
}

void BoardScene::RepaintHouses() {
    for (Colour colour = 1; colour <= ColourCount; ++colour) RepaintHouse(colour);
}

void BoardScene::Refresh() {
    glides_.clear();
    view_.inAir = 0;
    view_.lift = 0;
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            view_.at[code] = PlaceOf(code);
        }
    }
    Repaint(painter_.Picture().rect());
}

}  // namespace zorva
