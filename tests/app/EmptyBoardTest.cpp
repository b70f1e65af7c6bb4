#include "app/EmptyBoard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <QThread>

#include "app/BoardScene.h"
#include "app/Canvas.h"
#include "app/Mesa.h"

namespace zorva::test {
namespace {

QImage Painted(QSize screen, int processors, Qt::GlobalColor below) {
    const Layout layout = LayoutFor(screen.width(), screen.height());
    QImage picture(screen, Canvas::Format);
    picture.fill(below);
    for (const QRect& share : SharesOf(layout, screen, processors)) {
        PaintEmptyBoard(Canvas(picture).Within(share), layout, screen);
    }
    return picture;
}

int MostDifferent(const QImage& one, const QImage& other) {
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y), b = other.pixel(x, y);
            most = std::max({most, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                             std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return most;
}

// What the board and the panel hide of the table is not painted, and the rest by several at a time.
TEST(EmptyBoard, CoversTheWholeWindowHoweverItIsCut) {
    for (const QSize screen : {QSize(640, 480), QSize(1366, 768), QSize(600, 1000), QSize(1200, 400)}) {
        const QImage whole = Painted(screen, 1, Qt::magenta);
        for (const int processors : {1, 2, 3, 4, 64}) {
            SCOPED_TRACE(std::to_string(screen.width()) + " " + std::to_string(processors));
            EXPECT_LE(MostDifferent(whole, Painted(screen, processors, Qt::green)), 3);
        }
    }
}

/// A board window that was prepared for the screen.
struct PreparedWindow : testing::Test {
    void SetUp() override { mesa.PrepareFor(*QGuiApplication::primaryScreen()); }

    void ExpectBoard() {
        QElapsedTimer clock;
        for (clock.start(); mesa.AwaitsBoard() && clock.elapsed() < 20000;) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        }
        EXPECT_FALSE(mesa.AwaitsBoard());
        EXPECT_TRUE(mesa.updatesEnabled());
        EXPECT_EQ(mesa.Scene().Picture().size(), mesa.size() * mesa.devicePixelRatio());
    }

    GameState state;
    Settings settings;
    Mesa mesa{state, settings};
};

TEST_F(PreparedWindow, GetsItsBoardAfterItWasShown) {
    mesa.PrepareControls();
    mesa.show();
    ExpectBoard();
}

TEST_F(PreparedWindow, GetsItsBoardAlsoWhenNobodyHurriesIt) {
    mesa.show();
    ExpectBoard();
}

TEST_F(PreparedWindow, HasItsBoardAtOnceWhenThatIsPainted) {
    mesa.PrepareControls();
    while (mesa.Scene().TheEmptyBoard().IsUnderWay()) QThread::msleep(1);
    QApplication::processEvents();
    mesa.show();
    EXPECT_FALSE(mesa.AwaitsBoard());
    ExpectBoard();
}

TEST_F(PreparedWindow, HasItsBoardAtOnceInAnotherSize) {
    mesa.PrepareControls();
    mesa.resize(700, 500);
    mesa.show();
    EXPECT_FALSE(mesa.AwaitsBoard());
    ExpectBoard();
}

TEST_F(PreparedWindow, KeepsTheBoardItShowsWhenItIsPreparedOnceMore) {
    mesa.show();
    ExpectBoard();
    mesa.PrepareFor(*QGuiApplication::primaryScreen());
    mesa.PrepareControls();
    EXPECT_FALSE(mesa.AwaitsBoard());
    ExpectBoard();
}

}  // namespace
}  // namespace zorva::test
