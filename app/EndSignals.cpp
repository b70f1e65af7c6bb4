#include "app/EndSignals.h"

#ifdef __linux__
#include <sys/signalfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>
#endif

namespace zorva {

#ifdef __linux__
namespace {

sigset_t EndSignals() {
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&wanted, signal);
    return wanted;
}

}  // namespace

void HoldBackEndSignals() {
    const sigset_t wanted = EndSignals();
    pthread_sigmask(SIG_BLOCK, &wanted, nullptr);
}

void OnEndSignal(std::function<void()> called) {
    const sigset_t wanted = EndSignals();
    const int descriptor = signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor < 0) {
        pthread_sigmask(SIG_UNBLOCK, &wanted, nullptr);
        return;
    }
    auto* notifier =
        new QSocketNotifier(descriptor, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [descriptor, called = std::move(called)] {
                         signalfd_siginfo signal{};
                         if (read(descriptor, &signal, sizeof signal) > 0) called();
                     });
}
#else
void HoldBackEndSignals() {}
void OnEndSignal(std::function<void()>) {}
#endif

}  // namespace zorva
