#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QTest>
#include <set>

#include "dialogs/TitleScroll.h"
#include "dialogs/careta.h"
#include "tests/dialogs/WindowFixture.h"

namespace zorva {
namespace {

TEST(TitleScrollTest, PassesTwiceThroughAllPositions) {
    TitleScroll scroll;
    int steps = 0;
    std::multiset<Short> positions;
    for (; !scroll.IsOver(); ++steps) {
        positions.insert(scroll.Position());
        scroll.Step();
    }
    EXPECT_EQ(steps, 2 * 351);
    for (Short position = -200; position <= 150; ++position) EXPECT_EQ(positions.count(position), 2u);
    EXPECT_EQ(positions.size(), 702u);
}

TEST(StepClockTest, SpreadsTheStepsOverSixSeconds) {
    StepClock clock;
    int steps = 0;
    for (int now = 0; now < 3000; now += 8) steps += clock.Due(now);
    EXPECT_NEAR(steps, 351, 2);
    for (int now = 3000; now < 6000; now += 16) steps += clock.Due(now);
    EXPECT_NEAR(steps, 702, 3);
}

TEST(StepClockTest, DoesNotLeapAfterAStandstill) {
    StepClock clock;
    clock.Due(0);
    EXPECT_LE(clock.Due(2000), StepClock::MostAtOnce);
    EXPECT_LE(clock.Due(2009), 2);
}

using SplashTest = WindowFixture;

TEST_F(SplashTest, RunsThroughAndLetsOtherWorkGoOn) {
    int worked = 0;
    int turns = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [&turns] { ++turns; });
    other.start(20);
    QElapsedTimer clock;
    clock.start();
    ShowSplash(&board, *services, [&worked] { ++worked; });
    EXPECT_NEAR(static_cast<double>(clock.elapsed()), 6000, 1500);
    EXPECT_EQ(worked, 1);
    EXPECT_GT(turns, 150);
}

TEST_F(SplashTest, AnyKeyOrClickOrCloseEndsIt) {
    const std::function<void(QWidget&)> ways[] = {
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Escape); },
        [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Tab); },
        [](QWidget& window) { QTest::mouseClick(Control(window, "Pic_Careta"), Qt::LeftButton); },
        [](QWidget& window) { QTest::mouseClick(Control(window, "Pic_Careta"), Qt::RightButton); },
        [](QWidget& window) { window.close(); },
    };
    for (const auto& end : ways) {
        int worked = 0;
        QElapsedTimer clock;
        clock.start();
        QTimer once;
        once.setSingleShot(true);
        QObject::connect(&once, &QTimer::timeout, [&end] { end(*QApplication::activeModalWidget()); });
        once.start(100);
        ShowSplash(nullptr, *services, [&worked] { ++worked; });
        EXPECT_LT(clock.elapsed(), 1500);
        EXPECT_EQ(worked, 1);
    }
}

TEST_F(SplashTest, AModifierAloneDoesNotEndIt) {
    careta window(nullptr, *services);
    Show(window);
    QTest::keyClick(window.focusWidget(), Qt::Key_Shift);
    EXPECT_FALSE(window.Scroll().IsOver());
    QTest::keyClick(window.focusWidget(), Qt::Key_A);
    EXPECT_TRUE(window.Scroll().IsOver());
}

// The window is empty at the first position and shows letters of the four colours half way.
TEST_F(SplashTest, TheTitleMovesThroughItsWindow) {
    TitleArtwork title(*services);
    const auto shown = [&](Short scroll) {
        QImage picture(TitleArtwork::Width, TitleScroll::First, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        title.Draw(painter, scroll, *services);
        return picture;
    };
    const QImage nothing = shown(TitleScroll::First);
    EXPECT_EQ(nothing, shown(TitleScroll::Last)) << "neither before nor after anything is to be seen";
    const QImage middle = shown(30);
    for (const int x : {50, 130, 210, 290, 370}) EXPECT_GT(qAlpha(middle.pixel(x, 70)), 250) << x;
    const QImage higher = shown(29);
    EXPECT_EQ(middle.copy(0, 1, 420, 148), higher.copy(0, 0, 420, 148))
        << "one pixel up, the same picture";
}

}  // namespace
}  // namespace zorva
