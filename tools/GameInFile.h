#pragma once

#include "engine/GameRules.h"
#include "engine/Moment.h"
#include "store/SettingsFile.h"
#include "tools/CommandLine.h"

namespace zorva {

/// A game in progress, or won, that is to be played on.
struct GameInFile {
    SettingsContent content;  ///< as the file has it: ContinueGame (core/GameStart.h) goes on from there
    GameState position;       ///< in which it goes on, as PositionReached (core/Outside.h) tells it
    Short die = 0;            ///< the face of the first throw; 0 when it is not known

    /// The moment from which it is played on: the first throw has been made if it is known.
    engine::Moment Start(const engine::GameRules& rules) const;
};

/// The game of a settings file and the die of --die. Throws a Failure if the file is missing, damaged
/// or without a game, or if a die is given where none is thrown.
GameInFile ReadGame(const std::string& fileName, const CommandLine& options);

}  // namespace zorva
