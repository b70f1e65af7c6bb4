#pragma once

#include "core/GameState.h"

namespace zorva {

/// Whether a person may drag the piece by hand: its colour takes part and it is not on its goal.
bool MayBeDragged(const GameState& state, const Settings& settings, PieceCode code);

/// Whether a dragged piece may be put down on a square, 0 being its own box. A displacement captures
/// nothing and ends no game: refused are squares off its track, full squares, unsafe squares with a
/// rival, the goal for a fourth piece, and the place where it stands.
bool MayBeDropped(const GameState& state, PieceCode code, Square to);

/// Hands a displacement over to the turn driver, which waits for the throw: it logs it, executes it
/// and offers the turn again.
void DisplaceByHand(GameState& state, PieceCode code, Square to);

/// Switches manual mode on, while a throw is awaited.
void EnterManualMode(GameState& state);

/// Switches manual mode off; the colour on turn is again the one that was.
void LeaveManualMode(GameState& state);

}  // namespace zorva
