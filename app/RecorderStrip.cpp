#include "app/RecorderStrip.h"

#include <QPainter>

#include "app/Artwork.h"

namespace zorva {

RecorderStrip::RecorderStrip(QWidget* parent, const Services& services) : QWidget(parent), services_(services) {
    setObjectName("Pic_Grabadora");
    setAccessibleName("Grabadora de jugadas");
    setFocusPolicy(Qt::NoFocus);
}

void RecorderStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = services_.devicePixelRatio;
    QPixmap picture =
        services_.artwork.PictureOf("recorder", QRectF(0, 0, 50, 75), (QSizeF(size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(), picture);
}

}  // namespace zorva
