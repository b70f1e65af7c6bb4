#pragma once

#include "core/GameState.h"

namespace zorva {

/// Squares of the bonus move that is due after that record: 20 when it sent a piece home that was
/// captured in the ordinary way, 10 when it walked a piece onto its own goal, else 0.
Short BonusDueAfter(const MoveRecord& record);

/// The colour whose turn the record belongs to: the one captured or dragged for, or the mover itself.
Colour ColourOnTurn(const MoveRecord& record);

/// Whether `record` can be what the game wrote next: `state` is the position to which its records up
/// to MoveRecordCount led, with the capture that the last of them reported. A record that passes can
/// be executed without harm. Nothing is asked of the order of the colours nor of the rule options:
/// both may be changed during a game.
bool CanFollow(const GameState& state, const MoveRecord& record);

}  // namespace zorva
