#include "dialogs/TitleArtwork.h"

#include <QPainter>

#include "app/Artwork.h"
#include "app/Background.h"
#include "app/Layout.h"
#include "app/Palette.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

struct TitlePiece {
    const char* drawing;
    Box at;  // layout pixels, in the title
};

constexpr TitlePiece pieces[] = {
    {"careta_z", {12, 8, 76, 76}},   {"careta_o", {92, 0, 76, 76}},
    {"careta_r", {172, 8, 76, 76}},  {"careta_v", {252, 0, 76, 76}},
    {"careta_a", {332, 8, 76, 76}},  {"careta_plate", {105, 90, 210, 46}},
    {"piece_1", {66, 150, 36, 36}},  {"piece_2", {108, 150, 36, 36}},
    {"die_5", {150, 152, 34, 34}},   {"board", {184, 142, 54, 54}},
    {"die_6", {238, 152, 34, 34}},   {"piece_3", {276, 150, 36, 36}},
    {"piece_4", {318, 150, 36, 36}},
};

constexpr Box plateText{114, 93, 190, 38};

// The whole board with its frame, painted as the game has it and then reduced.
QImage SmallBoard(const Services& services, int side) {
    Layout layout = LayoutFor(1024, 768);
    constexpr int frame = 16;
    layout.DeviceLeft = frame - layout.Margin;
    layout.DeviceTop = frame - layout.Margin;
    QImage board(QSize(1, 1) * (21 * layout.Cell + 2 * frame), QImage::Format_ARGB32_Premultiplied);
    board.fill(Qt::transparent);
    QPainter painter(&board);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBoard(painter, services.artwork, layout);
    painter.end();
    return board.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

TitleArtwork::TitleArtwork(const Services& services) {
    const double unit = services.layout.Unit;
    logo_ = QPixmap(qRound(Width * unit), qRound(Height * unit));
    logo_.fill(Qt::transparent);
    QPainter painter(&logo_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(unit, unit);
    for (const TitlePiece& piece : pieces) {
        if (QLatin1String(piece.drawing) == "board") {
            painter.drawImage(ToRect(piece.at), SmallBoard(services, qRound(piece.at.width * unit)));
        } else {
            services.artwork.Paint(painter, piece.drawing, ToRect(piece.at));
        }
    }
    painter.setPen(QColor(0x3a, 0x25, 0x09));
    DrawLine(painter, ToRect(plateText), "Parchís", {27, QFont::Black}, Qt::AlignHCenter);
}

void TitleArtwork::Draw(QPainter& painter, Short scroll, const Services& services) const {
    const double unit = services.layout.Unit;
    const double ratio = services.devicePixelRatio;
    for (const TitlePiece& piece : pieces) {
        const QRect source = QRectF(QPointF(piece.at.x, piece.at.y) * unit,
                                    QSizeF(piece.at.width, piece.at.height) * unit)
                                 .toAlignedRect();
        // Rounded to device pixels: a pixmap that lies between them would flicker while it scrolls.
        const QPointF target(source.x(), source.y() + qRound(scroll * unit));
        painter.drawPixmap(QRectF(target / ratio, QSizeF(source.size()) / ratio), logo_, source);
    }
}

}  // namespace zorva
