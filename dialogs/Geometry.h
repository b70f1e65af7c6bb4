#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>
#include <cmath>

#include "app/Services.h"

namespace zorva {

// Between layout pixels, in which everything of a window is measured, and Qt's logical pixels, in which
// widgets lie and events happen.

/// A painter on a widget that counts in layout pixels from the widget's upper left corner.
class LayoutPainter : public QPainter {
public:
    LayoutPainter(QWidget* widget, const Services& services) : QPainter(widget) {
        setRenderHint(QPainter::Antialiasing);
        scale(services.ToLogical(1), services.ToLogical(1));
    }
};

/// The area of a widget in layout pixels, from its own corner.
inline QRectF LayoutArea(const QWidget& widget, const Services& services) {
    const double unit = services.ToLogical(1);
    return {0, 0, widget.width() / unit, widget.height() / unit};
}

/// The same box for a painter that counts in layout pixels.
inline QRectF ToRect(const Box& box) {
    return {qreal(box.x), qreal(box.y), qreal(box.width), qreal(box.height)};
}

/// Moves a widget to that box of its parent, in layout pixels. Each edge is rounded by itself, so that
/// boxes that touch in the layout touch on every screen.
inline void PlaceControl(QWidget* control, const Box& box, const Services& services) {
    const int left = qRound(services.ToLogical(box.x));
    const int top = qRound(services.ToLogical(box.y));
    control->setGeometry(left, top, qRound(services.ToLogical(box.x + box.width)) - left,
                         qRound(services.ToLogical(box.y + box.height)) - top);
}

/// Whether any part of the box lies in the painter's clip. A marker that is dragged repaints its label
/// many times a second; everything outside the clip is then left out.
inline bool IsToBeDrawn(const QPainter& painter, const Box& box) {
    return painter.clipBoundingRect().intersects(ToRect(box));
}

/// The layout pixel that holds a position of a widget. `position` is in logical pixels from the widget's
/// corner, as mouse events give it.
inline Point ToLayout(QPointF position, const Services& services) {
    const QPointF point = position / services.ToLogical(1);
    return {ToShort(std::lround(std::floor(point.x()))), ToShort(std::lround(std::floor(point.y())))};
}

}  // namespace zorva
