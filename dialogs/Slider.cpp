#include "dialogs/Slider.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "dialogs/Decoration.h"
#include "dialogs/Geometry.h"

namespace zorva {

Slider::Slider(QWidget* parent, const Services& services, const QString& objectName, const QString& name)
    : QAbstractSlider(parent), services_(services) {
    setObjectName(objectName);
    setAccessibleName(name);
    setOrientation(Qt::Horizontal);
    setRange(0, 100);
    setSingleStep(1);
    setPageStep(10);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);  // for the hand over the marker
}

void Slider::paintEvent(QPaintEvent*) {
    LayoutPainter painter(this, services_);
    services_.artwork.Paint(painter, "personal_scale", QRectF(0, 0, Width, Height));
    if (isLit_) {
        decoration::DrawWarmLit(painter, "personal_marker", MarkerBox(), services_);
    } else {
        services_.artwork.Paint(painter, "personal_marker", MarkerBox());
    }
    if (hasFocus()) decoration::DrawFocus(painter, QRectF(1.5, 1.5, Width - 3, Height - 3), 5);
}

// Only the left button on the marker begins a drag: a stray click must not throw the value away.
void Slider::mousePressEvent(QMouseEvent* event) {
    dragging_ = event->button() == Qt::LeftButton && IsOnMarker(LayoutPoint(*event));
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    const QPointF point = LayoutPoint(*event);
    if (dragging_) DragTo(std::floor(point.x() - EndMargin));
    const bool isLive = dragging_ || IsOnMarker(point);
    setCursor(isLive ? services_.cursors.Hand() : Qt::ArrowCursor);
    Light(isLive);
}

void Slider::leaveEvent(QEvent*) {
    Light(false);
}

void Slider::Light(bool lit) {
    if (std::exchange(isLit_, lit) != lit) update();
}

void Slider::mouseReleaseEvent(QMouseEvent*) {
    dragging_ = false;
}

// A wheel that is turned while the cursor happens to be here must not change a player's level.
void Slider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// Qt would change the value by Up and Down, too; in these windows they go to the next control.
void Slider::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up: focusNextPrevChild(false); break;
        case Qt::Key_Down: focusNextPrevChild(true); break;
        default: QAbstractSlider::keyPressEvent(event);
    }
}

// The middle of the marker stands at the value.
QRectF Slider::MarkerBox() const {
    return {value() + EndMargin - MarkerWidth / 2.0, 0, MarkerWidth, Height};
}

// The right and the lower edge are the first places beside it; QRectF would count them in.
bool Slider::IsOnMarker(QPointF point) const {
    const QRectF box = MarkerBox();
    return point.x() >= box.left() && point.x() < box.right() && point.y() >= box.top() &&
           point.y() < box.bottom();
}

QPointF Slider::LayoutPoint(const QMouseEvent& event) const {
    return event.position() / services_.ToLogical(1);
}

// `value` is where the cursor is, in steps from the left end; it may lie outside the range.
void Slider::DragTo(double value) {
    if (value < minimum() || value > maximum()) {
        dragging_ = false;
        return;
    }
    setValue(static_cast<int>(value));
}

}  // namespace zorva
