#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/GameState.h"

namespace zorva {

/// Which lines of a game are printed while it is played.
struct ScriptedGameOutput {
    bool log = false;      ///< each log line, the heading included
    bool records = false;  ///< each move record
};

/// Reads throws, 1..6 with white space between them. Anything else in the file, and a file that
/// cannot be read, is thrown as a Failure.
std::vector<Short> ReadThrows(const std::string& fileName);

/// Plays a game from its start with the given throws, `first` beginning. All colours are played by
/// the computer whatever the settings say. A game that needs more throws than there are stops where
/// the next one would be awaited and stays in progress. `state` may hold any earlier game.
void PlayScriptedGame(GameState& state, const Settings& settings, Colour first,
                      const std::vector<Short>& throws, ScriptedGameOutput wanted, std::ostream& out);

/// The `play` command: plays a scripted game and prints how it went and how it stands at the end.
void PlayCommand(const std::vector<std::string>& arguments, std::ostream& out);

}  // namespace zorva
