#include "app/BoardPainter.h"

#include <vector>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "app/Typeface.h"
#include "core/Board.h"

namespace zorva {
namespace {

// The drawings' own measures: the board's frame around the squares, and a piece within its picture.
constexpr double boardDrawingSide = 725;
constexpr double boardFrame = 16;
constexpr double shadowAround = 32;
constexpr double boardCell = 33;
constexpr double pieceDrawingSide = 40;
constexpr double pieceDrawingBody = 28;

QSize SideBySide(double side) {
    return QSize(qRound(side), qRound(side));
}

// The squares a shown move passes and, last, the one it ends on.
std::vector<QPointF> WayOf(const Layout& layout, const BoardView::ShownMove& move) {
    std::vector<QPointF> way;
    if (move.piece == 0 || move.to == 0 || move.to == move.from) return way;
    const auto add = [&](zorva::Square square) {
        const Point at = layout.SquarePosition(square);
        way.emplace_back(at.x, at.y);
    };
    const Colour colour = ColourOf(move.piece);
    zorva::Square square = move.from == 0 ? ExitSquare[colour] : AdvanceSquare(move.from, 1, colour);
    for (int steps = 0; square != move.to && steps <= StepsToGoal; ++steps) {
        add(square);
        square = AdvanceSquare(square, 1, colour);
    }
    add(move.to);
    return way;
}

QColor WithAlpha(QColor colour, double alpha) {
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

}  // namespace

QPointF BoardPainter::Device(QPointF p) const {
    return {layout_.DeviceLeft + p.x() * layout_.Unit, layout_.DeviceTop + p.y() * layout_.Unit};
}

QRectF BoardPainter::DeviceF(const Box& box) const {
    return {Device(QPointF(box.x, box.y)), QSizeF(box.width, box.height) * layout_.Unit};
}

QRect BoardPainter::DeviceArea(const Box& box, double around) const {
    const double grow = around * layout_.Unit;
    return DeviceF(box).adjusted(-grow, -grow, grow, grow).toAlignedRect();
}

QRect BoardPainter::PieceArea(QPointF centre, double lift) const {
    const double side = layout_.PieceSize * pieceDrawingSide / pieceDrawingBody * layout_.Unit;
    QRectF area(QPointF(), QSizeF(side, side));
    area.moveCenter(Device(centre));
    area.setTop(area.top() - lift * layout_.Unit);
    return area.adjusted(-2, -2, 2, 2).toAlignedRect();
}

// ------------------------------------------------------------------------------ the empty board

void BoardPainter::SetScreen(const Layout& layout, QSize devicePixels) {
    layout_ = layout;
    Pic_TableroVacio = QPixmap(devicePixels);
    // Where two planks of the table meet between pixels, a little of what lies below shows through.
    Pic_TableroVacio.fill(palette::DarkWood);
    QPainter painter(&Pic_TableroVacio);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintTable(painter);
    PaintPanel(painter);
    painter.end();
    Pic_TableroLleno = Pic_TableroVacio.copy();
}

void BoardPainter::PaintTable(QPainter& painter) {
    const QRectF screen = Pic_TableroVacio.rect();
    // The table top covers the screen, whatever its shape.
    const double scale = std::max(screen.width() / 1920, screen.height() / 1080);
    QRectF surface(0, 0, 1920 * scale, 1080 * scale);
    surface.moveCenter(screen.center());
    artwork_.Paint(painter, "surface", surface);
    const double unit = layout_.Cell / boardCell * layout_.Unit;
    const QPointF corner =
        Device(QPointF(layout_.Margin, layout_.Margin)) - QPointF(boardFrame, boardFrame) * unit;
    artwork_.Paint(
        painter, "board_shadow",
        {corner - QPointF(shadowAround, shadowAround) * unit,
         QSizeF(boardDrawingSide + 2 * shadowAround, boardDrawingSide + 2 * shadowAround) * unit});
    artwork_.Paint(painter, "board", {corner, QSizeF(boardDrawingSide, boardDrawingSide) * unit});
}

// The instruments at the right lie in one recess of the table.
void BoardPainter::PaintPanel(QPainter& painter) {
    const double unit = layout_.Unit;
    const QRectF log = DeviceF(layout_.LogPaper);
    const QRectF buttons = DeviceF(layout_.Buttons);
    QRectF panel = log.united(buttons).adjusted(-16 * unit, -16 * unit, 16 * unit, 4 * unit);
    const double free = (layout_.ScreenWidth - layout_.BoardExtent) * unit;
    if (panel.width() > free) panel.adjust((panel.width() - free) / 2, 0, (free - panel.width()) / 2, 0);
    painter.setPen(QPen(WithAlpha(palette::Brass, 0.35), unit));
    painter.setBrush(WithAlpha(Qt::black, 0.28));
    painter.drawRoundedRect(panel, 14 * unit, 14 * unit);
    painter.setPen(QPen(WithAlpha(Qt::black, 0.5), unit));
    painter.drawRoundedRect(panel.adjusted(-unit, -unit, unit, unit), 15 * unit, 15 * unit);
}

// -------------------------------------------------------------------------------- what changes

void BoardPainter::Paint(const BoardView& view, const Settings& settings, const QRect& part) {
    QPainter painter(&Pic_TableroLleno);
    painter.setClipRect(part);
    painter.drawPixmap(part.topLeft(), Pic_TableroVacio, part);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        if (!DeviceArea(layout_.House(colour), 8).intersects(part)) continue;
        PaintHouse(painter, view, settings, colour);
        PaintDie(painter, view, colour);
    }
    PaintBonus(painter, view);
    PaintShownMove(painter, view, view.preview.piece != 0 ? view.preview : view.shown);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            if (code != view.inAir && PieceArea(view.at[code]).intersects(part)) {
                PaintPickable(painter, view, code);
                PaintPiece(painter, view, code);
            }
        }
    }
    if (view.manualMode) PaintBanner(painter);
    if (view.inAir != 0) PaintPiece(painter, view, view.inAir);
}

