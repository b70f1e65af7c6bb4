#include "app/Voice.h"

#include <algorithm>

#include "app/BoardAccessibility.h"
#include "app/Mesa.h"

namespace zorva {
namespace {

// Some 14 characters a second: readers at their usual rate.
constexpr int millisecondsOfCharacter = 70;

}  // namespace

Voice::Voice(Mesa& mesa) : mesa_(mesa) {
    end_.setSingleShot(true);
    QObject::connect(&end_, &QTimer::timeout, &mesa, [this] {
        if (Freed) Freed();
    });
    QAccessible::installActivationObserver(this);
}

Voice::~Voice() {
    QAccessible::removeActivationObserver(this);
}

bool Voice::IsFree() const {
    return !end_.isActive();
}

void Voice::Say(const QString& sentence) {
    if (!IsHeard() || sentence.isEmpty() || mesa_.IsLeft()) return;
    Announce(mesa_, sentence);
    const int still = std::max(0, end_.remainingTime());
    end_.start(still + static_cast<int>(sentence.size()) * millisecondsOfCharacter);
}

void Voice::BreakOff() {
    end_.stop();
    if (Freed) Freed();
}

}  // namespace zorva
