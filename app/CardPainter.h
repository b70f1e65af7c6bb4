#pragma once

#include <QPixmap>
#include <QRect>
#include <functional>

#include "app/BoardView.h"

class QPainter;

namespace zorva {

class Artwork;
struct Layout;

// The players' cards and the line that says what the game waits for. The painter's pixels are the
// window's device pixels. Nothing is painted outside the areas, which are in device pixels, too.

/// Of the texts of the line, in layout pixels.
struct LineSizes {
    double what;       ///< of what the game waits for
    double more;       ///< of the text below it: never less than 11, and 10 device pixels
    double head = 0;   ///< the height that the first line of the upper text takes, 0 without one
    double above = 0;  ///< the height of all of the upper text
    double below = 0;  ///< and of the lower
};

/// The largest sizes at which both texts fit one below the other, the lower smaller first. `room` is in
/// layout pixels of `unit` device pixels.
LineSizes LineSizesFor(const QString& what, const QString& more, QSizeF room, double unit);

/// A card with its shadow, or with the light around it.
QRect CardArea(const Layout& layout, std::size_t place);
/// The line with its shadow.
QRect LineArea(const Layout& layout);

/// Gives the pixmap of that name and size, which is drawn when it is first asked for.
using PixmapCache = std::function<const QPixmap&(const QString& name, QSize size,
                                                 const std::function<void(QPainter&)>& draw)>;

/// Paints what intersects `part`.
void PaintCards(QPainter& painter, Artwork& artwork, const PixmapCache& cache, const Layout& layout,
                const BoardView& view, const QRect& part);
void PaintLine(QPainter& painter, const PixmapCache& cache, const Layout& layout, const BoardView& view,
               const QRect& part);

}  // namespace zorva
