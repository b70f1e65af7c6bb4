#pragma once

#include "core/Outside.h"

namespace zorva {

/// Faces shown one after another until the die lies still.
inline constexpr Short RollsOfAThrow = 10;

/// Rolls the die of CurrentColour: ten faces shown one after another, the tenth is the throw and
/// stays in DieValue. Two faces shown in a row always differ. When nobody watches, one face is rolled.
void ThrowDie(const Table& table);

}  // namespace zorva
