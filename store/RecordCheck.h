#pragma once

#include "core/GameState.h"

namespace zorva {

/// Whether the game could have written `record` as its next one. `state` is the position after its
/// records 1 to MoveRecordCount; CaptureReport is that of the last of them. A record that passes can be
/// executed without harm. The order of the colours and the rule options are not checked, because both
/// may be changed during a game. The rules of movement (IsMoveLegal) are: a change of them can make
/// saved games unreadable.
bool CanFollow(const GameState& state, const MoveRecord& record);

}  // namespace zorva
