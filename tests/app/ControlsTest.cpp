#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include "app/LargeKeys.h"
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
    WoodenKey& button = mesa.Buttons().Button(0);
    mesa.ButtonPressed = [&button](int index) { button.ShowPressed(index == 0); };
    QElapsedTimer clock;
    const auto press = [&] { button.click(); };  // as screen readers press it
    const std::tuple<QWidget*, std::function<void()>, std::function<void()>> keys[] = {
        {&button, press, [&] { button.ShowPressed(false); }},
        {&strip, [&] { strip.ShowPressed(RecorderKey::OnOff, true); },
         [&] { strip.ShowPressed(RecorderKey::OnOff, false); }}};
    for (const auto& [widget, goDown, goUp] : keys) {
        const QImage atRest = widget->grab().toImage();
        clock.start();
        goDown();
        EXPECT_NE(widget->grab().toImage(), atRest);
        goUp();
        EXPECT_TRUE(QTest::qWaitFor([&, w = widget] { return w->grab().toImage() == atRest; }));
        EXPECT_GE(clock.elapsed(), 60) << "too short to be seen";
    }
    // The on/off key takes clicks up to 44, although its drawing reaches 48.
    int presses = 0;
    strip.Pressed = [&](RecorderKey key) { presses += key == RecorderKey::OnOff; };
    QTest::mouseClick(&strip, Qt::RightButton, {}, {6, 10});
    QTest::mouseClick(&strip, Qt::LeftButton, {}, {6, 21});
    for (const int x : {6, 44, 45}) {
        QTest::mouseClick(&strip, Qt::LeftButton, {}, {x, 10});
    }
    EXPECT_EQ(presses, 2);
    mesa.ChancesPressed = [&] { ++presses; };
    QTest::mouseClick(mesa.findChild<QWidget*>("Pic_Probabilidades"), Qt::LeftButton);
    EXPECT_EQ(presses, 3);
}

TEST(Controls, AreExplainedBesideTheHand) {
    for (const QSize size : {QSize(640, 480), QSize(1366, 768), QSize(3840, 2160)}) {
        BoardWindow board("", size);
        Mesa& mesa = board.mesa;
        mesa.Strip().setToolTip("Avanzar 1 jugada");
        const QCursor hand = mesa.Shared().cursors.Hand();
        for (QWidget* control :
             {static_cast<QWidget*>(&mesa.Strip()), static_cast<QWidget*>(&mesa.Buttons().Button(2))}) {
            for (const QPoint at : {QPoint(300, 100), control->screen()->geometry().topRight()}) {
                QHelpEvent event(QEvent::ToolTip, {5, 5}, at);
                QApplication::sendEvent(control, &event);
                ASSERT_TRUE(QToolTip::isVisible());
                const QRect image(at - hand.hotSpot(), hand.pixmap().size());
                for (const QWidget* window : QApplication::topLevelWidgets()) {
                    EXPECT_FALSE(window->inherits("QTipLabel") && window->geometry().intersects(image));
                }
            }
        }
    }
    QToolTip::hideText();
}

TEST(Controls, ShowTheHandWhereTheyAreLiveAndTheHourglassOverEverything) {
    BoardWindow window;
    Mesa& mesa = window.mesa;
    bool isLive = true;
    mesa.Buttons().IsLive = [&](int index) { return isLive == (index == MenuButtons::Advice); };
    mesa.Strip().IsLive = [&](RecorderKey key) { return isLive && key == RecorderKey::BackOne; };
    QCursor::setPos(mesa.Strip().mapToGlobal(QPoint(6, 30)));
    isLive = false;
    mesa.RefreshCursor();
    const QImage unlit = mesa.Strip().grab().toImage();
    for (const bool live : {true, false}) {  // it changes under a mouse that stands still
        isLive = live;
        mesa.RefreshCursor();
        const auto isHand = [](QWidget& widget) { return widget.cursor().shape() == Qt::BitmapCursor; };
        EXPECT_EQ(isHand(mesa.Strip()), live);
        EXPECT_EQ(mesa.Strip().grab().toImage() != unlit, live);
        EXPECT_EQ(isHand(mesa.Buttons().Button(MenuButtons::Advice)), live);
        EXPECT_EQ(isHand(mesa.Buttons().Button(MenuButtons::Leave)), !live);
    }
    mesa.windowHandle()->setCursor(Qt::PointingHandCursor);  // as a dialog may leave it
    mesa.RefreshCursor();
    EXPECT_EQ(mesa.windowHandle()->cursor().shape(), Qt::ArrowCursor);
    const auto isWaiting = [] {
        const QCursor* const cursor = QGuiApplication::overrideCursor();
        return cursor != nullptr && cursor->shape() == Qt::WaitCursor;
    };
    mesa.SetScreenCursor(ScreenCursor::Hourglass);
    EXPECT_TRUE(isWaiting());
    QDialog question(&mesa);
    question.setModal(true);
    question.show();
    EXPECT_FALSE(isWaiting()) << "a question waits for an answer";
    question.hide();
    EXPECT_TRUE(isWaiting());
    mesa.SetScreenCursor(ScreenCursor::OfTheBoard);
    EXPECT_FALSE(isWaiting());
}

