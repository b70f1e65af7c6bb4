#pragma once

#include "core/GameState.h"
#include "core/Types.h"

namespace zorva {

/// Where a colour's pieces enter the ring from the box.
inline constexpr PerColour<Square> ExitSquare{0, 5, 22, 39, 56};
/// The last ring square before a colour's home column.
inline constexpr PerColour<Square> HomeEntrySquare{0, 68, 17, 34, 51};
/// The eighth and last square of a colour's home column.
inline constexpr PerColour<Square> GoalSquare{0, 76, 84, 92, 100};
/// The first square of a colour's home column.
inline constexpr PerColour<Square> FirstColumnSquare{0, 69, 77, 85, 93};

/// Steps from the exit square to the goal: 63 round the ring, 8 up the home column.
inline constexpr Short StepsToGoal = 71;
/// The longest walk there is: the bonus for a capture.
inline constexpr Short LongestWalk = 20;

/// The square reached by walking `steps` single steps from `square`; `square` itself when steps is
/// below 1. Past the goal the result is a number above the goal: no bound is checked.
Square AdvanceSquare(Square square, Short steps, Colour colour);

/// Whether no piece can be captured there: the exits, the home entries and 12, 29, 46, 63.
bool IsSafeSquare(Square square);

/// Steps from the colour's exit square to a square of its own track: 0 on the exit and in the
/// box, 63 on the home entry, 71 on the goal; -1 off the track.
Short StepsToSquare(Colour colour, Square square);

/// How far a piece has come: StepsToSquare of where it stands.
Short StepsFromExit(const GameState& state, Colour colour, Short piece);

/// Whether the square belongs to the way of that colour from its exit to its goal.
bool IsOnTrack(Colour colour, Square square);

}  // namespace zorva
