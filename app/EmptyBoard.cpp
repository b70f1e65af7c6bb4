#include "app/EmptyBoard.h"

#include <QPainter>
#include <algorithm>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "app/PanelPainter.h"

namespace zorva {
namespace {

// The drawings' own measures: the board's frame around the squares.
constexpr double boardDrawingSide = 725;
constexpr double boardFrame = 16;
constexpr double shadowAround = 32;
constexpr double boardCell = 33;

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

/// Everything but the board, of which only the frame's edge is left out: it is not quite square.
QPixmap PaintTable(const Layout& layout, QSize devicePixels, const QRectF& board) {
    QPixmap table(devicePixels);
    // Where two planks meet between pixels, a little of what lies below shows through.
    table.fill(palette::DarkWood);
    Artwork artwork;
    QPainter painter(&table);
    painter.setRenderHint(QPainter::Antialiasing);
    const double edge = boardFrame / 2 * board.width() / boardDrawingSide;
    const QRect hidden = board.adjusted(edge, edge, -edge, -edge).toAlignedRect();
    painter.setClipRegion(QRegion(table.rect()) - hidden);
    PaintTableTop(painter, artwork, table.rect());
    PaintShadow(painter, artwork, board);
    painter.setClipping(false);
    PaintInstrumentPanel(painter, artwork, layout);
    return table;
}

/// The board on nothing, `area` being the part of the screen it is for.
QPixmap PaintBoard(const QRectF& board, const QRect& area) {
    QPixmap picture(area.size());
    picture.fill(Qt::transparent);
    Artwork artwork;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    artwork.Paint(painter, "board", board.translated(-area.topLeft()));
    return picture;
}

}  // namespace

// The two parts take about as long as each other and are painted side by side.
QPixmap PaintEmptyBoard(const Layout& layout, QSize devicePixels) {
    const QRectF board = BoardWithFrame(layout);
    const QRect area = board.toAlignedRect() & QRect(QPoint(), devicePixels);
    std::future<QPixmap> upper = std::async(std::launch::async, PaintBoard, board, area);
    QPixmap picture = PaintTable(layout, devicePixels, board);
    QPainter painter(&picture);
    painter.drawPixmap(area.topLeft(), upper.get());
    return picture;
}

void EmptyBoard::Prepare(const Layout& layout, QSize devicePixels) {
    preparedSize_ = devicePixels;
    prepared_ = std::async(std::launch::async, PaintEmptyBoard, layout, devicePixels);
}

QPixmap EmptyBoard::PictureFor(const Layout& layout, QSize devicePixels) {
    if (!prepared_.valid()) return PaintEmptyBoard(layout, devicePixels);
    const QPixmap prepared = prepared_.get();
    return preparedSize_ == devicePixels ? prepared : PaintEmptyBoard(layout, devicePixels);
}

}  // namespace zorva
