#pragma once

#include "core/Outside.h"

namespace zorva {

/// Which way a move record is carried out.
enum class ExecutionMode : Short { Forward = 1, Backward = 2 };

/// Carries out the record MoveRecords[move]. One that moves no piece changes, shows and sounds nothing.
///
/// Forward: lifts the piece, walks it square by square, puts it down into the first empty slot and sets
/// CaptureReport and CapturedColour. A piece that returns to its box flies there in one step. A piece
/// dragged by hand, into its box too, is put down at once without a sound and captures nothing. A
/// captured piece stays where it is (in slot 3 when it was captured on the mover's exit square) until
/// its own record is executed.
///
/// Backward: puts the piece back at once. Taking back the records one after another restores every
/// table exactly, the order of the slots included. For that it reads only the records before `move`.
void ExecuteMove(const GameContext& game, ExecutionMode mode, Short move);

}  // namespace zorva
