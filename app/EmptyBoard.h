#pragma once

#include <QPixmap>
#include <QSize>
#include <future>

#include "app/Layout.h"

namespace zorva {

/// What lies below everything that changes, as a picture of that many device pixels: the table, the
/// empty board and the panel with the recorder. It is the program's largest drawing (a tenth of a
/// second of one processor at 1920x1080) and may be made in a thread of its own.
QPixmap PaintEmptyBoard(const Layout& layout, QSize devicePixels);

/// The empty board for the screen the program starts on, made beside the rest of the start.
class EmptyBoard {
public:
    /// Begins to paint it.
    void Prepare(const Layout& layout, QSize devicePixels);
    /// The picture for a screen: the prepared one when it is of that size, else painted now.
    QPixmap PictureFor(const Layout& layout, QSize devicePixels);

private:
    std::future<QPixmap> prepared_;
    QSize preparedSize_;
};

}  // namespace zorva
