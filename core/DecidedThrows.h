#pragma once

#include "core/Dice.h"
#include "core/SilentOutside.h"

namespace zorva {

/// A silent world in which somebody decides each throw as a whole. The faces shown before the die
/// lies still are two others in turn, so that no face follows itself.
class DecidedThrows : public SilentOutside {
public:
    Short RollFace() final {
        if (!IsWatched()) return NextThrow();
        if (shown_ == 0) thrown_ = NextThrow();
        if (++shown_ == RollsOfAThrow) {
            shown_ = 0;
            return thrown_;
        }
        return static_cast<Short>((thrown_ + shown_ % 2) % 6 + 1);
    }

protected:
    /// The next throw, 1..6.
    virtual Short NextThrow() = 0;

private:
    Short thrown_ = 0;
    Short shown_ = 0;
};

}  // namespace zorva
