#include "app/Background.h"

#include <QPainter>
#include <QRegion>
#include <QThreadPool>
#include <algorithm>
#include <utility>

#include "app/Artwork.h"
#include "app/Layout.h"
#include "app/Palette.h"
#include "app/PanelPainter.h"
#include "app/PiecePlaces.h"
#include "app/SquaresPainter.h"
#include "core/Board.h"

namespace zorva {
namespace {

// The drawing "board" in its own units: a frame around squares of 33.
constexpr double boardDrawingSide = 725;
constexpr double boardFrame = 16;
constexpr double boardCell = 33;
// "board_shadow" reaches this far beyond the frame, in the same units.
constexpr double shadowAround = 60;

// The squares begin where the layout puts them; the frame lies around them.
QRectF BoardWithFrame(const Layout& layout) {
    const double unit = layout.Cell / boardCell * layout.Unit;
    const QPointF squares(layout.DeviceLeft + layout.Margin * layout.Unit,
                          layout.DeviceTop + layout.Margin * layout.Unit);
    return {squares - QPointF(boardFrame, boardFrame) * unit,
            QSizeF(boardDrawingSide, boardDrawingSide) * unit};
}

// Scales the table top until it covers the screen in both directions; the screen cuts off the rest.
QRectF TableTop(const QRectF& screen) {
    const double scale = std::max(screen.width() / 1920, screen.height() / 1080);
    QRectF surface(0, 0, 1920 * scale, 1080 * scale);
    surface.moveCenter(screen.center());
    return surface;
}

// What the lamp leaves of the wood's light: nearly all of it round the board's upper edge, and less and
// cooler light up to the screen's lower right corner.
QRadialGradient Lamp(const QRectF& board, const QRectF& screen) {
    const QPointF middle = board.topLeft() + board.width() * QPointF(0.45, 0.08);
    QRadialGradient lamp(middle, QLineF(middle, screen.bottomRight()).length());
    lamp.setColorAt(0, QColor(0xff, 0xff, 0xff));
    lamp.setColorAt(0.3, QColor(0xf0, 0xea, 0xde));
    lamp.setColorAt(0.55, QColor(0xc2, 0xb6, 0xa8));
    lamp.setColorAt(0.78, QColor(0x86, 0x7a, 0x71));
    lamp.setColorAt(1, QColor(0x40, 0x3a, 0x40));
    return lamp;
}

// Without the outer half of the frame: its corners are round and its edge is not opaque.
QRect HiddenByBoard(const QRectF& board) {
    const double edge = boardFrame / 2 * board.width() / boardDrawingSide;
    return board.adjusted(edge, edge, -edge, -edge).toAlignedRect();
}

// Only where neither the board nor the panel hides it, which halves the time. Each visible area is
// painted in an image of its own: a painter's clip would leave out the other pixels but not the work
// for them (Qt 6.4).
void PaintTable(QImage& image, const Layout& layout) {
    Artwork artwork;
    image.fill(palette::DarkWood);  // shows through where two planks meet between pixels
    const QRectF board = BoardWithFrame(layout);
    const double around = shadowAround * board.width() / boardDrawingSide;
    for (const QRect& area : QRegion(image.rect()) - HiddenByBoard(board) - HiddenByPanel(layout)) {
        QImage part = image.copy(area);
        QPainter painter(&part);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-area.topLeft());
        artwork.Paint(painter, "surface", TableTop(image.rect()));
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        painter.fillRect(image.rect(), Lamp(board, image.rect()));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        artwork.Paint(painter, "board_shadow", board.adjusted(-around, -around, around, around));
        painter.end();
        QPainter(&image).drawImage(area.topLeft(), part);
    }
}

// Rings and wells lie on the pixels that the pieces will cover.
void PaintPlaces(QPainter& painter, Artwork& artwork, const Layout& layout) {
    const auto paint = [&](const QString& kind, Colour colour, Point at) {
        artwork.Paint(painter, kind + QString::number(colour), PieceDrawing(layout, AsPointF(at)));
    };
    for (const Square safe : SafeSquares) {
        const auto exit = std::find(ExitSquare.begin(), ExitSquare.end(), safe);
        paint("place_", exit == ExitSquare.end() ? Colour{0} : ToShort(exit - ExitSquare.begin()),
              layout.SquarePosition(safe));
    }
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            paint("well_", colour, layout.SlotPosition(GoalSquare[colour], piece));
            paint("rest_", colour, layout.BoxPosition(colour, piece));
        }
    }
}

// The pixels that the board and its frame touch.
QRect BoardArea(const Layout& layout) {
    return BoardWithFrame(layout).toAlignedRect();
}

// A layer of that area, transparent where `paint` paints nothing.
void PaintLayer(QImage& layer, const QRect& area, const Layout& layout,
                void (*paint)(QPainter&, Artwork&, const Layout&)) {
    Artwork artwork;
    layer.fill(Qt::transparent);
    QPainter painter(&layer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-area.topLeft());
    paint(painter, artwork, layout);
}

}  // namespace

void PaintBoard(QPainter& painter, Artwork& artwork, const Layout& layout) {
    artwork.Paint(painter, "board", BoardWithFrame(layout));
    PaintSquares(painter, layout);
    PaintPlaces(painter, artwork, layout);
    artwork.Paint(painter, "board_print", BoardWithFrame(layout));
}

Background::~Background() {
    QThreadPool::globalInstance()->waitForDone();
}

// Each layer by one thread of the pool: in any other thread Qt (6.4) hands each area of more than 95
// lines to the pool in parts and waits for them, which takes longer than the painting.
void Background::Begin(const Layout& layout, QSize devicePixels) {
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->waitForDone();
    boardArea_ = BoardArea(layout);
    panelArea_ = PanelArea(layout, devicePixels);
    table_ = QImage(devicePixels, QImage::Format_RGB32);
    panel_ = QImage(panelArea_.size(), QImage::Format_ARGB32_Premultiplied);
    board_ = QImage(boardArea_.size(), QImage::Format_ARGB32_Premultiplied);
    if (table_.isNull() || panel_.isNull() || board_.isNull()) return;
    pool->start([this, layout] { PaintTable(table_, layout); });
    pool->start([this, layout] { PaintLayer(panel_, panelArea_, layout, PaintInstrumentPanel); });
    pool->start([this, layout] { PaintLayer(board_, boardArea_, layout, PaintBoard); });
}

QPixmap Background::Take(const Layout& layout, QSize devicePixels) {
    if (table_.size() != devicePixels) Begin(layout, devicePixels);
    QThreadPool::globalInstance()->waitForDone();
    const QImage panel = std::exchange(panel_, {}), board = std::exchange(board_, {});
    if (table_.isNull() || panel.isNull() || board.isNull()) return {};
    QPainter painter(&table_);
    painter.drawImage(panelArea_.topLeft(), panel);
    painter.drawImage(boardArea_.topLeft(), board);
    painter.end();
    return QPixmap::fromImage(std::exchange(table_, {}));
}

}  // namespace zorva
