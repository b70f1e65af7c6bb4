#include "app/Pacer.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cmath>

namespace zorva {
namespace {

constexpr int frameMilliseconds = 16;
constexpr int retryMilliseconds = 20;

// A loop of processEvents() without user input would strand the clicks made meanwhile until the next
// event from the window system; a nested loop delivers them as soon as it ends.
void RunLoop(double milliseconds, const Pacer::Frame& frame) {
    QEventLoop loop;
    QElapsedTimer clock;
    clock.start();
    QTimer end;
    end.setTimerType(Qt::PreciseTimer);
    end.setSingleShot(true);
    QObject::connect(&end, &QTimer::timeout, &loop, [&loop] { loop.quit(); });
    end.start(static_cast<int>(std::lround(std::max(1.0, milliseconds))));
    QTimer frames;
    if (frame) {
        frames.setTimerType(Qt::PreciseTimer);
        QObject::connect(&frames, &QTimer::timeout, &loop, [&] {
            frame(std::min(1.0, static_cast<double>(clock.nsecsElapsed()) / 1e6 / milliseconds));
        });
        frames.start(frameMilliseconds);
    }
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (auto* dispatcher = QAbstractEventDispatcher::instance()) dispatcher->wakeUp();
}

}  // namespace

void Pacer::AfterWait(QObject* context, const std::function<void()>& called) {
    if (waitsOn_ == 0) {
        if (QApplication::activeModalWidget() == nullptr) called();
        return;
    }
    QTimer::singleShot(retryMilliseconds, context,
                       [this, context, called] { AfterWait(context, called); });
}

void Pacer::Wait(double milliseconds, const Frame& frame) {
    if (milliseconds >= 0.5) {
        ++waitsOn_;
        RunLoop(milliseconds, frame);
        --waitsOn_;
    }
    if (frame) frame(1);
}

}  // namespace zorva
