#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The `match` command: plays whole games on several cores and prints who won how often. Everything
/// but the last line of the report, the speed, is the same for any number of threads. With --from it
/// plays on the game of a settings file and prints the wins alone. While games are played a line on
/// `progress` says how far it is; none when it is null.
void MatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream* progress);

}  // namespace zorva
