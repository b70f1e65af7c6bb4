#include "dialogs/PictureButton.h"

#include <QPainter>

#include "app/Artwork.h"
#include "app/WarmLight.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"
#include "dialogs/TextStyle.h"

namespace zorva {
namespace {

const QColor ivory(0xff, 0xfd, 0xf5);
// In layout pixels: all drawings of buttons have their emblem there, and the caption takes the rest.
constexpr double emblemWidth = 28;

}  // namespace

PictureButton::PictureButton(QWidget* parent, const Services& services, const char* objectName,
                             const QString& drawing, const QString& caption)
    : DrawnButton(parent, services, objectName, caption), drawing_(drawing) {
    connect(this, &QAbstractButton::pressed, this, [this] { look_.Show(*this, true); });
    connect(this, &QAbstractButton::released, this, [this] { look_.Show(*this, false); });
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isPressed = look_.IsPressed();
    const double ratio = TheServices().devicePixelRatio;
    // In device pixels, so that the pixmap is copied and never stretched.
    QPixmap pixmap = TheServices().artwork.Pixmap(isPressed ? drawing_ + "_pressed" : drawing_,
                                                  (QSizeF(size()) * ratio).toSize());
    if (underMouse()) pixmap = WarmLit(pixmap);
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(), pixmap);
    painter.scale(TheServices().ToLogical(1), TheServices().ToLogical(1));
    const QRectF area = LayoutArea(*this, TheServices());
    painter.setPen(isPressed ? ivory.darker(125) : ivory);
    const double shift = isPressed ? 1.2 : 0;  // the caption goes down with the button
    DrawLine(painter, area.adjusted(emblemWidth, 0, -10, -3).translated(shift, shift), text(),
             {14, QFont::DemiBold}, Qt::AlignHCenter);
    if (hasFocus()) decoration::DrawFocus(painter, area.adjusted(2, 2, -2, -2), 6);
}

}  // namespace zorva
