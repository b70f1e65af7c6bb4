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

constexpr auto format = QImage::Format_RGB32;
constexpr int bytesPerPixel = 4;

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

// But for the frame's edge: it is not quite square.
QRect HiddenByBoard(const QRectF& board) {
    const double edge = boardFrame / 2 * board.width() / boardDrawingSide;
    return board.adjusted(edge, edge, -edge, -edge).toAlignedRect();
}

// A part of a picture, while others paint on beside it.
struct Part {
    uchar* bytes;
    qsizetype bytesPerLine;
    QRect area;

    Part Within(const QRect& smaller) const {
        const QPoint at = smaller.topLeft() - area.topLeft();
        return {bytes + at.y() * bytesPerLine + at.x() * bytesPerPixel, bytesPerLine, smaller};
    }
};

Part Whole(QImage& picture) {
    return {picture.bits(), picture.bytesPerLine(), picture.rect()};
}

template <typename Paint>
void PaintOn(const Part& part, Paint paint) {
    QImage picture(part.bytes, part.area.width(), part.area.height(), part.bytesPerLine, format);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-part.area.topLeft());
    paint(painter);
}

// Below the board and the panel nothing is painted. What is left of the table is painted piece by piece,
// each a picture of its own: what lies outside a picture costs almost nothing, what a clip leaves out
// almost as much as the rest.
void PaintTable(const Part& part, Artwork& artwork, const Layout& layout, const QRect& screen) {
    const QRectF board = BoardWithFrame(layout);
    const QRegion inSight = QRegion(part.area) - HiddenByBoard(board) - HiddenByPanel(layout);
    for (const QRect& piece : inSight) {
        PaintOn(part.Within(piece), [&](QPainter& painter) {
            // Where two planks meet between pixels, a little of what lies below shows through.
            painter.fillRect(piece, palette::DarkWood);
            PaintTableTop(painter, artwork, screen);
            PaintShadow(painter, artwork, board);
        });
    }
}

void PaintBand(const Layout& layout, const QRect& screen, const Part& empty, const Part& full) {
    Artwork artwork;
    PaintTable(empty, artwork, layout, screen);
    PaintOn(empty, [&](QPainter& painter) {
        PaintInstrumentPanel(painter, artwork, layout);
        artwork.Paint(painter, "board", BoardWithFrame(layout));
    });
    std::copy_n(empty.bytes, empty.bytesPerLine * empty.area.height(), full.bytes);
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
    empty_ = QImage(devicePixels, format);
    full_ = QImage(devicePixels, format);
    if (empty_.isNull() || full_.isNull()) {  // no memory for a screen of that size
        empty_ = full_ = {};
        return;
    }
    const Part empty = Whole(empty_), full = Whole(full_);
    const int bands = std::clamp(QThread::idealThreadCount(), 1, std::min(mostBands, empty_.height()));
    for (int band = 0; band < bands; ++band) {
        const int top = empty_.height() * band / bands, below = empty_.height() * (band + 1) / bands;
        const QRect lines(0, top, empty_.width(), below - top);
        bands_.push_back(
            PaintAside([layout, screen = empty.area, empty = empty.Within(lines),
                        full = full.Within(lines)] { PaintBand(layout, screen, empty, full); }));
    }
}

BoardPictures EmptyBoard::PicturesFor(const Layout& layout, QSize devicePixels) {
    if (empty_.size() != devicePixels) Prepare(layout, devicePixels);
    WaitForBands();
    return {QPixmap::fromImage(std::exchange(empty_, {})), QPixmap::fromImage(std::exchange(full_, {}))};
}

}  // namespace zorva
