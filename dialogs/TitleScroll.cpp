#include "dialogs/TitleScroll.h"

namespace zorva {

void TitleScroll::Step() {
    --position_;
    if (position_ >= Last) return;
    position_ = First;
    ++pass_;
    if (pass_ > Passes) isOver_ = true;
}

int StepClock::Due(double now) {
    constexpr double interval = WholeTime / TitleScroll::Steps;
    int due = 0;
    for (; next_ <= now && due < MostAtOnce; next_ += interval) ++due;
    if (due == MostAtOnce && next_ < now) next_ = now;
    return due;
}

}  // namespace zorva
