#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The `dice` command: throws the die as the window does and prints a table for each test of
/// DiceStatistics. Each count stands beside the band in which 99 of 100 counts of a fair die lie; each
/// table ends with its chi-square. tools/measure_dice.py reads these tables.
void DiceCommand(const std::vector<std::string>& arguments, std::ostream& out);

}  // namespace zorva
