#include "core/Displacement.h"

#include "core/Board.h"

namespace zorva {

bool MayBeDragged(const GameState& state, const Settings& settings, PieceCode code) {
    const Colour colour = ColourOf(code);
    return IsTakingPart(settings, colour) && state.PositionOf(code) != GoalSquare[colour];
}

bool MayBeDropped(const GameState& state, PieceCode code, Square to) {
    const Colour colour = ColourOf(code);
    if (to == state.PositionOf(code)) return false;
    if (to == 0) return true;
    if (!IsOnTrack(colour, to)) return false;
    if (to == GoalSquare[colour]) return state.PiecesHome[colour] < PiecesPerColour - 1;
    const auto& occupants = state.SquareOccupants[to];
    if (occupants[1] != 0 && occupants[2] != 0) return false;
    const bool holdsRival = occupants[1] != 0 && ColourOf(occupants[1]) != colour;
    return !holdsRival || IsSafeSquare(to);
}

void DisplaceByHand(GameState& state, PieceCode code, Square to) {
    state.CurrentColour = ColourOf(code);
    state.MovePiece = PieceOf(code);
    state.MoveFrom = state.PositionOf(code);
    state.MoveTo = to;
    state.ManualShiftMade = Yes;
    state.WaitingForThrow = No;
}

void EnterManualMode(GameState& state) {
    state.ManualMode = Yes;
    state.ManualShiftColour = state.CurrentColour;
}

void LeaveManualMode(GameState& state) {
    state.ManualMode = No;
    state.ManualShiftMade = No;
    state.CurrentColour = state.ManualShiftColour;
}

}  // namespace zorva
