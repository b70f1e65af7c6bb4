#pragma once

#include <functional>

#include "core/Chance.h"
#include "core/DecidedThrows.h"
#include "core/GameState.h"

namespace zorva::test {

/// A game played by chance with everything that players can do between two throws: drag pieces,
/// change the rules, step back and play on. As a value it also says how the game will go on.
struct PlayedGame {
    Settings settings;
    GameState state;
    Chance chance{0};
    std::array<Short, 10> faces{};  ///< throws are picked from these

    /// A game of any kind, ready to be begun.
    static PlayedGame Of(std::uint64_t seed);
};

/// Called at every position at which the game could be kept; it may end the game.
using AtPosition = std::function<void(PlayedGame&)>;

/// Plays from the first turn to the end.
void PlayWhole(PlayedGame& game, const AtPosition& atPosition);

/// Plays on, from a state made ready for RunTurns.
void PlayOn(PlayedGame& game, const AtPosition& atPosition);

}  // namespace zorva::test
