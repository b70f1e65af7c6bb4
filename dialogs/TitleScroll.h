#pragma once

#include "core/Types.h"

namespace zorva {

/// Where the title is while it scrolls: up from below its window until nothing of it is left, twice.
class TitleScroll {
public:
    static constexpr Short First = 150;  ///< one pixel lower nothing would be seen
    static constexpr Short Last = -200;
    static constexpr Short Passes = 2;
    static constexpr int Steps = Passes * (First - Last + 1);

    /// The title's top edge, in pixels from that of the window.
    Short Position() const { return position_; }
    bool IsOver() const { return isOver_; }

    /// One pixel up.
    void Step();
    /// Ends the scrolling where it is.
    void Stop() { isOver_ = true; }

private:
    Short position_ = First;
    Short pass_ = 1;
    bool isOver_ = false;
};

/// The steps that are due at times of a clock, in milliseconds: evenly spread over the whole time of
/// the title. Time lost to something else is not made up for by a leap.
class StepClock {
public:
    static constexpr double WholeTime = 6000;
    static constexpr int MostAtOnce = 4;

    /// How many steps are to be made now. The clock never goes back.
    int Due(double now);

private:
    double next_ = 0;  // when the next step is due
};

}  // namespace zorva
