#pragma once

#include <QHash>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <future>
#include <map>
#include <memory>

class QPainter;
class QRect;
class QRectF;
class QSvgRenderer;

namespace zorva {

class Canvas;

/// The program's drawings, by name: "board" is assets/bitmaps/board.svg. Each is parsed once and
/// rendered once for each size it is wanted in, at the device's resolution.
class Artwork {
public:
    Artwork();
    ~Artwork();
    Artwork(const Artwork&) = delete;
    Artwork& operator=(const Artwork&) = delete;

    /// The drawing as a picture of that many device pixels, fully transparent where nothing is drawn.
    QPixmap Picture(const QString& name, QSize devicePixels);

    /// A part of the drawing, given in its own units, as a picture of that many device pixels.
    QPixmap PictureOf(const QString& name, const QRectF& part, QSize devicePixels);

    /// Begin to render such a picture beside the window's thread; who asks for it then waits for it.
    void Prepare(const QString& name, QSize devicePixels);
    void PrepareOf(const QString& name, const QRectF& part, QSize devicePixels);

    /// Draws without keeping a picture: for what is drawn once, such as the table top.
    void Paint(QPainter& painter, const QString& name, const QRectF& target);
    /// The same with nothing outside the target.
    void Paint(const Canvas& canvas, const QString& name, const QRectF& target);
    /// The same of a part of the drawing, stretched over that place and nowhere else.
    void PaintPart(const Canvas& canvas, const QString& name, const QRectF& part, const QRect& place);

    /// Forgets all rendered pictures; the screen has another scale now.
    void ForgetPictures();

private:
    QSvgRenderer& Drawing(const QString& name);

    std::map<QString, std::unique_ptr<QSvgRenderer>> drawings_;
    QHash<QString, QPixmap> pictures_;
    std::map<QString, std::future<QPixmap>> prepared_;
};

}  // namespace zorva
