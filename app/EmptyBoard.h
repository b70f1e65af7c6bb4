#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <functional>
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
/// painted in parts side by side, for the screen the program starts on beside the rest of the start.
class EmptyBoard {
public:
    EmptyBoard() = default;
    ~EmptyBoard();
    EmptyBoard(const EmptyBoard&) = delete;
    EmptyBoard& operator=(const EmptyBoard&) = delete;

    /// Begins to paint it, with one processor left to whatever else has to be done. `painted` is called
    /// when all of it is there, by a thread of painting.
    void Prepare(const Layout& layout, QSize devicePixels, const std::function<void()>& painted = {});
    /// Takes that processor too: it is waited for now.
    void Hurry();
    /// Whether it is still being painted.
    bool IsUnderWay() const;
    /// The pictures for a window of that many device pixels: the prepared ones when they are of that
    /// size, else painted now.
    BoardPictures PicturesFor(const Layout& layout, QSize devicePixels);

private:
    void BeginShares(std::size_t count);
    void WaitForShares();

    QImage empty_, full_;                         // painted on by all of them
    std::vector<std::function<void()>> waiting_;  // parts that are not begun
    std::vector<std::future<void>> shares_;       // parts that are under way
};

}  // namespace zorva
