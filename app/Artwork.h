#pragma once

#include <QHash>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <map>
#include <memory>

class QPainter;
class QRect;
class QRectF;
class QSvgRenderer;

namespace zorva {

/// The program's drawings, by name: "board" is assets/bitmaps/board.svg, "cursors/ManoIndice" is
/// assets/cursors/ManoIndice.svg. Each is parsed once and rendered once for each size it is wanted in,
/// at the device's resolution. Pixmaps are for the window's thread; painting works in any other thread
/// that has an Artwork of its own.
class Artwork {
public:
    Artwork();
    ~Artwork();
    Artwork(const Artwork&) = delete;
    Artwork& operator=(const Artwork&) = delete;

    /// The drawing in that many device pixels (at least 1x1), fully transparent where nothing is
    /// drawn. It is kept for the next call.
    QPixmap Pixmap(const QString& name, QSize devicePixels);

    /// The same of a part of the drawing, given in the drawing's own units.
    QPixmap PixmapOfPart(const QString& name, const QRectF& part, QSize devicePixels);

    /// Draws without keeping a pixmap: for what is drawn once, such as the table top.
    void Paint(QPainter& painter, const QString& name, const QRectF& target);
    /// The same of a part of the drawing, given in the drawing's own units. The painter's pixels are
    /// device pixels, and nothing outside `target` is drawn.
    void PaintPart(QPainter& painter, const QString& name, const QRectF& part, const QRect& target);

    /// Forgets all pixmaps: the screen has another scale now.
    void ForgetPixmaps();

private:
    QSvgRenderer& Drawing(const QString& name);

    std::map<QString, std::unique_ptr<QSvgRenderer>> drawings_;
    QHash<QString, QPixmap> pixmaps_;
};

}  // namespace zorva
