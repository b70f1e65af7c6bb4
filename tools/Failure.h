#pragma once

#include <stdexcept>

namespace zorva {

/// A mistake that the user of the tool can correct, such as a wrong option, described in one line.
/// RunSim catches it, prints it and ends the tool. It is never thrown out of this folder.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace zorva
