#include "app/WoodenKey.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "app/Artwork.h"
#include "app/Cursors.h"
#include "app/Pacer.h"
#include "app/WarmLight.h"

namespace zorva {

WoodenKey::WoodenKey(QWidget* parent, const Services& services, const QString& drawing,
                     const QString& hoverText)
    : QAbstractButton(parent), services_(services), drawing_(drawing), hoverText_(hoverText) {
    setAccessibleName(hoverText.trimmed());
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);  // painted when the mouse comes and when it goes
    connect(this, &QAbstractButton::clicked, this, [this] {
        services_.pacer->AfterWait(this, [this] {
            if (Pressed) Pressed();
        });
    });
}

void WoodenKey::ShowLive(bool live) {
    ShowHand(*this, services_.cursors, live);
    if (std::exchange(isLive_, live) != live && underMouse()) update();
}

void WoodenKey::ShowDimmed(bool dimmed) {
    if (std::exchange(isDimmed_, dimmed) != dimmed) update();
}

void WoodenKey::Explain(bool explains) {
    setToolTip(explains ? hoverText_ : QString());
}

void WoodenKey::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = services_.devicePixelRatio;
    const QString drawing = look_.IsPressed() ? drawing_ + "_pressed" : drawing_;
    QPixmap pixmap = services_.artwork.Pixmap(drawing, (QSizeF(size()) * ratio).toSize());
    if (isLive_ && underMouse()) pixmap = WarmLit(pixmap);
    pixmap.setDevicePixelRatio(ratio);
    if (isDimmed_) painter.setOpacity(0.34);
    painter.drawPixmap(QPointF(), pixmap);
}

void WoodenKey::mousePressEvent(QMouseEvent* event) {
    // Not handed on to Qt: the key acts when the mouse presses, not when it lets go.
    if (event->button() == Qt::LeftButton && Pressed) Pressed();
}

}  // namespace zorva
