#pragma once

#include "core/GameState.h"

namespace zorva {

/// Whether a person may drag the piece by hand: its colour takes part and it is not on its goal.
bool MayBeDragged(const GameState& state, const Settings& settings, PieceCode code);

/// Whether a dragged piece may be put down on the square `to`, 0 being its own box. A displacement
/// captures nothing and ends no game. Refused are therefore unsafe squares with a rival and the goal for
/// a fourth piece; also squares off the piece's track, full squares and the square that it stands on.
bool MayBeDropped(const GameState& state, PieceCode code, Square to);

/// Hands a displacement over to the turn driver, which is waiting for the throw. The driver then logs
/// and executes the displacement and offers the turn again.
void DisplaceByHand(GameState& state, PieceCode code, Square to);

/// Switches manual mode on, while a throw is awaited.
void EnterManualMode(GameState& state);

/// Switches manual mode off and gives the turn back to the colour that had it before.
void LeaveManualMode(GameState& state);

}  // namespace zorva
