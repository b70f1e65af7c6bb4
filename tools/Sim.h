#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// Runs zorva-sim with these arguments (without the program's name). Returns the exit status: 0, or 2
/// after a line on `err` that says what is wrong. `showProgress` allows a match to show on `err` how
/// many games are finished; it is meant for terminals. Tests call this instead of starting a process.
int RunSim(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
           bool showProgress);

}  // namespace zorva
