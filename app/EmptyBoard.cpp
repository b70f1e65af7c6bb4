#include "app/EmptyBoard.h"

#include <QThread>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
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

constexpr int mostBands = 4;  // each reads the drawings anew

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

// But for the frame's edge: it is not quite square.
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

void PaintBand(const Layout& layout, QSize screen, const Canvas& empty, const Canvas& full) {
    Artwork artwork;
    PaintTable(empty, artwork, layout, QRectF(QPointF(), screen));
    PaintInstrumentPanel(empty, artwork, layout);
    artwork.Paint(empty, "board", BoardWithFrame(layout));
    empty.CopyLinesTo(full);
}

}  // namespace

EmptyBoard::~EmptyBoard() {
    WaitForBands();
}

void EmptyBoard::BeginBands(std::size_t count) {
    for (; count > 0 && !waiting_.empty(); --count) {
        bands_.push_back(PaintAside(std::move(waiting_.back())));
        waiting_.pop_back();
    }
}

void EmptyBoard::Hurry() {
    BeginBands(waiting_.size());
}

void EmptyBoard::WaitForBands() {
    Hurry();
    for (const std::future<void>& band : bands_) band.wait();
    bands_.clear();
}

bool EmptyBoard::IsUnderWay() const {
    return !waiting_.empty() ||
           std::any_of(bands_.begin(), bands_.end(), [](const std::future<void>& band) {
               return band.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
           });
}

void EmptyBoard::Prepare(const Layout& layout, QSize devicePixels,
                         const std::function<void()>& painted) {
    WaitForBands();
    empty_ = QImage(devicePixels, Canvas::Format);
    full_ = QImage(devicePixels, Canvas::Format);
    if (empty_.isNull() || full_.isNull()) {  // no memory for a screen of that size
        empty_ = full_ = {};
        return;
    }
    const Canvas empty(empty_), full(full_);
    const int processors = QThread::idealThreadCount();
    const int bands = std::clamp(processors, 1, std::min(mostBands, empty_.height()));
    const auto left = std::make_shared<std::atomic<int>>(bands);
    for (int band = 0; band < bands; ++band) {
        const int top = empty_.height() * band / bands, below = empty_.height() * (band + 1) / bands;
        const QRect lines(0, top, empty_.width(), below - top);
        waiting_.push_back([=, emptyLines = empty.Within(lines), fullLines = full.Within(lines)] {
            PaintBand(layout, devicePixels, emptyLines, fullLines);
            if (--*left == 0 && painted) painted();
        });
    }
    BeginBands(static_cast<std::size_t>(std::max(processors - 1, 1)));
}

BoardPictures EmptyBoard::PicturesFor(const Layout& layout, QSize devicePixels) {
    if (empty_.size() != devicePixels) Prepare(layout, devicePixels);
    WaitForBands();
    return {QPixmap::fromImage(std::exchange(empty_, {})), QPixmap::fromImage(std::exchange(full_, {}))};
}

}  // namespace zorva
