#include "app/Artwork.h"

#include <QPainter>
#include <QSvgRenderer>

#include "app/Canvas.h"
#include "app/PaintAside.h"

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

void RenderPart(QPainter& painter, QSvgRenderer& drawing, const QRectF& part, const QRect& place) {
    painter.translate(place.topLeft());
    painter.scale(place.width() / part.width(), place.height() / part.height());
    painter.translate(-part.topLeft());
    drawing.render(&painter, drawing.viewBoxF());
}

// The whole drawing when the part is null.
QPixmap Rendered(QSvgRenderer& drawing, const QRectF& part, QSize size) {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    RenderPart(painter, drawing, part.isNull() ? drawing.viewBoxF() : part, picture.rect());
    return picture;
}

}  // namespace

Artwork::Artwork() = default;
Artwork::~Artwork() = default;

QSvgRenderer& Artwork::Drawing(const QString& name) {
    auto& drawing = drawings_[name];
    if (!drawing) drawing = std::make_unique<QSvgRenderer>(PathOf(name));
    return *drawing;
}

QPixmap Artwork::Picture(const QString& name, QSize devicePixels) {
    return PictureOf(name, QRectF(), devicePixels);
}

QPixmap Artwork::PictureOf(const QString& name, const QRectF& part, QSize devicePixels) {
    const QSize size = devicePixels.expandedTo({1, 1});
    const QString key = KeyOf(name, part, size);
    QPixmap& picture = pictures_[key];
    if (!picture.isNull()) return picture;
    auto prepared = prepared_.extract(key);
    picture = prepared ? prepared.mapped().get() : Rendered(Drawing(name), part, size);
    return picture;
}

void Artwork::Prepare(const QString& name, QSize devicePixels) {
    PrepareOf(name, QRectF(), devicePixels);
}

void Artwork::PrepareOf(const QString& name, const QRectF& part, QSize devicePixels) {
    const QSize size = devicePixels.expandedTo({1, 1});
    const QString key = KeyOf(name, part, size);
    if (pictures_.contains(key)) return;
    prepared_[key] = PaintAside([name, part, size] {
        QSvgRenderer drawing(PathOf(name));
        return Rendered(drawing, part, size);
    });
}

void Artwork::Paint(QPainter& painter, const QString& name, const QRectF& target) {
    Drawing(name).render(&painter, target);
}

void Artwork::Paint(const Canvas& canvas, const QString& name, const QRectF& target) {
    canvas.Within(target.toAlignedRect()).PaintBy([&](QPainter& painter) {
        Paint(painter, name, target);
    });
}

void Artwork::PaintPart(const Canvas& canvas, const QString& name, const QRectF& part,
                        const QRect& place) {
    canvas.Within(place).PaintBy(
        [&](QPainter& painter) { RenderPart(painter, Drawing(name), part, place); });
}

void Artwork::ForgetPictures() {
    pictures_.clear();
    prepared_.clear();
}

}  // namespace zorva
