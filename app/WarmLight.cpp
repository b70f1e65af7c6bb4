#include "app/WarmLight.h"

#include <QPainter>

namespace zorva {

// From the top left, as all drawings are lit.
QPixmap WarmLit(const QPixmap& drawn) {
    QPixmap lit = drawn;
    QPainter painter(&lit);
    QLinearGradient light(0, 0, drawn.width(), drawn.height());
    light.setColorAt(0, QColor(112, 92, 62));
    light.setColorAt(1, QColor(70, 56, 36));
    painter.setCompositionMode(QPainter::CompositionMode_ColorDodge);
    painter.fillRect(QRectF(QPointF(), drawn.size()), light);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawPixmap(0, 0, drawn);
    return lit;
}

QColor WarmTint() {
    return {0xff, 0xc8, 0x6e, 70};
}

}  // namespace zorva
