#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QSize>
#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <vector>

#include "app/Layout.h"

namespace zorva {

class Canvas;

/// What lies below everything that changes, as a picture of the whole window: the table, the empty
/// board and the panel with the recorder.
struct BoardPictures {
    QPixmap empty;
    QPixmap full;  ///< the same once more, to paint on
};

/// Paints as much of the empty board as lies on the canvas, which belongs to a picture of the whole
/// window: every pixel of it, opaque.
void PaintEmptyBoard(const Canvas& canvas, const Layout& layout, QSize devicePixels);

/// Such a picture cut for so many processors: beside the board, so that few drawings are in two parts,
/// and then across.
std::vector<QRect> SharesOf(const Layout& layout, QSize devicePixels, int processors);

/// Makes them: the program's largest drawing, a tenth of a second of one processor at 1920x1080. It is
/// painted in parts side by side, for the screen the program starts on beside the rest of the start.
class EmptyBoard {
public:
    EmptyBoard() = default;
    ~EmptyBoard();
    EmptyBoard(const EmptyBoard&) = delete;
    EmptyBoard& operator=(const EmptyBoard&) = delete;

    /// Begins to paint it, where there are several processors with one of them left to whatever else has
    /// to be done. `painted` is called once nothing of it is under way any more, by whatever thread.
    void Prepare(const Layout& layout, QSize devicePixels, const std::function<void()>& painted = {});
    /// Takes that processor too: the board is waited for now.
    void Hurry();
    /// Whether a part of it is still to be painted.
    bool IsUnderWay() const { return left_ && *left_ != 0; }
    /// The pictures for a window of that many device pixels: the prepared ones when they are of that
    /// size, else painted now.
    BoardPictures PicturesFor(const Layout& layout, QSize devicePixels);

private:
    void BeginShares(std::size_t count);
    void WaitForShares();

    std::shared_ptr<std::atomic<std::size_t>> left_;  // parts that are not painted
    QImage empty_, full_;                             // painted on by all of them
    std::vector<std::function<void()>> waiting_;      // parts that are not begun
    std::vector<std::future<void>> shares_;           // parts that are under way
};

}  // namespace zorva
