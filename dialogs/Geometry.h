#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>
#include <cmath>

#include "app/Services.h"

namespace zorva {

/// A box of the layout for a painter that counts in its pixels.
inline QRectF ToRect(const Box& box) {
    return {qreal(box.x), qreal(box.y), qreal(box.width), qreal(box.height)};
}

/// Puts a control at that box of its parent. Edges are rounded one by one, so that boxes that touch
/// in the layout touch on every screen.
inline void PlaceControl(QWidget* control, const Box& box, const Services& services) {
    const int left = qRound(services.ToLogical(box.x));
    const int top = qRound(services.ToLogical(box.y));
    control->setGeometry(left, top, qRound(services.ToLogical(box.x + box.width)) - left,
                         qRound(services.ToLogical(box.y + box.height)) - top);
}

/// Whether any of that box is to be drawn by a painter with a clip. Drawings that move many times a
/// second, such as a scale's marker, must not cost the drawing of all others.
inline bool IsToBeDrawn(const QPainter& painter, const Box& box) {
    return painter.clipBoundingRect().intersects(ToRect(box));
}

/// The pixel of the layout that holds a position of a control, from the control's own corner.
inline Point ToLayout(QPointF position, const Services& services) {
    const QPointF point = position / services.ToLogical(1);
    return {ToShort(std::lround(std::floor(point.x()))), ToShort(std::lround(std::floor(point.y())))};
}

}  // namespace zorva
