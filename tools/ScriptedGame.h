#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/GameState.h"

namespace zorva {

/// What is printed while a game is played.
struct ScriptedGameOutput {
    bool log = false;      ///< each log line, including the heading
    bool records = false;  ///< each move record
};

/// Reads throws: faces 1..6 with white space between them. Throws a Failure at anything else, and if the
/// file cannot be read; its message mentions `fileName`.
std::vector<Short> ReadThrows(std::istream& file, const std::string& fileName);

/// Plays a game from its start. `first` begins; the die shows the given throws, one after another. The
/// computer plays all colours, whatever the settings say. When the throws run out the game stops before
/// the next throw and stays in progress. `state` may hold an earlier game, which ResetGame removes.
void PlayScriptedGame(GameState& state, const Settings& settings, Colour first,
                      const std::vector<Short>& throws, ScriptedGameOutput wanted, std::ostream& out);

/// The `play` command: plays a scripted game and prints the position at its end and, if the game was
/// finished, the winner. The whole games in tests/data/games are compared with this output.
void PlayCommand(const std::vector<std::string>& arguments, std::ostream& out);

}  // namespace zorva
