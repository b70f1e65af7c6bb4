#pragma once

#include <stdexcept>

namespace zorva {

/// What the person who called the tool can put right, told in one line. It ends the tool and never
/// leaves this folder.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace zorva
