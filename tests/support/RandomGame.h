#pragma once

#include <cstdint>
#include <functional>

#include "core/DecidedThrows.h"
#include "core/GameState.h"
#include "engine/Chance.h"

namespace zorva::test {

/// What a random game may be made of.
struct RandomGameKind {
    Settings settings;
    PerColour<PieceCode> leftovers{};  ///< what stands in slot 3 of the goals before the game
    std::array<Short, 10> faces{};     ///< throws are picked from these
    bool shiftsByHand = false;         ///< pieces are dragged by hand now and then
    Colour first = 1;

    /// Any rules, levels, directions and players; dice fair or rich in some faces.
    static RandomGameKind Of(Chance& chance);
};

/// Picks any piece that may move, as a person does whose move is awaited.
void PickByChance(GameState& state, Chance& chance);

/// Drags any piece to any square of its way or its box, if it may stand there.
void TryShiftByHand(GameState& state, const Settings& settings, Chance& chance);

/// Called before each record is carried out: the state still stands as the record before left it.
using BeforeRecord = std::function<void(const GameState& state, const MoveRecord& record)>;

/// Called at each position at which the game could be kept, with all that decides how it goes on.
using AtEachPosition = std::function<void(const GameState& state, const Chance& chance)>;

/// Plays a game by chance, persons' picks and displacements by hand included. It ends when a colour
/// has won or when it has grown very long. Its records stay in the state; returns how many there are.
Short PlayRandomGame(GameState& state, const RandomGameKind& kind, Chance& chance,
                     const BeforeRecord& beforeRecord, const AtEachPosition& atPosition = {});

/// Goes on with a game as read from its file, with the chance of that position.
void ContinueRandomGame(GameState& state, const RandomGameKind& kind, Chance chance);

}  // namespace zorva::test
