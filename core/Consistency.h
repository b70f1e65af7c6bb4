#pragma once

#include <string>

#include "core/GameState.h"

namespace zorva {

/// The first broken invariant of the board tables in words; empty when all of them hold: every piece is
/// in its box, or on its own track and in exactly one slot of its square; no slot holds another code; no
/// slot below an occupied one is empty; a square holds two pieces at most; the counts agree with the
/// positions. Goals are the exception: up to four pieces, and slot 3 may hold a code of an earlier game.
std::string StateProblem(const GameState& state);

}  // namespace zorva
