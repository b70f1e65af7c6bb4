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

QString PathOf(const QString& name) {
    // Cursors and the icon live in folders of their own: their names hold the folder.
    return ":/" + (name.contains('/') ? name : "bitmaps/" + name) + ".svg";
}

// Renders a part of a drawing, given in the drawing's own units; fully transparent where nothing is
// drawn. What lies outside the part is outside the image, which costs next to nothing: a painter's clip
// would leave out those pixels but not the work for them (Qt 6.4).
QImage Rendered(QSvgRenderer& drawing, const QRectF& part, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size.width() / part.width(), size.height() / part.height());
    painter.translate(-part.topLeft());
    drawing.render(&painter, drawing.viewBoxF());
    return image;
}

}  // namespace

Artwork::Artwork() = default;
Artwork::~Artwork() = default;

QSvgRenderer& Artwork::Drawing(const QString& name) {
    auto& drawing = drawings_[name];
    if (!drawing) drawing = std::make_unique<QSvgRenderer>(PathOf(name));
    return *drawing;
}

QPixmap Artwork::Pixmap(const QString& name, QSize devicePixels) {
    return PixmapOfPart(name, Drawing(name).viewBoxF(), devicePixels);
}

QPixmap Artwork::PixmapOfPart(const QString& name, const QRectF& part, QSize devicePixels) {
    const QSize size = devicePixels.expandedTo({1, 1});
    QPixmap& pixmap = pixmaps_[KeyOf(name, part, size)];
    if (pixmap.isNull()) pixmap = QPixmap::fromImage(Rendered(Drawing(name), part, size));
    return pixmap;
}

void Artwork::Paint(QPainter& painter, const QString& name, const QRectF& target) {
    Drawing(name).render(&painter, target);
}

void Artwork::PaintPart(QPainter& painter, const QString& name, const QRectF& part,
                        const QRect& target) {
    painter.drawImage(target.topLeft(), Rendered(Drawing(name), part, target.size()));
}

void Artwork::ForgetPixmaps() {
    pixmaps_.clear();
}

}  // namespace zorva
