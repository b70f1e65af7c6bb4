#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The whole of zorva-sim but the process around it: carries out the command that the arguments
/// (without the program's name) ask for and returns the exit status, 0, or 2 after one line on `err`
/// that says what is wrong. `showProgress` allows a line on `err` that says how far a match is.
int RunSim(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
           bool showProgress);

}  // namespace zorva
