#include <gtest/gtest.h>

#include <QTest>

#include "app/MenuButtons.h"
#include "app/RecorderStrip.h"
#include "tests/app/BoardWindow.h"

namespace zorva::test {
namespace {

TEST(Controls, ExplainShowAndTakePresses) {
    BoardWindow window;
    Mesa& mesa = window.mesa;
    RecorderStrip& strip = mesa.Strip();
    for (const bool explains : {true, false}) {
        mesa.Buttons().Explain(explains);
        EXPECT_EQ(mesa.Buttons().Button(0).toolTip().isEmpty(), !explains);
    }
    MenuButton& button = mesa.Buttons().Button(0);
    const QImage buttonAtRest = button.grab().toImage();
    mesa.ButtonPressed = [&button](int index) { button.ShowPressed(index == 0); };
    button.click();  // as screen readers press it
    EXPECT_NE(button.grab().toImage(), buttonAtRest);
    const QImage atRest = strip.grab().toImage();
    strip.ShowPressed(RecorderKey::OnOff, true);
    EXPECT_NE(strip.grab().toImage(), atRest);
    // The on/off key takes clicks up to 44, although its drawing reaches 48.
    int presses = 0;
    strip.Pressed = [&](RecorderKey key) { presses += key == RecorderKey::OnOff; };
    QTest::mouseClick(&strip, Qt::RightButton, {}, {6, 10});
    QTest::mouseClick(&strip, Qt::LeftButton, {}, {6, 21});
    for (const int x : {6, 44, 45}) {
        QTest::mouseClick(&strip, Qt::LeftButton, {}, {x, 10});
    }
    EXPECT_EQ(presses, 2);
}

TEST(Controls, LieInTheMiddleOfATallScreen) {
    BoardWindow window("", {768, 1024});
    EXPECT_EQ(window.mesa.LayoutPoint({10, 205 + 20}), (Point{10, 20}));
}

}  // namespace
}  // namespace zorva::test
