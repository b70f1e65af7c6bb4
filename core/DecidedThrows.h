#pragma once

#include "core/Dice.h"
#include "core/SilentOutside.h"

namespace zorva {

/// A silent world in which a derived class decides each throw by one number: from a script, a seed or a
/// test. The nine faces that roll by before the throw are made up here.
class DecidedThrows : public SilentOutside {
public:
    /// Two made-up faces take turns, both unlike the throw, since no face may follow itself.
    Short RollFace() final {
        if (rolled_ == 0) thrown_ = NextThrow();
        if (++rolled_ == FacesOfAThrow) {
            rolled_ = 0;
            return thrown_;
        }
        return static_cast<Short>((thrown_ + rolled_ % 2) % 6 + 1);
    }

protected:
    /// The next throw, 1..6.
    virtual Short NextThrow() = 0;

private:
    Short thrown_ = 0;
    Short rolled_ = 0;  // faces of the current throw returned so far
};

}  // namespace zorva
