#pragma once

#include <string>

#include "core/GameState.h"

namespace zorva {

/// The first broken invariant of the board tables in words, empty when they are sound: every piece
/// on a square of its own track and in exactly one slot there, no other code anywhere, no gap below an
/// occupied slot, two pieces at most on a square, counts that agree with the positions.
std::string StateProblem(const GameState& state);

}  // namespace zorva
