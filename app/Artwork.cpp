#include "app/Artwork.h"

#include <QPainter>
#include <QSvgRenderer>

namespace zorva {
namespace {

QString KeyOf(const QString& name, const QRectF& part, QSize size) {
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
        .arg(name)
        .arg(part.x())
        .arg(part.y())
        .arg(part.width())
        .arg(part.height())
        .arg(size.width())
        .arg(size.height());
}

}  // namespace

Artwork::Artwork() = default;
Artwork::~Artwork() = default;

QSvgRenderer& Artwork::Drawing(const QString& name) {
    auto& drawing = drawings_[name];
    if (!drawing) {
        // Pointers and the icon live in folders of their own: their names hold the folder.
        const QString path = name.contains('/') ? name : "bitmaps/" + name;
        drawing = std::make_unique<QSvgRenderer>(":/" + path + ".svg");
    }
    return *drawing;
}

QPixmap Artwork::Picture(const QString& name, QSize devicePixels) {
    return PictureOf(name, Drawing(name).viewBoxF(), devicePixels);
}

QPixmap Artwork::PictureOf(const QString& name, const QRectF& part, QSize devicePixels) {
    const QSize size = devicePixels.expandedTo({1, 1});
    QPixmap& picture = pictures_[KeyOf(name, part, size)];
    if (picture.isNull()) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        QSvgRenderer& drawing = Drawing(name);
        const QRectF whole = drawing.viewBoxF();
        painter.scale(size.width() / part.width(), size.height() / part.height());
        painter.translate(-part.topLeft());
        drawing.render(&painter, whole);
    }
    return picture;
}

void Artwork::Paint(QPainter& painter, const QString& name, const QRectF& target) {
    Drawing(name).render(&painter, target);
}

void Artwork::ForgetPictures() {
    pictures_.clear();
}

}  // namespace zorva
