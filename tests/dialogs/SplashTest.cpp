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
    std::multiset<Short> positions;
    for (; !scroll.IsOver(); scroll.Step()) positions.insert(scroll.Position());
    for (Short position = -200; position <= 150; ++position) EXPECT_EQ(positions.count(position), 2u);
    EXPECT_EQ(positions.size(), 702u);
}

TEST(StepClockTest, SpreadsTheStepsOverSixSecondsWithoutALeapAfterAStandstill) {
    StepClock clock;
    int steps = 0;
    for (int now = 0; now < 3000; now += 8) steps += clock.Due(now);
    EXPECT_NEAR(steps, 351, 2);
    for (int now = 3000; now < 6000; now += 16) steps += clock.Due(now);
    EXPECT_NEAR(steps, 702, 3);
    EXPECT_LE(clock.Due(8000), StepClock::MostAtOnce);
    EXPECT_LE(clock.Due(8009), 2);
}

using SplashTest = WindowFixture;

TEST_F(SplashTest, ItsSmallBoardHasItsSquares) {
    QImage picture(TitleArtwork::Width, TitleArtwork::Height, QImage::Format_RGB32);
    QPainter painter(&picture);
    TitleArtwork(*services).Draw(painter, 0, *services);
    painter.end();
    EXPECT_LT(picture.pixelColor(211, 184).blue(), 90) << "yellow";
}

TEST_F(SplashTest, AnyKeyOrClickOrCloseEndsItButNoModifier) {
    const std::pair<bool, std::function<void(QWidget&)>> ways[] = {
        {true, [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Escape); }},
        {true, [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Tab); }},
        {true, [](QWidget& title) { QTest::mouseClick(Control(title, "Pic_Careta"), Qt::RightButton); }},
        {true, [](QWidget& window) { window.close(); }},
        {false, [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Shift); }},
    };
    for (const auto& [ends, act] : ways) {
        careta window(nullptr, *services, [] {});
        Show(window);
        act(window);
        EXPECT_EQ(window.Scroll().IsOver(), ends);
    }
}

}  // namespace
}  // namespace zorva
