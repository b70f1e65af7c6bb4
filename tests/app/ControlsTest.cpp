#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include "app/MenuButtons.h"
#include "app/Mesa.h"
#include "app/RecorderStrip.h"

namespace zorva::test {
namespace {

TEST(Controls, ExplainShowAndTakePresses) {
    GameState state;
    Settings settings;
    Mesa mesa(state, settings);
    mesa.resize(1024, 768);
    mesa.show();
    RecorderStrip& strip = mesa.Strip();
    for (const bool explains : {true, false}) {
        mesa.Buttons().Explain(explains);
        EXPECT_EQ(mesa.Buttons().Button(0).toolTip().isEmpty(), !explains);
    }
    const QImage atRest = strip.grab().toImage();
    strip.ShowPressed(RecorderKey::OnOff, true);
    EXPECT_NE(strip.grab().toImage(), atRest);
    // The on/off key takes clicks up to 44, although its drawing reaches 48.
    int presses = 0;
    strip.Pressed = [&](RecorderKey key) { presses += key == RecorderKey::OnOff; };
    for (const double x : {6, 44, 45}) {
        QMouseEvent press(QEvent::MouseButtonPress, {x, 10}, strip.mapToGlobal(QPointF(x, 10)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&strip, &press);
    }
    EXPECT_EQ(presses, 2);
}

}  // namespace
}  // namespace zorva::test
