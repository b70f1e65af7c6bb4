#pragma once

#include "core/Types.h"

namespace zorva {

/// Where the title is while it scrolls: up from below its window until nothing of it is left, twice.
/// Each of the 351 positions from First to Last is shown in each pass.
class TitleScroll {
public:
    static constexpr Short First = 150;  ///< one pixel lower nothing would be seen
    static constexpr Short Last = -200;
    static constexpr Short Passes = 2;
    static constexpr int Steps = Passes * (First - Last + 1);

    /// The title's top edge, in layout pixels from that of its window.
    Short Position() const { return position_; }
    bool IsOver() const { return isOver_; }

    /// Moves one layout pixel up, after Last back to First, after the last pass to the end.
    void Step();
    /// Ends the scrolling where it is.
    void Stop() { isOver_ = true; }

private:
    Short position_ = First;
    Short pass_ = 1;
    bool isOver_ = false;
};

/// Tells how many steps are due: they are spread evenly over the whole time of the title. When the
/// program was busy with something else, the title goes on from where it was instead of leaping.
class StepClock {
public:
    static constexpr double WholeTime = 6000;  ///< milliseconds
    static constexpr int MostAtOnce = 4;

    /// The steps to make now, 0..MostAtOnce. `now` is in milliseconds since the start and never goes
    /// back.
    int Due(double now);

private:
    double next_ = 0;  // when the next step is due
};

}  // namespace zorva