TEST(Controls, OfTheRecorderAreThereOnceMoreLargeWhereThereIsRoom) {
    BoardWindow small;
    small.mesa.Scene().ShowTape(3);
    small.mesa.RefreshCursor();
    EXPECT_TRUE(small.mesa.RecorderKeys().Key(RecorderKey::OnOff).isVisible());
    EXPECT_FALSE(small.mesa.RecorderKeys().Key(RecorderKey::BackOne).isVisible());
    BoardWindow window("", {1366, 768});
    Mesa& mesa = window.mesa;
    WoodenKey& key = mesa.RecorderKeys().Key(RecorderKey::BackOne);
    EXPECT_TRUE(mesa.RecorderKeys().Key(RecorderKey::OnOff).isVisible());
    EXPECT_FALSE(key.isVisible()) << "the recorder is off";
    mesa.Scene().ShowTape(3);
    mesa.RefreshCursor();
    EXPECT_TRUE(key.isVisible());
    std::vector<RecorderKey> pressed;
    int onBoard = 0;
    mesa.Strip().Pressed = [&](RecorderKey which) { pressed.push_back(which); };
    mesa.BoardReleased = [&](Point, bool isOnBoard) { onBoard += isOnBoard ? 1 : 0; };
    QTest::mouseClick(&key, Qt::LeftButton);
    EXPECT_EQ(pressed, std::vector{RecorderKey::BackOne});
    QTest::mouseClick(&mesa, Qt::LeftButton, {}, key.geometry().topRight() + QPoint(2, 20));
    EXPECT_EQ(onBoard, 1) << "between two keys lies the board";
    const auto look = [&] { return key.grab().toImage(); };
    const QImage dead = look();
    bool isLive = false;
    mesa.Strip().IsLive = [&](RecorderKey) { return isLive; };
    QList<QImage> looks{dead};
    const auto change = [&](const std::function<void()>& how) {
        how();
        mesa.RefreshCursor();
        EXPECT_FALSE(looks.contains(look())) << looks.size();
        looks << look();
    };
    change([&] { isLive = true; });
    change([&] { key.setAttribute(Qt::WA_UnderMouse); });
    change([&] { mesa.ShowRecorderKey(RecorderKey::BackOne, true); });
    EXPECT_NE(mesa.Strip().grab().toImage(), BoardWindow("", {1366, 768}).mesa.Strip().grab().toImage());
    isLive = false;
    mesa.ShowRecorderKey(RecorderKey::BackOne, false);
    mesa.RefreshCursor();
    EXPECT_TRUE(QTest::qWaitFor([&] { return look() == dead; })) << "no light on a dead key";
    mesa.RecorderKeys().Explain(true);
    EXPECT_TRUE(key.toolTip().contains("Control + flecha izquierda"));
}

TEST(Controls, LieInTheMiddleOfATallScreen) {
    BoardWindow window("", {768, 1024});
    EXPECT_EQ(window.mesa.LayoutPoint({10, 205 + 20}), (Point{10, 20}));
}

}  // namespace
}  // namespace zorva::test
