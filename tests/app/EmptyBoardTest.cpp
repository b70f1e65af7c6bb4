#include "app/EmptyBoard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>
#include <QThread>
#include <functional>

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

void WaitUntilPainted(Mesa& mesa) {
    while (mesa.Scene().TheEmptyBoard().IsUnderWay()) QThread::msleep(1);
    QApplication::processEvents();
}

void WaitForBoard(Mesa& mesa) {
    QElapsedTimer clock;
    for (clock.start(); mesa.AwaitsBoard() && clock.elapsed() < 20000;) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
}

TEST(PreparedWindow, GetsItsBoardWhateverComesFirst) {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    struct Order {
        const char* name;
        bool isThereAtOnce;
        std::function<void(Mesa&)> open;
    };
    const Order orders[] = {
        {"shown, then painted", false, [](Mesa& mesa) { mesa.PrepareControls(), mesa.show(); }},
        {"hurried by nobody", false, [](Mesa& mesa) { mesa.show(); }},
        {"painted, then shown", true,
         [](Mesa& mesa) { mesa.PrepareControls(), WaitUntilPainted(mesa), mesa.show(); }},
        {"in another size", true,
         [](Mesa& mesa) { mesa.PrepareControls(), mesa.resize(700, 500), mesa.show(); }},
        {"prepared once more while it is shown", true,
         [&](Mesa& mesa) {
             mesa.show();
             WaitForBoard(mesa);
             mesa.PrepareFor(screen);
             mesa.PrepareControls();
         }},
    };
    for (const auto& [name, isThereAtOnce, open] : orders) {
        SCOPED_TRACE(name);
        GameState state;
        Settings settings;
        Mesa mesa(state, settings);
        mesa.PrepareFor(screen);
        open(mesa);
        if (isThereAtOnce) {
            EXPECT_FALSE(mesa.AwaitsBoard());
        }
        WaitForBoard(mesa);
        EXPECT_FALSE(mesa.AwaitsBoard());
        EXPECT_TRUE(mesa.updatesEnabled());
        EXPECT_EQ(mesa.Scene().Picture().size(), mesa.size() * mesa.devicePixelRatio());
    }
}

}  // namespace
}  // namespace zorva::test
