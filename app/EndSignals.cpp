#include "app/EndSignals.h"

#include <QCoreApplication>
#include <QEvent>

#ifdef __linux__
#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>
#endif

namespace zorva {
namespace {

/// Takes the requests to quit that the application gets from outside.
class QuitRequests : public QObject {
public:
    QuitRequests(QObject* application, std::function<void()> called)
        : QObject(application), called_(std::move(called)) {
        application->installEventFilter(this);
    }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (receiver != parent() || event->type() != QEvent::Quit) return false;
        called_();
        return true;
    }

private:
    const std::function<void()> called_;
};

}  // namespace

void OnQuitRequest(std::function<void()> called) {
    new QuitRequests(QCoreApplication::instance(), std::move(called));
}

#ifdef __linux__
namespace {

sigset_t EndSignals() {
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&wanted, signal);
    return wanted;
}

// Runs in a thread of its own, and ends the program even if the window's thread hangs in the disk.
void AwaitEndSignal(int bell) {
    const sigset_t wanted = EndSignals();
    int signal = 0;
    sigwait(&wanted, &signal);
    if (write(bell, "", 1) == 1) std::this_thread::sleep_for(longestEnd);
    std::_Exit(0);
}

}  // namespace

void HoldBackEndSignals() {
    const sigset_t wanted = EndSignals();
    pthread_sigmask(SIG_BLOCK, &wanted, nullptr);
}

void OnEndSignal(std::function<void()> called) {
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        const sigset_t wanted = EndSignals();
        pthread_sigmask(SIG_UNBLOCK, &wanted, nullptr);
        return;
    }
    auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [notifier, called = std::move(called)] {
                         notifier->setEnabled(false);
                         called();
                     });
    std::thread(AwaitEndSignal, ends[1]).detach();
}
#else
void HoldBackEndSignals() {}
void OnEndSignal(std::function<void()>) {}
#endif

}  // namespace zorva