void BoardPainter::PaintHouse(QPainter& painter, const BoardView& view, const Settings& settings,
                              Colour colour) {
    const double unit = layout_.Unit;
    const bool lit = view.onTurn == colour || view.winner == colour;
    if (lit) {
        const QRectF house = DeviceF(layout_.House(colour));
        painter.setBrush(Qt::NoBrush);
        for (int ring = 0; ring < 3; ++ring) {
            painter.setPen(QPen(WithAlpha(palette::Light, 0.9 - 0.28 * ring), (2 + 3 * ring) * unit));
            painter.drawRect(house.adjusted(3 * unit, 3 * unit, -3 * unit, -3 * unit));
        }
    }
    const QRectF plate = DeviceF(layout_.NamePlate(colour));
    painter.setFont(TextFont(15 * layout_.Cell / boardCell * unit, lit ? QFont::Bold : QFont::DemiBold));
    const double strength = lit ? 1 : IsTakingPart(settings, colour) ? 0.85 : 0.35;
    painter.setPen(WithAlpha(palette::Ink, strength));
    painter.drawText(plate, Qt::AlignCenter,
                     QString::fromStdString(Trimmed(settings.PlayerName[colour])));
}

void BoardPainter::PaintDie(QPainter& painter, const BoardView& view, Colour colour) {
    const Short face = view.dieFace[colour];
    if (face == 0) return;
    const QRectF tray = DeviceF(layout_.DieBox(colour));
    const double side = tray.width() * 64 / 72;
    const QPixmap picture = artwork_.Picture(QStringLiteral("die_%1").arg(face), SideBySide(side));
    painter.save();
    painter.translate(tray.center());
    painter.rotate(view.dieTilt[colour]);
    if (view.dieReady[colour]) painter.setOpacity(0.82);
    painter.drawPixmap(QPointF(-picture.width() / 2, -picture.height() / 2), picture);
    painter.restore();
}

