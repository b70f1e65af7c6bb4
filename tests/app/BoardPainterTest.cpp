#include "app/BoardPainter.h"

#include <gtest/gtest.h>

#include "app/Artwork.h"

namespace zorva::test {
namespace {

constexpr QSize screen(1024, 768);

/// A board that is painted as the view and the settings say.
struct PaintedBoard {
    QImage At(QSize size) {
        painter.SetScreen(LayoutFor(size.width(), size.height()), size);
        painter.Paint(view, settings, QRect(QPoint(), size));
        return painter.Picture().toImage();
    }
    /// How wide what differs from that image is, in device pixels.
    int WidthOfChange(const QImage& before) {
        const QImage after = At(screen);
        int left = screen.width(), right = 0;
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                if (before.pixel(x, y) == after.pixel(x, y)) continue;
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
        return right - left + 1;
    }

    Artwork artwork;
    BoardPainter painter{artwork};
    BoardView view;
    Settings settings;
};

TEST(BoardPainter, KeepsNothingOfAnotherScreen) {
    PaintedBoard board, fresh;
    for (BoardView* view : {&board.view, &fresh.view}) {
        view->onTurn = 2;
        view->dieFace[2] = 3;
        view->movable[11] = view->present[11] = true;
        view->at[11] = {300, 300};
    }
    board.At({640, 480});
    EXPECT_EQ(board.At(screen), fresh.At(screen));
    EXPECT_EQ(board.artwork.Pixmap("die_1", {20, 30}).size(), QSize(20, 30));
    EXPECT_EQ(board.artwork.Pixmap("die_1", {20, 40}).size(), QSize(20, 40));
}

TEST(BoardPainter, DrawsRaisedPiecesLargerAndAbsentPlayersFainter) {
    PaintedBoard board;
    const QImage empty = board.At(screen);
    board.view.present[11] = true;
    board.view.at[11] = {384, 384};
    const int lying = board.WidthOfChange(empty);
    board.view.height[11] = 28;
    board.view.inAir = 11;
    EXPECT_GT(board.WidthOfChange(empty), lying + 5);
    board.view = {};
    board.settings.PlayerActive[3] = 2;
    EXPECT_GT(board.WidthOfChange(empty), 10) << "the name of a colour that does not play";
}

}  // namespace
}  // namespace zorva::test
