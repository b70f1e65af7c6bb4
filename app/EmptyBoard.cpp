#include "app/EmptyBoard.h"

#include <QPainter>
#include <QThread>
#include <algorithm>
#include <utility>

#include "app/Artwork.h"
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
void PaintTableTop(QPainter& painter, Artwork& artwork, const QRectF& screen) {
    const double scale = std::max(screen.width() / 1920, screen.height() / 1080);
    QRectF surface(0, 0, 1920 * scale, 1080 * scale);
    surface.moveCenter(screen.center());
    artwork.Paint(painter, "surface", surface);
}

void PaintShadow(QPainter& painter, Artwork& artwork, const QRectF& board) {
    const double around = shadowAround * board.width() / boardDrawingSide;
    artwork.Paint(painter, "board_shadow", board.adjusted(-around, -around, around, around));
}

void PaintAll(QPainter& painter, const Layout& layout, const QRect& screen) {
    Artwork artwork;
    painter.setRenderHint(QPainter::Antialiasing);
    // Where two planks meet between pixels, a little of what lies below shows through.
    painter.fillRect(screen, palette::DarkWood);
    // Below the board nothing is painted, but for the frame's edge: it is not quite square.
    const QRectF board = BoardWithFrame(layout);
    const double edge = boardFrame / 2 * board.width() / boardDrawingSide;
    const QRect hidden = board.adjusted(edge, edge, -edge, -edge).toAlignedRect();
    painter.setClipRegion(QRegion(screen) - hidden);
    PaintTableTop(painter, artwork, screen);
    PaintShadow(painter, artwork, board);
    painter.setClipping(false);
    PaintInstrumentPanel(painter, artwork, layout);
    artwork.Paint(painter, "board", board);
}

// Some lines of a picture that others paint on beside them.
struct Band {
    uchar* bytes;
    qsizetype bytesPerLine;
    int width, first, count;

    QImage Image() const { return {bytes, width, count, bytesPerLine, QImage::Format_RGB32}; }
};

Band LinesOf(QImage& picture, int first, int count) {
    return {picture.scanLine(first), picture.bytesPerLine(), picture.width(), first, count};
}

void PaintBand(const Layout& layout, QSize devicePixels, const Band& empty, const Band& full) {
    QImage picture = empty.Image();
    QPainter painter(&picture);
    painter.translate(0, -empty.first);
    PaintAll(painter, layout, {QPoint(), devicePixels});
    painter.end();
    std::copy_n(empty.bytes, empty.bytesPerLine * empty.count, full.bytes);
}

}  // namespace

EmptyBoard::~EmptyBoard() {
    WaitForBands();
}

void EmptyBoard::WaitForBands() {
    for (const std::future<void>& band : bands_) band.wait();
    bands_.clear();
}

void EmptyBoard::Prepare(const Layout& layout, QSize devicePixels) {
    WaitForBands();
    empty_ = QImage(devicePixels, QImage::Format_RGB32);
    full_ = QImage(devicePixels, QImage::Format_RGB32);
    if (empty_.isNull() || full_.isNull()) {  // no memory for a screen of that size
        empty_ = full_ = {};
        return;
    }
    const int bands = std::clamp(QThread::idealThreadCount(), 1, std::min(mostBands, empty_.height()));
    for (int band = 0; band < bands; ++band) {
        const int first = empty_.height() * band / bands;
        const int count = empty_.height() * (band + 1) / bands - first;
        const Band empty = LinesOf(empty_, first, count), full = LinesOf(full_, first, count);
        bands_.push_back(PaintAside([=] { PaintBand(layout, devicePixels, empty, full); }));
    }
}

BoardPictures EmptyBoard::PicturesFor(const Layout& layout, QSize devicePixels) {
    if (empty_.size() != devicePixels) Prepare(layout, devicePixels);
    WaitForBands();
    return {QPixmap::fromImage(std::exchange(empty_, {})), QPixmap::fromImage(std::exchange(full_, {}))};
}

}  // namespace zorva
