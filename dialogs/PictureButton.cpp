#include "dialogs/PictureButton.h"

#include <QKeyEvent>
#include <QPainter>

#include "app/Artwork.h"
#include "app/KeyStrokes.h"
#include "app/Palette.h"
#include "app/Pointers.h"

#include "dialogs/Lettering.h"
#include "dialogs/Ornament.h"

namespace zorva {

PictureButton::PictureButton(QWidget* parent, const Services& services, const char* objectName,
                             const QString& drawing, const QString& caption)
    : QAbstractButton(parent), services_(services), drawing_(drawing) {
    setObjectName(objectName);
    setText(caption);
    setAccessibleName(caption);
    setCursor(services.pointers.Hand());
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double ratio = services_.devicePixelRatio;
    QPixmap picture = services_.artwork.Picture(isDown() ? drawing_ + "_pressed" : drawing_,
                                                (QSizeF(size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(), picture);
    const double scale = services_.ToToolkit(1);
    painter.scale(scale, scale);
    const QRectF area(0, 0, width() / scale, height() / scale);
    painter.setPen(palette::Ink);
    DrawLine(painter, area.adjusted(8, 0, -8, 0).translated(0, isDown() ? 1 : 0), text(),
             {14, QFont::DemiBold}, Qt::AlignHCenter);
    if (hasFocus()) ornament::DrawFocus(painter, area.adjusted(2, 2, -2, -2), 6);
}

// Enter does what Space does; the toolkit leaves it to dialogs with a default button.
void PictureButton::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && IsKeyStroke(*event)) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace zorva