void BoardPainter::PaintBonus(QPainter& painter, const BoardView& view) {
    if (view.bonusDue == 0 || view.onTurn == 0) return;
    const double unit = layout_.Unit * layout_.Cell / boardCell;
    QRectF token(QPointF(), QSizeF(44, 44) * unit);
    token.moveCenter(DeviceF(layout_.DieBox(view.onTurn)).center());
    painter.setPen(QPen(palette::DarkWood, 1.5 * unit));
    painter.setBrush(palette::Light);
    painter.drawEllipse(token);
    painter.setFont(TextFont(18 * unit, QFont::Bold));
    painter.setPen(palette::Ink);
    painter.drawText(token, Qt::AlignCenter, QStringLiteral("+%1").arg(view.bonusDue));
}

// A light ring between dark edges is seen on every colour of the board.
void BoardPainter::PaintRing(QPainter& painter, QPointF centre, double radius, double width,
                             const QColor& colour) {
    const double unit = layout_.Unit;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::DarkWood, (width + 1.6) * unit));
    painter.drawEllipse(Device(centre), radius * unit, radius * unit);
    painter.setPen(QPen(colour, width * unit));
    painter.drawEllipse(Device(centre), radius * unit, radius * unit);
}

void BoardPainter::PaintShownMove(QPainter& painter, const BoardView& view,
                                  const BoardView::ShownMove& move) {
    const std::vector<QPointF> way = WayOf(layout_, move);
    if (way.empty()) return;
    for (std::size_t step = 0; step + 1 < way.size(); ++step) {
        PaintRing(painter, way[step], 1.8, 3.6, palette::Mark);
    }
    PaintRing(painter, way.back(), layout_.PieceSize / 2.0 + 1, 3, palette::Mark);
    if (move.piece == view.inAir) return;
    PaintRing(painter, view.at[move.piece], layout_.PieceSize / 2.0 + 3.2, 2.2, Qt::white);
}

QRect BoardPainter::MoveArea(const BoardView::ShownMove& move) const {
    QRect area;
    for (const QPointF& point : WayOf(layout_, move)) area |= PieceArea(point);
    return area;
}

void BoardPainter::PaintPickable(QPainter& painter, const BoardView& view, PieceCode code) {
    if (!view.movable[code] || code == view.inAir) return;
    const bool marked = view.marked == code;
    const double radius = layout_.PieceSize / 2.0 + (marked ? 2.4 : 1.6);
    PaintRing(painter, view.at[code], radius, marked ? 4.4 : 3.2, palette::Mark);
}

Box BoardPainter::Banner() const {
    const Short width = ToShort(9 * layout_.Cell);
    const Short left = ToShort(layout_.Margin + 6 * layout_.Cell);
    return {left, ToShort(std::max<int>(layout_.Margin - 14, 1)), width, 24};
}

QRect BoardPainter::BannerArea() const {
    return DeviceArea(Banner(), 3);
}

void BoardPainter::PaintBanner(QPainter& painter) {
    const QRectF banner = DeviceF(Banner());
    const double unit = layout_.Unit;
    painter.setPen(QPen(palette::DarkWood, 1.5 * unit));
    painter.setBrush(palette::Light);
    painter.drawRoundedRect(banner, 8 * unit, 8 * unit);
    painter.setFont(TextFont(13 * unit, QFont::Bold));
    painter.setPen(palette::Ink);
    painter.drawText(banner, Qt::AlignCenter, QStringLiteral("Modo manual"));
}

void BoardPainter::PaintPiece(QPainter& painter, const BoardView& view, PieceCode code) {
    if (!view.present[code]) return;
    const double side = layout_.PieceSize * pieceDrawingSide / pieceDrawingBody * layout_.Unit;
    const QPixmap picture =
        artwork_.Picture(QStringLiteral("piece_%1").arg(ColourOf(code)), SideBySide(side));
    QPointF centre = Device(view.at[code]);
    if (code == view.inAir) centre.ry() -= view.lift * layout_.Unit;
    const QPointF corner = centre - QPointF(picture.width(), picture.height()) / 2;
    const bool still = code != view.inAir;
    // A piece at rest lies on whole device pixels: its picture is copied, not resampled.
    painter.drawPixmap(still ? QPointF(corner.toPoint()) : corner, picture);
}

}  // namespace zorva
