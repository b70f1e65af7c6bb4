#pragma once

#include "core/GameState.h"

namespace zorva {

/// Whether `record` can be what the game wrote next: `state` is the position to which its records up
/// to MoveRecordCount led, with the capture that the last of them reported. A record that passes can
/// be executed without harm. The order of the colours and the rule options are not looked at: both may
/// be changed during a game.
bool CanFollow(const GameState& state, const MoveRecord& record);

}  // namespace zorva
