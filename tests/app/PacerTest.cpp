#include "app/Pacer.h"

#include <gtest/gtest.h>

#include <tuple>

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <vector>

#include "app/WindowOutside.h"

// That mouse and keyboard stay queued meanwhile, in order, cannot be seen here: events made by a test
// do not go through the window system's queue. The tests with a real window click during walks.

namespace zorva::test {
namespace {

TEST(Pauses, ShrinkWithTheSpeed) {
    const std::tuple<Short, Short, double, double> rows[] = {
        {100, 0, 1000, 200}, {100, 100, 0, 0}, {80, 75, 200, 40},  {1, 50, 5, 1},
        {-1, 0, 0, 0},       {80, 99, 8, 1.6}, {-32768, 50, 0, 0}, {32767, 0, 327670, 65534},
    };
    for (const auto& [n, speed, pause, step] : rows) {
        EXPECT_NEAR(PauseMilliseconds(n, speed), pause, 1e-6) << n << " at " << speed;
        EXPECT_NEAR(StepMilliseconds(n, speed), step, 1e-6) << n << " at " << speed;
    }
}

double Waited(double milliseconds, const Pacer::Frame& frame = {}) {
    QElapsedTimer clock;
    clock.start();
    Pacer{}.Wait(milliseconds, frame);
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

// A machine that is busy may wake us late, never early.
TEST(Pacer, WaitsAsLongAsAsked) {
    for (const double milliseconds : {20.0, 120.0, 300.0}) {
        const double waited = Waited(milliseconds);
        EXPECT_GE(waited, milliseconds - 2);
        EXPECT_LT(waited, milliseconds + 2000);
    }
    for (const double nothing : {0.0, -5.0, 0.2}) {
        int frames = 0;
        EXPECT_LT(Waited(nothing, [&](double progress) { frames += progress == 1; }), 100);
        EXPECT_EQ(frames, 1) << "what moves must arrive, also without a wait";
    }
}

TEST(Pacer, ShowsFramesUpToTheLastAndLeavesTheProcessorAlone) {
    std::vector<double> frames;
    const std::clock_t before = std::clock();
    Waited(320, [&](double progress) { frames.push_back(progress); });
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 16) << "a fifth of the wait";
    ASSERT_GE(frames.size(), 2u);
    EXPECT_LE(frames.size(), 25u);
    EXPECT_TRUE(std::is_sorted(frames.begin(), frames.end()));
    EXPECT_GT(frames.front(), 0);
    EXPECT_EQ(frames.back(), 1);
}

TEST(Pacer, PutsWishesOffUntilTheWaitIsOver) {
    Pacer pacer;
    QObject context;
    std::vector<int> order;
    pacer.AfterWait(&context, [&order] { order.push_back(1); });
    QTimer::singleShot(10, &context,
                       [&] { pacer.AfterWait(&context, [&order] { order.push_back(3); }); });
    pacer.Wait(80);
    order.push_back(2);
    Pacer{}.Wait(120);  // another's wait holds nothing back
    QDialog message;
    message.setModal(true);
    message.show();
    pacer.AfterWait(&context, [&order] { order.push_back(4); });  // lost
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

}  // namespace
}  // namespace zorva::test
