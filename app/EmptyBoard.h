#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <future>
#include <vector>

#include "app/Layout.h"

namespace zorva {

/// What lies below everything that changes, as a picture of the whole window: the table, the empty
/// board and the panel with the recorder.
struct BoardPictures {
    QPixmap empty;
    QPixmap full;  ///< the same once more, to paint on
};

/// Makes them: the program's largest drawing, a tenth of a second of one processor at 1920x1080. It is
/// painted in bands side by side, for the screen the program starts on beside the rest of the start.
class EmptyBoard {
public:
    EmptyBoard() = default;
    ~EmptyBoard();
    EmptyBoard(const EmptyBoard&) = delete;
    EmptyBoard& operator=(const EmptyBoard&) = delete;

    /// Begins to paint it.
    void Prepare(const Layout& layout, QSize devicePixels);
    /// The pictures for a window of that many device pixels: the prepared ones when they are of that
    /// size, else painted now.
    BoardPictures PicturesFor(const Layout& layout, QSize devicePixels);

private:
    void WaitForBands();

    QImage empty_, full_;                   // painted on by the bands
    std::vector<std::future<void>> bands_;  // while they are under way
};

}  // namespace zorva
