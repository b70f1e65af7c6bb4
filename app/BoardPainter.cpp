#include "app/BoardPainter.h"

#include <QPainterPath>

#include "app/Artwork.h"
#include "app/Palette.h"
#include "app/Typeface.h"
#include "core/Board.h"

namespace zorva {
namespace {

// The drawings' own measures: the board's frame around the squares, and a piece within its picture.
constexpr double boardDrawingSide = 725;
constexpr double boardFrame = 16;
constexpr double boardCell = 33;
constexpr double pieceDrawingSide = 40;
constexpr double pieceDrawingBody = 28;

QSize SideBySide(double side) {
    return QSize(qRound(side), qRound(side));
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
    const QPointF corner = Device(QPointF(layout_.Margin, layout_.Margin)) - QPointF(boardFrame, boardFrame) * unit;
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

void BoardPainter::Paint(const BoardView& view, const GameState& state, const Settings& settings,
                         const QRect& part) {
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
    PaintShownMove(painter, view);
    for (Colour colour = 1; colour <= ColourCount; ++colour) {
        for (Short piece = 1; piece <= PiecesPerColour; ++piece) {
            const PieceCode code = CodeOf(colour, piece);
            if (code != view.inAir && PieceArea(view.at[code]).intersects(part)) PaintPiece(painter, view, code);
        }
    }
    if (view.inAir != 0) PaintPiece(painter, view, view.inAir);
    Q_UNUSED(state);
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
    painter.setPen(lit ? palette::Ink : WithAlpha(palette::Ink, 0.85));
    painter.drawText(plate, Qt::AlignCenter, QString::fromStdString(Trimmed(settings.PlayerName[colour])));
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

void BoardPainter::PaintShownMove(QPainter& painter, const BoardView& view) {
    if (view.shown.piece == 0) return;
    const double unit = layout_.Unit;
    const Colour colour = ColourOf(view.shown.piece);
    const QColor mark = palette::Light;
    const auto dot = [&](zorva::Square square, double radius, double width) {
        painter.setPen(QPen(palette::DarkWood, (width + 2) * unit));
        painter.setBrush(Qt::NoBrush);
        const Point at = layout_.SquarePosition(square);
        painter.drawEllipse(Device(QPointF(at.x, at.y)), radius * unit, radius * unit);
        painter.setPen(QPen(mark, width * unit));
        painter.drawEllipse(Device(QPointF(at.x, at.y)), radius * unit, radius * unit);
    };
    zorva::Square square = view.shown.from == 0 ? ExitSquare[colour] : view.shown.from;
    for (int steps = 0; square != view.shown.to && steps < StepsToGoal; ++steps) {
        if (steps > 0 || view.shown.from == 0) dot(square, 2.2, 2.2);
        square = AdvanceSquare(square, 1, colour);
    }
    dot(view.shown.to, layout_.PieceSize / 2.0 + 1.5, 2.5);
}

void BoardPainter::PaintPiece(QPainter& painter, const BoardView& view, PieceCode code) {
    if (!view.present[code]) return;
    const double side = layout_.PieceSize * pieceDrawingSide / pieceDrawingBody * layout_.Unit;
    const QPixmap picture = artwork_.Picture(QStringLiteral("piece_%1").arg(ColourOf(code)), SideBySide(side));
    QPointF centre = Device(view.at[code]);
    if (code == view.inAir) centre.ry() -= view.lift * layout_.Unit;
    const QPointF corner = centre - QPointF(picture.width(), picture.height()) / 2;
    const bool still = code != view.inAir;
    // A piece at rest lies on whole device pixels: its picture is copied, not resampled.
    painter.drawPixmap(still ? QPointF(corner.toPoint()) : corner, picture);
}

}  // namespace zorva
