#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QSize>

class QPainter;

namespace zorva {

class Artwork;
struct Layout;

/// Paints the empty board in its frame where the layout has it, in device pixels.
void PaintBoard(QPainter& painter, Artwork& artwork, const Layout& layout);

/// What never changes while the window keeps its size: the table, the empty board and the panel with
/// the recorder. It is the program's largest drawing and painted in three threads of Qt's pool: the
/// title can open meanwhile.
class Background {
public:
    Background() = default;
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Begins to paint it for a window of that many device pixels.
    void Begin(const Layout& layout, QSize devicePixels);

    /// The pixmap for a window of that many device pixels, opaque. Waits for the image that was begun
    /// in that size, or paints one now. Null when there is no memory for it.
    QPixmap Take(const Layout& layout, QSize devicePixels);

private:
    // Written by other threads until the pool is done.
    QImage table_, panel_, board_;
    QRect panelArea_, boardArea_;
};

}  // namespace zorva
