#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The `dice` command: throws the die as a watched game does and prints what came, each count with the
/// band in which 99 of 100 counts of a fair die lie, and for each table how likely chance alone is to
/// deviate as much.
void DiceCommand(const std::vector<std::string>& arguments, std::ostream& out);

}  // namespace zorva
