#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zorva {

/// The `play` command: plays a game with given throws, the faces 1..6 in a file with white space between
/// them, and prints the position at its end and, if the game was finished, the winner. The computer
/// plays all colours, even those that the settings give to a person. When the throws run out the game
/// stops before the next throw and stays in progress. The whole games in tests/data/games are compared
/// with this output.
void PlayCommand(const std::vector<std::string>& arguments, std::ostream& out);

}  // namespace zorva
