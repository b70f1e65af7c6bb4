#include "app/WarmLight.h"

#include <QPainter>

namespace zorva {

// From the top left, as all drawings are lit.
QPixmap WarmLit(const QPixmap& drawn) {
    QPixmap lit = drawn;
    QPainter painter(&lit);
    QLinearGradient light(0, 0, drawn.width(), drawn.height());
    light.setColorAt(0, QColor(84, 76, 58));
    light.setColorAt(1, QColor(52, 46, 34));
    painter.setCompositionMode(QPainter::CompositionMode_ColorDodge);
    painter.fillRect(QRectF(QPointF(), drawn.size()), light);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawPixmap(0, 0, drawn);
    return lit;
}

void WarmTint(QPainter& painter, const QRectF& area) {
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(area, QColor(0xff, 0xe8, 0xba));
    painter.restore();
}

}  // namespace zorva
