#include "app/Pacer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <vector>

#include "app/WindowOutside.h"

// That mouse and keyboard stay queued meanwhile, in order, cannot be seen here: events made by a test
// do not go through the window system's queue. The tests with a real window click during walks.

namespace zorva::test {
namespace {

TEST(Pauses, ShrinkWithTheSpeed) {
    const struct {
        Short n, speed;
        double pause, step;  // milliseconds
    } rows[] = {
        {100, 0, 1000, 200}, {100, 50, 500, 100}, {100, 100, 0, 0},   {80, 50, 400, 80},
        {80, 0, 800, 160},   {80, 75, 200, 40},   {80, 99, 8, 1.6},   {1, 50, 5, 1},
        {0, 0, 0, 0},        {-1, 0, 0, 0},       {-32768, 50, 0, 0}, {32767, 0, 327670, 65534},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(PauseMilliseconds(row.n, row.speed), row.pause, 1e-6)
            << row.n << " at " << row.speed;
        EXPECT_NEAR(StepMilliseconds(row.n, row.speed), row.step, 1e-6) << row.n << " at " << row.speed;
    }
}

double Waited(double milliseconds, const Pacer::Frame& frame = {}) {
    QElapsedTimer clock;
    clock.start();
    Pacer{}.Wait(milliseconds, frame);
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Processor time this program has used, in milliseconds.
double ProcessorTime() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto milliseconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) * 1000 + static_cast<double>(t.tv_usec) / 1000;
    };
    return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
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

TEST(Pacer, ShowsFramesUpToTheLast) {
    std::vector<double> frames;
    Waited(320, [&](double progress) { frames.push_back(progress); });
    ASSERT_GE(frames.size(), 2u);
    EXPECT_LE(frames.size(), 25u);
    EXPECT_TRUE(std::is_sorted(frames.begin(), frames.end()));
    EXPECT_GT(frames.front(), 0);
    EXPECT_EQ(frames.back(), 1);
}

TEST(Pacer, LeavesTheProcessorAlone) {
    for (const bool withFrames : {false, true}) {
        int frames = 0;
        const double before = ProcessorTime();
        Waited(300, withFrames ? Pacer::Frame([&](double) { ++frames; }) : Pacer::Frame());
        EXPECT_LT(ProcessorTime() - before, 60) << frames << " frames";
    }
}

class PaintedWidget : public QWidget {
public:
    int paintings = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paintings; }
};

TEST(Pacer, KeepsWindowsPaintedAndTimersRunning) {
    PaintedWidget window;
    window.show();
    Waited(100);
    const int before = window.paintings;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(10);
    Waited(200, [&](double) { window.update(); });
    EXPECT_GT(window.paintings, before);
    EXPECT_GT(ticks, 0);
}

TEST(Pacer, WaitsWithinAWait) {
    bool inner = false;
    QTimer::singleShot(10, [&] {
        Pacer{}.Wait(150);
        inner = true;
    });
    EXPECT_GE(Waited(40), 38);
    EXPECT_TRUE(inner);
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
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

}  // namespace
}  // namespace zorva::test
