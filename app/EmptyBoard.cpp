#include "app/EmptyBoard.h"

#include <QScopeGuard>
#include <QThread>
#include <algorithm>
#include <utility>

#include "app/Artwork.h"
#include "app/Canvas.h"
#include "app/PaintAside.h"
#include "app/Palette.h"
#include "app/PanelPainter.h"

namespace zorva {
namespace {

// The drawings' own measures: the board's frame around the squares.
constexpr double boardDrawingSide = 725;
constexpr double boardFrame = 16;
constexpr double shadowAround = 32;
constexpr double boardCell = 33;

constexpr int mostShares = 4;  // each reads the drawings anew

QRectF BoardWithFrame(const Layout& layout) {
    const double unit = layout.Cell / boardCell * layout.Unit;
    const QPointF squares(layout.DeviceLeft + layout.Margin * layout.Unit,
                          layout.DeviceTop + layout.Margin * layout.Unit);
    return {squares - QPointF(boardFrame, boardFrame) * unit,
            QSizeF(boardDrawingSide, boardDrawingSide) * unit};
}

// The table top covers the screen, whatever its shape.
void PaintTableTop(const Canvas& canvas, Artwork& artwork, const QRectF& screen) {
    const double scale = std::max(screen.width() / 1920, screen.height() / 1080);
    QRectF surface(0, 0, 1920 * scale, 1080 * scale);
    surface.moveCenter(screen.center());
    artwork.Paint(canvas, "surface", surface);
}

void PaintShadow(const Canvas& canvas, Artwork& artwork, const QRectF& board) {
    const double around = shadowAround * board.width() / boardDrawingSide;
    artwork.Paint(canvas, "board_shadow", board.adjusted(-around, -around, around, around));
}

// Without the outer half of the frame: it is round at its corners and not opaque at its edge.
QRect HiddenByBoard(const QRectF& board) {
    const double edge = boardFrame / 2 * board.width() / boardDrawingSide;
    return board.adjusted(edge, edge, -edge, -edge).toAlignedRect();
}

// Below the board and the panel nothing of the table is painted.
void PaintTable(const Canvas& canvas, Artwork& artwork, const Layout& layout, const QRectF& screen) {
    const QRectF board = BoardWithFrame(layout);
    const QRegion inSight = QRegion(canvas.Area()) - HiddenByBoard(board) - HiddenByPanel(layout);
    for (const QRect& piece : inSight) {
        const Canvas part = canvas.Within(piece);
        // Where two planks meet between pixels, a little of what lies below shows through.
        part.PaintBy([&](QPainter& painter) { painter.fillRect(piece, palette::DarkWood); });
        PaintTableTop(part, artwork, screen);
        PaintShadow(part, artwork, board);
    }
}

// An area cut across into so many parts, as alike as can be.
std::vector<QRect> CutAcross(const QRect& area, int parts) {
    std::vector<QRect> cut;
    for (int part = 0; part < parts; ++part) {
        const int top = area.height() * part / parts, below = area.height() * (part + 1) / parts;
        cut.push_back({area.left(), area.top() + top, area.width(), below - top});
    }
    return cut;
}

}  // namespace

void PaintEmptyBoard(const Canvas& canvas, const Layout& layout, QSize devicePixels) {
    Artwork artwork;
    PaintTable(canvas, artwork, layout, QRectF(QPointF(), devicePixels));
    PaintInstrumentPanel(canvas, artwork, layout);
    artwork.Paint(canvas, "board", BoardWithFrame(layout));
}

std::vector<QRect> SharesOf(const Layout& layout, QSize devicePixels, int processors) {
    const QRect picture(QPoint(), devicePixels);
    const int most = std::clamp(processors, 1, std::min(mostShares, picture.height()));
    const int seam = HiddenByBoard(BoardWithFrame(layout)).right() + 1;
    const QRect right = picture.adjusted(seam, 0, 0, 0);
    if (most == 1 || right.isEmpty()) return CutAcross(picture, most);
    std::vector<QRect> shares = CutAcross(right, most / 2);
    const QRect left(picture.topLeft(), QSize(seam, picture.height()));
    for (const QRect& share : CutAcross(left, most - most / 2)) shares.push_back(share);
    return shares;
}

EmptyBoard::~EmptyBoard() {
    waiting_.clear();
    WaitForShares();
}

void EmptyBoard::BeginShares(std::size_t count) {
    for (; count > 0 && !waiting_.empty(); --count) {
        shares_.push_back(PaintAside(std::move(waiting_.back())));
        waiting_.pop_back();
    }
}

void EmptyBoard::Hurry() {
    BeginShares(waiting_.size());
}

void EmptyBoard::WaitForShares() {
    Hurry();
    for (const std::future<void>& share : shares_) share.wait();
    shares_.clear();
}

void EmptyBoard::Prepare(const Layout& layout, QSize devicePixels,
                         const std::function<void()>& painted) {
    waiting_.clear();  // nobody wants that picture any more
    WaitForShares();
    left_.reset();
    empty_ = QImage(devicePixels, Canvas::Format);
    full_ = QImage(devicePixels, Canvas::Format);
    if (empty_.isNull() || full_.isNull()) {  // no memory for a screen of that size
        empty_ = full_ = {};
        if (painted) painted();
        return;
    }
    const int processors = QThread::idealThreadCount();
    const std::vector<QRect> shares = SharesOf(layout, devicePixels, processors);
    const Canvas empty(empty_), full(full_);
    left_ = std::make_shared<std::atomic<std::size_t>>(shares.size());
    for (const QRect& share : shares) {
        waiting_.push_back(
            [=, left = left_, emptyShare = empty.Within(share), fullShare = full.Within(share)] {
                const auto end = qScopeGuard([&] {
                    if (--*left == 0 && painted) painted();
                });
                PaintEmptyBoard(emptyShare, layout, devicePixels);
                emptyShare.CopyTo(fullShare);
            });
    }
    BeginShares(static_cast<std::size_t>(std::max(processors - 1, 1)));
}

BoardPictures EmptyBoard::PicturesFor(const Layout& layout, QSize devicePixels) {
    if (empty_.size() != devicePixels) Prepare(layout, devicePixels);
    WaitForShares();
    return {QPixmap::fromImage(std::exchange(empty_, {})), QPixmap::fromImage(std::exchange(full_, {}))};
}

}  // namespace zorva
