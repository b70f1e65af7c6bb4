#include "dialogs/Decoration.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

#include "app/Artwork.h"
#include "app/WarmLight.h"

namespace zorva::decoration {
namespace {

// The lines round everything that is sunk into the panel.
const QColor frameGrey(0x80, 0x80, 0x80);
const QColor frameLight(0xd8, 0xbf, 0x90);

// The edge of the panel, 2 pixels wide: light above and on the left, dark below and on the right.
void DrawBevel(QPainter& painter, const QRectF& area) {
    painter.fillRect(QRectF(area.left(), area.top(), area.width(), 2), palette::Wood.lighter(190));
    painter.fillRect(QRectF(area.left(), area.top(), 2, area.height()), palette::Wood.lighter(170));
    painter.fillRect(QRectF(area.left(), area.bottom() - 2, area.width(), 2),
                     palette::DarkWood.darker(160));
    painter.fillRect(QRectF(area.right() - 2, area.top(), 2, area.height()),
                     palette::DarkWood.darker(140));
}

// A piece of the drawing of the table top, in its own units: windows are of the wood they lie on. It
// begins where two planks meet, so that no joint runs through a small window; a high one needs more of
// the table than lies below.
QRectF PieceOfTable(QSizeF size) {
    constexpr double joint = 538, tableHeight = 1080;
    return {QPointF(250, std::min(joint, tableHeight - size.height())), size};
}

QSize DevicePixels(QSizeF size, const Services& services) {
    return (size * services.layout.Unit).toSize();
}

}  // namespace

QPixmap PanelWood(QSizeF size, const Services& services) {
    return services.artwork.PixmapOfPart("surface", PieceOfTable(size), DevicePixels(size, services));
}

void DrawPanel(QPainter& painter, const QRectF& area, const Services& services) {
    const QPixmap wood = PanelWood(area.size(), services);
    painter.drawPixmap(area, wood, wood.rect());
    // The drawing is in full light; the window lies in a little shade, for its letters.
    QLinearGradient light(area.topLeft(), area.bottomRight());
    light.setColorAt(0, QColor(0xc8, 0xc4, 0xbc));
    light.setColorAt(0.5, QColor(0xb0, 0xaa, 0xa2));
    light.setColorAt(1, QColor(0x98, 0x90, 0x88));
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(area, light);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    DrawBevel(painter, area);
    painter.setBrush(Qt::NoBrush);
    // The inlay: a brass line with its groove half a pixel below and right of it.
    painter.setPen(QPen(palette::DarkWood, 1));
    painter.drawRoundedRect(area.adjusted(8, 8, -7, -7), 5, 5);
    painter.setPen(QPen(palette::Brass, 1.2));
    painter.drawRoundedRect(area.adjusted(7.5, 7.5, -7.5, -7.5), 5, 5);
}

void DrawSunkenFrame(QPainter& painter, const QRectF& area) {
    painter.fillRect(QRectF(area.left() - 1, area.top() - 1, area.width() + 2, 1), frameGrey);
    painter.fillRect(QRectF(area.left() - 1, area.top() - 1, 1, area.height() + 2), frameGrey);
    painter.fillRect(QRectF(area.left() - 1, area.bottom(), area.width() + 2, 1), frameLight);
    painter.fillRect(QRectF(area.right(), area.top() - 1, 1, area.height() + 2), frameLight);
}

void DrawInnerShadow(QPainter& painter, const QRectF& area) {
    QLinearGradient fromTop(area.topLeft(), area.topLeft() + QPointF(0, 4));
    fromTop.setColorAt(0, QColor(0, 0, 0, 60));
    fromTop.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(QRectF(area.topLeft(), QSizeF(area.width(), 4)), fromTop);
    QLinearGradient fromLeft(area.topLeft(), area.topLeft() + QPointF(3, 0));
    fromLeft.setColorAt(0, QColor(0, 0, 0, 45));
    fromLeft.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(QRectF(area.topLeft(), QSizeF(3, area.height())), fromLeft);
}

void DrawSunkenPaper(QPainter& painter, const QRectF& area, const QColor& paper) {
    painter.fillRect(area, paper);
    DrawSunkenFrame(painter, area);
    DrawInnerShadow(painter, area);
}

void DrawWarmLit(QPainter& painter, const QString& drawing, const QRectF& area,
                 const Services& services) {
    const QPixmap lit = WarmLit(services.artwork.Pixmap(drawing, DevicePixels(area.size(), services)));
    painter.drawPixmap(area, lit, lit.rect());
}

// Rounded to device pixels, so that the pixmap is copied and not blurred.
void DrawPixmap(QPainter& painter, const QString& name, const QRectF& area, const Services& services) {
    const double unit = services.layout.Unit;
    const QPixmap pixmap = services.artwork.Pixmap(name, DevicePixels(area.size(), services));
    const QPointF corner(qRound(area.left() * unit) / unit, qRound(area.top() * unit) / unit);
    painter.drawPixmap(QRectF(corner, QSizeF(pixmap.size()) / unit), pixmap, pixmap.rect());
}

// Light over a wider dark line: it is seen on wood and on paper alike.
void DrawFocus(QPainter& painter, const QRectF& area, double radius) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::DarkWood, 3));
    painter.drawRoundedRect(area, radius, radius);
    painter.setPen(QPen(palette::Light, 1.6));
    painter.drawRoundedRect(area, radius, radius);
}

}  // namespace zorva::decoration
